#!/bin/bash
# The symbols that libplx.so exports are a checked-in list: what came or went without being meant to is a fault. Names of
# the list are C++ names as the linker sees them, one in a line, sorted; data objects have a D and their size, because
# programs hold copies of them.
#
#   exported.sh            prints the difference and fails when there is one (./dev symbols)
#   exported.sh --update   writes the list (./dev symbols --update)
set -u
export LC_ALL=C
list=$PLX_SOURCE/tests/symbols/exported.txt

# Sanitized objects are larger, and the sanitizers export symbols of their own.
[ -z "${PLX_SANITIZE:-}" ] || { echo "skipped: the list is of the library as it is used"; exit 77; }

# The records of fundamental types that C++ does not have (128-bit integers, half and decimal numbers) are left out: which
# of them there are depends on the compiler of the library. So are the tables of classes under construction (_ZTC), which
# only the library's own constructors use: not every compiler exports them.
actual=$(readelf --dyn-syms -W "$PLX_PREFIX/lib/libplx.so.3" |
  awk '$7 != "UND" && ($5 == "GLOBAL" || $5 == "WEAK" || $5 == "UNIQUE") {
    # The name of the version node is an object of its own.
    if ($8 == "PLX_3") next
    if (!sub(/@@PLX_3$/, "", $8)) $8 = $8 " without a version of ours"
    print $8 ($4 == "OBJECT" ? " D " $3 : "")
  }' | grep -Ev '^_ZT[IS](P|PK)?(n|o|D[defh]) |^_ZTC' | sort)
[ -n "$actual" ] || { echo "no symbols: cannot read $PLX_PREFIX/lib/libplx.so.3"; exit 1; }

diff "$list" - <<< "$actual" | sed -n 's/^</gone:/p; s/^>/new: /p' | c++filt -n | grep . || exit 0
if [ "${1:-}" = --update ]; then
  echo "$actual" > "$list"
  echo "$(wc -l < "$list") symbols are in tests/symbols/exported.txt"
  exit
fi
echo "the exported symbols changed; ./dev symbols --update accepts this"
exit 1
