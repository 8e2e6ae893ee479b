#!/bin/sh
# Random exception programs (generate.cc), built for plx in many ways and for the host's C++ library: all must print the
# same trace.
#
# PLX_RANDOM_SEEDS is how many programs to try (30), PLX_RANDOM_FIRST the first seed (1), PLX_RANDOM_WAYS in how many ways
# each is built (1). For a failure the seed, the flags and the first lines that differ are shown; PLX_RANDOM_KEEP=DIR keeps
# the program and both traces there.
set -u
seeds=${PLX_RANDOM_SEEDS:-30}
# Sanitizers make compilers and programs several times slower.
[ -z "${PLX_SANITIZE:-}" ] || seeds=${PLX_RANDOM_SEEDS:-4}
first=${PLX_RANDOM_FIRST:-1}
here=$PLX_SOURCE/tests/random
plx=$PLX_PREFIX/bin/plx-c++
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT INT TERM

echo 'int main() { return 0; }' > "$work/empty.cpp"
if ! g++ -m32 "$work/empty.cpp" -o "$work/empty" 2> "$work/why"; then
  echo "skipped: g++ -m32 is not there to compare with: $(head -n 1 "$work/why")"
  exit 77
fi
g++ -O1 -std=gnu++98 "$here/generate.cc" -o "$work/generate" || exit 1

# The ways to build a program, by number; those that begin with `split` put a third of the functions into a shared object.
way() {
  case $(($1 % 13)) in
    0) echo '-O0 -no-pie' ;;
    1) echo '-O2 -fPIE -pie' ;;
    2) echo 'split -O1' ;;
    3) echo '-Os -fomit-frame-pointer -fPIE -pie' ;;
    4) echo 'split -O3' ;;
    5) echo '-O3 -no-pie -fno-inline' ;;
    6) echo '-O1 -mstackrealign -msse2' ;;
    7) echo 'split -Os -fPIE -pie' ;;
    8) echo '-O2 -flto' ;;
    9) echo '-O2 -std=gnu++14 -fno-omit-frame-pointer' ;;
    10) echo 'split -O0' ;;
    11) [ -n "$gnu" ] && echo '-O2 -mno-accumulate-outgoing-args -mpreferred-stack-boundary=2' || echo '-O2 -mstackrealign' ;;
    12) [ -n "${PLX_SANITIZE:-}" ] && echo '-O1' || echo '-O2 -static' ;;
  esac
}

# Each program by one of the two compilers, if both are there.
set -- "${PLX_CXX:-g++}"
for other in g++ clang++-14; do
  case $1 in *"${other%-14}"*) ;; *) command -v $other > /dev/null && set -- "$1" $other ;; esac
done

# run PROGRAM TRACE: a program that does not end by itself with status 0 says so in its trace.
run() {
  timeout 60 "$1" > "$2" 2>> "$2.errors"
  status=$?
  [ $status -eq 0 ] || echo "ended with status $status" >> "$2"
}

# build FLAGS...: the program for plx.
build() {
  set -- -std=gnu++98 -w "$@"
  if [ "$3" != split ]; then
    "$plx" "$@" "$program" -o "$work/plx" 2> "$work/build"
    return
  fi
  shift 3
  "$plx" -std=gnu++98 -w "$@" -DPART=1 -fPIC -shared "$program" -o "$work/libpart.so" 2> "$work/build" &&
    "$plx" -std=gnu++98 -w "$@" -DPART=0 "$program" -L"$work" -lpart "-Wl,-rpath,$work" -o "$work/plx" 2> "$work/build"
}

program=$work/random.cpp
checked=0
failed=0
complain() {
  failed=$((failed + 1))
  echo "seed $seed$*"
}
seed=$first
while [ "$seed" -lt $((first + seeds)) ]; do
  "$work/generate" "$seed" > "$program"
  if ! g++ -m32 -std=gnu++98 -w -O0 "$program" -o "$work/host" 2> "$work/build"; then
    complain ": the program is no test: it does not build with g++"
    head -n 5 "$work/build"
    seed=$((seed + 1))
    continue
  fi
  run "$work/host" "$work/host.trace"
  if ! grep -qx 'main ends' "$work/host.trace" || grep -q '^ended with' "$work/host.trace"; then
    complain ": the program is no test: it does not end properly with g++"
  fi

  # Neighbours differ in way and compiler.
  ways=0
  while [ $ways -lt "${PLX_RANDOM_WAYS:-1}" ]; do
    number=$((seed + 5 * ways))
    if [ $# -gt 1 ] && [ $(((seed + ways) / 13 % 2)) -eq 1 ]; then PLX_CXX=$2; else PLX_CXX=$1; fi
    export PLX_CXX
    case $PLX_CXX in *clang*) gnu= ;; *) gnu=1 ;; esac
    flags=$(way $number)
    ways=$((ways + 1))
    checked=$((checked + 1))
    # shellcheck disable=SC2086 # words
    if ! build $flags; then
      complain ", $PLX_CXX $flags: does not build"
      head -n 5 "$work/build"
      continue
    fi
    : > "$work/plx.trace.errors"
    run "$work/plx" "$work/plx.trace"
    if ! cmp -s "$work/host.trace" "$work/plx.trace"; then
      complain ", $PLX_CXX $flags: the traces differ (host <, plx >)"
      diff -a "$work/host.trace" "$work/plx.trace" | head -n 8
      head -n 3 "$work/plx.trace.errors"
      if [ -n "${PLX_RANDOM_KEEP:-}" ]; then
        mkdir -p "$PLX_RANDOM_KEEP"
        cp "$program" "$PLX_RANDOM_KEEP/seed$seed.cpp"
        cp "$work/host.trace" "$PLX_RANDOM_KEEP/seed$seed.host"
        cp "$work/plx.trace" "$PLX_RANDOM_KEEP/seed$seed.plx"
      fi
    fi
  done
  seed=$((seed + 1))
done

echo "$checked programs compared, $failed failed"
[ "$failed" -eq 0 ] && [ "$checked" -gt 0 ]
