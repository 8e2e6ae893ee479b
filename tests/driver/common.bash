# What the tests of the drivers share: a directory of their own, the drivers in PATH, and counted complaints.
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
PATH=$PLX_PREFIX/bin:$PATH
failures=0

wrong() {
  echo "wrong: $*"
  [ ! -s log ] || sed 's/^/  /' log
  failures=$((failures + 1))
}

# expect_output TEXT WHAT COMMAND... -o program [PROGRAM]: the command succeeds, and the program prints the text.
expect_output() {
  local text=$1 what=$2 program=./program
  shift 2
  [ "${*: -2:1}" = -o ] || [ "$1" = sh ] || { program=./${*: -1}; set -- "${@:1:$#-1}"; }
  rm -f program log
  "$@" 2> log || { wrong "$what: the driver fails"; return; }
  [ "$("$program" 2>&1)" = "$text" ] || wrong "$what: the program prints \"$("$program" 2>&1)\", not \"$text\""
}

# expect_error TEXT COMMAND...: status 1 and one line that holds the text.
expect_error() {
  local text=$1 status
  shift
  "$@" > log 2>&1
  status=$?
  [ $status -eq 1 ] || wrong "$*: status $status, not 1"
  grep -qF -- "$text" log || wrong "$*: the message lacks \"$text\""
  [ "$(wc -l < log)" -eq 1 ] || wrong "$*: more than one line"
}

finish() {
  [ "$failures" -eq 0 ] && exit 0
  echo "$failures of the checks failed"
  exit 1
}
