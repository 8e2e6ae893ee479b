#!/bin/bash
# ./dev package: what is packed again makes the same package, which holds no path of this machine; dpkg installs it into
# an empty root, its drivers build programs that run, and dpkg removes it without a trace. The dependencies are not in
# that root, so they are looked up here.
. "$PLX_SOURCE/tests/install/common.bash"
need dpkg-deb dpkg dpkg-shlibdeps cpack file
[ "$(id -u)" -eq 0 ] || { echo "skipped: only root installs packages"; exit 77; }

# The day of the sources is in the library, that of the package in all its files.
SOURCE_DATE_EPOCH=$(date -ud "$(grep -aoE '20[0-9]{2}-[01][0-9]-[0-3][0-9]' "$PLX_PREFIX/lib/libplx.so.3" | head -1)" +%s)
export SOURCE_DATE_EPOCH
umask 022
for zone in UTC Asia/Tokyo; do
  (cd "$PLX_PREFIX" && TZ=$zone cpack -B "$work/$zone") > log 2>&1 || { wrong "making it"; finish; }
done
package=$work/UTC/plx_3.3.0_amd64.deb root=$work/root
files() { (cd "$root" && find . ! -path './var/lib/dpkg/*' | LC_ALL=C sort); }
own_dpkg() { dpkg --root="$root" --log=/dev/null --force-depends --force-script-chrootless "$@" > log 2>&1; }
PATH=$root/usr/bin:$PATH
# The tree holds no absolute paths, so pkg-config and CMake can be asked in that root.
export PKG_CONFIG_PATH=$root/usr/share/pkgconfig
table < "$tables/package.txt"
finish
