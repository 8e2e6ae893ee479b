#!/bin/bash
# Scenes (scenes/scenes.h), played by generated C alone, and by generated C and C++ by turns. Those at random leave the trace
# that the host's library leaves; PLX_SCENES is how many (20000), PLX_SCENES_FIRST the first. What the host does otherwise
# or leaves undefined is in scenes/table.txt.
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/random/scenes
count=${PLX_SCENES:-20000}
g++ -O1 "$PLX_SOURCE/tests/random/generate.cc" -o generate || exit 1
gcc -m32 -O1 -w -DWORLDS=2 -c "$here/stage.c" -o stage.o &&
  g++ -m32 -O0 -std=gnu++98 -w "$here/world_cpp.cc" stage.o -o host || { echo "skipped: g++ -m32 does not work here"; exit 77; }
./generate "$PLX_SOURCE/tests/random/scenes.rules" "${PLX_SCENES_FIRST:-1}" "$count" > scenes && ./host 1 0 < scenes > want || exit 1

# plays PROGRAM SCENES COMMAND...: builds it, and compares the traces of so many scenes. C alone leaves out those of a kind.
plays() {
  local program=$1 scenes=$2 without=none
  shift 2
  [[ $program != c* ]] || without='^b|'
  "$@" -w -I "$PLX_SOURCE/tests" -o "$program" 2> log || { wrong "$program: does not build"; return; }
  head -n "$scenes" scenes | timeout 100 "./$program" 1 0 > got 2> log || wrong "$program: status $?"
  head -n "$scenes" want | grep -v "$without" | cmp - got > log && [ "$(wc -l < got)" -gt $((scenes / 2)) ] ||
    wrong "$program: $(diff -a want got | head -n 4)"
}
for level in 0 2; do
  plays "c$level" "$count" plx-cc -O$level -fomit-frame-pointer -DWORLDS=1 "$here/stage.c" "$here/world_c.c"
done
both=(plx-c++ -std=gnu++98 -DWORLDS=3 "$here/world_cpp.cc" -x c "$here/stage.c" "$here/world_c.c")
for compiler in g++ clang++-14; do
  [ -z "${PLX_SANITIZE:-}" ] || [ $compiler != g++ ] || continue # it has other sanitizers
  ! command -v $compiler > /dev/null || PLX_CXX=$compiler plays "both-$compiler" "$count" "${both[@]}" -O2
done
# The address sanitizer moves entries from their frames to a stack of its own.
export ASAN_OPTIONS=detect_stack_use_after_return=1:detect_leaks=0
[ -n "${PLX_SANITIZE:-}" ] || plays sanitized $((count / 4)) "${both[@]}" -O1 -fsanitize=address

# An end by abort stays one.
export ASAN_OPTIONS=detect_leaks=0:handle_abort=0 UBSAN_OPTIONS=handle_abort=0
while read -r worlds row; do
  for program in c0 c2 both-*; do
    [ "$worlds" = any ] || [[ $program == "$worlds"* ]] || continue
    for choice in 1 2 3 4; do
      got=$({ echo "|${row%% => *}" | tr -d ' ' | timeout 10 "./$program" 50 $choice; } 2> log; [ $? -lt 128 ] || echo aborted)
      got=${got##*=> }
      [ "${got% }" = "${row##* => }" ] || wrong "$program, choice $choice: ${row%% => *} => $got"
    done
  done
done < <(grep -v '^#' "$here/table.txt")
finish
