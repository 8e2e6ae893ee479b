#!/bin/bash
# What libplx.so is to the dynamic linker: its name, what it needs, no relocations in code, no executable stack; and what
# libplx_start.a is to the linker of programs. And what programs show to it of the headers.
. "$PLX_SOURCE/tests/driver/common.bash"
library=$PLX_PREFIX/lib/libplx.so.3
readelf -dW "$library" > dynamic || exit 1

# Data of which programs hold copies that count: all that can be written, identities of types, and the virtual tables that
# the sources compare objects with and of which a program's own code knows: it compares with them, or stores them where it
# constructs or destroys (tables.cpp). The library must reach the copies, so each name is in the list of what is
# preemptible; constants need not be, and a compiler's record is as good as its copy.
copied() {
  nm -D --defined-only --without-symbol-versions "$library" | awk '$2 ~ /[BDGVu]/ || $3 ~ /^__T/ { print $3 }' |
    grep -Ev '^_ZT|^_ZNSs4nposE$|4intlE$|^__zor_debugger_view$'
  tables_in include
  grep -xFf <(nm tables*.o | awk '{ print $NF }') <(tables_in libC cxxabi iostream locale)
}
tables_in() { (cd "$PLX_SOURCE" && grep -rhoE '"?_ZTV[[:alnum:]_]+("|\[\])' "$@" | tr -d '"[]' | sort -u); }
# The list's patterns as one regular expression.
preemptible() { sed -n 's/^  \(.*\);$/\1/p' "$PLX_SOURCE/cmake/preemptible.list" | sed 's/\*/.*/g' | paste -sd'|'; }

table < "$PLX_SOURCE/tests/symbols/elf.txt"
finish
