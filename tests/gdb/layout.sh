#!/bin/bash
# The one place where the commands know the runtime's records by their offsets agrees with the compiler; and every name
# that gdb looks for in the library is there when the library is stripped.
. "$PLX_SOURCE/tests/gdb/common.bash"
build "$programs/layout.cpp" -std=gnu++17 -I "$PLX_SOURCE" && { run_python layout.py ./program || wrong "the layout"; }
finish
