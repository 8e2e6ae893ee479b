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
plx-c++ -g inventory.cpp -o program 2> log || wrong "inventory.cpp does not build"
for file in transcript.*; do
  # Where `up` leads is said on the terminal only.
  awk '
    /^\(gdb\) / { up = $2 == "up"; sub(/^\(gdb\) /, "//> "); print; next }
    !up { print "//= " $0 }
  ' "$file" > commands
  PLX_STOP=${file#transcript.} transcript "$PWD/commands" ./program
done
[ -f transcript.__cxa_throw ] && [ -f transcript.__cxa_end_catch ] || wrong "the transcripts are not found"
finish
