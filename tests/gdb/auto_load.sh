#!/bin/bash
# gdb finds the printers by itself: in the build tree, in an installed tree and when that was moved, in gdb's own folder
# for a tree below /usr, and without symbols in library and program. By hand it loads them without any library. Nothing
# is written beside them.
. "$PLX_SOURCE/tests/gdb/common.bash"
program=$programs/stacks.cpp
found=$PLX_SOURCE/tests/gdb/transcripts/found.txt
install() { cmake --install "$PLX_PREFIX" --prefix "$1" > log 2>&1 || wrong "installing below $1"; }
built() { "$@" -g -Wno-deprecated "$program" 2> log || wrong "stacks.cpp does not build: $*"; }
name=$(basename "$PLX_PREFIX"/lib/libplx.so.*-gdb.py)

install "$work/tree"
built tree/bin/plx-c++ -o program
transcript "$found" ./program -iex "add-auto-load-safe-path $work/tree"

# Where gdb is not told to trust the tree, it says how, and all else works.
gdb -nx -batch -ex 'break stop' -ex run ./program > log 2>&1 < /dev/null
grep -q "add-auto-load-safe-path $work/tree/lib/$name" log || wrong "gdb does not say what to do"
grep -q '^Breakpoint 1, ' log || wrong "gdb does not run the program"

mv tree moved
built moved/bin/plx-c++ -o program
transcript "$found" ./program -iex "add-auto-load-safe-path $work/moved"
[ -z "$(find moved -name '__pycache__')" ] || wrong "gdb leaves files in the installed tree"

# Below /usr the file goes to gdb's own folder, and not beside the library.
DESTDIR=$work/staged install /usr
[ -f "staged/usr/share/gdb/auto-load/usr/lib/$name" ] || wrong "no file in gdb's folder"
[ ! -e "staged/usr/lib/$name" ] || wrong "a file beside the library below /usr hides the one in gdb's folder"
# That gdb looks there is seen with a folder of our own in its place.
mkdir -p "folder$work/moved/lib"
mv "moved/lib/$name" "folder$work/moved/lib"
own=(-iex "set auto-load scripts-directory $work/folder" -iex "add-auto-load-safe-path $work/folder")
transcript "$found" ./program "${own[@]}"

# Stripped, library and program; the objects keep what -g wrote in another file.
strip --strip-unneeded moved/lib/libplx.so.3.3.0
cp program whole
strip program
transcript "$found" ./program "${own[@]}" -iex "set debug-file-directory /nowhere" -ex "symbol-file whole"

# By hand; gdb need not trust anything then. Programs that are linked statically have no other way.
transcript "$found" ./whole -x "$work/moved/share/plx-3/gdb/load.py"
if [ -f "$PLX_PREFIX/lib/libplx.a" ]; then
  built plx-c++ -static -o static
  transcript "$found" ./static -x "$work/moved/share/plx-3/gdb/load.py"
fi
finish
