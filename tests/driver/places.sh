#!/bin/bash
# The drivers find everything relative to themselves: from the build tree, through links, from PATH, from an installed
# prefix (also one with a blank in its name, and one that was staged by DESTDIR and moved).
. "$PLX_SOURCE/tests/driver/common.bash"
export XDG_CACHE_HOME=$work/cache
cp "$PLX_SOURCE/examples/hello.cpp" "$PLX_SOURCE/examples/hello.c" .

# check PREFIX WHAT [COMMAND-DIRECTORY]: both drivers there build programs that run with the library of that prefix.
check() {
  local bin=${3:-$1/bin}
  rm -f program
  "$bin/plx-c++" hello.cpp -o program && [ "$(./program you)" = "hello, you" ] || wrong "$2: plx-c++"
  ldd program | grep -qF "$1/lib/libplx.so.3" || wrong "$2: the program uses another library"
  rm -f program
  "$bin/plx-cc" hello.c -o program && [ "$(./program)" = "hello from the handler: caught 42" ] || wrong "$2: plx-cc"
  ldd program | grep -qF "$1/lib/libplx.so.3" || wrong "$2: the C program uses another library"
}

build=$(cd "$PLX_PREFIX" && pwd -P)
check "$build" "the build tree"

mkdir links
ln -s "$PLX_PREFIX/bin/plx-c++" links/absolute-c++
ln -s absolute-c++ links/plx-c++
ln -s "$PLX_PREFIX/bin/plx-cc" links/plx-cc
check "$build" "a link to a link" links
(cd links && ./plx-c++ ../hello.cpp -o ../program) || wrong "a link in the current directory"
(cd / && PATH=$PLX_PREFIX/bin:$PATH plx-c++ "$work/hello.cpp" -o "$work/program") || wrong "from PATH"

cmake --install "$PLX_PREFIX" --prefix "$work/installed here" > log 2>&1 || wrong "the installation"
check "$work/installed here" "an installed prefix"
[ -e "$work/installed here/include/plx-3/plx/runtime.h" ] || wrong "runtime.h is not installed"
[ "$(readlink "$work/installed here/lib/libplx.so")" = libplx.so.3 ] || wrong "libplx.so is no link to libplx.so.3"
find "$work/installed here" -xtype l | grep . && wrong "there are links to nowhere"
grep -rIlF "$PLX_SOURCE" "$work/installed here" | grep . && wrong "installed files name the checkout"
mv "$work/installed here" moved
check "$work/moved" "a prefix that was moved"

DESTDIR=$work/stage cmake --install "$PLX_PREFIX" --prefix /opt/plx > log 2>&1 || wrong "the installation with DESTDIR"
check "$work/stage/opt/plx" "a staged prefix"
finish
