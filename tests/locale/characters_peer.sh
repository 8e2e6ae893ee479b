#!/bin/bash
# Characters in the "C" locale: one program, built against plx and against the host's C++ library, prints the same.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source=$PLX_SOURCE/tests/locale/peer/characters.cpp

if ! g++ -m32 -std=gnu++98 -O1 "$source" -o "$work/host" 2> "$work/log"; then
  echo "skipped: g++ -m32 with the host's library does not work here"
  exit 77
fi
"$PLX_PREFIX/bin/plx-c++" -O1 "$source" -o "$work/plx"
"$work/host" > "$work/want"
"$work/plx" > "$work/got"
[ "$(wc -l < "$work/want")" -ge 20127 ]
if ! cmp "$work/want" "$work/got"; then
  diff -a "$work/want" "$work/got" | head -10
  exit 1
fi
