#!/bin/bash
# The rules that CONTRIBUTING.md states for the library's sources and that no compiler checks: who may touch
# the eh stack, no exceptions syntax, comments at the top, nobody's own paths.
. "$PLX_SOURCE/tests/driver/common.bash"
shopt -s lastpipe  # so that what `nothing` counts is counted here
cd "$PLX_SOURCE" || exit 1
shopt -s globstar
library=(libC/**/*.{cpp,h} exceptions/*.{cpp,h} string/*.{cpp,h} containers/*.{cpp,h} numbers/**/*.{cpp,h}
  locale/*.{cpp,h} iostream/*.{cpp,h} cxxabi/**/*.{cpp,h} unwind/**/*.{cpp,h})
headers=(include/*[a-z] include/plx/**/*.h)
for file in "${!headers[@]}"; do [ -f "${headers[file]}" ] || unset "headers[$file]"; done
[ ${#library[@]} -ge 150 ] && [ ${#headers[@]} -ge 100 ] || wrong "files are missing: ${#library[@]}, ${#headers[@]}"

# nothing TEXT: standard input is empty.
nothing() {
  local found
  found=$(cat)
  [ -z "$found" ] || wrong "$1:
$found"
}

for file in "${library[@]}"; do
  case $file in libC/* | cxxabi/* | unwind/*) continue ;; esac
  grep -HnE 'an_eh_stack_entry|__curr_eh_stack_entry|__eh_curr_region' "$file"
done | nothing "the eh stack is touched outside of libC, cxxabi and unwind"

# The library's sources are compiled without exceptions. So are the headers here, templates and all.
grep -L '^#error "plx has' "${headers[@]}" | sed 's/^include.\(.*\)/#include <\1>/' > "$work/unit.cpp"
plx-c++ -nostdinc++ -I include -fno-exceptions -fsyntax-only "$work/unit.cpp" 2>&1 | grep error | nothing "try, catch or throw in a header"

# Headers of these folders can be included together, in any order.
printf '#include "%s"\n' {exceptions,string,numbers,locale,iostream}/**/*.h > "$work/unit.cpp"
for order in cat tac; do
  $order "$work/unit.cpp" | plx-c++ -std=c++17 -nostdinc++ -I include -I . -fno-exceptions -fsyntax-only -x c++ - 2>&1 | grep error
done | nothing "headers of the library contradict each other"

for file in "${library[@]}" "${headers[@]}" tests/*/*.{cpp,c} bench/*.{cpp,c,h}; do
  head -1 "$file" | grep -qE '^(//|/\*)' || echo "$file"
done | nothing "no comment at the top that says what the file is for"

grep -rnI --exclude-dir=build --exclude-dir=.git --exclude=.git -E '/(home|work|root)/[a-z]' . | nothing "a path of somebody's machine"
finish
