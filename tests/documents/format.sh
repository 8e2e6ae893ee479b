#!/bin/bash
# Every source that .clang-format speaks of is formatted by version 14 (./dev format); other versions format differently.
. "$PLX_SOURCE/tests/driver/common.bash"
cd "$PLX_SOURCE" || exit 1
for tool in clang-format-14 clang-format; do
  case $($tool --version 2> "$work/log") in *"version 14."*) break ;; esac
  tool=
done
[ -n "$tool" ] || { echo "skipped: there is no clang-format 14"; exit 77; }
find . \( -name build -o -name .git -o -name corpus \) -prune -o \
  -type f \( -name '*.[ch]' -o -name '*.cc' -o -name '*.cpp' -o -path './include/[a-z]*' ! -name '*.md' \) -print > "$work/files"
for folder in libC cxxabi unwind exceptions string containers numbers locale iostream include tests bench examples; do
  [ "$(grep -c "^./$folder/" "$work/files")" -ge 5 ] || wrong "files of $folder are missing"
done
xargs "$tool" --dry-run < "$work/files" 2>&1 | sed -n 's/:[0-9]*:[0-9]*: warning.*//p' | sort -u > "$work/log"
[ ! -s "$work/log" ] || wrong "clang-format -i would change $(cat "$work/log")"
finish
