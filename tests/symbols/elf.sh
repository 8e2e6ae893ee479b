#!/bin/bash
# What libplx.so is to the dynamic linker: its name, what it needs, no relocations in code, no executable stack; and what
# libplx_start.a is to the linker of programs. And what programs show to it of the headers.
. "$PLX_SOURCE/tests/driver/common.bash"
library=$PLX_PREFIX/lib/libplx.so.3
readelf -dW "$library" > dynamic || exit 1

# Data of which programs hold copies: all that can be written, and what stands for a type by its address. The library
# must reach the copies, so each name is in the list of what is preemptible; constants need not be.
copied() {
  nm -D --defined-only --without-symbol-versions "$library" | awk '$2 ~ /[BDGVu]/ || $3 ~ /^__T/ { print $3 }' |
    grep -Ev '^_ZT[SCT]|^_ZNSs4nposE$|4intlE$|^__zor_debugger_view$'
}
# The list's patterns as one regular expression.
preemptible() { sed -n 's/^  \(.*\);$/\1/p' "$PLX_SOURCE/cmake/preemptible.list" | sed 's/\*/.*/g' | paste -sd'|'; }

table < "$PLX_SOURCE/tests/symbols/elf.txt"
finish
