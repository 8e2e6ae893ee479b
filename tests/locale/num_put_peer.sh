#!/bin/bash
# Where plx and the 1998 standard agree on the text of numbers, the host's C++ library is a witness: one program that
# puts 200,000 random numbers in random formats is built against both, and every line must be the same.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source=$PLX_SOURCE/tests/locale/peer/numbers.cpp

if ! g++ -m32 -std=gnu++98 -O1 "$source" -o "$work/host" 2> "$work/log"; then
  cat "$work/log" >&2
  echo "skipped: g++ -m32 with the host's library does not work here"
  exit 77
fi
"$PLX_PREFIX/bin/plx-c++" -O1 "$source" -o "$work/plx"
"$work/host" > "$work/want"
"$work/plx" > "$work/got"
[ "$(wc -l < "$work/want")" -eq 200000 ]
if ! cmp "$work/want" "$work/got"; then
  diff "$work/want" "$work/got" | head -20
  exit 1
fi
