#!/bin/bash
# gdb finds the printers by itself: in the build tree, in an installed tree and when that was moved, in gdb's own folder
# for a tree below /usr, and without symbols in library and program. By hand it loads them without any library. Nothing
# is written beside them.
. "$PLX_SOURCE/tests/gdb/common.bash"
name=$(basename "$PLX_PREFIX"/lib/libplx.so.*-gdb.py)
own=(-iex "set auto-load scripts-directory $work/folder" -iex "add-auto-load-safe-path $work/folder")
install() { cmake --install "$PLX_PREFIX" --prefix "$1" > log 2>&1; }
built() { "$@" -g -Wno-deprecated "$programs/stacks.cpp"; }
# found PROGRAM OPTION...: complains when gdb does not find the printers.
found() { transcript "$PLX_SOURCE/tests/gdb/transcripts/found.txt" "$@"; }
table < "$PLX_SOURCE/tests/gdb/auto_load.txt"
finish
