# The plots of one data file of rvngenmx_bench, by size: the ratios, the times and each group of
# extra figures of the transform that a table alone does not show.
#
#     gnuplot -c plots.gnuplot <data file> <stem of the PNG files>
#
# The file's head tells its columns: behind the size come the times, the ratios, which belong to the
# last contenders that have times, and the groups of extra figures.

data = ARG1
stem = ARG2
line(n) = system(sprintf("sed -n '%ds/^# //p' '%s'", n, data))
title = line(1) . ", " . line(2)
columns = line(3)
names = system(sprintf("sed -n 4p '%s'", data))
size = word(columns, 1)
times = int(word(columns, 2))
ratios = int(word(columns, 3))
name(column) = word(names, column)

firstTime = 2
firstRatio = firstTime + times
firstExtra = firstRatio + ratios
firstPeer = times - ratios # as a contender, counted from 0

set datafile missing "-"
set zero 1e-30 # errors are not
set terminal pngcairo size 1000,520 font "Sans,10" noenhanced background "#ffffff"
set ytics nomirror
set grid xtics ytics mytics linetype 1 linecolor "#dddddd", linetype 1 linecolor "#eeeeee"
set border 3 linecolor "#666666"
set tics textcolor "#000000"
set key outside top center horizontal

if (size eq "length") {
    set xlabel "length N"
    set xrange [1:65]
    set xtics 2,2 nomirror
    set mxtics 2
}
if (size eq "order") {
    set xlabel "order k, 2^k points"
    set xrange [0.5:13.5]
    set xtics 1,1 nomirror
}
if (size eq "size") {
    set xlabel "size N"
    set logscale x 2
    set format x "2^%L"
    set xrange [1.5 : 1.5 * 2**20]
    set xtics 2 nomirror
}

# One colour and mark a contender in all plots, ours in black and shades of it, limits dashed.
known = '"ours" "ours CCS" "ours Pack" "ours Perm" "ours alloc" "FFTW scalar" "FFTW SIMD" KissFFT loop "AVX2 loop"'
colors = "#000000 #000000 #7a7a7a #b0b0b0 #7a7a7a #0072b2 #e66100 #009e73 #0072b2 #e66100"
marks = "7 7 6 4 6 5 9 13 5 9"
place(name) = sum [i = 1 : words(known)] (word(known, i) eq name ? i : 0)
color(column) = word(colors, place(name(column)))
mark(column) = int(word(marks, place(name(column))))
set for [i = 1 : 2] linetype i linecolor "#555555" linewidth 1.5
set style data linespoints

set output stem . "_ratio.png"
set title title . "\ntimes as fast as the peer: its time over ours"
set ylabel "ratio, higher is better for ours"
set logscale y 2
set format y "%g"
round = "0.05 0.1 0.2 0.3 0.4 0.5 0.6 0.8 1 1.2 1.5 2 3 4 5 7 10 15 20 30 50"
set ytics (1)
set for [tick in round] ytics add (tick tick)
set yrange [* < 0.8 : 1.2 < *]
plot 1 with lines linecolor "#555555" dashtype 2 title "equal", \
    for [c = firstRatio : firstExtra - 1] data using 1:(column(c)) \
    linewidth 1.5 pointsize 0.6 linecolor rgb color(c) pointtype mark(c) title name(c)

set output stem . "_time.png"
set title title . "\ntime of one call"
set ylabel "nanoseconds, lower is better"
set ytics autofreq
set yrange [*:*]
set logscale y 10
plot for [c = firstTime : firstRatio - 1] data using 1:(column(c)) \
    linewidth 1.5 pointsize 0.6 linecolor rgb color(c) pointtype mark(c) title name(c)

groupSize(g) = 2 * g + 3 > words(columns) ? 0 : int(word(columns, 2 * g + 2))
key(g) = 2 * g + 3 > words(columns) ? "" : word(columns, 2 * g + 3)
titles = '"relative rms error on random input" "time over the limit of our operations in scalar code" "time of one call over N log2 N" "time of planning"'
labels = '"error" "times the limit" nanoseconds microseconds'
plotted = "error limit growth planning"

do for [g = 1 : (words(columns) - 3) / 2] {
    group = sum [i = 1 : words(plotted)] (word(plotted, i) eq key(g) ? i : 0)
    if (group > 0) {
        set output stem . "_" . key(g) . ".png"
        set title title . "\n" . word(titles, group)
        set ylabel word(labels, group) . ", lower is better"
        set format y (group == 1 ? "%.1e" : "%g")
        set ytics autofreq
        if (group == 1) { unset logscale y; set yrange [0:*] } else { set logscale y 2; set yrange [*:*] }
        if (group == 2) { set ytics (1); set for [tick in round] ytics add (tick tick) }
        # Beside the limit, those of other cores: our time over ours, over our time over theirs.
        cores = firstExtra + groupSize(g)
        others = group == 2 && key(g + 1) eq "cores" ? groupSize(g + 1) : 0
        plot for [c = firstExtra : cores - 1] data using 1:(column(c)) \
            linewidth 1.5 pointsize 0.6 linecolor rgb color(c) pointtype mark(c) title name(c), \
            for [i = 0 : others - 1] data using 1:(column(firstExtra) / column(cores + i)) \
            with lines linetype 1 dashtype 3 + i title "limit " . name(cores + i), \
            (group == 2 ? 1 : NaN) with lines linetype 1 dashtype 2 title (group == 2 ? "limit" : "")
    }
    firstExtra = firstExtra + groupSize(g)
}
