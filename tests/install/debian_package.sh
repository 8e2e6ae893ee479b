#!/bin/bash
# ./dev package: the same sources make the same package in any build directory; dpkg installs it into an empty root, its
# drivers build programs that run, and dpkg removes it without a trace. The dependencies are not in that root, so they
# are looked up here.
. "$PLX_SOURCE/tests/install/common.bash"
need dpkg-deb dpkg dpkg-shlibdeps cpack file ninja
[ "$(id -u)" -eq 0 ] || { echo "skipped: only root installs packages"; exit 77; }

# The day of the sources is in the library, that of the package in all its files.
SOURCE_DATE_EPOCH=$(date -ud "$(grep -aoE '20[0-9]{2}-[01][0-9]-[0-3][0-9]' "$PLX_PREFIX/lib/libplx.so.3" | head -1)" +%s)
export SOURCE_DATE_EPOCH
{ cmake -S "$PLX_SOURCE" --preset "$PLX_PRESET" -B "$work/elsewhere" "-DCMAKE_C_COMPILER=$PLX_CC" "-DCMAKE_CXX_COMPILER=$PLX_CXX" &&
  ninja -C "$work/elsewhere" libraries && cd "$work/elsewhere" && cpack -B "$work/again" &&
  umask 022 && cd "$PLX_PREFIX" && cpack -B "$work/packages"; } > log 2>&1 || { wrong "making it"; finish; }
cd "$work" || exit 1
package=$work/packages/plx_3.3.0_amd64.deb
cmp "$package" again/*.deb > log || wrong "another build directory makes another package"
dpkg-deb --info "$package" > log || wrong "dpkg-deb does not read it"
[ "$(dpkg-deb -f "$package" Package Architecture | tr '\n' ' ')" = "Package: plx Architecture: amd64 " ] || wrong "its name"
dpkg-deb -c "$package" | awk '$2 != "root/root" || substr($1, 6, 1) == "w" && $1 !~ /^l/ || / \.\/(usr\/lib\/|usr\/local|opt|etc)/' |
  grep . && wrong "owners or permissions, or files in other places than Debian's"
for name in $(dpkg-deb -f "$package" Depends | sed 's/([^)]*)//g; s/| [^,]*//g; s/,//g'); do
  dpkg-query -W -f '${db:Status-Abbrev}\n' "$name" 2> log | grep -q '^.i' || wrong "it depends on what is not needed here: $name"
done

root=$work/root
mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
touch "$root/var/lib/dpkg/status"
files() { (cd "$root" && find . ! -path './var/lib/dpkg/*' | LC_ALL=C sort); }
files > before
own_dpkg() { dpkg --root="$root" --log=/dev/null --force-depends --force-script-chrootless "$@" > log 2>&1; }
own_dpkg --install "$package" || wrong "dpkg --install"
[ "$(dpkg-query --admindir="$root/var/lib/dpkg" -W -f '${db:Status-Abbrev}' plx)" = "ii " ] || wrong "it is not configured"
(cd "$root" && md5sum --quiet -c var/lib/dpkg/info/plx.md5sums) > log 2>&1 || wrong "its sums"

PATH=$root/usr/bin:$PATH
hash -r
cp "$PLX_SOURCE"/examples/hello.c* .
printf '#include <iostream>\nint main() { std::cout << "streams: " << 42 << std::endl; }\n' > streams.cpp
printf '%s\n' 'cmake_minimum_required(VERSION 3.5)' 'project(s LANGUAGES C)' 'find_package(plx REQUIRED)' \
  'add_executable(s hello.c)' 'target_link_libraries(s plx::plx)' > CMakeLists.txt
# The tree holds no absolute paths, so pkg-config and CMake can be asked in that root.
export PKG_CONFIG_PATH=$root/usr/share/pkgconfig
table <<'END'
plx-c++ streams.cpp -o program && ./program => streams: 42
ldd program | grep -cF "$root/usr/lib32/libplx.so.3" => 1
plx-cc hello.c -o program && ./program => hello from the handler: caught 42
plx-c++ -static streams.cpp -o program && ./program => streams: 42
g++ $(pkg-config --cflags plx) streams.cpp $(pkg-config --libs plx) -o program && LD_LIBRARY_PATH=$root/usr/lib32 ./program => streams: 42
{ cmake --toolchain "$root/usr/share/plx-3/toolchain.cmake" -B cmake . && cmake --build cmake; } > log && cmake/s => hello from the handler: caught 42
END

own_dpkg --purge plx || wrong "dpkg --purge"
files | diff before - > log || wrong "dpkg leaves something"
finish
