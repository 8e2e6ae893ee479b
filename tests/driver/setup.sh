#!/bin/bash
# ./dev setup on machines that are played by scripts: silent when nothing is missing, installs what is (with sudo when
# not root, after an update when the package lists are stale), and says exactly what to install when it cannot.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir bin
for tool in sh touch dirname nproc env awk grep cat; do ln -s "$(command -v $tool)" bin/$tool; done

# tool NAME LINES: a program of the played machine; each call of a tool that changes something is noted in `calls`.
tool() {
  printf '#!/bin/sh\n%s\n' "$2" > "bin/$1"
  chmod +x "bin/$1"
}
note='echo "${0##*/} $*" >> "'$work/calls'"'

# machine ARCHITECTURE USER-ID MISSING...: with dpkg, without apt-get and sudo.
machine() {
  rm -f bin/apt-get bin/sudo calls
  : > calls
  tool dpkg "echo $1"
  tool id "echo $2"
  shift 2
  echo " $* " > absent
  tool dpkg-query 'shift 2
for package do
  case "$(cat "'"$work"'/absent")" in *" $package "*) ;; *) printf "ii  %s " "$package" ;; esac
done
[ "$(cat "'"$work"'/absent")" = "  " ]'
}
setup() { env -i PATH="$work/bin" "$PLX_SOURCE/dev" setup > log 2>&1; }
# Installing makes the packages present.
install=$note'
case $* in *install*) echo "  " > "'"$work"'/absent" ;; esac'

machine amd64 0
tool apt-get "$note"
setup || wrong "nothing is missing, and setup fails"
[ ! -s log ] || wrong "setup is not silent when nothing is missing"
[ ! -s calls ] || wrong "setup calls apt-get when nothing is missing"

machine amd64 0 ninja-build g++-multilib
tool apt-get "$install"
setup || wrong "installing as root"
grep -qx 'apt-get install -y -q --no-install-recommends ninja-build g++-multilib' calls || wrong "calls: $(cat calls)"
[ "$(wc -l < calls)" -eq 1 ] || wrong "an update without need"

machine i386 0 g++-multilib
tool apt-get "$note"
setup && [ ! -s calls ] || wrong "a 32-bit machine needs no 32-bit libraries beside its own"

machine amd64 1000 cmake
tool apt-get "$install"
tool sudo "$note"'
exec "$@"'
setup || wrong "installing with sudo"
grep -q '^sudo .*apt-get install .*cmake$' calls || wrong "no sudo: $(cat calls)"

machine amd64 0 cmake
tool apt-get "$note"'
case $1 in update) touch "'"$work"'/updated" ;; esac
[ -f "'"$work"'/updated" ]'
setup || wrong "stale package lists"
[ "$(cut -d' ' -f2 calls | tr '\n' ' ')" = "install update install " ] || wrong "the order: $(cat calls)"

for case in no-apt no-root; do
  machine amd64 1000 cmake ninja-build
  [ $case = no-apt ] || tool apt-get "$note"
  setup && wrong "$case: setup succeeds"
  grep -q '^dev: these packages are missing, please install them: cmake ninja-build' log || wrong "$case: the advice"
  [ "$(wc -l < log)" -eq 1 ] || wrong "$case: more than one line"
  [ ! -s calls ] || wrong "$case: something was called"
done

machine amd64 0 cmake
tool apt-get "$note"'
exit 1'
setup && wrong "a failing apt-get is no error"
grep -q '^dev: .*please install them: cmake$' log || wrong "the advice when apt-get fails"

# Mistakes on the command line: one line each.
for arguments in "nonsense" "run" "run no-such-file.cpp" "run README.md" "--preset nonsense build" "install"; do
  # shellcheck disable=SC2086
  PLX_BUILD=$work/build "$PLX_SOURCE/dev" $arguments > log 2>&1 && wrong "./dev $arguments succeeds"
  [ "$(wc -l < log)" -eq 1 ] && grep -q '^dev: ' log || wrong "./dev $arguments: not one clear line"
done
finish
