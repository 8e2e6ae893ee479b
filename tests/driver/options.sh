#!/bin/bash
# The driver does what clang++ does with the usual options: compile, assemble, preprocess, link, dependencies, standard
# input, response files, forced languages, and options that keep the library out.
. "$PLX_SOURCE/tests/driver/common.bash"

cat > main.cpp <<'END'
#include "part.h"
#include <cstdio>
#include <stdexcept>
#ifndef GREETING
#define GREETING "hello"
#endif
int main(int argc, char **) {
  try {
    part(argc);
  } catch (const std::exception &error) {
    std::printf("%s: %s\n", GREETING, error.what());
  }
}
END
mkdir headers 'a folder'
echo 'void part(int);' > headers/part.h
cat > part.cpp <<'END'
#include "part.h"
#include <stdexcept>
void part(int n) { if (n) throw std::range_error("thrown in part"); }
END
sources=(main.cpp part.cpp -I headers)

expect_output "hello: thrown in part" "compile and link several files" plx-c++ "${sources[@]}" -o program
plx-c++ "${sources[@]}" && [ -x a.out ] || wrong "no a.out without -o"
expect_output "bye: thrown in part" "-D, -O2, -g" plx-c++ -O2 -g '-DGREETING="bye"' "${sources[@]}" -o program
expect_output "hello: thrown in part" "an output name with a blank" plx-c++ "${sources[@]}" -o "a folder/program" "a folder/program"

plx-c++ -c "${sources[@]}" && [ -f main.o ] && [ -f part.o ] || wrong "-c makes no objects"
expect_output "hello: thrown in part" "link objects" plx-c++ main.o part.o -o program
ar crs "a folder/libpart.a" part.o
expect_output "hello: thrown in part" "-L and -l" plx-c++ main.o -L "a folder" -lpart -o program
expect_output "hello: thrown in part" "-L and -l in two words" plx-c++ main.o -L "a folder" -l part -o program
# clang puts the sanitizers' run-time library into what -r makes.
[ -n "$PLX_SANITIZE" ] || {
  plx-c++ -r main.o part.o -o both.o || wrong "-r"
  expect_output "hello: thrown in part" "link what -r made" plx-c++ both.o -o program
}

plx-c++ -S main.cpp -I headers -o - | grep -q _Unwind_SjLj_Register || wrong "-S shows no assembly of plx's scheme"
expect_output "hello: thrown in part" "an assembly file" \
  sh -c 'plx-c++ -S main.cpp -I headers -o main.s && plx-c++ main.s part.o -o program'
plx-c++ -E main.cpp -I headers | grep -q 'void part(int);' || wrong "-E"
plx-c++ -M main.cpp -I headers | grep -q 'include/plx-3/stdexcept' || wrong "-M does not name the header"
plx-c++ -MM main.cpp -I headers | tr -d '\\\n' | grep -Eq '^main.o: main.cpp +headers/part.h *$' || wrong "-MM"
plx-c++ -c -MD -MF main.dep -MT target main.cpp -I headers && grep -q '^target:' main.dep || wrong "-MD -MF -MT"
plx-c++ -fsyntax-only main.cpp -I headers || wrong "-fsyntax-only"
[ ! -f main.syntax ] && ! plx-c++ -fsyntax-only part.cpp 2> log || wrong "-fsyntax-only accepts a missing header"
grep -q "part.cpp:1:10: fatal error: 'part.h' file not found" log || wrong "clang's messages do not come through"

echo '#include <new>
int main() { return sizeof(std::bad_alloc) ? 0 : 1; }' > text
plx-c++ -x c++ text -o program && ./program || wrong "-x c++"
plx-c++ -xc++ - -o program < text && ./program || wrong "standard input"
plx-c++ -E - < text | grep -q bad_alloc || wrong "-E of standard input"
plx-c++ -c -x c++ text -o text.o -x none && plx-c++ text.o -o program && ./program || wrong "-x none"

