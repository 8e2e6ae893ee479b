#!/bin/bash
# What plx does not support is refused by the compiler at its first use, with a name that says why; not by the linker
# and not at run time. Naming such a type alone is no use of it. The uses are in data/refused.
. "$PLX_SOURCE/tests/driver/common.bash"

# compile CODE OPTION...
compile() {
  { printf '#include <%s>\n' fstream iomanip iostream locale sstream string; printf '%s\n' "$1"; } > unit.cpp
  plx-c++ "${@:2}" unit.cpp -o unit 2> log
}

while IFS=$'\t' read -r text code; do
  case $text in '#'*) continue ;; esac
  if compile "$code" -fsyntax-only; then wrong "it compiles: $code"; else grep -q "$text" log || wrong "no \"$text\": $code"; fi
  uses=$((${uses-0} + 1))
done < "$PLX_SOURCE/tests/headers/data/refused"
[ "$uses" -ge 20 ] || wrong "there are $uses uses"
compile 'void f(std::wostream &, std::wstringbuf *, const std::wstring *); int main() { return 0; }' ||
  wrong 'types that are only named are refused'

# Headers of later standards end in one line each, which names them.
include=$PLX_SOURCE/include
mapfile -t later < <(cd "$include" && grep -d skip -l '^#error' -- [a-z]* bits/*)
[ ${#later[@]} -ge 60 ] || wrong "only ${#later[@]} headers of later standards are there"
printf '#include <%s>\n' "${later[@]}" > later.cpp
for std in gnu++98 gnu++20; do
  for compiler in 'plx-c++ -ferror-limit=0' "g++ -m32 -nostdinc++ -I $include"; do
    # shellcheck disable=SC2086 # words
    $compiler -std=$std -fsyntax-only later.cpp 2>&1 |
      sed -n 's/.* error: .*plx has the C++ library of 1998.* no <\([^>]*\)>.*/\1/p' > log
    diff log <(printf '%s\n' "${later[@]}") > differences || wrong "$compiler -std=$std: $(cat differences)"
  done
done
finish
