#!/bin/bash
# Every code block of README.md, CONTRIBUTING.md and docs/ does what the text around it says. Blocks of C++ and C are
# complete programs, which are built and run; `sh` blocks are run; an `output` block is what the block before it prints.
#
#   ```cpp [file=NAME] [with=FILE,...] [in=FOLDER] [options=OPTION,...] [status=N] [refused=TEXT]
#                                 built by plx-c++, C by plx-cc, as if it stood in that folder of the sources
#   ```sh [status=N]              run in the document's folder, where file= put the earlier blocks; $PLX is the prefix
#   ```make file=NAME             (cmake, cpp and c headers too) a file for the blocks around it
#   ```output   ```text           compared; never looked at
#   ```... not-run: REASON        of any kind
#
# Blanks at the ends of lines do not count. `refused` is a part of the compiler's message, in which _ may be a blank. A
# fence of another kind and an attribute that nobody knows are faults, so that no example escapes by a slip.
. "$PLX_SOURCE/tests/driver/common.bash"
export PLX=$PLX_PREFIX
[ $# -gt 0 ] || set -- README.md CONTRIBUTING.md $(cd "$PLX_SOURCE" && ls docs/*.md)

# Blocks to files; of each block a line: where it is, kind, file, attributes.
split() {
  awk -v name="${1##*/}" '
    function fault(text) { print name ":" FNR "\tfault\t" text }
    function begin(info,   n, word, i, target) {
      n = split(info, word, " ")
      kind = word[1]; attributes = ""; target = ++number "." kind
      if (kind !~ /^(cpp|c|sh|make|cmake|gdb|output|text)$/) fault("no kind of block: \"" info "\"")
      for (i = 2; i <= n && word[i] != "not-run:"; ++i) {
        if (word[i] !~ /^(file|with|in|options|status|refused)=./) fault("no attribute: " word[i])
        if (word[i] ~ /^file=/) target = substr(word[i], 6)
        attributes = attributes " " word[i]
      }
      if (i <= n || target ~ /\.h$/) kind = "text"
      if (target ~ /\//) system("mkdir -p $(dirname " target ")")
      printf "%s:%d\t%s\t%s\t%s\n", name, FNR, kind, target, attributes
      printf "" > target
      return target
    }
    inside && $0 == fence { inside = 0; close(target); next }
    inside { print substr($0, indent + 1) > target; next }
    match($0, /^ *```/) {
      indent = RLENGTH - 3; fence = substr($0, 1, RLENGTH); inside = 1
      target = begin(substr($0, RLENGTH + 1))
      next
    }
    END { if (inside) fault("a block that does not end") }' "$PLX_SOURCE/$1"
}

# attribute NAME: its value in `attributes`; commas become spaces.
attribute() { sed -nE "s/.* $1=([^ ]*).*/\1/p" <<< "$attributes" | tr , ' '; }

# build: the program of `file`. One beside which others stand is linked with them; what only others use has no main.
build() {
  local driver=plx-c++ link=()
  case $kind$attributes in c\ *.cpp*) ;; c | c\ *) driver=plx-cc ;; esac
  grep -qi 'main *(' "$file" || link=(-c)
  # shellcheck disable=SC2046 # words
  $driver -Wall -Wextra -Werror -iquote "$PLX_SOURCE/$(attribute in)" $(attribute options) "${link[@]}" "$file" \
    $(attribute with) -o program > log 2>&1
}

ran=0
# run_block: what it printed is in `printed`.
run_block() {
  local status refused=$(attribute refused) command="timeout 200 sh -eu ./$file"
  if [ "$kind" != sh ]; then
    command="timeout 60 ./program"
    rm -f program
    if ! build; then
      [ -n "$refused" ] && grep -q -- "${refused//_/[ _]}" log || wrong "$where: does not build, or the message is another"
      return
    fi
    [ -z "$refused" ] || wrong "$where: compiles"
    [ -x program ] || return
  fi
  { $command > printed 2>&1 < /dev/null; } 2> log
  status=$?
  ran=$((ran + 1))
  cp printed log
  [ "$status" = "$(attribute status | grep . || echo 0)" ] || wrong "$where: status $status"
}

for document; do
  mkdir "$work/${document//\//.}" && cd "$work/${document//\//.}" || exit 1
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
  split "$document" > plan
  before=
  while IFS=$'\t' read -r where kind file attributes; do
    case $kind in
      fault) wrong "$where: $file" ;;
      output)
        [ -n "$before" ] || wrong "$where: output of nothing"
        sed '$a\' printed | diff -Z "$file" - > log || wrong "$where: the block before prints something else" ;;
      cpp | c | sh) run_block; before=1; continue ;;
    esac
    before=
  done < plan
done
echo "$ran blocks ran"
[ "$ran" -ge 10 ] || [ "$*" != "${*/docs/}" ] || wrong "fewer blocks than there are"
finish
