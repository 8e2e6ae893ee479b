#!/bin/bash
# The manual pages are written without a warning of the formatter, and tell of what the drivers know: the variables that
# they read, the options that they refuse, the version.
. "$PLX_SOURCE/tests/driver/common.bash"
cd "$PLX_SOURCE" || exit 1
for page in man/*.[1-8]; do
  grep -q '^\.so ' "$page" && continue
  groff -ww -man -Tascii "$page" > "$work/page" 2> "$work/warnings"
  [ ! -s "$work/warnings" ] || wrong "$page: $(head -3 "$work/warnings")"
  [ "$(wc -l < "$work/page")" -ge 40 ] || wrong "$page: nothing comes out"
done
# A page that only leads to another.
for target in $(sed -n 's/^\.so man[0-9]*\///p' man/*); do [ -f "man/$target" ] || wrong "there is no page $target"; done
sed 's/\\-/-/g; s/^\.[A-Z]* //' man/plx-c++.1 > "$work/plain"
for name in $(grep -ohE 'variable=PLX_[A-Z]+' driver/driver.in | cut -d= -f2) -m64 -mx32 -mregparm= -fpack-struct -fopenmp \
  -stdlib= -flto -fexceptions; do
  grep -qF -- "$name" driver/driver.in || wrong "plx-c++ does not know $name"
  grep -qF -- "$name" "$work/plain" || wrong "plx-c++(1) does not tell of $name"
done
version=$(plx-c++ --version | sed -n '1s/plx-c++ //p')
grep -LE "\"plx $version\"|^\.so " man/* | grep . && wrong "those pages are not of version $version"
finish
