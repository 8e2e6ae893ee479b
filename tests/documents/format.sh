#!/bin/bash
# The library's sources are formatted by clang-format 14 (./dev format); other versions format differently.
. "$PLX_SOURCE/tests/driver/common.bash"
cd "$PLX_SOURCE" || exit 1
for tool in clang-format-14 clang-format; do
  case $($tool --version 2> "$work/log") in *"version 14."*) break ;; esac
  tool=
done
[ -n "$tool" ] || { echo "skipped: there is no clang-format 14"; exit 77; }
find libC exceptions string containers locale iostream cxxabi unwind -name '*.cpp' -o -name '*.h' > "$work/files"
[ "$(wc -l < "$work/files")" -ge 150 ] || wrong "files are missing"
xargs "$tool" --dry-run < "$work/files" 2>&1 | sed -n 's/:[0-9]*:[0-9]*: warning.*//p' | sort -u > "$work/log"
[ ! -s "$work/log" ] || wrong "clang-format -i would change"
finish
