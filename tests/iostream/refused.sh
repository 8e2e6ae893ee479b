#!/bin/bash
# Wide streams are refused by the compiler, at their first use, with a name that says why; not by the linker.
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

build() {
  printf '#include <%s>\n' fstream iomanip iostream sstream > "$work/$1.cpp"
  printf '%s\n' "$2" >> "$work/$1.cpp"
  "$PLX_PREFIX/bin/plx-c++" "${@:3}" "$work/$1.cpp" -o "$work/$1" 2> "$work/$1.log"
}

# refused NAME CODE: compiling CODE fails, and the message says why.
refused() {
  if build "$1" "$2" -c; then
    echo "$1: compiles"
    failures=1
  elif ! grep -q supports_only_char_as_character_type "$work/$1.log"; then
    echo "$1: the message lacks the reason:"
    head -5 "$work/$1.log"
    failures=1
  fi
}

refused wostream 'void f(std::wostream &out) { out << 1; }'
refused wistream 'void f(std::wistream &in, int &i) { in >> i; }'
refused wios 'bool f(std::wios &stream) { return stream.good(); }'
refused wstreambuf 'void f(std::wstreambuf &buffer) { buffer.pubsync(); }'
refused wcout 'void f() { std::wcout << L"x"; }'
refused wcin 'void f() { std::wcin.get(); }'
refused wstringstream 'void f() { std::wstringstream stream; }'
refused wofstream 'void f() { std::wofstream file("x"); }'
refused wfstream 'struct s { std::wfstream file; };'
refused ostreambuf_iterator 'void f(std::ostreambuf_iterator<wchar_t> i) { *i = 0; }'
refused other_characters 'void f(std::basic_ostream<unsigned char> &out) { out.put(1); }'

# Naming the types alone is no use of them.
build named 'void f(std::wostream &, std::wstringbuf *); int main() { return 0; }' || { cat "$work/named.log"; failures=1; }
exit $failures
