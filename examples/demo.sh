#!/bin/bash
# Builds the examples with the driver, runs them on real files of this machine, shows what they print, and checks what
# must hold. Called by `./dev demo`; PLX_PREFIX is the build tree or installed prefix. Exits 1 when anything is wrong.
set -u
source_dir=$(cd "$(dirname "$0")" && pwd)
prefix=${PLX_PREFIX:?"PLX_PREFIX must name the build tree or the installed prefix"}
work=$(mktemp -d "${TMPDIR:-/tmp}/plx-demo.XXXXXX")
trap 'rm -rf "$work"' EXIT
failures=0

heading() { printf '\n== %s\n' "$1"; }

wrong() {
  printf 'WRONG: %s\n' "$1"
  failures=$((failures + 1))
}

# build NAME COMMAND...: shows the command and ends the demo when it fails.
build() {
  local name=$1 compiler=$2
  shift 2
  echo "\$ $compiler $*"
  (cd "$source_dir" && "$prefix/bin/$compiler" "$@" -o "$work/$name") && return
  echo "WRONG: $name does not build"
  exit 1
}

# run EXPECTED-STATUS PROGRAM [ARGS...]: shows the output, which stays in $work/output.
run() {
  local expected=$1 program=$2 status
  shift 2
  echo "\$ $program${*:+ $*}"
  "$work/$program" "$@" > "$work/output" 2>&1
  status=$?
  cat "$work/output"
  [ "$status" -eq "$expected" ] || wrong "$program ended with status $status, not $expected"
}

expect_line() { grep -qxF -- "$1" "$work/output" || wrong "expected the line: $1"; }

# first_file FILE...: the first one that can be read and is not empty.
first_file() {
  local file
  for file in "$@"; do
    [ -f "$file" ] && [ -r "$file" ] && [ -s "$file" ] && echo "$file" && return
  done
  return 1
}

heading "hello, in C++ and in generated C"
build hello plx-c++ hello.cpp
run 0 hello world
expect_line "hello, world"
run 0 hello
expect_line "caught: nobody to greet: give a name as the argument"
build hello-c plx-cc hello.c
run 0 hello-c
expect_line "hello from the handler: caught 42"

# ---- tables: typed exceptions, caught for a line and for a file ---------------------------------------------------

heading "tables: a C++ program reads a messy file; typed exceptions at two levels"
build tables plx-c++ tables.cpp

# Which table there is decides the kind, what is a bad line of it, and how many of each sort that adds.
if table=$(first_file /etc/mime.types); then
  kind=types damage=$'text/plain\naudio\nimage/p!ng png\ntext/\xff\xfe bad'
  added=(2 0 2)
elif table=$(first_file /etc/services); then
  kind=services damage=$'lonely\nhalf 80\nbig 65536/tcp\nsign -1/tcp\nodd!name 7/tcp'
  added=(2 2 1)
else
  table=$(first_file /etc/passwd) || { echo "WRONG: no table to read on this machine"; exit 1; }
  kind=accounts damage=$'root:x:0\nlost:x:one:1:::\nhuge:x:99999999999:1:::\nbad name:x:1:1:::'
  added=(1 2 1)
fi

# read_counts: the counts of the last run, in the order of the two lines that print them.
read_counts() {
  read -r lines entries skipped bad < <(sed -nE 's/^.*: ([0-9]+) lines, ([0-9]+) entries, ([0-9]+) blank or comment, ([0-9]+) bad$/\1 \2 \3 \4/p' "$work/output")
  read -r missing numbers names < <(sed -nE 's/^bad lines: ([0-9]+) missing field, ([0-9]+) bad number, ([0-9]+) bad name$/\1 \2 \3/p' "$work/output")
  if [ -z "${lines:-}" ] || [ -z "${missing:-}" ]; then
    wrong "no totals were printed"
    lines=0 entries=0 skipped=0 bad=0 missing=0 numbers=0 names=0
  fi
  [ $((entries + skipped + bad)) -eq "$lines" ] || wrong "entries, skipped and bad lines are not all lines"
  [ $((missing + numbers + names)) -eq "$bad" ] || wrong "the kinds of bad lines are not all bad lines"
}

run 0 tables "$kind" "$table"
read_counts
[ "$lines" -eq "$(grep -ac '' "$table")" ] || wrong "$table has another number of lines"
[ "$skipped" -eq "$(LC_ALL=C grep -acE '^[[:space:]]*(#|$)' "$table")" ] || wrong "$table has other comments"
[ "$entries" -gt 0 ] || wrong "no entry was read"
before=("$missing" "$numbers" "$names" "$entries")

heading "tables: the same file with damaged lines at its end"
{ cat "$table"; echo; echo "$damage"; } > "$work/damaged"
run 0 tables "$kind" "$work/damaged"
read_counts
[ "$missing" -eq $((before[0] + added[0])) ] || wrong "missing fields: $missing, not $((before[0] + added[0]))"
[ "$numbers" -eq $((before[1] + added[1])) ] || wrong "bad numbers: $numbers, not $((before[1] + added[1]))"
[ "$names" -eq $((before[2] + added[2])) ] || wrong "bad names: $names, not $((before[2] + added[2]))"
[ "$entries" -eq "${before[3]}" ] || wrong "the damage made $((entries - before[3])) entries"

