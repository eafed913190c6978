# Markdown from the data files of rvngenmx_bench.
#
#   awk -v what=sizes ... FILE        a table of one transform, a row a size
#   awk -v what=summary ... FILE...   a table of geometric means, a row a transform
#
# The third comment of a file tells its columns: what a size is called, the number of times and of
# ratios, then of each group of extra figures how many there are and their key.

BEGIN {
    shown = split("element growth cycles limit cores", keys, " ")
    alone["element"] = "ns/element"
    alone["growth"] = "ns/(N log2 N)"
    alone["limit"] = "over limit"
    if (what == "summary") {
        print "| transform | over limit | from memory | four pipes | scalar peer | SIMD peer " \
              "| sizes where it wins | KissFFT |"
        print "|---|---|---|---|---|---|---|---|"
    }
}

FNR == 1 {
    if (NR > 1)
        finish()
    delete first
    delete size
    delete sum
    delete terms
    wins = 0
    rows = 0
    name = $2
    sub(/,$/, "", name)
}

FNR == 3 {
    sizeName = $2
    times = $3
    ratios = $4
    column = 2 + times + ratios
    for (i = 5; i < NF; i += 2) {
        first[$(i + 1)] = column
        size[$(i + 1)] = $i
        column += $i
    }
}

FNR == 4 {
    split($0, quoted, "\"")
    if (what == "sizes")
        printHead()
}

FNR > 4 && what == "sizes" {
    printRow()
}

FNR > 4 && what == "summary" {
    ++rows
    points = sizeName == "order" ? 2 ^ $1 : $1
    for (i = 0; i < ratios; ++i)
        add("ratio" i, $(2 + times + i))
    wins += ratios > 1 && $(3 + times) != "-" && $(3 + times) < 1
    if (points >= 16) {
        add("limit", $(first["limit"]))
        for (i = 0; i < size["cores"]; ++i)
            add(title(first["cores"] + i), $(first["cores"] + i))
    }
}

END {
    finish()
}

# Of a column of figures, as the file has it.
function title(column) {
    return quoted[2 * (column - 1)]
}

function add(key, value) {
    if (value == "-")
        return
    sum[key] += log(value)
    ++terms[key]
}

function mean(key) {
    return terms[key] ? sprintf("%.2f", exp(sum[key] / terms[key])) : ""
}

function finish() {
    if (what == "summary")
        printf "| `%s` | %s | %s | %s | %s | %s | %s | %s |\n", name, mean("limit"), \
            mean("from memory"), mean("four pipes"), mean("ratio0"), mean("ratio1"), \
            wins " of " rows, mean("ratio2")
}

function columnsOf(key) {
    return key == "cycles" || key == "cores" ? size[key] : 1
}

# The data file has six digits.
function text(value, digits) {
    return sprintf(value < 10000 ? "%." digits "f" : "%.0f", value)
}

function printHead(    k, i, head, line) {
    head = "| " (sizeName == "order" ? "order" : "N") " | ns |"
    line = "|---|---|"
    for (k = 1; k <= shown; ++k)
        for (i = 0; keys[k] in first && i < columnsOf(keys[k]); ++i) {
            head = head " " (keys[k] in alone ? alone[keys[k]] : \
                             keys[k] == "cycles" ? (i ? "limit" : "cycles") : \
                             title(first[keys[k]] + i)) " |"
            line = line "---|"
        }
    for (i = 0; i < ratios; ++i) {
        head = head " " title(2 + times + i) " |"
        line = line "---|"
    }
    print head "\n" line
}

function printRow(    k, i, key, digits, row) {
    row = "| " $1 " | " text($2, 2) " |"
    for (k = 1; k <= shown; ++k)
        for (i = 0; keys[k] in first && i < columnsOf(keys[k]); ++i) {
            key = keys[k]
            digits = key == "cycles" ? 1 : key == "element" || key == "growth" ? 3 : 2
            row = row " " text($(first[key] + i), digits) " |"
        }
    for (i = 0; i < ratios; ++i)
        row = row " " ($(2 + times + i) == "-" ? "" : text($(2 + times + i), 2)) " |"
    print row
}
