#!/bin/bash
# What cannot work is refused with status 1 and one line, before anything is compiled; what only looks alike is not.
. "$PLX_SOURCE/tests/driver/common.bash"
echo 'int main() { return 0; }' > main.cpp
echo 'int main(void) { return 0; }' > main.c

for option in -fPIC -fpic -fPIE -fpie -pie -static-pie; do
  expect_error "error: $option: C++ for plx is built for a fixed address" plx-c++ $option main.cpp -o program
done
expect_error "shared objects of C with plx-cc" plx-c++ -shared main.cpp -o program
expect_error "error: -static: the address sanitizer does not work" plx-c++ -fsanitize=address -static main.cpp -o program
expect_error "error: -static-pie: libplx.a is code for a fixed address" plx-cc -static-pie main.c -o program
for option in -flto -flto=thin -flto=full; do
  expect_error "error: $option: plx's exceptions do not survive" plx-c++ $option -c main.cpp
done
for option in -m64 -mx32 -m16; do
  expect_error "error: $option: plx serves 32-bit x86 only" plx-c++ $option -c main.cpp
done
expect_error "serves 32-bit x86 Linux only" plx-c++ --target=aarch64-linux-gnu -c main.cpp
expect_error "serves 32-bit x86 Linux only" plx-c++ -target x86_64-linux-gnu -c main.cpp
for option in -stdlib=libc++ -stdlib=libstdc++ -lstdc++ -lc++; do
  expect_error "error: $option: plx is the C++ library" plx-c++ $option main.cpp -o program
done
expect_error "plx is the C++ library" plx-c++ main.cpp -l stdc++ -o program
for option in -fsanitize=thread -fsanitize=address,thread -fsanitize=memory; do
  expect_error "error: $option: this sanitizer does not work on 32-bit x86" plx-c++ $option main.cpp
done
expect_error "error: -fsanitize=vptr: this sanitizer needs" plx-c++ -fsanitize=vptr main.cpp
for option in -fdwarf-exceptions -fno-sjlj-exceptions -fwasm-exceptions; do
  expect_error "error: $option: plx has its own exception scheme" plx-c++ $option -c main.cpp
done
expect_error "error: -fopenmp: plx serves one thread" plx-c++ -fopenmp main.cpp
expect_error "error: -Wl,-shared: C++ for plx" plx-c++ -Wl,-shared main.cpp
echo '-O1 -fPIC' > response
expect_error "error: -fPIC:" plx-c++ @response main.cpp
[ ! -f program ] && [ ! -f main.o ] && [ ! -f a.out ] || wrong "something was written"

# Compilers that are not there, or are none.
expect_error "PLX_CLANG: there is no no-such-clang" env PLX_CLANG=no-such-clang plx-c++ main.cpp

# The same words in harmless places.
plx-c++ main.cpp -fno-lto -fno-pic -fno-pie -no-pie -m32 --target=i686-linux-gnu -o program || wrong "harmless options"
plx-c++ main.cpp -o -static 2> log && [ -x ./-static ] || wrong "-o -static: an output name is no option"
plx-c++ main.cpp -static-libgcc -static-libstdc++ -o program || wrong "-static-libgcc"
[ -n "$PLX_SANITIZE" ] || for cc in clang-14 gcc; do
  command -v $cc > log || continue
  PLX_CC=$cc plx-cc -fPIC -shared main.c -o shared.so || wrong "$cc: plx-cc does not build a shared object of C"
  PLX_CC=$cc plx-cc -fPIE -pie main.c -o program && ./program || wrong "$cc: plx-cc -pie"
done
finish
