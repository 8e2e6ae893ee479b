#!/bin/bash
# plx-cc builds generated C with clang and with gcc, in every dialect from C89, with what a C compiler's options do.
. "$PLX_SOURCE/tests/driver/common.bash"
cp "$PLX_SOURCE/examples/hello.c" .
compilers="clang-14 gcc"
# gcc's sanitizers are not those of the library here.
[ -z "$PLX_SANITIZE" ] || compilers=clang-14
for cc in $compilers; do
  export PLX_CC=$cc
  for std in gnu89 gnu99 gnu17; do
    expect_output "hello from the handler: caught 42" "$cc -std=$std" \
      plx-cc -std=$std -O2 -Wall -Wextra -Werror hello.c -o program
  done
  plx-cc -Werror -c hello.c -o hello.o 2> log && [ ! -s log ] || wrong "$cc -c is not quiet"
  expect_output "hello from the handler: caught 42" "$cc: link" plx-cc hello.o -o program
  plx-cc -E hello.c | grep -q __throw_setup || wrong "$cc -E"
  plx-cc -MM hello.c | grep -q '^hello.o: hello.c' || wrong "$cc -MM"
  plx-cc --version | head -1 | grep -q '^plx-cc [0-9.]*$' || wrong "$cc --version"
  plx-cc -nostdlib hello.o -o never 2> log && wrong "$cc -nostdlib links the library"
done
[ -n "$PLX_SANITIZE" ] || {
  plx-cc hello.c -o program
  needed=$(readelf -dW program | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' | sort | tr '\n' ' ')
  [ "$needed" = "libc.so.6 libplx.so.3 " ] || wrong "the program needs $needed"
}
unset PLX_CC
expect_output "hello from the handler: caught 42" "without PLX_CC" plx-cc hello.c -o program
PLX_CC=no-such-cc plx-cc hello.c -o never 2> log && wrong "a compiler that is not there is no error"
finish
