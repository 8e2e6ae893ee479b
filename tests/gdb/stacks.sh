#!/bin/bash
# The commands that print the eh stack, the throw stack and what exit will destroy: in C++, in generated C, and what of
# it does not depend on what the optimiser does to functions and their frames.
. "$PLX_SOURCE/tests/gdb/common.bash"
transcripts stacks.cpp
transcripts records.c -I "$PLX_SOURCE/tests"

for options in "-O2" "-O2 -fno-omit-frame-pointer" "-Os -std=gnu++17"; do
  # shellcheck disable=SC2086 # words
  plx-c++ -g $options "$PLX_SOURCE/tests/gdb/programs/found.cpp" -o program 2> log ||
    wrong "found.cpp does not build: $options"
  gdb -nx -batch -iex "add-auto-load-safe-path $PLX_PREFIX" -ex 'break stop' -ex run -ex 'plx eh-stack' \
    -ex 'plx throw-stack' ./program > log 2>&1 < /dev/null
  grep -q 'invalid' log && wrong "$options: something is invalid"
  [ "$(grep -c '^#[01] .*  C++ frame in catches' log)" -eq 2 ] || wrong "$options: the functions"
  grep -q '^#0   std::out_of_range at 0x[0-9a-f]*, handled, references 1$' log || wrong "$options: the exception"
done
finish
