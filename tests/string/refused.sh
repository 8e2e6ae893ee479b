#!/bin/bash
# What strings do not support is refused by the compiler with a name that says so, not by the linker or at run time.
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

# refused NAME TEXT CODE: compiling CODE fails, and the message holds TEXT.
refused() {
  printf '%s\n' '#include <string>' "$3" > "$work/$1.cpp"
  if "$PLX_PREFIX/bin/plx-c++" -c "$work/$1.cpp" -o "$work/$1.o" 2> "$work/$1.log"; then
    echo "$1: compiles"
    failures=1
  elif ! grep -q "$2" "$work/$1.log"; then
    echo "$1: the message lacks \"$2\":"
    head -5 "$work/$1.log"
    failures=1
  fi
}

refused wide_string supports_only_char 'std::wstring text;'
refused wide_template supports_only_char 'std::basic_string<wchar_t> f() { return std::basic_string<wchar_t>(); }'
refused wide_traits supports_only_char 'int f() { return std::char_traits<wchar_t>::char_type(); }'
refused allocator strings_use_only_the_standard_allocator \
  'template <class T> struct mine : std::allocator<T> {};
   std::basic_string<char, std::char_traits<char>, mine<char> > text;'

# Naming the type alone is no use of it.
printf '%s\n' '#include <string>' 'void f(const std::wstring *); int main() { return 0; }' > "$work/named.cpp"
"$PLX_PREFIX/bin/plx-c++" "$work/named.cpp" -o "$work/named" || failures=1
exit $failures