# Dialects: 1998 unless another is asked for.
echo 'int dialect[__cplusplus == 199711L ? 1 : -1];
#ifndef __GNUC_GNU_INLINE__
#endif
#ifdef __STRICT_ANSI__
#error strict
#endif' > dialect.cpp
plx-c++ -fsyntax-only dialect.cpp || wrong "the default is not gnu++98"
plx-c++ -fsyntax-only -std=gnu++17 dialect.cpp 2> log && wrong "-std=gnu++17 has no effect"
for std in gnu++98 gnu++11 gnu++14 gnu++17 gnu++20 c++98 c++17; do
  expect_output "hello: thrown in part" "-std=$std" plx-c++ -std=$std "${sources[@]}" -o program
done

# Response files, nested and quoted.
printf '%s\n' '-DGREETING="\"read from a file\""' "-I 'headers'" > inner
printf '%s\n' '@inner' 'main.cpp part.cpp' > outer
expect_output "read from a file: thrown in part" "response files" plx-c++ @outer -o program

plx-c++ --version | head -1 | grep -q '^plx-c++ [0-9]*\.[0-9]*\.[0-9]*$' || wrong "--version does not say plx's"
plx-c++ --version | grep -q 'clang version' || wrong "--version does not say the compiler's"
plx-c++ -v 2>&1 | grep -q 'clang version' || wrong "-v"
plx-c++ -v "${sources[@]}" -o program 2>&1 | grep -q libplx_clang.a || wrong "-v shows no link"
plx-c++ '-###' main.cpp -o never 2>&1 | grep -q 'exception-model=sjlj' && [ ! -f never ] || wrong "-###"
[ -f "$(plx-c++ -print-file-name=libc.so)" ] || wrong "-print-file-name"
plx-c++ -dumpmachine | grep -q '^i[3-6]86' || wrong "-dumpmachine is no 32-bit x86"

# No warning comes from the driver's own options, whatever is done.
for what in -c -S -E -fsyntax-only -M; do
  plx-c++ -Wall -Wextra -Werror $what main.cpp -I headers > out 2> log && [ ! -s log ] || wrong "$what is not quiet"
done
plx-c++ -Wall -Wextra -Werror "${sources[@]}" -o program 2> log && [ ! -s log ] || wrong "compile and link is not quiet"
plx-c++ -Werror main.o part.o -o program 2> log && [ ! -s log ] || wrong "linking is not quiet"

plx-c++ -nostdinc++ -c main.cpp -I headers 2> log && wrong "-nostdinc++ finds headers"

# Headers are precompiled; what -E wrote is compiled without a complaint about options that have no use for it.
plx-c++ -x c++-header headers/part.h -o part.pch && plx-c++ -include-pch part.pch -c part.cpp -I headers ||
  wrong "a precompiled header"
plx-c++ headers/part.h && rm headers/part.h.gch || wrong "a header alone"
plx-c++ -E part.cpp -I headers -o part.ii && plx-c++ -Werror -c part.ii || wrong "a preprocessed file"
# The library has no debug information, so the program's describes the library's classes.
echo '#include <string>
std::string text("x"); int main() { return 0; }' > debug.cpp
plx-c++ -g debug.cpp -o debug && readelf --debug-dump=info debug 2> log | grep -q 'DW_AT_name.*: _rep_$' ||
  wrong "-g leaves std::string incomplete"
plx-c++ -nostdlib main.o part.o -o program 2> log && wrong "-nostdlib links the library"
plx-c++ -pthread "${sources[@]}" -o program && ./program > out || wrong "-pthread"
plx-c++ missing.cpp 2> log && wrong "a missing file is no error"
plx-c++ 2> log && wrong "no input is no error"
plx-c++ -o 2> log && wrong "-o without a name is no error"

if [ -z "$PLX_SANITIZE" ]; then
  plx-c++ "${sources[@]}" -o program
  needed=$(readelf -dW program | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' | sort | tr '\n' ' ')
  [ "$needed" = "libc.so.6 libplx.so.3 " ] || wrong "the program needs $needed"
  readelf -hW program | grep -q 'Type: *EXEC' || wrong "the program has no fixed address"
  plx-c++ part.cpp main.cpp -I headers -o program -fsanitize=undefined -fno-sanitize-recover && ./program > out ||
    wrong "-fsanitize=undefined"
fi
finish
