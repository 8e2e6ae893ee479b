#!/bin/bash
# What plx does not support is refused by the compiler at its first use, with a name that says why; not by the linker
# and not at run time. Naming such a type alone is no use of it.
. "$PLX_SOURCE/tests/driver/common.bash"
only_char=supports_only_char

# compile NAME CODE OPTIONS...
compile() {
  { printf '#include <%s>\n' fstream iomanip iostream locale sstream string; printf '%s\n' "$2"; } > "$1.cpp"
  plx-c++ "${@:3}" "$1.cpp" -o "$1" 2> log
}

# refused TEXT NAME CODE: compiling CODE fails, and the message holds TEXT.
refused() {
  if compile "$2" "$3" -c; then
    wrong "$2 compiles"
  else
    grep -q "$1" log || wrong "$2: the message lacks \"$1\""
  fi
}

refused $only_char wide_string 'std::wstring text;'
refused $only_char wide_template 'std::basic_string<wchar_t> f() { return std::basic_string<wchar_t>(); }'
refused $only_char other_traits 'int f() { return std::char_traits<unsigned char>::char_type(); }'
refused strings_use_only_the_standard_allocator allocator \
  'template <class T> struct mine : std::allocator<T> {};
   std::basic_string<char, std::char_traits<char>, mine<char> > text;'

refused $only_char ctype "bool f(std::locale l) { return std::use_facet<std::ctype<wchar_t> >(l).is(std::ctype_base::space, L' '); }"
refused $only_char ctype_byname 'void *f() { return new std::ctype_byname<wchar_t>("C"); }'
refused $only_char classification "bool f(std::locale l) { return std::isspace(L' ', l); }"
refused $only_char codecvt 'bool f(std::locale l) { return std::has_facet<std::codecvt<wchar_t, char, std::mbstate_t> >(l); }'
refused $only_char collate 'long f(std::locale l) { return std::use_facet<std::collate<wchar_t> >(l).hash(L"", L""); }'
refused $only_char collate_byname 'void *f() { return new std::collate_byname<wchar_t>("C"); }'

refused $only_char wostream 'void f(std::wostream &out) { out << 1; }'
refused $only_char wistream 'void f(std::wistream &in, int &i) { in >> i; }'
refused $only_char wios 'bool f(std::wios &stream) { return stream.good(); }'
refused $only_char wstreambuf 'void f(std::wstreambuf &buffer) { buffer.pubsync(); }'
refused $only_char wcout 'void f() { std::wcout << L"x"; }'
refused $only_char wcin 'void f() { std::wcin.get(); }'
refused $only_char wstringstream 'void f() { std::wstringstream stream; }'
refused $only_char wofstream 'void f() { std::wofstream file("x"); }'
refused $only_char wfstream 'struct s { std::wfstream file; };'
refused $only_char ostreambuf_iterator 'void f(std::ostreambuf_iterator<wchar_t> i) { *i = 0; }'
refused $only_char other_characters 'void f(std::basic_ostream<unsigned char> &out) { out.put(1); }'
for use in 'basic_ostream<char, mine> &stream) { stream << 1' 'basic_streambuf<char, mine> &buffer) { buffer.pubsync()'; do
  refused streams_use_only_the_standard_traits "${use%%<*}" "struct mine : std::char_traits<char> {}; void f(std::$use; }"
done

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

compile named 'void f(std::wostream &, std::wstringbuf *, const std::wstring *); int main() { return 0; }' ||
  wrong 'types that are only named are refused'
finish
