#!/bin/bash
# Scenes (scenes/scenes.h), played by generated C alone, and by generated C and C++ by turns. Those at random leave the trace
# that the host's library leaves; PLX_SCENES is how many (20000), PLX_SCENES_FIRST the first. What the host does otherwise
# or leaves undefined is a table below.
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/random/scenes
first=${PLX_SCENES_FIRST:-1} count=${PLX_SCENES:-20000}
gcc -m32 -O1 -w -DWORLDS=2 -c "$here/stage.c" -o stage.o &&
  g++ -m32 -O0 -std=gnu++98 -w "$here/world_cpp.cc" stage.o -o host || { echo "skipped: g++ -m32 does not work here"; exit 77; }
./host "$first" "$count" > want || exit 1

# plays PROGRAM SCENES COMMAND...: builds it, and compares the traces of so many scenes. C alone leaves some out.
plays() {
  local program=$1 scenes=$2
  shift 2
  "$@" -w -I "$PLX_SOURCE/tests" -o "$program" 2> log || { wrong "$program: does not build"; return; }
  timeout 100 "./$program" "$first" "$scenes" > got 2> log || wrong "$program: status $?"
  awk -v last=$((first + scenes)) 'NR == FNR { played[$1]; next } $1 in played' got want | cmp - got > log &&
    [ "$(wc -l < got)" -gt $((scenes / 2)) ] || wrong "$program: $(diff -a want got | head -n 4)"
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

# check: lines `WORLDS SCENE => TRACE` or `WORLDS SCENE | UNEXPECTED | TERMINATE => TRACE`, with what the handlers run. WORLDS
# says who leaves this trace: any, both (where C++ takes part for certain) or c.
check() {
  local worlds row scene unexpected terminate program choice got
  while read -r worlds row; do
    IFS='|' read -r scene unexpected terminate <<< "${row%% => *}"
    for program in c0 c2 both-*; do
      [ "$worlds" = any ] || [[ $program == "$worlds"* ]] || continue
      for choice in 1 2 3 4; do
        got=$({ "./$program" "${scene% }" "${unexpected//[ ]/}" "${terminate//[ ]/}" $choice; } 2> log
          [ $? -lt 128 ] || echo aborted)
        [ "${got% }" = "${row##* => }" ] || wrong "$program, choice $choice: ${row%% => *} => $got"
      done
    done
  done < <(grep -v '^#')
}
check << 'END'
# What is thrown while an object is constructed or destroyed; nobody handles it: all that stands is unwound.
any  ?i{+1{}{ti2{}{}}}{} => ~1 h1:2
any  ?i{?f{tf1{}{ti3{}{}}}{.1}}{.2} => h1:f1 .1 h1:3 .2
any  ?a{tf1{ti2{}{}}{}}{.1} => h1:0 .1
any  tf1{}{} => terminate*
any  ?s{!m{+1{a2{tf1{}{}}{}}{}}}{} => +100 +101 ~101* ~100* ~1* terminate*
any  ?f{tf1{}{}}{+1{ti2{}{}}{}} => h1:f1 ~1* ~e11* terminate*
any  ?a{+2{tf1{}{}}{ti2{}{}}}{} => ~2* terminate*
any  ?a{?f{tf1{}{ti3{}{}}}{tf2{}{}}}{} => h1:f1 terminate*
any  ?a{?i{ti1{}{}}{+2{r}{ti2{}{}}}}{} => h1:1 ~2* terminate*
any  tf1{?i{ti2{}{}}{}.1}{} => h1:2 .1 terminate*
any  ?a{+1{}{?i{td1{}{}}{}}}{.1} => ~1 h1:0 .1
any  ?a{a3{tf1{+2{ti3{}{}}{?f{tf4{}{}}{}}}{}}{}}{} => ~2* h1:f4* ~e14* h1:0
# The terminate handler ends the program whatever it does.
any  tf1{}{} | | .1 => terminate* .1* aborted
any  tf1{}{} | | ?i{ti4{}{}}{} => terminate* h1:4* aborted
any  tf1{}{} | | td1{}{} => terminate* aborted
any  tf1{}{} | | r => terminate* aborted
any  ?a{+2{tf1{}{}}{ti2{}{}}}{} | | td1{}{} => ~2* terminate* aborted
# Nothing is handled.
any  r => terminate*
any  ?i{ti1{}{}}{}r => h1:1 terminate*
any  ?i{ti1{}{}}{?f{r}{}} => h1:1 terminate*
any  ?a{+1{?a{td2{}{}}{r}}{?m{r}{}}}{} => h1:0 ~1* terminate*
# Specifications, whose violation ends the program where the handler returns.
any  ?a{!i{+1{tf1{}{}}{}}}{} => ~1* U terminate
any  ?a{!i{tf1{}{}}}{} | .1?a{r}{} => U .1 h1:0 terminate
c    ?f{!i{tf1{}{}}}{} | tf8{}{} => U ~e1* h1:f8 ~e18
c    ?f{!m{!i{+1{tf1{}{}}{}}}}{} | tf8{}{} => ~1* U ~e1* h1:f8 ~e18
c    ?f{!m{!i{+1{tf1{}{}}{}}}}{} | r => ~1* U h1:f1 ~e11
c    ?f{!i{tb1{}{}}}{} | r => U h1:f1 ~e11
any  ?f{tf3{}{}}{?i{!i{r}}{}.1} | ti7{}{} => h1:f3 U h1:7 .1 ~e13
both ?f{!m{!o{+1{tf1{}{}}{}}}}{} | tf8{}{} => ~1* U ~e1* terminate*
both ?f{!o{tb1{}{}}}{} | r => U terminate*
both ?i{!o{+1{ts1{}{}}{}}}{.1} | ?a{td3{}{}}{}ti2{}{} => ~1* U h1:0 ~e1* h1:2 .1
both ?a{!b{+1{tf1{}{}}{}}}{} => ~1* U terminate
both ?e{!b{+1{tv1{}{}}{}}}{.1} | tb8{}{} => ~1* U ~e1* ~e8 h1:0 .1
both ?i{!b{tf1{}{}}}{} | td8{}{} => U ~e1* terminate*
both ?f{tf2{}{}}{?a{!b{r}}{?m{r}{}}.1} | tf3{}{} => h1:f2 U ~e3 h1:0 ~e12* terminate*
# `throw;` in destructors that run while the same exception is led out of its handler, or another is in flight.
any  ?a{?f{tf1{}{}}{+1{r}{?m{r}{}}}}{?m{r}{}} => h1:f1 ~1* h3:f11* h1:0 h3:f21 ~e31
any  ?a{?f{tf1{}{}}{+1{r}{?a{+2{r}{?m{r}{}}}{?m{r}{}}}}}{?m{r}{}} => h1:f1 ~1* ~2* h3:f11* h1:0* h3:f21* h1:0 h3:f31 ~e41
any  ?a{?f{tf1{}{}}{+1{+2{r}{?m{r}{}}}{?a{r}{?m{r}{}}}}}{?m{r}{}} => h1:f1 ~2* h3:f11* ~1* h1:0* h3:f21* h1:0 h3:f31 ~e41
any  ?i{ti7{}{}}{?a{+1{?f{tf1{}{}}{r}}{?m{r}{}}}{+2{}{?m{r}{}}}?m{r}{}} => h1:7 h1:f1 ~1* h1:7* h1:0 ~2 h3:f11 ~e21 h1:7
any  ?i{ti7{}{}}{?a{+1{td2{}{}}{?m{r}{}}}{.d}?m{r}{}} => h1:7 ~1* h1:7* h1:0 .d h1:7
any  ?i{ti7{}{}}{?a{+1{?a{td2{}{}}{r}}{?m{r}{}}}{.d}?m{r}{}} => h1:7 h1:0 ~1* h1:7* h1:0 .d h1:7
any  ?f{tf1{}{}}{?f{r}{?f{r}{?f{r}{}?m{r}{}}}.1} => h1:f1 h1:f11 h1:f21 h1:f31 h3:f41 .1 ~e51
any  ?f{tf1{}{}}{?a{?f{r}{?a{tb2{}{}}{?a{r}{}}r}}{?m{r}{}}} => h1:f1 h1:f11 h1:0 h1:0 ~e2 h1:0 h3:f21 ~e31
any  ?a{L0{L1{L2{L3{L5{L6{+1{tb1{}{}}{}}}}}}}}{?f{r}{}} => ~1* h1:0 h1:f1 ~e11
any  L4{+1{!m{ts1{}{}}}{}} => ~1* ~e1 L
# Jumps out of handlers and throw expressions: their exceptions end, the rethrown and those outside go on.
any  J3{?a{tf1{}{}}{j}}.1 => h1:0 ~e1 J3 .1
any  J0{tf1{j}{}}.1 => J1 .1
any  J1{?f{tf2{}{}}{?f{tf3{}{}}{j}}}?f{tf4{}{}}{} => h1:f2 h1:f3 ~e13 ~e12 J1 h1:f4 ~e14
any  J2{?f{tf2{}{}}{?f{r}{?f{tf3{}{}}{j}}}}.1 => h1:f2 h1:f12 h1:f3 ~e13 ~e22 J2 .1
any  ?f{?f{tf1{}{}}{J2{?f{tf2{}{}}{?f{r}{j}}}r}}{} => h1:f1 h1:f2 h1:f12 ~e22 J2 h1:f11 ~e21
any  ?f{tf1{}{}}{J3{?f{r}{j}}J4{?f{r}{?f{r}{j}}}?m{r}{}} => h1:f1 h1:f11 J3 h1:f21 h1:f31 J4 h3:f41 ~e51
any  ?f{tf5{J5{?f{tf2{}{}}{?f{tf3{}{}}{tf4{j}{}}}}}{}}{} => h1:f2 h1:f3 ~e13 ~e12 J5 h1:f5 ~e15
any  ?i{ti1{}{}}{J6{?s{F{?f{tf1{}{}}{?f{tf2{}{}}{j}}}{}}{}}?m{r}{}} => h1:1 h1:f1 h1:f2 ~e12 ~e11 J6 h1:1
any  +1{J1{+2{!m{?a{a2{j}{}}{}}}{}}?f{tf1{}{}}{}}{} => +100 +101 J1 h1:f1 ~e11 ~1
any  ?f{?a{C{+1{?f{tf1{}{}}{}}{}}{}}{}F{th2{}{}}{}}{} => h1:f1 ~e11 ~1 ~21 ~20 ~11* ~10* terminate*
END
finish
