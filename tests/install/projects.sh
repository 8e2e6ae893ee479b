#!/bin/bash
# Projects that know nothing of this checkout, built by two kinds of build tools from an installed prefix that was
# moved: make with pkg-config and CMake with find_package, both with this machine's compilers, CMake with the toolchain
# file. Configure scripts are foreign_programs' affair.
. "$PLX_SOURCE/tests/install/common.bash"
need make pkg-config
moved_prefix
cp -r "$PLX_SOURCE/tests/install/projects" .
cp "$PLX_SOURCE"/examples/{hello.c,two_worlds/*} projects

export PKG_CONFIG_PATH=$prefix/share/pkgconfig
table <<'END'
pkg-config --modversion plx => 3.3.0
make -C projects/make check > log 2>&1 =>
ldd projects/make/worlds | grep -E 'stdc|gcc_s' => !1
ldd projects/make/hello | grep -cF "$prefix/" => 1
END
unset PKG_CONFIG_PATH

# build_cmake NAME OPTION...: with the drivers, or with a compiler that knows nothing of plx; the programs are installed.
build_cmake() {
  { cmake "${@:2}" -S projects/cmake -B "$1" -DCMAKE_INSTALL_PREFIX="$work/out" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON &&
    cmake --build "$1" && ctest --test-dir "$1" --output-on-failure && cmake --install "$1"; } > log 2>&1 || wrong "CMake: $1"
  grep -q "100% tests passed" log || wrong "CMake: $1: its tests did not run"
  # Tools that read the commands, and do not run the drivers, find the headers, too.
  sed -n 's/.*"command": "[^ ]*\(.*\) -o .* -c \(.*main.cpp\)".*/g++\1 -M \2/p' "$1/compile_commands.json" | head -1 > command
  sh ./command | grep -qF "$prefix/include/plx-3/stdexcept" || wrong "CMake: $1: a reader of compile_commands.json"
  "$work/out/bin/worlds_STATIC" command > log 2>&1 || wrong "CMake: $1: the program that was installed"
  rm -rf out
}
build_cmake drivers --toolchain "$prefix/share/plx-3/toolchain.cmake"
build_cmake gcc -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_COMPILER=gcc -DCMAKE_CXX_COMPILER=g++
! command -v clang++ > log || build_cmake clang -Dplx_DIR="$prefix/share/cmake/plx" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++
cmake -S projects/cmake -B other -Dplx_DIR="$prefix/share/cmake/plx" -DCMAKE_SYSTEM_NAME=Generic > log 2>&1 && wrong "CMake takes another system"
tr -s '\n ' ' ' < log | grep -qF "plx is for x86 Linux, not for Generic" || wrong "the message about the system"

finish
