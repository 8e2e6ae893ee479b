#!/bin/bash
# The one place where the commands know the runtime's records by their offsets agrees with the compiler; and every name
# that gdb looks for in the library is there when the library is stripped.
. "$PLX_SOURCE/tests/gdb/common.bash"
plx-c++ -g -std=gnu++17 -I "$PLX_SOURCE" "$PLX_SOURCE/tests/gdb/programs/layout.cpp" -o program 2> log ||
  wrong "layout.cpp does not build"
gdb -nx -batch -iex "add-auto-load-safe-path $PLX_PREFIX" -x "$PLX_SOURCE/tests/gdb/layout.py" ./program > log 2>&1
tail -n 1 log | grep -q '^transcript: [1-9][0-9]* commands, all as expected$' || wrong "the layout"
finish
