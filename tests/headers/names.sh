#!/bin/bash
# Names in public headers that are no part of an interface begin with an underscore, since a program may have any other
# word as a macro. Every identifier of the headers counts that neither the host's standard headers use in the same
# dialect nor data/names lists: plx's own interface.
. "$PLX_SOURCE/tests/driver/common.bash"
include=$PLX_SOURCE/include

# identifiers: of what the preprocessor left, without texts, characters and numbers.
identifiers() {
  sed -E 's/"([^"\\]|\\.)*"//g; s/'"'([^'\\\\]|\\\\.)*'"'//g; s/^ *#.*//; s/\b[0-9][0-9a-zA-Z.]*//g' |
    grep -oE '\b[A-Za-z_][A-Za-z0-9_]*' | sort -u
}

for header in $(cd "$include" && grep -d skip -l '' -- *); do
  grep -q '^#error "plx has' "$include/$header" || echo "#include <$header>" >> ours.cpp
  printf '%s\n' "#if __has_include(<$header>)" "#include <$header>" "#endif" >> host.cpp
done
for std in 98 11 17 20; do
  g++ -m32 -nostdinc++ -I "$include" -std=gnu++$std -E ours.cpp > ours.$std 2> log || wrong "the headers in gnu++$std"
  awk -v ours="\"$include/" '/^# [0-9]+ "/ { inside = index($3, ours) == 1; next } inside' ours.$std | identifiers > used.$std
  [ "$(wc -l < used.$std)" -ge 2000 ] || wrong "few names in gnu++$std"
  # Headers of later dialects have an #error here.
  g++ -m32 -w -std=gnu++$std -E host.cpp 2> log | identifiers > standard
  [ "$(wc -l < standard)" -ge 3000 ] || wrong "few names of the host in gnu++$std"
  grep -v '^_' used.$std | comm -23 - standard >> found
done
grep -v '^#' "$PLX_SOURCE/tests/headers/data/names" | tr -s ' ' '\n' | sort -u > listed
table <<'END'
# Names of headers that begin with no underscore, and what data/names lists and no header uses.
sort -u found | comm -23 - listed =>
sort -u used.* | comm -13 - listed =>
END
finish
