#!/bin/bash
# What unwind/ reads from unwind tables, against what readelf reads: the big 32-bit objects of this machine, programs of the
# two compilers with options that shape frames, and instructions that none emits. See read_tables.cc; and plans.cc for what is
# kept of it.
. "$PLX_SOURCE/tests/driver/common.bash"
command -v readelf > /dev/null || { echo "skipped: there is no readelf"; exit 77; }

unwind=$PLX_SOURCE/unwind
ln -s "$PLX_SOURCE/include/plx" plx
g++ -m32 -O1 -std=c++17 -I "$PLX_SOURCE" -I . "$PLX_SOURCE/tests/unwind/read_tables.cc" "$unwind/frame_table.cpp" \
  "$unwind/frame_rules.cpp" "$unwind/expression.cpp" -o read_tables || exit 1
for name in libc.so.6 libm.so.6 libstdc++.so.6 libgcc_s.so.1 ld-linux.so.2 libgomp.so.1 libitm.so.1 libubsan.so.1; do
  file=$(g++ -m32 "-print-file-name=$name")
  [ ! -f "$file" ] || echo "$file"
done > files
echo "$PLX_PREFIX/lib/libplx.so.3" >> files
number=0
built() {
  number=$((number + 1))
  # shellcheck disable=SC2086 # words
  if $1 -m32 -w -shared -fPIC -I "$PLX_SOURCE/tests" $2 -o "table$number.so" 2> log; then
    echo "./table$number.so" >> files
  else
    wrong "$*: does not build"
  fi
}
for flags in -O0 '-O2 -mstackrealign -msse2' '-Os -fomit-frame-pointer'; do
  for source in unwind/shapes.cc random/scenes/world_cpp.cc; do
    built g++ "-std=gnu++98 $flags $PLX_SOURCE/tests/$source"
    ! command -v clang++-14 > /dev/null || built clang++-14 "-std=gnu++98 $flags $PLX_SOURCE/tests/$source"
  done
done
built g++ "-O2 -mno-accumulate-outgoing-args -mpreferred-stack-boundary=2 $PLX_SOURCE/tests/unwind/shapes.cc"
built g++ "-O3 -fno-dwarf2-cfi-asm -freorder-blocks-and-partition $PLX_SOURCE/tests/unwind/shapes.cc"
built gcc "$PLX_SOURCE/tests/unwind/data/rare.s"
g++ -m32 -O1 -std=c++17 -I "$PLX_SOURCE" -I . "$PLX_SOURCE/tests/unwind/plans.cc" -o plans && timeout 60 ./plans > log || wrong plans
# shellcheck disable=SC2046 # a list of files
./read_tables "$PLX_SOURCE/tests/unwind/data/expressions" $(cat files) > log || wrong "read_tables: $(tail -n 1 log)"
cat log
finish
