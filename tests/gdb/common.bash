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

# transcript FILE PROGRAM [GDB OPTION...]: what the file asks for, as transcript.py has it. gdb finds the printers on its
# own unless the options say something else; the last line says that all is as expected.
transcript() {
  local file=$1 program=$2
  shift 2
  [ $# -gt 0 ] || set -- -iex "add-auto-load-safe-path $PLX_PREFIX"
  PLX_TRANSCRIPT=$file gdb -nx -batch "$@" -x "$PLX_SOURCE/tests/gdb/transcript.py" "$program" > log 2>&1 < /dev/null
  tail -n 1 log | grep -q '^transcript: [1-9][0-9]* commands, all as expected$' || wrong "${file##*/} ${what-}"
}

# build SOURCE [OPTION...]: ./program.
build() {
  local driver=plx-c++
  case $1 in *.c) driver=plx-cc ;; esac
  "$driver" -g "${@:2}" "$1" -o program 2> log || { wrong "${1##*/} does not build: ${*:2}"; return 1; }
}
