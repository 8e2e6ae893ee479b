# What the tests of gdb's printers and commands share: programs are built with -g, and gdb runs what transcripts/ has.
. "$PLX_SOURCE/tests/driver/common.bash"
[ -z "$PLX_SANITIZE" ] || { echo "skipped: what gdb shows is the same without sanitizers"; exit 77; }
command -v gdb > /dev/null || { echo "skipped: there is no gdb"; exit 77; }
# Without Python, or where processes must not be traced, there is nothing to see.
gdb -nx -batch -ex 'python print("python")' 2>&1 | grep -qx python || { echo "skipped: gdb has no Python"; exit 77; }
gdb -nx -batch -ex 'break exit' -ex run -ex 'info registers' true > log 2>&1
grep -q '^rip\|^eip\|exited normally' log || { echo "skipped: gdb cannot run programs here"; exit 77; }
: > log
programs=$PLX_SOURCE/tests/gdb/programs

# run_python SCRIPT PROGRAM [GDB OPTION...]: the script in gdb, which finds the printers on its own unless the options say
# something else; its last line says that all is as expected.
run_python() {
  local script=$1 program=$2
  shift 2
  [ $# -gt 0 ] || set -- -iex "add-auto-load-safe-path $PLX_PREFIX"
  gdb -nx -batch "$@" -x "$PLX_SOURCE/tests/gdb/$script" "$program" > log 2>&1 < /dev/null
  tail -n 1 log | grep -q '^transcript: [1-9][0-9]* commands, all as expected$'
}

# transcript FILE PROGRAM [GDB OPTION...]: what the file asks for, as transcript.py has it.
transcript() { PLX_TRANSCRIPT=$1 run_python transcript.py "${@:2}" || wrong "${1##*/} ${what-}"; }

# build SOURCE [OPTION...]: ./program.
build() {
  local driver=plx-c++
  case $1 in *.c) driver=plx-cc ;; esac
  "$driver" -g "${@:2}" "$1" -o program 2> log || { wrong "${1##*/} does not build: ${*:2}"; return 1; }
}
