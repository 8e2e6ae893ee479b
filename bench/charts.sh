#!/bin/sh
# Writes the figures of one run into docs/performance.md and draws them as docs/charts/*.svg.
#
#   bench/charts.sh            runs ./dev bench first (a quiet machine, please; some minutes)
#   bench/charts.sh FILE       takes what ./dev bench printed into FILE
#
# The text around the marked places of the page is not touched, and nothing is when a measurement failed. Needs a shell
# and awk only.
set -eu
export LC_ALL=C
source_dir=$(cd "$(dirname "$0")/.." && pwd)
page=$source_dir/docs/performance.md
work=$(mktemp -d "${TMPDIR:-/tmp}/plx-charts.XXXXXX")
trap 'rm -rf "$work"' EXIT

case $# in
  0)
    "$source_dir/dev" bench > "$work/output"
    results=$work/output ;;
  1) results=$1 ;;
  *) echo "usage: bench/charts.sh [FILE]" >&2; exit 2 ;;
esac

# What was measured on, as far as this machine says.
processor=$(sed -n 's/^model name[^:]*: *//p' /proc/cpuinfo | head -n 1)
clang=$(clang-14 --version 2> /dev/null | sed -nE '1s/.*version ([0-9.]+).*/\1/p')
gcc=$(g++ -dumpfullversion 2> /dev/null || echo "?")

mkdir -p "$source_dir/docs/charts" "$work/charts"
awk -v folder="$work/charts" -v tables="$work" -v machine="${processor:-an unknown processor}, g++ $gcc, clang++ ${clang:-?}" \
  -v day="$(date +%Y-%m-%d)" -f "$source_dir/bench/charts.awk" "$results"

awk -v tables="$work" '
  /^<!-- bench: end -->$/ { skipping = 0 }
  !skipping { print }
  /^<!-- bench: [a-z]+ -->$/ && $3 != "end" {
    file = tables "/" $3 ".md"
    if ((getline line < file) <= 0) { print "charts: the results have nothing for " $3 > "/dev/stderr"; exit 1 }
    print ""
    do print line; while ((getline line < file) > 0)
    print ""
    close(file)
    skipping = 1
  }
  END { if (skipping) { print "charts: a mark without an end" > "/dev/stderr"; exit 1 } }' "$page" > "$work/page"
rm -f "$source_dir"/docs/charts/*.svg
cp "$work"/charts/*.svg "$source_dir/docs/charts/"
cp "$work/page" "$page"
echo "docs/performance.md and $(ls "$work/charts" | wc -l) charts are written"
