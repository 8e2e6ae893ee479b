#!/bin/bash
# The drivers find everything relative to themselves: from the build tree, through links, from PATH, and from an installed
# prefix that was staged by DESTDIR and moved to a place with a blank in its name.
. "$PLX_SOURCE/tests/driver/common.bash"
cp "$PLX_SOURCE/examples/hello.cpp" "$PLX_SOURCE/examples/hello.c" .

# check PREFIX [COMMAND-DIRECTORY]: both drivers there build programs that run with the library of that prefix.
check() { prefix=$1 bin=${2:-$1/bin} table < "$tables/places.txt"; }

build=$(cd "$PLX_PREFIX" && pwd -P)
check "$build"
mkdir links
ln -s "$PLX_PREFIX/bin/plx-c++" links/absolute
ln -s absolute links/plx-c++
ln -s "$PLX_PREFIX/bin/plx-cc" links/plx-cc
check "$build" links
(cd / && PATH=$PLX_PREFIX/bin:$PATH plx-c++ "$work/hello.cpp" -o "$work/program") || wrong "from PATH"

DESTDIR=$work/stage cmake --install "$PLX_PREFIX" --prefix /opt/plx > log 2>&1 || wrong "the installation"
: > log
mv stage/opt/plx "installed here"
check "$work/installed here"
find "installed here" -xtype l | grep . && wrong "there are links to nowhere"
grep -rIlF -e "$PLX_SOURCE" -e "$build" -e "$work" "installed here" | grep . && wrong "installed files name another place"
finish
