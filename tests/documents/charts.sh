#!/bin/bash
# bench/charts.sh writes figures and charts from what ./dev bench printed, twice the same; results that are not whole
# change nothing.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir -p tree/bench tree/docs
cp "$PLX_SOURCE"/bench/charts.* tree/bench/
cp "$PLX_SOURCE/docs/performance.md" tree/docs/
row() { printf '%-50s %10s %10s %10s %8s %7s  %s\n' "$@"; }
{
  row "ns per operation, median of 3" plx g++ clang++ ratio target ''
  for program in exceptions string_copy sequences stream_in; do
    echo $program
    row "vector<int> & more of $program" 2.00 4.00 5.00 2.00 1 ''
    row "slow" 1234 617 700 0.50 1 behind
    row "no peer" 12.00 - - - 1 ''
  done
  echo "geometric mean of 8 ratios: 1.00; behind their target: 4"
  echo
  printf '%-50s %10s %10s %10s\n' "instructions per call" plx gcc clang "call in a try block" 55.0 24.0 21.0
  echo
  printf '%-50s %10s %10s %10s\n' "a hello that throws, one that has <iostream>" plx gcc clang "throw: bytes" 100 200 - \
    "iostream: bytes" 100 200 300
  echo
  echo "hello by <iostream> from fork to exit, of gcc's time: 0.67"
  echo
  printf '%-50s %10s %10s\n' "objects of libplx.a in a static program" throw iostream libC 23 24
} > results
tree/bench/charts.sh results > out 2>&1 || wrong "charts.sh: $(cat out)"
grep -qxF '| vector&lt;int> & more of exceptions | 2.00 | 4.00 | 5.00 | 2.00 |' tree/docs/performance.md || wrong "no row of a case"
grep -qxF '| slow | 1234 | 617 | 700 | 0.50, behind 1 |' tree/docs/performance.md || wrong "no row of a case that is behind"
grep -qxF '| call in a try block | 55.0 | 24.0 | 21.0 |' tree/docs/performance.md || wrong "no row of instructions"
grep -qxF '| throw: bytes | 100 | 200 | - |' tree/docs/performance.md || wrong "no row of sizes"
grep -qxF '| libC | 23 | 24 |' tree/docs/performance.md || wrong "no row of objects"
grep -qF 'medians of 3 runs. Geometric mean of 8 ratios: 1.00' tree/docs/performance.md || wrong "no summary"
for name in overview exceptions strings containers streams size; do
  [ -s tree/docs/charts/$name.svg ] || wrong "no chart $name"
  grep -q 'prefers-color-scheme: dark' tree/docs/charts/$name.svg || wrong "$name: one colour scheme only"
  grep -qE 'nan|inf[^o]|="-[0-9]' tree/docs/charts/$name.svg && wrong "$name: a number that is none"
  if command -v xmllint > out; then xmllint --noout tree/docs/charts/$name.svg || wrong "$name: not well-formed"; fi
done
grep -q 'vector&lt;int&gt; &amp; more' tree/docs/charts/containers.svg || wrong "a name is not escaped"
# What the page shows is what is drawn.
grep -oE 'charts/[a-z]+\.svg' tree/docs/performance.md | sort -u > shown
(cd tree/docs && ls charts/*.svg) | sort | diff shown - > log || wrong "charts and page differ: $(cat log)"

cp -r tree/docs before
tree/bench/charts.sh results > out 2>&1 && diff -r before tree/docs > out || wrong "a second time it is different"
sed '/^a hello/,$d' results > part
tree/bench/charts.sh part > out 2>&1 && wrong "a part of the results is taken"
{ cat results; echo; } | sed 's/^exceptions$/newcomer/' > unknown
tree/bench/charts.sh unknown > out 2>&1 && wrong "a program without a chart is taken"
diff -r before tree/docs > out || wrong "bad results changed something"
finish
