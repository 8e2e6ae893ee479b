#!/bin/bash
# bench/charts.sh writes figures and charts from what ./dev bench printed; results that are not whole change nothing.
. "$PLX_SOURCE/tests/driver/common.bash"
results=$PLX_SOURCE/tests/documents/data/bench
has() { grep -qxF -- "$1" tree/docs/figures.md; }
table < "$PLX_SOURCE/tests/documents/data/charts"
finish
