#!/bin/bash
# Every code block of README.md, CONTRIBUTING.md and docs/ does what the text around it says. Blocks of C++ and C are
# complete programs, which are built and run; `sh` blocks are run; an `output` block is what the block before it prints.
#
#   ```cpp [file=NAME] [with=FILE,...] [in=FOLDER] [options=OPTION,...] [status=N] [refused=TEXT]
#                                 built by plx-c++, C by plx-cc, as if it stood in that folder of the sources
#   ```sh [status=N] [needs=COMMAND,...]
#                                 run in the document's folder, where file= put the earlier blocks; $PLX is the prefix.
#                                 Left out without one of the commands, or, with / in front, files of the prefix
#   ```make file=NAME             (cmake, cpp and c headers too) a file for the blocks behind it
#   ```output   ```text           compared; never looked at
#   ```... not-run: REASON        of any kind
#
# Blanks at the ends of lines do not count. `refused` is a part of the compiler's message, in which _ may be a blank. A
# fence of another kind, a block without a fence and an attribute that nobody knows are faults, so that no example
# escapes by a slip.
. "$PLX_SOURCE/tests/driver/common.bash"

export PLX=$PLX_PREFIX
documents=(README.md CONTRIBUTING.md)
for file in "$PLX_SOURCE"/docs/*.md; do documents+=("docs/${file##*/}"); done
if [ $# -gt 0 ]; then documents=("$@"); fi

# wrong TEXT: shows the log of the block, or of the comparison.
log=/dev/null
wrong() {
  echo "wrong: $*"
  sed 's/^/  /' "$log" 2>/dev/null
  failures=$((failures + 1))
}

# ---- Blocks to files -----------------------------------------------------------------------------------------------
# For each document a folder; in its plan a line for each block: number, line, kind, the attributes, and the file.
split() {
  awk -v plan=plan '
    function fault(text) { print FILENAME ":" FNR ": " text > "faults" }
    function begin(info,   n, word, i, known) {
      n = split(info, word, " ")
      kind = word[1]; attributes = ""; name = ""; reason = ""
      if (kind !~ /^(cpp|c|sh|make|cmake|gdb|output|text)$/) { fault("no kind of block: \"" info "\""); kind = "text" }
      for (i = 2; i <= n; ++i) {
        if (word[i] == "not-run:") {
          if (i == n) fault("not-run: needs a reason")
          reason = "not-run"
          break
        }
        if (word[i] !~ /^(file|with|in|needs|options|status|refused)=./) fault("no attribute: " word[i])
        if (word[i] ~ /^file=/) name = substr(word[i], 6)
        else attributes = attributes " " word[i]
      }
      if (kind ~ /^c?make$/ && name == "" && reason == "") fault("a block of " kind " needs file=")
      ++number
      target = name != "" ? name : "block" number "." kind
      if (name ~ /^\/|\.\./) fault("a name that leads elsewhere")
      if (name ~ /\.h$/) kind = "header"
      printf "%d\t%d\t%s\t%s\t%s\t%s\n", number, FNR, kind, reason == "" ? "run" : reason, target, attributes > plan
      dir = target; if (sub(/\/[^\/]*$/, "", dir)) system("mkdir -p " dir)
      printf "" > target
    }
    inside && $0 == fence { inside = 0; close(target); blank = 1; next }
    inside { print substr($0, indent + 1) > target; next }
    /^ *```/ {
      match($0, /^ */); indent = RLENGTH
      fence = substr($0, 1, indent) "```"
      inside = 1
      begin(substr($0, indent + 4))
      next
    }
    /^(    |\t)/ && blank && !list { fault("a block without a fence") }
    /^ *([-*]|[0-9]+\.) / { list = 1 }
    /^[^ ]/ && !/^([-*]|[0-9]+\.) / { list = 0 }
    { blank = $0 == "" }
    END { if (inside) fault("a block that does not end") }' "$1"
}

folder_of() { local name=${1%.md}; echo "$work/${name//\//.}"; }
for document in "${documents[@]}"; do
  folder=$(folder_of "$document")
  mkdir "$folder" && cd "$folder" || exit 1
  : > plan
  split "$PLX_SOURCE/$document"
  # `./dev run` as the text has it, with the library under test; nothing else of dev is for examples that run.
  cat > dev << 'DEV'
