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
package=$work/UTC/plx_3.3.0_amd64.deb
cmp "$package" Asia/Tokyo/*.deb > log || wrong "elsewhere and later it becomes another package"
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
grep -rlF -e "$PLX_SOURCE" -e "$PLX_PREFIX" -e "$work" "$root/usr" && wrong "it names paths of where it was made"

PATH=$root/usr/bin:$PATH
hash -r
cp "$PLX_SOURCE"/examples/hello.c* .
# The tree holds no absolute paths, so pkg-config and CMake can be asked in that root.
export PKG_CONFIG_PATH=$root/usr/share/pkgconfig
table < "$tables/package.txt"

own_dpkg --purge plx || wrong "dpkg --purge"
files | diff before - > log || wrong "dpkg leaves something"
finish
