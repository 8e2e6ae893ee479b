#!/bin/bash
# Scenes at random (scenes/scenes.h): generated C alone, and generated C and C++ by turns, leave the same trace as C++ with
# the host's library. PLX_SCENES is how many (20000), PLX_SCENES_FIRST the first.
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/random/scenes
scenes="${PLX_SCENES_FIRST:-1} ${PLX_SCENES:-20000}"
gcc -m32 -O1 -w -DWORLDS=2 -c "$here/stage.c" -o stage.o &&
  g++ -m32 -O0 -std=gnu++98 -w "$here/world_cpp.cc" stage.o -o host || { echo "skipped: g++ -m32 does not work here"; exit 77; }
# shellcheck disable=SC2086 # two words
./host $scenes > want || exit 1
plays() {
  local world=$1
  shift
  "$@" 2> log || { wrong "$world: does not build"; return; }
  # shellcheck disable=SC2086
  timeout 100 ./program $scenes > got 2> log || wrong "$world: status $?"
  cmp want got > log || wrong "$world: $(diff -a want got | head -n 4)"
}
for flags in -O0 '-O2 -fomit-frame-pointer'; do
  # shellcheck disable=SC2086
  plays "generated C, $flags" plx-cc $flags -w -DWORLDS=1 -I "$PLX_SOURCE/tests" "$here/stage.c" "$here/world_c.c" -o program
done
for compiler in g++ clang++-14; do
  [ -z "${PLX_SANITIZE:-}" ] || [ $compiler != g++ ] || continue # it has other sanitizers
  ! command -v $compiler > /dev/null || PLX_CXX=$compiler plays "both, $compiler" plx-c++ -O2 -w -std=gnu++98 -DWORLDS=3 \
    -I "$PLX_SOURCE/tests" "$here/world_cpp.cc" -x c "$here/stage.c" "$here/world_c.c" -o program
done
# The address sanitizer moves entries from their frames to a stack of its own.
export ASAN_OPTIONS=detect_stack_use_after_return=1:detect_leaks=0
scenes="${scenes% *} 5000"
head -n 5000 want > part && mv part want
[ -n "${PLX_SANITIZE:-}" ] || plays "both, sanitized" plx-c++ -O1 -fsanitize=address -w -std=gnu++98 -DWORLDS=3 \
  -I "$PLX_SOURCE/tests" "$here/world_cpp.cc" -x c "$here/stage.c" "$here/world_c.c" -o program
finish
