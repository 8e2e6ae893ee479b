#!/bin/bash
# The drivers do what the compiler does with the usual options, add what programs for plx need, and compile C and C++ on
# one command line each as what it is.
. "$PLX_SOURCE/tests/driver/common.bash"

mkdir headers 'a folder'
echo 'void part(int);' > headers/part.h
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
cat > part.cpp <<'END'
#include "part.h"
#include <stdexcept>
void part(int n) { if (n) throw std::range_error("thrown in part"); }
END
cat > text <<'END'
#include <new>
int main() { return sizeof(std::bad_alloc) ? 0 : 1; }
END
printf '%s\n' '-DGREETING="\"read from a file\""' "-I 'headers'" > inner
printf '%s\n' '@inner' 'main.cpp part.cpp' > outer
all="main.cpp part.cpp -I headers"

table <<'END'
plx-c++ $all -o p && ./p => hello: thrown in part
plx-c++ $all && ./a.out => hello: thrown in part
plx-c++ -O2 -g '-DGREETING="bye"' $all -op && ./p => bye: thrown in part
plx-c++ $all -o "a folder/p" && "a folder/p" => hello: thrown in part
plx-c++ -c $all && plx-c++ main.o part.o -o p && ./p => hello: thrown in part
ar crs "a folder/libpart.a" part.o && plx-c++ main.o -L "a folder" -lpart -o p && ./p => hello: thrown in part
plx-c++ main.o -L "a folder" -l part -lstdc++ -o p && ./p => hello: thrown in part
plx-c++ -S main.cpp -I headers && plx-c++ main.s part.o -o p && ./p => hello: thrown in part
plx-c++ -E part.cpp -I headers -o part.ii && plx-c++ -Werror -c part.ii =>
plx-c++ -E main.cpp -I headers | grep -c 'void part(int);' => 1
plx-c++ -M main.cpp -I headers | grep -cE '(plx-3|include)/stdexcept' => 1
plx-c++ -c -MD -MF main.dep -MT target main.cpp -I headers && head -c 7 main.dep => target:
plx-c++ -MM main.cpp -I headers => main.o: main.cpp headers/part.h
plx-c++ -fsyntax-only part.cpp => part.cpp:1:10: fatal error: *part.h*!1
plx-c++ -x c++ text -o p && ./p =>
plx-c++ -xc++ - -o p < text && ./p =>
plx-c++ -E - < text | grep -c '^namespace std' => [1-9]*
plx-c++ -c -x c++ text -o text.o -x none && plx-c++ text.o -o p && ./p =>
plx-c++ headers/part.h && plx-c++ -c part.cpp -I headers && rm headers/part.h.?ch =>
plx-c++ @outer -o p && ./p => read from a file: thrown in part
plx-c++ -shared -fPIC part.cpp -I headers -o part.so && plx-c++ main.cpp -I headers ./part.so -o p && ./p => hello: thrown in part
plx-c++ -nostdinc++ -fsyntax-only main.cpp -I headers => *fatal error: *cstdio*!1
plx-c++ -nostdlib main.o part.o -o p > out 2>&1 => !1
plx-c++ missing.cpp => *missing.cpp*!1
plx-c++ => *no input files*!1
plx-c++ -o => plx-c++: error: -o: its argument is missing !1
plx-c++ --version | head -1 => plx-c++ [0-9]*.[0-9]*.[0-9]
plx-c++ -v => *version*
plx-c++ -dumpmachine => *
plx-c++ -pthread -pipe -Wall -Wextra -Werror $all -o p && ./p => hello: thrown in part
plx-c++ -Werror main.o part.o -o p && ./p => hello: thrown in part
plx-c++ -dM -E -x c++ /dev/null | grep __cplusplus => #define __cplusplus 199711L
plx-c++ -dM -E -x c++ /dev/null | grep -c __STRICT_ANSI__ => 0 !1
END
for options in -std=c++98 -std=gnu++11 -std=c++17 -std=gnu++20 "-O3 -fPIE -pie" "-O2 -fPIC" -no-pie \
  "-Os -fomit-frame-pointer" "-ffunction-sections -Wl,--gc-sections" "-O2 -flto" -pg --coverage "-Wl,-z,now -rdynamic"; do
  table <<< "plx-c++ $options \$all -o p && ./p => hello: thrown in part"
