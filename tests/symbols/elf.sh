#!/bin/bash
# What libplx.so is to the dynamic linker: its name, what it needs, no relocations in code, no executable stack; and what
# libplx_start.a is to the linker of programs.
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

table <<'END'
grep -c 'SONAME.*\[libplx.so.3\]' dynamic => 1
grep NEEDED dynamic | grep -E 'stdc|c\+\+|gcc_s' => !1
grep -E 'TEXTREL|RPATH|RUNPATH' dynamic => !1
grep -c 'GNU_HASH' dynamic => 1
readelf -lW "$library" | grep 'GNU_STACK.*RWE' => !1
readelf -hW "$library" | grep -c 'Class: *ELF32' => 1
copied | wc -l => [1-9][0-9]*
copied | grep -vxE "$(preemptible)" => !1
# Nothing in it asks for the host's unwinder, and programs take in what they must hold.
nm -D --undefined-only "$library" | grep -E '_Unwind_|__gxx_personality|__register_frame' => !1
grep -cx 'EXTERN(__zor_cxx_start __zor_object_end)' "$PLX_PREFIX/lib/libplx.so" => 1
readlink "$library" => libplx.so.3.[0-9]*.[0-9]*
readelf -SW "$PLX_PREFIX/lib/libplx_start.a" | grep 'GNU-stack.* X ' => !1
unless sanitized
# The dynamic linker is a part of the C library.
sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' dynamic | sort => ld-linux.so.2 libc.so.6
# All of it is ready before any code runs: what a start costs is in the linker's hands, and no order of constructors
# matters. One word belongs to the compiler's start files.
grep -c 'INIT_ARRAYSZ.* 4 (bytes)' dynamic => 1
# The tables by which exceptions cross the library's frames are at most a fifth of the rest.
size -A "$library" | awk '/^\.eh_frame/ { tables += $2 } /^Total/ { all = $2 } END { exit !(tables * 6 <= all) }' =>
END
finish
