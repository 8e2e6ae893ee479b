#!/bin/bash
# What gdb prints of objects, of the eh stack and the throw stack, and that it finds its way through every throw: in C++
# by both compilers and in generated C; and what docs/debugging.md shows, where each transcript is marked with the
# function that it is stopped in.
. "$PLX_SOURCE/tests/gdb/common.bash"

# check TRANSCRIPT SOURCE [OPTION...]
check() {
  what="($PLX_CXX ${*:3})"
  local load=()
  case " $* " in *" -static "*) load=(-x "$PLX_SOURCE/gdb/load.py") ;; esac
  # Where g++ says nothing of a call, so that the program ends, clang has a handler that ends it.
  sed "$([[ $PLX_CXX = *clang* ]] && echo 's/nothing may leave: std::terminate/catch .../')" \
    "$PLX_SOURCE/tests/gdb/transcripts/$1.txt" > "$1.txt"
  build "$programs/$2" "${@:3}" && transcript "$1.txt" ./program "${load[@]}"
}

check_all() {
  check values values.cpp
  check stacks stacks.cpp -Wno-deprecated
  check records records.c -I "$PLX_SOURCE/tests"
  for options in -O0 "-O1 -fno-pie -no-pie" "-O2 -fomit-frame-pointer" "-O3 -fPIE -pie" "-O2 -static" -Os; do
    # shellcheck disable=SC2086 # words
    check trails stacks.cpp -Wno-deprecated -fno-optimize-sibling-calls $options
    # shellcheck disable=SC2086
    check c_trails records.c -I "$PLX_SOURCE/tests" -fno-inline -fno-optimize-sibling-calls $options
  done
  build inventory.cpp
  for function in main __cxa_end_catch; do PLX_STOP=$function transcript "transcript.$function" ./program; done
}

awk '
  /^```cpp file=/ { sub(/.*file=/, ""); target = $0; next }
  /^<!-- gdb: / { marked = "transcript." $3; next }
  /^```text/ && marked { target = marked; marked = ""; next }
  /^```/ { target = ""; next }
  target != "" { print > target }
' "$PLX_SOURCE/docs/debugging.md"
check values values.cpp -std=gnu++20
check_all
[ "$PLX_CXX" = g++ ] || PLX_CC=gcc PLX_CXX=g++ check_all
finish