#!/bin/sh
[ "$1" = run ] || { echo "./dev $1: mark the block not-run"; exit 1; }
file=$2
shift 2
case $file in *.c) driver=plx-cc ;; *) driver=plx-c++ ;; esac
"$driver" "$file" -o ./dev.program && ./dev.program "$@"
DEV
  chmod +x dev
  [ ! -s faults ] || wrong "$(sed "s|^$PLX_SOURCE/||" faults)"
done

# ---- Programs ------------------------------------------------------------------------------------------------------

# attribute NAME ATTRIBUTES: its value; commas become spaces.
attribute() { sed -nE "s/.* $1=([^ ]*).*/\1/p" <<< "$2" | tr , ' '; }

# build FOLDER NUMBER KIND TARGET ATTRIBUTES: the program, or the message that came instead.
build() {
  local driver=plx-c++
  cd "$1" || exit 1
  case "$3 $5" in "c "*.cpp*) ;; "c "*) driver=plx-cc ;; esac
  # A program beside which others stand is linked with them; a block that only others use has no main.
  local link=()
  grep -qi 'main *(' "$4" || link=(-c)
  # shellcheck disable=SC2046 # words
  $driver -Wall -Wextra -Werror -iquote "$PLX_SOURCE/$(attribute in "$5")" $(attribute options "$5") "${link[@]}" "$4" \
    $(attribute with "$5") -o "block$2.program" > "block$2.log" 2>&1 || rm -f "block$2.program"
}
export -f build attribute
for document in "${documents[@]}"; do
  folder=$(folder_of "$document")
  awk -F '\t' -v folder="$folder" '$3 ~ /^(cpp|c)$/ && $4 == "run" { printf "%s%c%s%c%s%c%s%c%s%c", folder, 0, $1, 0, $3, 0, $5, 0, $6, 0 }' \
    "$folder/plan"
done | xargs -0 -r -n 5 -P 2 bash -c 'build "$@"' build

# ---- Runs ----------------------------------------------------------------------------------------------------------

ran=0
# run_block DOCUMENT NUMBER LINE KIND TARGET ATTRIBUTES: what it printed is in `printed`.
run_block() {
  local where=$1:$3 status expected
  log=block$2.log
  expected=$(attribute status "$6")
  case $4 in
    cpp | c)
      local refused
      refused=$(attribute refused "$6")
      if [ -n "$refused" ]; then
        [ ! -x "block$2.program" ] || wrong "$where: compiles"
        grep -q -- "${refused//_/[ _]}" "$log" || wrong "$where: the message is another"
        return
      fi
      [ -e "block$2.program" ] || { wrong "$where: does not build"; return; }
      [ -x "block$2.program" ] || return 0
      { timeout 60 "./block$2.program" > printed 2>&1 < /dev/null; } 2> /dev/null ;;
    sh) timeout 200 sh -eu "./$5" > printed 2>&1 < /dev/null ;;
    *) return 0 ;;
  esac
  status=$?
  ran=$((ran + 1))
  cp printed "$log"
  [ "$status" -eq "${expected:-0}" ] || wrong "$where: status $status"
}

for document in "${documents[@]}"; do
  cd "$(folder_of "$document")" || exit 1
  before=
  while IFS=$'\t' read -r number line kind run target attributes; do
    if [ "$kind" = output ]; then
      [ "$before" != skipped ] || continue
      [ -n "$before" ] || wrong "$document:$line: output of nothing"
      sed '$a\' printed | diff -Z "$target" - > difference || { log=difference; wrong "$document:$line: the block before prints something else"; }
      before=
      continue
    fi
    before=
    [ "$run" = run ] || continue
    for tool in $(attribute needs "$attributes"); do
      case $tool in /*) tool=$PLX$tool ;; esac
      command -v "$tool" > /dev/null || [ -f "$tool" ] || { echo "$document:$line: not run: there is no $tool"; before=skipped; continue 2; }
    done
    run_block "$document" "$number" "$line" "$kind" "$target" "$attributes"
    case $kind in cpp | c | sh) before=1 ;; esac
  done < plan
done
echo "$ran blocks ran"
[ $# -gt 0 ] || [ "$ran" -ge 10 ] || wrong "fewer blocks than there are"
finish
