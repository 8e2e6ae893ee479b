#!/bin/bash
# Frames of every shape (shapes.cc, worlds/shapes_c.c), by both compilers with options that shape them: the trace is the host
# library's. Then code without tables, where the search ends.
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/unwind
[ -z "${PLX_SANITIZE:-}" ] || { echo "skipped: the shapes read from null, and g++ has other sanitizers"; exit 77; }
gcc -m32 -O2 -fPIC -fexceptions -c "$here/worlds/shapes_c.c" -o shapes_c.o || exit 1
g++ -m32 -w -O0 -fnon-call-exceptions "$here/shapes.cc" shapes_c.o -o host 2> log && ./host > want || exit 1

while read -r flags; do
  compilers=g++
  [ "${flags#g++ }" != "$flags" ] || ! command -v clang++-14 > /dev/null || compilers="g++ clang++-14"
  flags=${flags#g++ }
  for compiler in $compilers; do
    # shellcheck disable=SC2086 # words
    PLX_CXX=$compiler plx-c++ -w -fnon-call-exceptions $flags "$here/shapes.cc" shapes_c.o -o program 2> log ||
      { wrong "$compiler $flags: does not build"; continue; }
    : > log
    ./program > got 2> log || wrong "$compiler $flags: status $?"
    cmp -s want got || wrong "$compiler $flags: $(diff want got | head -n 4 | cut -c 1-200)"
  done
done << 'LIST'
-O0
-O1 -no-pie -fno-omit-frame-pointer
-O2 -fPIE -pie
-Os -fomit-frame-pointer
-O2 -mstackrealign -msse2 -mfpmath=sse
-O3 -fPIC -Wl,-z,now
-O2 -flto
-O2 -static
-O2 -static-pie -fPIE
-O1 -ffunction-sections -Wl,--gc-sections -std=gnu++98
g++ -Os -mno-accumulate-outgoing-args -mpreferred-stack-boundary=2 -fno-omit-frame-pointer
g++ -O1 -mno-accumulate-outgoing-args -mpreferred-stack-boundary=2 -fomit-frame-pointer
g++ -O2 -maccumulate-outgoing-args -freorder-blocks-and-partition -fno-dwarf2-cfi-asm
LIST

# What lies between the throw and a function without a table is unwound; then the report names it, where it can.
tables='-fno-asynchronous-unwind-tables -fno-unwind-tables'
# shellcheck disable=SC2086 # words
gcc -m32 -O1 $tables -c "$here/worlds/shapes_c.c" -o untabled.o &&
  gcc -m32 -O1 $tables -fPIC -shared "$here/worlds/shapes_c.c" -o libuntabled.so
expect_untabled() {
  local name=$1
  shift
  plx-c++ -w -fnon-call-exceptions "$here/shapes.cc" "$@" -o program 2> log || { wrong "untabled $*: does not build"; return; }
  { ./program unbuffered; } > got 2> log
  [ $? -eq 134 ] && [ "$(tail -n 1 got)" = '~15 ' ] && grep -q "ended at 0x[0-9a-f]*$name: no unwind table" log ||
    wrong "untabled $*: $(tail -n 1 got)"
}
expect_untabled '' untabled.o
expect_untabled ' (plain_c)' -L. -luntabled -Wl,-rpath,.
expect_untabled '' untabled.o -static

# g++ says by an empty call site table that nothing may leave a function.
cat > quiet.cc << 'CODE'
#include <cstdlib>
#include <exception>
static void ended() { _Exit(3); }
static void (*volatile thrower)() = [] { throw 1; };
static void (*volatile quiet)() = []() noexcept { thrower(); };
int main() {
  std::set_terminate(ended);
  try {
    quiet();
  } catch (int) {}
}
CODE
PLX_CXX=g++ plx-c++ -std=gnu++17 -w -O1 quiet.cc -o quiet 2> log && ./quiet
[ $? -eq 3 ] || wrong "an exception leaves a function that says noexcept"

finish
