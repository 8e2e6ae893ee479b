#!/bin/sh
# What libplx.so is to the dynamic linker: its name, what it needs, no relocations in code, no executable stack; and what
# libplx_start.a is to the linker of programs.
set -u
library=$PLX_PREFIX/lib/libplx.so.3
failures=0
wrong() {
  echo "wrong: $*"
  failures=$((failures + 1))
}

dynamic=$(readelf -dW "$library") || exit 1
echo "$dynamic" | grep -q 'SONAME.*\[libplx.so.3\]' || wrong "the soname"
needed=$(echo "$dynamic" | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' | sort | tr '\n' ' ')
if [ -z "$PLX_SANITIZE" ]; then
  # The dynamic linker is a part of the C library.
  [ "$needed" = "ld-linux.so.2 libc.so.6 " ] || wrong "it needs $needed"
fi
case $needed in *stdc++* | *c++* | *gcc_s*) wrong "it needs the host's C++ library: $needed" ;; esac
echo "$dynamic" | grep -q TEXTREL && wrong "there are relocations in code"
echo "$dynamic" | grep -Eq 'RPATH|RUNPATH' && wrong "it carries a search path"
echo "$dynamic" | grep -q 'GNU_HASH' || wrong "there is no GNU hash table"
readelf -lW "$library" | grep GNU_STACK | grep -q 'RWE' && wrong "the stack is executable"
readelf -hW "$library" | grep -q 'Class: *ELF32' || wrong "it is no 32-bit object"

# All of it is ready before any code runs: what a start costs is in the linker's hands, and no order of constructors
# matters. One word belongs to the compiler's start files.
if [ -z "$PLX_SANITIZE" ]; then
  echo "$dynamic" | grep -q 'INIT_ARRAYSZ.* 4 (bytes)' || wrong "it has constructors of static objects"
fi

# Data of which programs hold copies: all that can be written, and what stands for a type by its address. The library
# must reach the copies, so each name is in the list of what is preemptible; constants need not be.
nm -D --defined-only --without-symbol-versions "$library" | awk '$2 ~ /[BDGVu]/ || $3 ~ /^__T/ { print $3 }' |
  grep -Ev '^_ZT[SCT]|^_ZNSs4nposE$|4intlE$|^__zor_debugger_view$' |
  while read -r name; do
    found=
    for pattern in $(sed -n 's/^  \(.*\);$/\1/p' "$PLX_SOURCE/cmake/preemptible.list"); do
      # shellcheck disable=SC2254 # a pattern
      case $name in $pattern) found=1; break ;; esac
    done
    [ -n "$found" ] || echo "$name"
  done > "${TMPDIR:-/tmp}/plx-elf.$$"
[ ! -s "${TMPDIR:-/tmp}/plx-elf.$$" ] || wrong "not in cmake/preemptible.list: $(tr '\n' ' ' < "${TMPDIR:-/tmp}/plx-elf.$$")"
rm -f "${TMPDIR:-/tmp}/plx-elf.$$"

# Nothing in it asks for the host's unwinder.
nm -D --undefined-only "$library" | grep -E '_Unwind_|__gxx_personality|__register_frame' && wrong "it asks for the unwinder"
grep -qx 'EXTERN(__zor_cxx_start __zor_object_end)' "$PLX_PREFIX/lib/libplx.so" || wrong "libplx.so does not ask for what programs hold"
case $(readlink "$PLX_PREFIX/lib/libplx.so.3") in
  libplx.so.3.[0-9]*.[0-9]*) ;;
  *) wrong "libplx.so.3 does not lead to a version" ;;
esac

# The tables by which exceptions cross the library's frames are at most a fifth of the rest.
if [ -z "$PLX_SANITIZE" ]; then
  size -A "$library" | awk '/^\.eh_frame/ { tables += $2 } /^Total/ { all = $2 } END { exit !(tables * 6 <= all) }' ||
    wrong "the unwind tables are more than a fifth of the library"
fi

# The archive goes into shared objects too.
readelf -SW "$PLX_PREFIX/lib/libplx_start.a" | grep 'GNU-stack' | grep ' X ' && wrong "libplx_start.a: executable stack"
[ "$failures" -eq 0 ]
