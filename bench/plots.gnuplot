# The plots of one data file of rvngenmx_bench, by size: the ratios, the times and each group of
# extra figures of the transform that a table alone does not show.
#
#     gnuplot -c plots.gnuplot <data file> <title> <stem of the PNG files> \
#             <name of a size> <times> <ratios> <groups>
#
# The last four are from the data file's third comment; the groups, one argument, are a number and a
# key for each. The numbers count its columns, in this order behind the size. The ratios belong to
# the last contenders that have times.

data = ARG1
title = ARG2
stem = ARG3
size = ARG4
times = int(ARG5)
ratios = int(ARG6)
groups = ARG7

firstTime = 2
firstRatio = firstTime + times
firstExtra = firstRatio + ratios
firstPeer = times - ratios # as a contender, counted from 0

set datafile missing "-"
# With a palette: the files are a quarter of the size.
set terminal png size 1000,480 font "DejaVu Sans,10" noenhanced background "#ffffff"
set ytics nomirror
set grid xtics ytics mytics linecolor "#dddddd" linetype 1, linecolor "#eeeeee" linetype 1
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

# One colour a contender in all plots, ours first.
set linetype 1 linecolor "#000000" linewidth 1.5 pointtype 7 pointsize 0.5
set linetype 2 linecolor "#0072b2" linewidth 1.5 pointtype 5 pointsize 0.5
set linetype 3 linecolor "#d55e00" linewidth 1.5 pointtype 9 pointsize 0.6
set linetype 4 linecolor "#009e73" linewidth 1.5 pointtype 13 pointsize 0.7
set linetype 5 linecolor "#cc79a7" linewidth 1.5 pointtype 11 pointsize 0.6
set linetype 6 linecolor "#e69f00" linewidth 1.5 pointtype 3 pointsize 0.6
set linetype 7 linecolor "#996633" linewidth 1
set linetype 8 linecolor "#888888" linewidth 1

set output stem . "_ratio.png"
set title title . "\ntimes as fast as the peer: its time over ours"
set ylabel "ratio, higher is better for ours"
set logscale y 2
set format y "%g"
set ytics (0.01, 0.02, 0.05, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.8, 1, 1.2, 1.5, 2, 3, 4, 5, 7, \
           10, 15, 20, 30, 50)
set yrange [* < 0.8 : 1.2 < *]
plot 1 with lines linecolor "#000000" title "equal", \
    for [i = 0 : ratios - 1] data using 1:(column(firstRatio + i)) \
    with linespoints linetype firstPeer + i + 1 title columnheader(firstRatio + i)

set output stem . "_time.png"
set title title . "\ntime of one call"
set ylabel "nanoseconds, lower is better"
set ytics autofreq
set yrange [*:*]
set logscale y 10
plot for [i = 0 : times - 1] data using 1:(column(firstTime + i)) \
    with linespoints linetype i + 1 title columnheader(firstTime + i)

keyOf(g) = 2 * g > words(groups) ? "" : word(groups, 2 * g)
sizeOf(g) = 2 * g > words(groups) ? 0 : int(word(groups, 2 * g - 1))
plotted = "error limit growth planning"

do for [g = 1 : words(groups) / 2] {
    extras = sizeOf(g)
    key = keyOf(g)
    if (strstrt(plotted, key) == 0) {
        firstExtra = firstExtra + extras
        continue
    }
    set output stem . "_" . key . ".png"
    set ytics autofreq
    set format y "%g"
    set logscale y 10
    set yrange [*:*]
    if (key eq "error") {
        set title title . "\nrelative rms error on random input"
        set ylabel "error, lower is better"
        unset logscale y
        set format y "%.1e"
        set yrange [0:*]
    }
    if (key eq "limit") {
        set title title . "\ntime over the limit of our operations in scalar code"
        set ylabel "times the limit, lower is better"
        set logscale y 2
        set ytics (0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.8, 1, 1.2, 1.5, 2, 3, 4, 6, 8, 12, 16)
        set yrange [0.125 : 8]
    }
    if (key eq "growth") {
        set title title . "\ntime of one call over N log2 N"
        set ylabel "nanoseconds, lower is better"
        set logscale y 2
        set ytics (0.05, 0.1, 0.15, 0.2, 0.3, 0.4, 0.5, 0.7, 1, 1.5, 2, 3, 5, 10, 20, 30)
    }
    if (key eq "planning") {
        set title title . "\ntime of planning"
        set ylabel "microseconds, lower is better"
    }
    # Beside the limit, those of other cores: our time over ours, over our time over theirs.
    cores = firstExtra + extras
    others = key eq "limit" && keyOf(g + 1) eq "cores" ? sizeOf(g + 1) : 0
    plot for [i = 0 : extras - 1] data using 1:(column(firstExtra + i)) with linespoints \
        linetype (i == 0 ? 1 : firstPeer + i) title columnheader(firstExtra + i), \
        for [i = 0 : others - 1] data using 1:(column(firstExtra) / column(cores + i)) \
        with lines linetype 7 + i title "limit " . columnheader(cores + i), \
        for [i = 1 : key eq "limit"] i with lines linecolor "#000000" title "limit"
    firstExtra = firstExtra + extras
}
