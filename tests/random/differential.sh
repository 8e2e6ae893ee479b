#!/bin/sh
# Random exception programs, built for plx at several optimisation levels and for the host's C++ library: all must
# print the same trace. generate.cc writes the programs; calls in them go by way of generated C (worlds/passages.c)
# with plx, and by way of the same functions in C++ with the host's library.
#
# PLX_RANDOM_SEEDS is how many programs to try (12), PLX_RANDOM_FIRST the first seed (1). For a failure the seed, the
# flags and the first lines that differ are shown; PLX_RANDOM_KEEP=DIR keeps the program and both traces there.
set -u
seeds=${PLX_RANDOM_SEEDS:-12}
# Sanitizers make compilers and programs several times slower.
[ -z "${PLX_SANITIZE:-}" ] || seeds=${PLX_RANDOM_SEEDS:-4}
first=${PLX_RANDOM_FIRST:-1}
here=$PLX_SOURCE/tests/random
plx=$PLX_PREFIX/bin/plx-c++
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT INT TERM

echo 'int main() { return 0; }' > "$work/empty.cpp"
if g++ -m32 "$work/empty.cpp" -o "$work/empty" 2> "$work/why"; then
  host=g++
else
  echo "skipped: g++ -m32 is not there to compare with: $(head -n 1 "$work/why")"
  exit 77
fi

g++ -O1 -std=gnu++98 "$here/generate.cc" -o "$work/generate" || exit 1

# run PROGRAM TRACE: a program that does not end by itself with status 0 says so in its trace.
run() {
  timeout 60 "$1" > "$2" 2>> "$2.errors"
  status=$?
  [ $status -eq 0 ] || echo "ended with status $status" >> "$2"
}

checked=0
failed=0
seed=$first
while [ "$seed" -lt $((first + seeds)) ]; do
  program=$work/random.cpp
  "$work/generate" "$seed" > "$program"
  if ! $host -m32 -std=gnu++98 -w -O1 "$program" -o "$work/host" 2> "$work/build"; then
    echo "seed $seed: the program is no test: it does not build with $host"
    head -n 5 "$work/build"
    failed=$((failed + 1))
    seed=$((seed + 1))
    continue
  fi
  run "$work/host" "$work/host.trace"
  if ! grep -qx 'main ends' "$work/host.trace" || grep -q '^ended with' "$work/host.trace"; then
    echo "seed $seed: the program is no test: it does not end properly with $host"
    failed=$((failed + 1))
  fi

  # Three levels for each program; all of them in turn.
  case $((seed % 4)) in
    0) levels='-O0|-O2 -fomit-frame-pointer|-O3' ;;
    1) levels='-O1|-Os|-O2' ;;
    2) levels='-O0|-O2|-O3 -fno-inline' ;;
    3) levels='-O1 -fno-omit-frame-pointer|-O2 -std=gnu++14|-O3' ;;
  esac
  old_ifs=$IFS
  IFS='|'
  for flags in $levels; do
    IFS=$old_ifs
    checked=$((checked + 1))
    if ! "$plx" -std=gnu++98 -w $flags -I "$PLX_SOURCE/tests" "$program" "$here/worlds/passages.c" -o "$work/plx" \
      2> "$work/build"; then
      echo "seed $seed, $flags: does not build"
      head -n 5 "$work/build"
      failed=$((failed + 1))
      continue
    fi
    : > "$work/plx.trace.errors"
    run "$work/plx" "$work/plx.trace"
    if ! cmp -s "$work/host.trace" "$work/plx.trace"; then
      failed=$((failed + 1))
      echo "seed $seed, $flags: the traces differ (host <, plx >)"
      diff "$work/host.trace" "$work/plx.trace" | head -n 8
      head -n 3 "$work/plx.trace.errors"
      if [ -n "${PLX_RANDOM_KEEP:-}" ]; then
        mkdir -p "$PLX_RANDOM_KEEP"
        cp "$program" "$PLX_RANDOM_KEEP/seed$seed.cpp"
        cp "$work/host.trace" "$PLX_RANDOM_KEEP/seed$seed.host"
        cp "$work/plx.trace" "$PLX_RANDOM_KEEP/seed$seed.plx"
      fi
    fi
  done
  IFS=$old_ifs
  seed=$((seed + 1))
done

echo "$checked programs compared, $failed failed"
[ "$failed" -eq 0 ] && [ "$checked" -gt 0 ]
