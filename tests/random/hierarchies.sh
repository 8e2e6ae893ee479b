#!/bin/bash
# Random class hierarchies (classes.rules, hierarchy.cc): every dynamic_cast and every handler is the host library's.
# PLX_RANDOM_SEEDS is how many to try (20), PLX_RANDOM_FIRST the first seed (1). And a program with large tables (large.rules).
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/random
seeds=${PLX_RANDOM_SEEDS:-20} first=${PLX_RANDOM_FIRST:-1} skipped=0
cp "$here/hierarchy.cc" .
g++ -O1 "$here/generate.cc" -o generate || exit 1
for ((seed = first; seed < first + seeds; ++seed)); do
  ./generate "$here/classes.rules" "$seed" 1 > classes.h
  g++ -m32 -w hierarchy.cc -o host 2> log || { cat log; echo "skipped: g++ -m32 does not work here"; exit 77; }
  plx-c++ -w -O$((seed % 3)) hierarchy.cc -o program 2> log || { wrong "seed $seed: does not build"; continue; }
  # The host's library does not survive each base that is direct and indirect.
  { ./host; } > want 2> log || { skipped=$((skipped + 1)); continue; }
  timeout 60 ./program > got && grep -q 'casts of 3' want && cmp want got > log || wrong "seed $seed"
done
[ "$skipped" -le $((seeds / 4)) ] || wrong "the host's library failed $skipped times"
./generate "$here/large.rules" 1 1 > large.cpp
g++ -m32 -std=gnu++98 -w -O0 large.cpp -o host && ./host > want && [ "$(wc -l < want)" -eq 302 ] || wrong "large.rules"
for level in 0 2; do
  plx-c++ -std=gnu++98 -w -O$level large.cpp -o program 2> log && ./program > got && cmp want got > log || wrong "large tables, -O$level"
done
finish
