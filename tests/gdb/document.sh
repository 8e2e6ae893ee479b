#!/bin/bash
# The transcripts that docs/debugging.md shows are what gdb prints. Each is marked with the function that it is stopped in.
. "$PLX_SOURCE/tests/gdb/common.bash"
awk '
  /^```cpp file=/ { sub(/.*file=/, ""); target = $0; next }
  /^<!-- gdb: / { marked = "transcript." $3; next }
  /^```text/ && marked { target = marked; marked = ""; next }
  /^```/ { target = ""; next }
  target != "" { print > target }
' "$PLX_SOURCE/docs/debugging.md"
for compiler in "$PLX_CXX" g++; do
  PLX_CXX=$compiler build inventory.cpp
  for function in main __cxa_end_catch; do
    PLX_STOP=$function transcript "transcript.$function" ./program
  done
done
finish
