#!/bin/bash
# ./dev install and uninstall: everything is there, a second installation replaces the first one, exactly what was
# installed goes away again, foreign files and directories stay, and mistakes are told in one line.
. "$PLX_SOURCE/tests/install/common.bash"

tree() { (cd "$1" && find . -mindepth 1 | LC_ALL=C sort); }

# missing PREFIX: what is not installed there.
missing() {
  local name
  for name in bin/plx-c++ bin/plx-cc lib/libplx.so.3.3.0 lib/libplx_start.a lib/plx-3/libstdc++.a include/plx-3/vector \
    include/plx-3/plx/runtime.h share/plx-3/toolchain.cmake share/cmake/plx/plxConfig.cmake share/pkgconfig/plx.pc \
    share/pkgconfig/plx-c.pc share/doc/plx/README.md share/doc/plx/examples/hello.cpp $(cd "$PLX_PREFIX" && ls lib/libplx.a); do
    [ -s "$1/$name" ] || echo "$name"
  done
  for name in $(cd "$PLX_SOURCE" && ls man/*.[17] gdb/*.py docs/*.md); do
    [ -n "$(find "$1/share" -name "${name##*/}")" ] || echo "$name"
  done
}
table < "$tables/verbs.txt"

# Mistakes, told in one line each. Nothing is changed by them.
dev() {
  "$PLX_SOURCE/dev" "$@" > "$work/said" 2>&1
  set -- $?
  [ "$(wc -l < "$work/said")" -eq 1 ] || echo "several lines"
  cat "$work/said"
  return "$1"
}
table < "$tables/mistakes.txt"
finish
