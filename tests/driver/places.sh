#!/bin/bash
# The drivers find everything relative to themselves: from the build tree, through links, from PATH, and from an installed
# prefix that was staged by DESTDIR and moved to a place with a blank in its name.
. "$PLX_SOURCE/tests/driver/common.bash"
cp "$PLX_SOURCE/examples/hello.cpp" "$PLX_SOURCE/examples/hello.c" .
build=$(cd "$PLX_PREFIX" && pwd -P)

# at PREFIX [COMMAND-DIRECTORY]: both drivers there build programs that run with the library of that prefix.
at() {
  local bin=${2:-$1/bin}
  "$bin/plx-c++" hello.cpp -o program && ./program you && ldd program | grep -cF "$1/lib/libplx.so.3" &&
    "$bin/plx-cc" hello.c -o program && ./program && ldd program | grep -cF "$1/lib/libplx.so.3"
}
table < "$tables/places.txt"
finish
