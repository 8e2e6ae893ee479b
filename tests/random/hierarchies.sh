#!/bin/sh
# Random class hierarchies: programs by hierarchies.cc, which compare every dynamic_cast with a model of the rules and
# every handler with the conversions that the compiler accepts.
#
# PLX_RANDOM_SEEDS is how many to try (20), PLX_RANDOM_FIRST the first seed (1).
set -u
seeds=${PLX_RANDOM_SEEDS:-20}
first=${PLX_RANDOM_FIRST:-1}
plx=$PLX_PREFIX/bin/plx-c++
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT INT TERM

"$plx" -O1 "$PLX_SOURCE/tests/random/hierarchies.cc" -o "$work/generate" || exit 1

failed=0
seed=$first
while [ "$seed" -lt $((first + seeds)) ]; do
  "$work/generate" "$seed" > "$work/random.cpp"
  level=-O$((seed % 3))
  if ! "$plx" -w $level "$work/random.cpp" -o "$work/random"; then
    echo "seed $seed, $level: does not build"
    failed=$((failed + 1))
  elif ! timeout 60 "$work/random" > "$work/answer" || grep -q WRONG "$work/answer" ||
    ! grep -q '^[1-9][0-9]* compared$' "$work/answer"; then
    echo "seed $seed, $level:"
    head -n 10 "$work/answer"
    failed=$((failed + 1))
  fi
  seed=$((seed + 1))
done

echo "$seeds hierarchies, $failed failed"
[ "$failed" -eq 0 ] && [ "$seeds" -gt 0 ]
