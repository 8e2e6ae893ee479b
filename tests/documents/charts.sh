#!/bin/bash
# bench/charts.sh writes figures and charts from what ./dev bench printed; results that are not whole change nothing.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir -p tree/bench/scaling tree/docs
cp "$PLX_SOURCE"/bench/{charts.sh,chart.gnuplot,tables.awk} tree/bench/
cp "$PLX_SOURCE"/bench/scaling/chart.gnuplot tree/bench/scaling/
cp "$PLX_SOURCE"/docs/{performance,figures}.md tree/docs/
results=$PLX_SOURCE/tests/documents/data/bench
has() { grep -qxF -- "$1" tree/docs/figures.md; }
table < "$PLX_SOURCE/tests/documents/data/charts"
finish
