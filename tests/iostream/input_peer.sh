#!/bin/bash
# Where plx and the 1998 standard agree, the host's C++ library is a witness for input: one program of random operations
# is built against both, and every line that it prints must be the same. In each library, a string buffer, a file buffer
# and a buffer of single characters must agree, too.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source=$PLX_SOURCE/tests/iostream/peer/input.cpp

if ! g++ -m32 -std=gnu++98 -O1 "$source" -o "$work/host" 2> "$work/log"; then
  echo "skipped: g++ -m32 with the host's library does not work here"
  exit 77
fi
"$PLX_PREFIX/bin/plx-c++" -O1 "$source" -o "$work/plx"
"$work/host" > "$work/want" || { echo "the host's buffers disagree"; exit 1; }
"$work/plx" > "$work/got" || { grep -B1 -m5 '^but' "$work/got"; exit 1; }
[ "$(wc -l < "$work/want")" -eq 45000 ]
if ! cmp "$work/want" "$work/got"; then
  diff "$work/want" "$work/got" | head -10
  exit 1
fi
