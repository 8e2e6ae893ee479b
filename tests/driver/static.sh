#!/bin/bash
# Static programs: self-contained, the same to the last line of output as with the shared library, and no larger than
# what they use asks for.
. "$PLX_SOURCE/tests/driver/common.bash"
if [ ! -f "$PLX_PREFIX/lib/libplx.a" ]; then
  echo "skipped: there is no libplx.a in this build"
  exit 77
fi

# What is not asked for is not there.
lacks() { ! nm -C program | grep -E "$1" | head -3 | grep .; }
table < "$tables/static.txt"

# Constructors, destructors and exit functions of every kind, in C++, in generated C and in C that knows nothing of plx.
plx-c++ -c -O1 '-DNAME="a"' first.cpp -o a.o && plx-c++ -c -O1 '-DNAME="b"' first.cpp -o b.o && plx-c++ -c main.cpp &&
  plx-cc -c foreign.c || wrong "the parts do not compile"
for order in "a.o b.o main.o foreign.o" "foreign.o main.o b.o a.o"; do
  # shellcheck disable=SC2086 # words
  plx-c++ $order -o with_shared && plx-c++ -static -Wl,--gc-sections $order -o program 2> log &&
    ./with_shared > expected 2>&1 && ./program > got 2>&1 || wrong "static: $order"
  diff expected got > log && [ "$(wc -l < got)" -eq 16 ] || wrong "static and shared differ: $order"
done
readelf -lW program | grep -Eq 'INTERP|DYNAMIC' && wrong "the program is not static"

# Every facet that a program can name is in its locales, though the linker takes in only what is asked for.
for facet in 'numpunct<char>' 'num_get<char>' 'num_put<char>' 'ctype<char>' 'codecvt<char, char, int>' 'collate<char>' \
  'time_put<char>' 'time_get<char>' 'moneypunct<char, true>' 'moneypunct<char, false>' 'money_put<char>' 'money_get<char>'; do
  plx-c++ -static "-DFACET=$facet" facet.cpp -o program 2> log && ./program || wrong "$facet in a static program"
done

# The archive as the linker sees it: nothing runs before the program's own constructors, whose order is open; no code
# for a global offset table; no names of the program's.
archive=$PLX_PREFIX/lib/libplx.a
readelf -SW "$archive" | grep -E '\.(init_array|ctors|fini_array)' > log && wrong "libplx.a has constructors"
readelf -rW "$archive" | grep -E 'R_386_GOT' > log && wrong "libplx.a is position-independent"
nm -gC --defined-only "$archive" 2> /dev/null | awk 'NF >= 3' | cut -c12- |
  grep -Ev '^_|std::|__zor|__cxxabiv1|^operator (new|delete)|^typeinfo|^exit\(int\)' > log &&
  wrong "libplx.a defines names that belong to programs"
finish
