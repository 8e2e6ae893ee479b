#!/bin/bash
# Static programs: self-contained, the same to the last line of output as with the shared library, and no larger than
# what they use asks for.
. "$PLX_SOURCE/tests/driver/common.bash"
if [ ! -f "$PLX_PREFIX/lib/libplx.a" ]; then
  echo "skipped: there is no libplx.a in this build"
  exit 77
fi

archive=$PLX_PREFIX/lib/libplx.a
# What is not asked for is not there.
lacks() { ! nm -C program | grep -E "$1" | head -3 | grep .; }
# both OBJECT...: how many lines the programs with the shared library and with the archive print alike.
both() {
  plx-c++ "$@" -o with_shared && plx-c++ -static -Wl,--gc-sections "$@" -o program &&
    ./with_shared > expected 2>&1 && ./program > got 2>&1 && diff expected got && wc -l < got
}
has() { plx-c++ -static "-DFACET=$1" facet.cpp -o program && ./program; }
table < "$tables/static.txt"
finish
