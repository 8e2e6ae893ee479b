#!/bin/bash
# Random class hierarchies (hierarchy.cc): every dynamic_cast and every handler is the host library's. PLX_RANDOM_SEEDS is how
# many to try (20), PLX_RANDOM_FIRST the first seed (1).
. "$PLX_SOURCE/tests/driver/common.bash"
seeds=${PLX_RANDOM_SEEDS:-20} first=${PLX_RANDOM_FIRST:-1}
cp "$PLX_SOURCE/tests/random/hierarchy.cc" .

# classes_of SEED: each subobject tells what it is when it is constructed.
classes_of() {
  awk -v seed="$1" '
    function below(n) {
      state = (state * 1103515245 + 12345) % 2147483648
      return int(state / 65536) % n
    }
    BEGIN {
      state = seed * 7919 % 2147483648
      for (i = 0; i < 10; ++i) below(2)
      classes = 4 + below(6)
      many_bases = 25 + below(40); often_virtual = below(70); often_private = below(30)
      print "const int classes = " classes ";"
      for (k = 0; k < classes; ++k) {
        for (b = 0; b < k; ++b) direct[b] = below(100) < many_bases
        # A direct base that is an indirect one as well could not be named.
        for (b = 0; b < k; ++b)
          for (other = b + 1; other < k; ++other) if (direct[other] && has_base[other, b]) direct[b] = 0
        bases = ""
        for (b = 0; b < k; ++b) {
          if (!direct[b]) continue
          # A private virtual base could not be destroyed by the most derived class; and not every library finds a shared
          # base that has a private way beside a public one.
          is_virtual = below(100) < often_virtual
          is_public = is_virtual || has_virtual_base[b] || below(100) >= often_private
          if (is_virtual || has_virtual_base[b]) has_virtual_base[k] = 1
          for (further = 0; further < b; ++further) if (has_base[b, further]) has_base[k, further] = 1
          has_base[k, b] = 1
          bases = bases (bases ? ", " : " : ") (is_public ? "public " : "private ") (is_virtual ? "virtual C" : "C") b
        }
        member = below(3) ? "int" : below(2) ? "double" : "char"
        printf "struct C%d%s { %s m%d; C%d() { enter(%d, this); } virtual ~C%d() {} };\n", k, bases, member, k, k, k, k
        printf "template <> struct numbered<%d> { typedef C%d type; };\n", k, k
      }
    }'
}

for ((seed = first; seed < first + seeds; ++seed)); do
  classes_of "$seed" > classes.h
  g++ -m32 -w hierarchy.cc -o host 2> log || { cat log; echo "skipped: g++ -m32 does not work here"; exit 77; }
  plx-c++ -w -O$((seed % 3)) hierarchy.cc -o program 2> log || { wrong "seed $seed: does not build"; continue; }
  ./host > want && timeout 60 ./program > got && grep -q 'casts of 3' want && cmp want got > log || wrong "seed $seed"
done
finish
