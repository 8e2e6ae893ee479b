#!/bin/bash
# ./dev setup on machines that are played by scripts: silent when nothing is missing, installs what is (with sudo when
# not root, after an update when the package lists are stale), and says what to do when it cannot.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir bin
for tool in sh touch dirname nproc uname env awk grep cat; do ln -s "$(command -v $tool)" bin/$tool; done
sed "s|/etc/os-release|$work/os-release|g" "$PLX_SOURCE/dev" > dev
chmod +x dev

# tool NAME LINES: a program of the played machine; each call of one that changes something is noted in `calls`.
tool() { printf '#!/bin/sh\n%s\n' "$2" > "bin/$1" && chmod +x "bin/$1"; }
note='echo "${0##*/} $*" >> calls'

# machine SYSTEM USER-ID MISSING...: with all of Debian's packages but these. apt-get installs when the lists are fresh.
machine() {
  printf 'ID=%s\nVERSION_ID="%s"\nPRETTY_NAME="%s"\n' ${1% *} "${1#* }" "$1" > os-release
  echo " ${*:3} " > absent
  tool dpkg "echo ${architecture:-amd64}"
  tool id "echo $2"
  tool dpkg-query 'shift 2
for package do case "$(cat absent)" in *" $package "*) ;; *) printf "ii  %s " "$package" ;; esac; done'
  tool apt-get "$note"'
case $* in *update*) touch fresh ;; *) [ -f fresh ] && echo > absent ;; esac'
  tool sudo "$note"'
exec "$@"'
  for present in cmake ninja make g++; do tool $present :; done
  touch fresh
  : > calls
}
setup() { env -i PATH="$work/bin" ./dev setup; }

install="apt-get install -y -q --no-install-recommends"
table << END
machine "debian 12" 0; setup; cat calls =>
machine "debian 12" 0 ninja-build g++-multilib; setup; cat calls => dev: installing ninja-build g++-multilib $install ninja-build g++-multilib
architecture=i386 machine "debian 12" 0 g++-multilib; setup; cat calls =>
machine "debian 12" 0 clang-14 clang; setup; cat calls => dev: installing clang-14 $install clang-14
machine "debian 13" 0 clang-14 clang; setup; cat calls => dev: installing clang $install clang
machine "debian 13" 1000 cmake; setup; cat calls => dev: installing cmake sudo env * $install cmake $install cmake
machine "debian 12" 0 cmake; rm fresh; setup; cat calls => dev: installing cmake $install cmake apt-get update -qq $install cmake
machine "debian 12" 0 cmake; tool apt-get false; setup => dev: installing cmake dev: apt-get update failed; then: apt-get install cmake !1
machine "debian 12" 1000 cmake xz-utils; rm bin/sudo; setup => dev: packages are missing, and neither root nor sudo is at hand; as root: apt-get install cmake xz-utils !1
machine "fedora 40" 0 clang-14; setup; cat calls => dev: supported are Debian 12 and 13; this is fedora 40
machine "fedora 40" 0; rm bin/ninja; tool g++ false; setup => dev: supported are Debian 12 and 13; this is fedora 40 dev: please install: Ninja, g++ with what it needs for -m32 * !1
END

# Mistakes on the command line: one line each.
for arguments in "nonsense" "run" "run no-such-file.cpp" "run README.md" "--preset nonsense build" "install"; do
  # shellcheck disable=SC2086
  PLX_BUILD=$work/build "$PLX_SOURCE/dev" $arguments > log 2>&1 && wrong "./dev $arguments succeeds"
  [ "$(wc -l < log)" -eq 1 ] && grep -q '^dev: ' log || wrong "./dev $arguments: not one clear line"
done
finish
