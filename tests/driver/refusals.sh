#!/bin/bash
# What cannot work is refused with status 1 and one line, before anything is compiled; what only looks alike is not.
. "$PLX_SOURCE/tests/driver/common.bash"
found() { mkdir -p bin && env -u PLX_CXX -u PLX_CC PATH="$work/bin" "$PLX_PREFIX/bin/$1" -v; }
plays() { printf '#!/bin/sh\necho %s "$@"\n' "$1" > "bin/$1" && chmod +x "bin/$1"; }
tools() { mkdir -p bin && for tool in sh env readlink mktemp rm tr; do ln -s "$(command -v $tool)" bin/$tool; done; }
table < "$tables/refusals.txt"

# Each option, and the reason that both drivers give.
while read -r option reason; do
  echo "plx-c++ $option main.cpp => plx-c++: error: $option: $reason !1"
  echo "plx-cc -c $option main.c => plx-cc: error: $option: $reason !1"
done < "$tables/refused_options.txt" > rows
table < rows
finish
