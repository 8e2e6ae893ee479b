#!/bin/bash
# What cannot work is refused with status 1 and one line, before anything is compiled; what only looks alike is not.
. "$PLX_SOURCE/tests/driver/common.bash"
echo 'int main() { return 0; }' > main.cpp
echo 'int main(void) { return 0; }' > main.c
echo '-O1 "-m64"' > response
echo @self > self

# Each option, and the reason that both drivers give.
while read -r option reason; do
  table << END
plx-c++ $option main.cpp => plx-c++: error: $option: $reason !1
plx-cc -c $option main.c => plx-cc: error: $option: $reason !1
END
done <<'END'
-m64 plx serves 32-bit x86 only
-mx32 plx serves 32-bit x86 only
--target=aarch64-linux-gnu plx serves 32-bit x86 Linux only
-mregparm=3 it changes the binary interface, *
-mlong-double-64 it changes the binary interface, *
-mlong-double-128 it changes the binary interface, *
-m128bit-long-double it changes the binary interface, *
-malign-double it changes the binary interface, *
-mms-bitfields it changes the binary interface, *
-mrtd it changes the binary interface, *
-msoft-float it changes the binary interface, *
-freg-struct-return it changes the binary interface, *
-fpack-struct it changes the binary interface, *
-fpack-struct=4 it changes the binary interface, *
-fshort-enums it changes the binary interface, *
-fshort-wchar it changes the binary interface, *
-stdlib=libc++ plx is the C++ library
-fopenmp plx serves one thread
-fsjlj-exceptions plx reads the usual tables of exceptions
-fsanitize=thread this sanitizer does not work on 32-bit x86
-fsanitize=address,memory this sanitizer does not work on 32-bit x86
-fsanitize=vptr this sanitizer needs the host's C++ library *
-fsanitize=cfi this sanitizer needs the host's C++ library *
END

table <<'END'
plx-cc -flto -c main.c => plx-cc: error: -flto: generated C does not survive link-time optimisation !1
plx-cc -fexceptions -c main.c => plx-cc: error: -fexceptions: generated C has frames of its own for exceptions !1
plx-c++ -flto=auto main.cpp main.c => plx-cc: error: -flto=auto: generated C does not survive link-time optimisation !1
plx-c++ -fexceptions -c main.c => plx-cc: error: -fexceptions: generated C has frames of its own for exceptions !1
plx-c++ -target x86_64-linux-gnu -c main.cpp => plx-c++: error: --target=x86_64-linux-gnu: plx serves 32-bit x86 Linux only !1
plx-c++ @response main.cpp => plx-c++: error: -m64: plx serves 32-bit x86 only !1
plx-c++ @self => plx-c++: error: response files name each other without end !1
echo main.c > sources; plx-c++ @sources main.cpp => plx-c++: error: sources: files of C belong on the command line itself !1
plx-cc main.cpp => plx-cc: error: main.cpp: C++ is compiled by plx-c++ !1
plx-cc -x c++ main.c => plx-cc: error: main.c: C++ is compiled by plx-c++ !1
plx-c++ -static -fsanitize=address main.cpp => plx-c++: error: -static: the address sanitizer needs shared libraries !1
PLX_CXX=no-such-compiler plx-c++ main.cpp => plx-c++: error: PLX_CXX: there is no no-such-compiler !1
PLX_CC="no-such-compiler -O2" plx-cc main.c => plx-cc: error: PLX_CC: there is no no-such-compiler !1
ls => main.c main.cpp response self sources
plx-c++ main.cpp -o -fopenmp && ls ./-fopenmp => ./-fopenmp
plx-c++ -DX=-m64 -I -mrtd -fno-lto -fno-exceptions -fno-rtti -m32 -static-libstdc++ -static-libgcc main.cpp -o p && ./p =>
plx-cc -fno-exceptions -fno-lto -fno-short-enums main.c -o p && ./p =>
plx-cc -shared -fPIC main.c -o main.so && plx-cc -fPIE -pie main.c -o p && ./p =>
END

# Without PLX_CXX and PLX_CC, the first compiler that is there, whatever it is called.
mkdir bin
for tool in sh env readlink mktemp rm tr; do ln -s "$(command -v $tool)" bin/$tool; done
found() { env -u PLX_CXX -u PLX_CC PATH="$work/bin" "$PLX_PREFIX/bin/$1" -v; }
plays() { printf '#!/bin/sh\necho %s "$@"\n' "$1" > "bin/$1" && chmod +x "bin/$1"; }
[ -n "$PLX_SANITIZE" ] || table <<'END'
found plx-c++ => plx-c++: error: no compiler is there (*): install the package g++-multilib, or set PLX_CXX !1
plays g++-14 && found plx-c++ => g++-14 -m32 *
plays clang++ && found plx-c++ => clang++ -m32 *--driver-mode=gcc*
plays g++ && found plx-c++ => g++ -m32 *
plays clang && found plx-cc => clang -m32 *
plays gcc && found plx-cc => gcc -m32 *
END
finish
