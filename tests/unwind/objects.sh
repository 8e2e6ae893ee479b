#!/bin/bash
# Shared objects of C++, linked, loaded and unloaded (objects.cc, plugin.cc): the trace is the host library's.
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/unwind
cat > pass.c << 'END'
void pass(void (*f)(int), int n) {
  volatile int room[ROOM];
  room[ROOM - 1] = n;
  f(n);
  room[0] = 0;
}
END

# build DIRECTORY COMPILER...: the objects 1 to 4, two of plain C after each other, and two programs.
build() {
  local at=$1 n
  shift
  mkdir -p "$at"
  for n in 1 2 3 4; do
    "$@" -w -fPIC -shared -O$((n % 3)) -DNUMBER=$n "$here/plugin.cc" -o "$at/plugin$n.so" || return
    gcc -m32 -O1 -fPIC -shared -DROOM=$((n * n * 9)) pass.c -o "$at/pass$n.so" || return
  done
  "$@" -w -O1 "$here/objects.cc" -o "$at/loads" -ldl &&
    "$@" -w -O1 -DLINKED "$here/objects.cc" "$PWD/$at/plugin4.so" -o "$at/linked" -ldl
}
run() {
  local program
  for program in 'loads l' 'loads g' 'linked l'; do
    # shellcheck disable=SC2086 # words
    (cd "$1" && ./$program ./plugin1.so ./plugin2.so ./pass1.so ./pass2.so ./plugin3.so ./pass3.so ./pass4.so 2>&1)
    echo "status $?"
  done
}

build host g++ -m32 2> log || { cat log; exit 1; }
run host > want
for compiler in g++ clang++-14; do
  command -v $compiler > /dev/null || continue
  PLX_CXX=$compiler build $compiler plx-c++ 2> log || { wrong "$compiler: does not build"; continue; }
  : > log
  run $compiler > got
  cmp -s want got || wrong "$compiler: $(diff want got | head -n 20 | cut -c 1-300)"
done
finish
