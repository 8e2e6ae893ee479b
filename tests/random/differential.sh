#!/bin/bash
# Random exception programs (programs.rules), built for plx in many ways and for the host's C++ library: all must print the
# same trace. PLX_RANDOM_SEEDS is how many programs (30), PLX_RANDOM_FIRST the first seed (1), PLX_RANDOM_WAYS in how many
# ways each is built (1); PLX_RANDOM_KEEP=DIR keeps programs whose traces differ there, and the traces.
. "$PLX_SOURCE/tests/driver/common.bash"
seeds=${PLX_RANDOM_SEEDS:-$([ -z "${PLX_SANITIZE:-}" ] && echo 30 || echo 4)} # sanitizers make all of it slower
first=${PLX_RANDOM_FIRST:-1}
echo 'int main() {}' | g++ -m32 -x c++ - 2> log || { echo "skipped: g++ -m32 is not there to compare with"; exit 77; }
here=$PLX_SOURCE/tests/random
cp "$here/program.h" . && g++ -O1 "$here/generate.cc" -o generate || exit 1

# Those that begin with `split` put a third of the functions into a shared object.
ways=('-O0 -no-pie' '-O2 -fPIE -pie' 'split -O1' '-Os -fomit-frame-pointer -fPIE -pie' 'split -O3'
  '-O3 -no-pie -fno-inline' '-O1 -mstackrealign -msse2' 'split -Os -fPIE -pie' '-O2 -flto'
  '-O2 -std=gnu++14 -fno-omit-frame-pointer' 'split -O0' '-O2 GNU -mno-accumulate-outgoing-args -mpreferred-stack-boundary=2'
  '-O2 -static')
[ -z "${PLX_SANITIZE:-}" ] || ways[12]=-O1
export ASAN_OPTIONS=${ASAN_OPTIONS:-}:detect_leaks=0 # pointers that are thrown have no owner

compilers=("${PLX_CXX:-g++}")
for other in g++ clang++-14; do
  [[ ${compilers[0]} == *"${other%-14}"* ]] || ! command -v $other > /dev/null || compilers+=("$other")
done

# run PROGRAM TRACE: a program that does not end by itself with status 0 says so in its trace.
run() { timeout 60 "./$1" > "$2" 2> log || echo "ended with status $?" >> "$2"; }

# build FLAGS...: the program for plx.
build() {
  if [ "$1" != split ]; then
    plx-c++ -std=gnu++98 -w "$@" random.cpp -o plx 2> log
  else
    plx-c++ -std=gnu++98 -w "${@:2}" -DPART=1 -fPIC -shared random.cpp -o libpart.so 2> log &&
      plx-c++ -std=gnu++98 -w "${@:2}" -DPART=0 random.cpp -L. -lpart "-Wl,-rpath,$PWD" -o plx 2> log
  fi
}

checked=0
for ((seed = first; seed < first + seeds; ++seed)); do
  ./generate "$here/programs.rules" "$seed" 1 > random.cpp
  g++ -m32 -std=gnu++98 -w -O0 random.cpp -o host 2> log || { wrong "seed $seed is no test: it does not build with g++"; continue; }
  run host want
  { grep -qx 'main ends' want && ! grep -q '^ended with' want; } ||
    wrong "seed $seed is no test: it does not end properly with g++"
  for ((way = 0; way < ${PLX_RANDOM_WAYS:-1}; ++way)); do # neighbours differ in way and compiler
    export PLX_CXX=${compilers[((seed + way) / 13 % 2) % ${#compilers[@]}]}
    flags=${ways[(seed + 5 * way) % 13]}
    [[ $PLX_CXX != *clang* ]] || flags=${flags/GNU*/-mstackrealign}
    # shellcheck disable=SC2086 # words
    build ${flags/GNU/} || { wrong "seed $seed, $PLX_CXX $flags: does not build"; continue; }
    run plx got
    checked=$((checked + 1))
    cmp -s want got && continue
    wrong "seed $seed, $PLX_CXX $flags: the traces differ (host <, plx >)"
    diff -a want got | head -n 8
    [ -z "${PLX_RANDOM_KEEP:-}" ] || { mkdir -p "$PLX_RANDOM_KEEP" && cp random.cpp want got "$PLX_RANDOM_KEEP"; }
  done
done
echo "$checked programs compared"
[ "$checked" -gt 0 ] || wrong "no program"
finish
