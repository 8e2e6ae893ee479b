#!/bin/bash
# bench/charts.sh writes figures and charts from what ./dev bench printed; results that are not whole change nothing.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir -p tree/bench/scaling tree/docs
cp "$PLX_SOURCE"/bench/{charts.sh,chart.gnuplot,tables.awk} tree/bench/
cp "$PLX_SOURCE"/bench/scaling/chart.gnuplot tree/bench/scaling/
cp "$PLX_SOURCE"/docs/{performance,figures}.md tree/docs/
table() {
  echo "$1, median of 3   plx gcc   gcc   ratio   plx clang   clang   ratio   target"
  printf '%s\nvector<int> & others  2.00  4.00  2.00  5.00  5.00  1.00  1\nslow  1234  617  0.50  617  617  1.00  1 behind\n' "${@:2}"
  printf 'geometric mean of the ratios: 1.00 of 8 with gcc, behind their target: 4\n\n'
}
{
  table "ns per operation" exceptions string_copy sequences stream_in
  table "ns per operation, static programs" exceptions
  printf '%-50s %s\n%s\n\n' "ns per operation by size, least of 2" "plx-gcc gcc" "sort  10  1.00  2.00" \
    "instructions per call" plx-gcc "call in a try block  24.0" \
    "a hello that throws, one that has <iostream>" plx-gcc "throw: bytes  100" "objects of libplx.a in a static program" throw "libC  23"
} > results
tree/bench/charts.sh results > log 2>&1 || wrong "charts.sh"
for line in '| vector&lt;int> & others | 2.00 | 4.00 | 2.00 | 5.00 | 5.00 | 1.00 | 1 |' '| throw: bytes | 100 |' '| libC | 23 |' \
  '| slow | 1234 | 617 | 0.50 | 617 | 617 | 1.00 | 1, behind |' '| call in a try block | 24.0 |' '| sort | 10 | 1.00 | 2.00 |'; do
  grep -qxF "$line" tree/docs/figures.md || wrong "no $line"
done
diff <(cat tree/docs/*.md | grep -oE 'charts/[a-z]+\.svg' | sort -u) <(cd tree/docs && ls charts/*.svg) > log ||
  wrong "what the pages show is not what is drawn"
cp -r tree/docs before
sed '/^a hello/,$d' results > part
sed 's/^sequences$/newcomer/' results > unknown
for bad in part unknown; do tree/bench/charts.sh $bad > log 2>&1 && wrong "bad results are taken: $bad"; done
diff -r before tree/docs > log || wrong "bad results changed something"
finish