done

# C, alone and beside C++.
cp "$PLX_SOURCE/examples/hello.c" generated.c
cat > one.c <<'END'
#include <plx/runtime.h>
#ifdef __cplusplus
#error compiled as C++
#endif
int class = 5; /* a good name in C only */
int call_back(void (*function)(int)) { function(class); return 0; }
END
cp one.c one.text
cat > two.cpp <<'END'
#include <cstdio>
extern "C" int call_back(void (*)(int));
static void thrower(int value) { throw value; }
int main() {
  try { call_back(thrower); } catch (int value) { std::printf("caught %d%s\n", value, SUFFIX); }
}
END
echo 'syntax error' > bad.c
table <<'END'
plx-c++ -O2 '-DSUFFIX="!"' one.c two.cpp -o p && ./p => caught 5!
plx-c++ two.cpp one.c "-DSUFFIX=\" it's\"" -o p && ./p => caught 5 it's
plx-c++ -std=gnu++17 -std=gnu99 one.c two.cpp '-DSUFFIX="."' -Wall -Wextra -Werror -op && ./p => caught 5.
plx-c++ -c one.c two.cpp '-DSUFFIX=""' && plx-c++ one.o two.o -o p && ./p => caught 5
plx-c++ two.cpp -x c one.text -x none "-DSUFFIX=\"\"" -lm -o p && ./p => caught 5
plx-c++ one.c -c -o other.o && nm other.o | grep -c ' T call_back' => 1
plx-c++ -MD '-DSUFFIX=""' one.c two.cpp -o p && grep -c runtime.h one.d => 1
plx-c++ -c one.c two.cpp -o both.o => plx-c++: error: -o: there is one output and 2 files !1
plx-c++ bad.c two.cpp '-DSUFFIX=""' -o never > out 2>&1 => !1
plx-c++ two.cpp bad.c '-DSUFFIX=""' -o never > out 2>&1 || ls never => *No such file*!2
plx-cc -c -Wall -Wextra -Werror generated.c -o generated.o && plx-cc generated.o -o p && ./p => hello from the handler: caught 42
plx-cc -E generated.c | grep -c __throw_setup => [1-9]*
plx-cc -MM generated.c => generated.o: generated.c
plx-cc --version | head -1 => plx-cc [0-9]*.[0-9]*.[0-9]
plx-cc -x c - -o p < generated.c && ./p => hello from the handler: caught 42
plx-cc -nostdlib generated.o -o never > out 2>&1 => !1
env -u PLX_CC plx-cc generated.c -c =>
END
for options in -std=gnu89 "-std=gnu99 -O2" "-std=gnu17 -O3 -fPIE -pie" "-O2 -fomit-frame-pointer"; do
  table <<< "plx-cc $options -Wall -Wextra -Werror generated.c -o p && ./p => hello from the handler: caught 42"
done

# What programs hold. The library has no debug information: the program's describes the library's classes whole.
needed() { readelf -dW "$1" | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' | sort | tr '\n' ' '; }
cat > debug.cpp <<'END'
#include <sstream>
int main() { std::istringstream text("x"); return 0; }
END
[ -n "$PLX_SANITIZE" ] || table <<'END'
plx-c++ $all -o p && needed p => libc.so.6 libplx.so.3 
echo 'unsigned long long f(unsigned long long a, unsigned long long b) { return a / b; }' > div.cpp && plx-c++ div.cpp $all -o p && needed p => libc.so.6 libplx.so.3 
plx-cc generated.c -o p && needed p && nm p | grep -c __zor_cxx_start => libc.so.6 libplx.so.3 0 !1
plx-c++ -r main.o part.o -o both.o && plx-c++ both.o -o p && ./p => hello: thrown in part
plx-c++ -g debug.cpp -o p && readelf --debug-dump=info p 2> log | grep -c 'DW_AT_name.*: _gcount_$' => [1-9]*
plx-c++ -fsanitize=undefined -fno-sanitize-recover $all -o p && ./p => hello: thrown in part
ASAN_OPTIONS= plx-c++ -fsanitize=address $all -o p && ./p => hello: thrown in part
END
finish
