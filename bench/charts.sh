#!/bin/bash
# Writes the figures of one run into docs/figures.md and docs/performance.md, and draws them as docs/charts/*.svg.
#
#   bench/charts.sh            runs ./dev bench first (a quiet machine, please; some minutes)
#   bench/charts.sh FILE       takes what ./dev bench printed into FILE
#
# The text around the marked places of the pages is not touched, and nothing is when a measurement failed.
set -eu
export LC_ALL=C
source_dir=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/plx-charts.XXXXXX")
trap 'rm -rf "$work"' EXIT
command -v gnuplot > "$work/which" || { echo "charts: gnuplot is not there (Debian: gnuplot-nox)" >&2; exit 1; }

case $# in
  0)
    "$source_dir/dev" bench > "$work/output"
    results=$work/output ;;
  1) results=$1 ;;
  *) echo "usage: bench/charts.sh [FILE]" >&2; exit 2 ;;
esac

# What was measured on, as far as this machine says.
processor=$(sed -n 's/^model name[^:]*: *//p' /proc/cpuinfo | head -n 1)
clang=$(clang-14 --version 2> "$work/which" | sed -nE '1s/.*version ([0-9.]+).*/\1/p')
gcc=$(g++ -dumpfullversion 2> "$work/which" || echo "?")

mkdir "$work/tables" "$work/data"
awk -v tables="$work/tables" -v data="$work/data" -v machine="${processor:-an unknown processor}, g++ $gcc, clang++ ${clang:-?}" \
  -v day="$(date +%Y-%m-%d)" -f "$source_dir/bench/tables.awk" "$results"

# A chart of each group: a bar from 1 for each case and compiler; and an overview of the programs.
mkdir -p "$source_dir/docs/charts" "$work/charts"
for file in "$work"/data/*.tsv; do
  name=$(basename "$file" .tsv)
  gnuplot -e "file='$file'; output='$work/charts/$name.svg'; rows=$(wc -l < "$file")" "$source_dir/bench/chart.gnuplot"
done

gnuplot -e "file='$work/data/scaling.blocks'; output='$work/charts/scaling.svg'" "$source_dir/bench/scaling/chart.gnuplot"

for page in figures performance; do
  awk -v tables="$work/tables" '
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
    END { if (skipping) { print "charts: a mark without an end" > "/dev/stderr"; exit 1 } }' \
    "$source_dir/docs/$page.md" > "$work/$page"
done
cp "$work/figures" "$source_dir/docs/figures.md"
cp "$work/performance" "$source_dir/docs/performance.md"
rm -f "$source_dir"/docs/charts/*.svg
cp "$work"/charts/*.svg "$source_dir/docs/charts/"
echo "docs/figures.md, docs/performance.md and $(ls "$work/charts" | wc -l) charts are written"
