#!/bin/bash
# bench/charts.sh writes figures and charts from what ./dev bench printed; results that are not whole change nothing.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir -p tree/bench/scaling tree/docs
cp "$PLX_SOURCE"/bench/{charts.sh,chart.gnuplot,tables.awk} tree/bench/
cp "$PLX_SOURCE"/bench/scaling/chart.gnuplot tree/bench/scaling/
cp "$PLX_SOURCE"/docs/{performance,figures}.md tree/docs/
table() {
  local row='%-50s %10s %10s %7s %10s %10s %7s %7s  %s\n'
  # shellcheck disable=SC2059 # a format
  printf "$row" "$1, median of 3" "plx gcc" gcc ratio "plx clang" clang ratio target ''
  for program in "${@:2}"; do
    # shellcheck disable=SC2059
    printf "$program\n$row$row$row" "vector<int> & $program" 2.00 4.00 2.00 5.00 5.00 1.00 1 '' \
      "no peer" 12.00 - - - - - 1 '' "slow" 1234 617 0.50 617 617 1.00 1 behind
  done
  printf 'geometric mean of the ratios: 1.00 of 8 with gcc, behind their target: 4\n\n'
}
{
  table "ns per operation" exceptions string_copy sequences stream_in
  table "ns per operation, static programs" exceptions
  printf '%-50s %10s %10s\n' "ns per operation by size, least of 2" "plx gcc" gcc "sort  10" 1.00 2.00 "sort  100" 3.00 4.00; echo
  printf '%-50s %10s\n' "instructions per call" plx-gcc "call in a try block" 24.0; echo
  printf '%-50s %10s\n' "a hello that throws, one that has <iostream>" plx-gcc "throw: bytes" 100; echo
  printf '%-50s %10s\n' "objects of libplx.a in a static program" throw libC 23
} > results
tree/bench/charts.sh results > out 2>&1 || wrong "charts.sh: $(cat out)"
grep -qxF '| vector&lt;int> & exceptions | 2.00 | 4.00 | 2.00 | 5.00 | 5.00 | 1.00 | 1 |' tree/docs/figures.md || wrong "no case"
grep -qxF '| slow | 1234 | 617 | 0.50 | 617 | 617 | 1.00 | 1, behind |' tree/docs/figures.md || wrong "no case that is behind"
for line in '| call in a try block | 24.0 |' '| sort | 100 | 3.00 | 4.00 |' '| throw: bytes | 100 |' '| libC | 23 |'; do
  grep -qxF "$line" tree/docs/figures.md || wrong "no $line"
done
# What the pages show is what is drawn.
cat tree/docs/*.md | grep -oE 'charts/[a-z]+\.svg' | sort -u > shown
(cd tree/docs && ls charts/*.svg) | diff shown - > log || wrong "charts and pages differ: $(cat log)"

cp -r tree/docs before
sed '/^a hello/,$d' results > part
tree/bench/charts.sh part > out 2>&1 && wrong "a part of the results is taken"
sed 's/^sequences$/newcomer/' results > unknown
tree/bench/charts.sh unknown > out 2>&1 && wrong "a program without a chart is taken"
diff -r before tree/docs > out || wrong "bad results changed something"
finish
