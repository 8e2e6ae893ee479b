#!/bin/bash
# Random class hierarchies: every dynamic_cast against a model of the rules, every handler against the conversions that the
# compiler accepts (hierarchy.cc). PLX_RANDOM_SEEDS is how many to try (20), PLX_RANDOM_FIRST the first seed (1).
. "$PLX_SOURCE/tests/driver/common.bash"
seeds=${PLX_RANDOM_SEEDS:-20} first=${PLX_RANDOM_FIRST:-1}
cp "$PLX_SOURCE/tests/random/hierarchy.cc" .

# classes_of SEED: each class tells what it is when it is constructed (enter, has).
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
        bases = tells = ""
        for (b = 0; b < k; ++b) {
          if (!direct[b]) continue
          # A private virtual base could not be destroyed by the most derived class.
          is_virtual = below(100) < often_virtual
          is_public = is_virtual || has_virtual_base[b] || below(100) >= often_private
          if (is_virtual || has_virtual_base[b]) has_virtual_base[k] = 1
          for (further = 0; further < b; ++further) if (has_base[b, further]) has_base[k, further] = 1
          has_base[k, b] = 1
          bases = bases (bases ? ", " : " : ") (is_public ? "public " : "private ") (is_virtual ? "virtual C" : "C") b
          tells = tells sprintf(" has(%d, this, %d, static_cast<C%d *>(this), %d);", k, b, b, is_public)
        }
        member = below(3) ? "int" : below(2) ? "double" : "char"
        printf "struct C%d%s { %s m%d; C%d() { enter(%d, this);%s } virtual ~C%d() {} };\n", k, bases, member, k, k, k, tells, k
        printf "template <> struct numbered<%d> { typedef C%d type; };\n", k, k
      }
    }'
}

for ((seed = first; seed < first + seeds; ++seed)); do
  classes_of "$seed" > classes.h
  plx-c++ -w -O$((seed % 3)) hierarchy.cc -o program 2> log || { wrong "seed $seed: does not build"; continue; }
  timeout 60 ./program > log && ! grep -q WRONG log && grep -q '^[1-9][0-9]* compared$' log || wrong "seed $seed"
done
finish
