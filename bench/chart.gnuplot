# Draws one chart of ratios: file (name, ratio with g++, ratio with clang++; tab-separated) into output, for
# bench/charts.sh. On a logarithmic scale, from 1 ("as fast as the compiler's own library") to the right where plx is
# faster.
set terminal svg size 860, 90 + 20 * rows font "sans-serif,12" background "white" noenhanced
set output output
set datafile separator "\t"
set datafile missing "-"
set logscale x 2
set xtics format "%g"
set yrange [rows - 0.4 : -0.6]
set grid x lc rgb "#d1d9e0"
set border 0
set ytics scale 0
set key outside bottom center horizontal
set arrow from 1, graph 0 to 1, graph 1 nohead lc rgb "#1f2328" front
set style fill solid noborder
plot file using 2:0:(1):2:($0 - 0.32):($0):ytic(1) with boxxyerror lc rgb "#1f6feb" title "times as fast with g++", \
     file using 3:0:(1):3:($0):($0 + 0.32) with boxxyerror lc rgb "#8250df" title "with clang++"
