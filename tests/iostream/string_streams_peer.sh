#!/bin/bash
# Where plx and the 1998 standard agree, the host's C++ library is a witness for string streams: one program of random
# operations is built against both, and every line that it prints must be the same.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source=$PLX_SOURCE/tests/iostream/peer/string_streams.cpp

if ! g++ -m32 -std=gnu++98 -O1 "$source" -o "$work/host" 2> "$work/log"; then
  echo "skipped: g++ -m32 with the host's library does not work here"
  exit 77
fi
"$PLX_PREFIX/bin/plx-c++" -O1 "$source" -o "$work/plx"
"$work/host" > "$work/want"
"$work/plx" > "$work/got"
[ "$(wc -l < "$work/want")" -gt 80000 ]
if ! cmp "$work/want" "$work/got"; then
  diff "$work/want" "$work/got" | head -10
  exit 1
fi
