#!/bin/bash
# ./dev install and uninstall: everything is there, a second installation replaces the first one, exactly what was
# installed goes away again, foreign files and directories stay, and mistakes are told in one line.
. "$PLX_SOURCE/tests/install/common.bash"

tree() { (cd "$1" && find . -mindepth 1 | LC_ALL=C sort); }

# A prefix of others, with a file in a directory that plx uses too, and an empty directory.
mkdir -p others/share/doc others/lib others/empty
touch others/share/doc/text others/lib/other.so
tree others > before
cd "$work/others" && dev install . || wrong "install into the current directory"
cd "$work" || exit
for file in bin/plx-c++ bin/plx-cc lib/libplx.so.3.3.0 lib/libplx_start.a lib/plx-3/libstdc++.a include/plx-3/vector \
  include/plx-3/plx/runtime.h share/plx-3/toolchain.cmake share/cmake/plx/plxConfig.cmake share/pkgconfig/plx.pc share/pkgconfig/plx-c.pc \
  share/doc/plx/README.md share/doc/plx/examples/hello.cpp $(cd "$PLX_PREFIX" && ls lib/libplx.a); do
  [ -s "others/$file" ] || wrong "$file is not installed"
done
for name in $(cd "$PLX_SOURCE" && ls man/*.[17] gdb/*.py docs/*.md); do
  [ -n "$(find others/share -name "${name##*/}")" ] || wrong "$name is not installed"
done
[ "$(readlink others/lib/libplx.so.3)" = libplx.so.3.3.0 ] || wrong "libplx.so.3 is not a link to the library"
find others -type f ! -perm -444 -o -type d ! -perm -555 | grep . && wrong "not readable by everybody"
others/bin/plx-c++ "$PLX_SOURCE/examples/hello.cpp" -o program && [ "$(./program you)" = "hello, you" ] ||
  wrong "the installed driver"

# Again, over an installation that had a file more: it goes, and a program in use keeps its library.
tree others > after
touch others/include/plx-3/gone.h
echo include/plx-3/gone.h >> others/share/plx-3/install-manifest
exec 3< others/lib/libplx.so.3.3.0
dev install others || wrong "a second installation"
tree others | diff after - > log || wrong "a second installation leaves something else"
[ ! /dev/fd/3 -ef others/lib/libplx.so.3.3.0 ] || wrong "the library was written over"
exec 3<&-

touch others/share/plx-3/mine
dev uninstall others || wrong "uninstall"
[ -f others/share/plx-3/mine ] || wrong "uninstall removes a foreign file"
rm -r others/share/plx-3
tree others | diff before - > log || wrong "uninstall leaves or takes something"

# DESTDIR, with a prefix that was not there and goes away whole.
mkdir stage
DESTDIR=$work/stage dev install /opt/plx || wrong "install with DESTDIR"
[ -x stage/opt/plx/bin/plx-cc ] || wrong "DESTDIR is not used"
grep -rIlF "$work" stage && wrong "installed files name the DESTDIR"
DESTDIR=stage dev uninstall /opt/plx || wrong "uninstall with DESTDIR"
[ "$(tree stage)" = ./opt ] || wrong "uninstall with DESTDIR leaves: $(tree stage)"

# Mistakes, told in one line each. Nothing is changed by them.
touch file
mkdir -p other/share/plx-3 damaged/share/plx-3
printf 'bin/\n../file\n' > damaged/share/plx-3/install-manifest
dev() {
  local text status
  text=$("$PLX_SOURCE/dev" "$@" 2>&1)
  status=$?
  [ "${text//$'\n'/}" = "$text" ] || echo "several lines"
  echo "$text"
  return $status
}
table < "$tables/mistakes.txt"
[ -f file ] && [ -d other/share/plx-3 ] || wrong "a mistake removed something"
finish
