#!/bin/bash
# The tests of complex and valarray hold for the host's library too, but for plx's own rules: what they compare with is
# then not just what plx happens to do.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if ! echo '#include <string>
    int main() {}' | g++ -m32 -x c++ - -o "$work/probe" 2> "$work/log"; then
  echo "skipped: g++ -m32 with the host's library does not work here"
  exit 77
fi
for name in complex valarray; do
  g++ -m32 -std=gnu++98 -O1 -I "$PLX_SOURCE/tests" "$PLX_SOURCE/tests/numerics/$name.cpp" -o "$work/host"
  echo "$name"
  "$work/host"
done
