#!/bin/bash
# ./dev setup on machines that are played by scripts: silent when nothing is missing, installs what is (with sudo when
# not root, after an update when the package lists are stale), and says what to do when it cannot.
. "$PLX_SOURCE/tests/driver/common.bash"
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

table < "$tables/setup.txt"

finish
