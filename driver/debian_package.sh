#!/bin/sh
# debian_package.sh BUILD FOLDER: makes FOLDER/plx_VERSION_amd64.deb of the build tree BUILD. Called by `./dev package`.
#
# The libraries are 32-bit code for machines that are not, so they go where Debian has such libraries, in /usr/lib32; the
# drivers and the CMake package look there too.
set -eu
umask 022
build=$1 folder=$2
cd "$(dirname "$0")/.."
version=$("$build/bin/plx-cc" --version 2> /dev/null | sed -n '1s/^plx-cc //p')

fail() {
  printf 'dev: package: %s\n' "$*" >&2
  exit 1
}

[ -n "$version" ] || fail "cannot tell the version"
command -v dpkg-deb > /dev/null || fail "dpkg-deb is missing"
stage=$(mktemp -d) || fail "cannot make a temporary directory"
trap 'rm -rf "$stage"' EXIT
trap 'exit 130' INT TERM
root=$stage/root
DESTDIR=$root cmake --install "$build" --prefix /usr > "$stage/log" 2>&1 || {
  cat "$stage/log" >&2
  fail "CMake failed"
}

# ---- Files ---------------------------------------------------------------------------------------------------------

mv "$root/usr/lib" "$root/usr/lib32"
library=$root/usr/lib32/libplx.so.$version
[ -f "$library" ] || fail "there is no libplx.so.$version"
chmod 644 "$library"
# Debuggers walk the stack by what is kept.
strip --strip-unneeded --keep-section=.debug_frame "$library"
for archive in "$root"/usr/lib32/libplx*.a; do strip -D --strip-debug "$archive"; done
# The dynamic linker looks there by itself.
sed -i 's|^libdir=.*|libdir=${prefix}/lib32|; s| -Wl,-rpath,${libdir}||' "$root"/usr/share/pkgconfig/plx*.pc
# gdb finds its file by the library's path.
auto_load=$root/usr/share/gdb/auto-load/usr
[ ! -d "$auto_load/lib" ] || mv "$auto_load/lib" "$auto_load/lib32"

# The time that everything carries: the same sources make the same package.
: "${SOURCE_DATE_EPOCH:=$(git log -1 --format=%ct 2> /dev/null || date +%s)}"
export SOURCE_DATE_EPOCH
date=$(LC_ALL=C date -u -R -d "@$SOURCE_DATE_EPOCH")
address=${DEBEMAIL:-$(git log -1 --format=%ae 2> /dev/null)} || address=
maintainer="${DEBFULLNAME:-The plx maintainers} <${address:-plx@localhost.localdomain}>"
doc=$root/usr/share/doc/plx
printf 'plx (%s) unstable; urgency=medium\n\n  * Release %s; see CHANGELOG.md.\n\n -- %s  %s\n' \
  "$version" "$version" "$maintainer" "$date" > "$doc/changelog"
sed "s/@YEAR@/$(date -u -d "@$SOURCE_DATE_EPOCH" +%Y)/" driver/debian_copyright > "$doc/copyright"
gzip -9n "$doc/changelog"
[ ! -d "$root/usr/share/man" ] || find "$root/usr/share/man" -type f -exec gzip -9n {} +

# ---- What dpkg is told ---------------------------------------------------------------------------------------------

# The newest version of the C library that a name in ours asks for.
libc=$(objdump -T "$library" | sed -n 's/.*(\{0,1\}GLIBC_\([0-9.]*\)).*/\1/p' | sort -uV | tail -n 1)
[ -n "$libc" ] || fail "cannot tell which C library is needed"
mkdir "$root/DEBIAN"
cat > "$root/DEBIAN/control" << END
Package: plx
Version: $version
Architecture: amd64
Maintainer: $maintainer
Installed-Size: $(du -sk --apparent-size "$root/usr" | cut -f1)
Depends: libc6-i386 (>= $libc), libc6-dev-i386, g++-multilib | clang, binutils
Suggests: gdb, cmake, pkgconf
Section: devel
Priority: optional
Description: C++ run-time library for 32-bit programs, and its compiler drivers
 plx is the C++ run-time library of a compiler that translates C++ into C:
 exceptions on setjmp and longjmp, dynamic memory, run-time type information,
 and the C++ standard library of 1998 for char. It makes 32-bit programs for
 x86 and stands on the C library alone.
 .
 plx-c++ compiles ordinary C++ for it with a stock g++ or clang, plx-cc generated
 C.
 There are also a static library, a CMake package with a toolchain file, a
 pkg-config file, and pretty printers for gdb.
END
echo "activate-noawait ldconfig" > "$root/DEBIAN/triggers"
echo "libplx 3 plx (>= $version)" > "$root/DEBIAN/shlibs"
(cd "$root" && find usr -type f -print0 | LC_ALL=C sort -z | xargs -0 md5sum > DEBIAN/md5sums)

mkdir -p "$folder"
package=$folder/plx_${version}_amd64.deb
dpkg-deb --build --root-owner-group -Zxz "$root" "$package" > "$stage/log" 2>&1 || {
  cat "$stage/log" >&2
  fail "dpkg-deb failed"
}
echo "made $package"
