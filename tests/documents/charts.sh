#!/bin/bash
# bench/charts.sh writes figures and charts from what ./dev bench printed, twice the same; results that are not whole
# change nothing.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir -p tree/bench tree/docs
cp "$PLX_SOURCE"/bench/charts.* tree/bench/
cp "$PLX_SOURCE/docs/performance.md" tree/docs/
cp "$PLX_SOURCE/tests/documents/data/results.txt" results
tree/bench/charts.sh results > out 2>&1 || wrong "charts.sh: $(cat out)"
grep -vxFf tree/docs/performance.md "$PLX_SOURCE/tests/documents/data/rows.txt" > log && wrong "rows are missing"
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