heading "tables: what is no table at all"
run 2 tables "$kind" "$source_dir/tables.cpp"
expect_line "$source_dir/tables.cpp: not read: 20 bad lines and no entry: this is another kind of file"
run 2 tables "$kind" "$work"
expect_line "$work: not read: the file cannot be read"
run 2 tables "$kind" "$work/nothing"
expect_line "$work/nothing: not read: $work/nothing cannot be opened"

# ---- word_frequency: containers on a text of some hundred KB --------------------------------------------------------

# Texts in English that a Debian system has; files that are missing are left out.
texts=()
for file in /usr/share/common-licenses/{GPL,LGPL,GFDL}-[1-9]* /usr/share/common-licenses/{Apache-2.0,Artistic,MPL-*}; do
  [ -f "$file" ] && [ -r "$file" ] && texts+=("$file")
done
[ ${#texts[@]} -gt 0 ] || texts=("$source_dir"/*.cpp)
heading "word_frequency: the most frequent of $(cat "${texts[@]}" | wc -c) characters' words, in a map"
build word_frequency plx-c++ -O2 word_frequency.cpp
run 0 word_frequency -10 "${texts[@]}"
# The same by other means.
LC_ALL=C tr -cs 'A-Za-z' '\n' < <(cat "${texts[@]}") | LC_ALL=C tr 'A-Z' 'a-z' | grep . > "$work/words"
LC_ALL=C sort "$work/words" | uniq -c | LC_ALL=C sort -k1,1nr -k2,2 > "$work/counts"
{
  head -10 "$work/counts"
  echo "$(wc -l < "$work/words") words, $(wc -l < "$work/counts") different ones"
} > "$work/expected"
diff "$work/expected" "$work/output" || wrong "the words were counted differently"
run 1 word_frequency "$work/nothing"
expect_line "$work/nothing: No such file or directory"
run 1 word_frequency "$work"

# ---- tour: streams, files, locales ----------------------------------------------------------------------------------

heading "tour: files measured through streams, with numbers grouped by a locale"
build tour plx-c++ -O2 tour.cpp
run 0 tour "$work/report" "${texts[@]}"
[ "$(sed -n '2,$p' "$work/output" | sed '$d')" = "$(cat "$work/report")" ] || wrong "the report differs from the table"
for file in "${texts[@]}"; do
  read -r lines words bytes < <(wc -lwc < "$file")
  row=$(awk -v file="$file" '$NF == file' "$work/report" | tr -d "'")
  [ "$(echo "$row" | awk '{print $1, $2, $3}')" = "$lines $words $bytes" ] || wrong "$file has $lines lines, $words words, $bytes bytes"
done
run 1 tour "$work/report" "${texts[0]}" "$work/nothing" "$work"
expect_line "$work/nothing cannot be read"
expect_line "$work cannot be read"
run 2 tour "$work/nowhere/report" "${texts[0]}"
expect_line "$work/nowhere/report cannot be written: Failure reported"
if [ -w /dev/full ]; then
  run 2 tour /dev/full "${texts[0]}"
  expect_line "/dev/full cannot be written: Failure reported"
fi

# ---- two_worlds: one exception, two languages ----------------------------------------------------------------------

text=$(first_file /etc/services /usr/share/common-licenses/GPL-3 /etc/mime.types /etc/login.defs "$table")
heading "two_worlds: generated C and C++ throw through each other"
build generated.o plx-cc -c two_worlds/generated.c
build main.o plx-c++ -c two_worlds/main.cpp
echo "\$ plx-c++ generated.o main.o"
"$prefix/bin/plx-c++" "$work/generated.o" "$work/main.o" -o "$work/two_worlds" || { echo "WRONG: no link"; exit 1; }
run 0 two_worlds "$text"

# What must have been found, counted here in another way.
read -r total fine too_long strange first_long first_filled < <(LC_ALL=C awk '
  length > 72 { ++too_long; if (!first) first = NR }
  length <= 72 && /[^ -~]/ { ++strange }
  length > 0 && !filled { filled = NR }
  END { print NR, NR - too_long - strange, too_long + 0, strange + 0, first + 0, filled + 0 }' "$text")
expect_line "  [C]   totals: $total lines, $fine fine, $too_long too long, $strange strange"
expect_line "  [C]   file closed after line $total"
if [ "$total" -ge 3 ]; then
  expect_line "  [C++] inspection of line 3 destroyed"
  expect_line "  [C]   file closed after line 3"
  expect_line "  [C++] caught enough: stopped at line 3"
fi
if [ "$first_long" -gt 0 ]; then
  expect_line "  [C]   file closed after line $first_long"
  grep -q "caught long_line: line $first_long has" "$work/output" || wrong "long_line was not caught"
else
  expect_line "  [C++] no line is longer than 72"
fi
expect_line "  [C++] caught finding: line $first_filled is the first that is not empty"
expect_line "  [C]   totals: 0 lines, 0 fine, 0 too long, 0 strange"
expect_line "  [C++] caught int: No such file or directory"
expect_line "inspections still alive: 0"

# Destruction runs from the inside out: the C++ local, then the C file, then the C report, then the handler.
order=$(grep -nE 'inspection of line 3 destroyed|file closed after line 3$|caught enough' "$work/output" | cut -d: -f1 | tr '\n' ' ')
[ "$total" -lt 3 ] || [ "$order" = "$(echo "$order" | tr ' ' '\n' | sort -n | grep . | tr '\n' ' ')" ] ||
  wrong "objects were destroyed in another order"

if [ "$failures" -eq 0 ]; then
  printf '\ndemo: everything that was checked holds\n'
else
  printf '\ndemo: %d of the checks failed\n' "$failures"
  exit 1
fi
