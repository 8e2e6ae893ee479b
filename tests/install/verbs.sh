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
  share/doc/plx/README.md share/doc/plx/docs/protocol.md share/doc/plx/examples/hello.cpp; do
  [ -s "others/$file" ] || wrong "$file is not installed"
done
(cd "$PLX_SOURCE" && ls man/*.[17] gdb/*.py docs/*.md 2> /dev/null) | sed 's|.*/||' | while read -r name; do
  [ -n "$(find others/share -name "$name")" ] || echo "$name"
done > missing
[ ! -s missing ] || wrong "not installed: $(tr '\n' ' ' < missing)"
[ ! -e "$PLX_PREFIX/lib/libplx.a" ] || [ -s others/lib/libplx.a ] || wrong "libplx.a is not installed"
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

# Mistakes. Nothing is changed by them.
touch file
mkdir -p other/share/plx-3 damaged/share/plx-3
printf 'bin/\n../file\n' > damaged/share/plx-3/install-manifest
mistake() {
  local text=$1
  shift
  dev "$@" && wrong "./dev $* succeeds"
  [ "$(wc -l < log)" -eq 1 ] && grep -q "^dev: .*$text" log || wrong "./dev $*: no clear line"
}
mistake "give one PREFIX" install
mistake "give one PREFIX" install ""
mistake "give one PREFIX" install a b
mistake "give one PREFIX" uninstall
mistake "is no PREFIX" uninstall --force
mistake "is not a directory" install "$work/file"
mistake "is not a directory" install "$work/file/below"
mistake "there is no directory" uninstall "$work/nowhere"
mistake "nothing that ./dev install put there" uninstall "$work/other"
mistake "is damaged" uninstall "$work/damaged"
mistake "no arguments" package here
mistake "not for others" --preset debug package
[ -f file ] && [ -d other/share/plx-3 ] || wrong "a mistake removed something"
if [ "$(id -u)" -ne 0 ]; then mistake "no permission" install /proc/plx; fi
finish
