# What the tests of the drivers share: a directory of their own, the drivers in PATH, and counted complaints.
set -u
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
PATH=$PLX_PREFIX/bin:$PATH
tables=$PLX_SOURCE/tests/driver/tables
failures=0

wrong() {
  echo "wrong: $*"
  [ ! -s log ] || sed 's/^/  /' log
  failures=$((failures + 1))
}

# table: reads lines `COMMAND => WANT`. What the command prints, in one line and with `!STATUS` behind it unless that is 0,
# is the pattern WANT. Commands may use what those before them made. `file NAME` makes a file of the lines behind `| `;
# what follows `unless sanitized` is left out where the library has sanitizers.
table() {
  local row command want got status file
  while IFS= read -r row; do
    case $row in
      '' | '# '*) continue ;;
      'file '*) file=${row#file }; : > "$file"; continue ;;
      '|'*) row=${row#|}; printf '%s\n' "${row# }" >> "$file"; continue ;;
      'unless sanitized') [ -z "$PLX_SANITIZE" ] || return 0; continue ;;
    esac
    command=${row%% =>*} want=${row##* =>}
    want=${want# }
    got=$(eval "$command" 2>&1; status=$?; [ $status -eq 0 ] || echo "!$status")
    got=${got//$'\n'/ }
    # shellcheck disable=SC2053 # a pattern
    [[ $got == $want ]] || wrong "$command"$'\n'"  prints: $got"$'\n'"  wanted: $want"
  done
}

finish() {
  [ "$failures" -eq 0 ] && exit 0
  echo "$failures of the checks failed"
  exit 1
}
