#!/bin/bash
# The sequences' tests against the host's library: where plx and the 1998 standard agree, what the tests expect must hold
# there too, or the expectation is wrong.
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source=$PLX_SOURCE/tests
failures=0

if ! echo 'int main() { return std::string().size(); }' |
    g++ -m32 -std=gnu++98 -include string -x c++ - -o "$work/probe" 2> "$work/log"; then
  echo "skipped: g++ -m32 with the host's library does not work here"
  exit 77
fi
for name in vector vector_bool deque list queue sequence_exceptions; do
  if ! g++ -m32 -std=gnu++98 -O1 -w -I "$source" "$source/containers/$name.cpp" -o "$work/$name" 2> "$work/log"; then
    echo "$name does not build:"
    head -10 "$work/log"
    failures=1
  elif ! "$work/$name" 2> "$work/log"; then
    echo "$name fails:"
    head -10 "$work/log"
    failures=1
  fi
done
exit $failures
