#!/bin/bash
# C and C++ files on one command line: each is compiled as what it is, with the options of its language, and objects and
# libraries stay in their order.
. "$PLX_SOURCE/tests/driver/common.bash"
cat > one.c <<'END'
#include <plx/runtime.h>
#ifdef __cplusplus
#error compiled as C++
#endif
int class = 5; /* a good name in C only */
int call_back(void (*function)(int)) { function(class); return 0; }
END
cat > two.cpp <<'END'
#include <cstdio>
extern "C" int call_back(void (*)(int));
static void thrower(int value) { throw value; }
int main() {
  try { call_back(thrower); } catch (int value) { std::printf("caught %d%s\n", value, SUFFIX); }
}
END
expect_output "caught 5!" "compile and link" plx-c++ -O2 '-DSUFFIX="!"' one.c two.cpp -o program
expect_output "caught 5 it's" "an option with a quote" plx-c++ two.cpp one.c "-DSUFFIX=\" it's\"" -o program
expect_output "caught 5." "a dialect for each" \
  plx-c++ -std=gnu++17 -std=gnu99 one.c two.cpp '-DSUFFIX="."' -Wall -Wextra -Werror -o program
plx-c++ -c one.c two.cpp '-DSUFFIX=""' && [ -f one.o ] && [ -f two.o ] || wrong "-c"
expect_output "caught 5" "an object between" plx-c++ one.o two.cpp '-DSUFFIX=""' -o program
expect_output "caught 5" "a forced language" sh -c \
  'cp one.c one.text && plx-c++ two.cpp -x c one.text -x none "-DSUFFIX=\"\"" -lm -o program'
plx-c++ -c one.c && nm one.o | grep -q ' T call_back$' || wrong "a C file alone is not compiled as C"
plx-c++ -MD '-DSUFFIX=""' one.c two.cpp -o program && grep -q runtime.h one.d && grep -q two.cpp two.d || wrong "-MD"
plx-c++ -c one.c two.cpp -o both.o 2> log && wrong "-c -o with two files is no error"
echo 'syntax error' > bad.c
plx-c++ bad.c two.cpp '-DSUFFIX=""' -o never 2> log && wrong "an error in a C file is lost"
plx-c++ two.cpp bad.c '-DSUFFIX=""' -o never 2> log && wrong "an error in the last file is lost"
[ ! -f never ] || wrong "a program was linked in spite of errors"
finish
