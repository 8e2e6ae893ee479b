# Draws time per operation by size, a small chart for each case: file (blocks of a name and then size, plx, the peer) into
# output, for bench/charts.sh. Both scales are logarithmic: what takes constant time per operation is level.
set terminal svg size 860, 900 font "sans-serif,11" background "white" noenhanced
set output output
stats file using 1:2 nooutput
set multiplot layout 4, 3
set logscale xy
set xtics format "1e%T"
unset mxtics
unset mytics
set ytics format "%g"
set grid lc rgb "#d1d9e0"
set border 3
set xtics nomirror
set ytics nomirror
set key at graph 0, 1.12 left Left reverse samplen 0 font ",12"
set tmargin 3
do for [i = 0 : STATS_blocks - 1] {
  plot file index i using 1:2 with linespoints lc rgb "#1f6feb" pt 7 ps 0.4 title columnheader(1), \
       file index i using 1:3 with linespoints lc rgb "#8250df" pt 7 ps 0.4 notitle
}
unset multiplot
