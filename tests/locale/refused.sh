#!/bin/bash
# Facets of characters other than char are refused by the compiler with a name that says so, not by the linker.
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# refused NAME EXPRESSION: a function with the expression does not compile, and the message says why.
refused() {
  printf '%s\n' '#include <locale>' "bool f(const std::locale &l) { return $2; }" > "$work/$1.cpp"
  if "$PLX_PREFIX/bin/plx-c++" -c "$work/$1.cpp" -o "$work/$1.o" 2> "$work/$1.log"; then
    echo "$1: compiles"
    failures=1
  elif ! grep -q supports_only_char "$work/$1.log"; then
    echo "$1: the message lacks the reason:"
    head -5 "$work/$1.log"
    failures=1
  fi
}

refused ctype "std::use_facet<std::ctype<wchar_t> >(l).is(std::ctype_base::space, L' ')"
refused ctype_byname 'new std::ctype_byname<wchar_t>("C")'
refused classification "std::isspace(L' ', l)"
refused codecvt 'std::has_facet<std::codecvt<wchar_t, char, std::mbstate_t> >(l)'
refused collate 'std::use_facet<std::collate<wchar_t> >(l).hash(L"", L"")'
refused collate_byname 'new std::collate_byname<wchar_t>("C")'
exit $failures
