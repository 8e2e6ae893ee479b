#!/bin/bash
# Projects that know nothing of this checkout, built by three kinds of build tools from an installed prefix that was
# moved: make with pkg-config, CMake with the toolchain file and find_package, and a configure script.
. "$PLX_SOURCE/tests/install/common.bash"
need make pkg-config
moved_prefix
cp -r "$PLX_SOURCE/tests/install/projects" .

export PKG_CONFIG_PATH=$prefix/share/pkgconfig
[ "$(pkg-config --modversion plx)" = 3.3.0 ] || wrong "pkg-config knows another version"
[ "$(cd "$(pkg-config --variable=libdir plx)" && pwd)" = "$prefix/lib" ] || wrong "pkg-config names another prefix"
make -C projects/make check > log 2>&1 || wrong "the project of make and pkg-config"
ldd projects/make/refuse | grep -qF "$prefix/" || wrong "C linked by pkg-config uses another library"
unset PKG_CONFIG_PATH

toolchain=$prefix/share/plx-3/toolchain.cmake
{ cmake --toolchain "$toolchain" -S projects/cmake -B cmake-build -DCMAKE_INSTALL_PREFIX="$work/out" &&
  cmake --build cmake-build && ctest --test-dir cmake-build --output-on-failure &&
  cmake --install cmake-build; } > log 2>&1 || wrong "the project of CMake"
grep -q "4 tests passed\|100% tests passed" log || wrong "the CMake project's tests did not run"
[ "$("$work/out/bin/calculator" '1 2 +')" = 3.000000 ] || wrong "the calculator that CMake installed"
# C alone needs no driver.
mkdir plain
cp projects/make/refuse.c plain
printf '%s\n' 'cmake_minimum_required(VERSION 3.18)' 'project(plain LANGUAGES C)' 'find_package(plx REQUIRED)' \
  'add_executable(plain refuse.c)' 'target_link_libraries(plain plx::plx)' > plain/CMakeLists.txt
{ CFLAGS=-m32 cmake -S plain -B plain-build -DCMAKE_C_COMPILER=gcc -DCMAKE_PREFIX_PATH="$prefix" &&
  cmake --build plain-build && plain-build/plain; } > log 2>&1 || wrong "C with CMake and gcc"
cmake -S plain -B wide-build -DCMAKE_PREFIX_PATH="$prefix" > log 2>&1 && wrong "CMake finds plx for 64-bit programs"
tr -s '\n ' ' ' < log | grep -qF "plx is a library of 32-bit code" || wrong "the message about 64 bits"
# Without the toolchain, what is wrong and what to do is said.
cmake -S projects/cmake -B other-build -Dplx_DIR="$prefix/share/cmake/plx" > log 2>&1 && wrong "CMake takes another compiler"
tr -s '\n ' ' ' < log | grep -qF "compiled by plx-c++, not by" || wrong "the message about the compiler"
tr -s '\n ' ' ' < log | grep -qF -- "--toolchain" || wrong "the message does not tell the way out"

(cd projects/configure && ./configure CXX=plx-c++ --prefix=/opt/table && make check && make install DESTDIR="$work/table") \
  > log 2>&1 || wrong "the project with a configure script"
grep -q "passed" log || wrong "the configure project's check did not run"
[ -x "$work/table/opt/table/bin/table" ] || wrong "make install of the configure project"
finish
