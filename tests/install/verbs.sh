#!/bin/bash
# ./dev install and uninstall: everything is there, a second installation replaces the first one, exactly what was
# installed goes away again, foreign files and directories stay, and mistakes are told in one line.
. "$PLX_SOURCE/tests/install/common.bash"

tree() { (cd "$1" && find . -mindepth 1 | LC_ALL=C sort); }
table < "$tables/verbs.txt"

# Mistakes, told in one line each. Nothing is changed by them.
dev() {
  "$PLX_SOURCE/dev" "$@" > "$work/said" 2>&1
  set -- $?
  [ "$(wc -l < "$work/said")" -eq 1 ] || echo "several lines"
  cat "$work/said"
  return "$1"
}
table < "$tables/mistakes.txt"
finish
