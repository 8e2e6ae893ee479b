#!/bin/bash
# Shared objects of C++, linked, loaded and unloaded (objects.cc, plugin.cc): the trace is the host library's.
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/unwind
[ -z "${PLX_SANITIZE:-}" ] || { echo "skipped: loading an object twice over is an error to the address sanitizer"; exit 77; }
cat > pass.c << 'END'
void pass(void (*f)(int), int n) {
  volatile int room[ROOM];
  room[ROOM - 1] = n;
  f(n);
  room[0] = 0;
}
END

# build DIRECTORY COMPILER...: the objects 1 to 4, two of plain C after each other, and two programs.
build() {
  local at=$1 n
  shift
  mkdir -p "$at"
  for n in 1 2 3 4; do
    "$@" -w -fPIC -shared -O$((n % 3)) -DNUMBER=$n "$here/plugin.cc" -o "$at/plugin$n.so" || return
    gcc -m32 -O1 -fPIC -shared -DROOM=$((n * n * 9)) pass.c -o "$at/pass$n.so" || return
  done
  "$@" -w -O1 "$here/objects.cc" -o "$at/loads" -ldl &&
    "$@" -w -O1 -DLINKED "$here/objects.cc" "$PWD/$at/plugin4.so" -o "$at/linked" -ldl
}
run() {
  local program
  for program in 'loads l' 'loads g' 'linked l'; do
    # shellcheck disable=SC2086 # words
    (cd "$1" && ./$program ./plugin1.so ./plugin2.so ./pass1.so ./pass2.so ./plugin3.so ./pass3.so ./pass4.so 2>&1)
    echo "status $?"
  done
}

# As plx-c++ has them, inline functions of each object are its own.
build host g++ -m32 -fvisibility-inlines-hidden 2> log || { cat log; exit 1; }
run host > want
# A pointer to a class that the thrower knows by name only: the host's library finds no handler where the class is known.
sed -i 's/:\(100[23]\),1,/:\1,\1,/g' want
for compiler in g++ clang++-14; do
  command -v $compiler > /dev/null || continue
  PLX_CXX=$compiler build $compiler plx-c++ 2> log || { wrong "$compiler: does not build"; continue; }
  : > log
  run $compiler > got
  cmp -s want got || wrong "$compiler: $(diff want got | head -n 20 | cut -c 1-300)"
done

# Generated C in objects that were loaded apart: an exported identity makes one type of two descriptors, unless their names
# differ; one that a file keeps to itself makes none.
cat > part.c << 'END'
#include "emit.h"
LINKAGE const char __TID_5error = 0;
static const a_type_info_impl type = {PLX_TYPE_INFO_VTABLE, NAME, &__TID_5error, 0};
static const an_exception_type_specification clauses[] = {{&type, 0}, {0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
void throw_one(void) { THROW(type, int, 0, 7); }
int catch_one(void (*f)(void)) {
  volatile int which = 0;
  TRY(clauses)
    f();
  HANDLERS
    which = clause;
  END_TRY
  return which;
}
END
cat > parts.c << 'END'
#include <dlfcn.h>
#include <stdio.h>
int main(void) {
  static const char *const files[] = {"./part1.so", "./part2.so", "./part3.so", "./part4.so", "./part5.so"};
  int (*catch_one[5])(void (*)(void)), i, k;
  void (*throw_one[5])(void);
  for (i = 0; i < 5; ++i) {
    void *part = dlopen(files[i], RTLD_NOW | RTLD_LOCAL);
    if (!part) return puts(dlerror());
    *(void **)&catch_one[i] = dlsym(part, "catch_one");
    *(void **)&throw_one[i] = dlsym(part, "throw_one");
  }
  for (i = 0; i < 5; ++i)
    for (k = 0; k < 5; ++k) printf("%d", catch_one[i](throw_one[k]));
  return 0;
}
END
number=0
for identity in '__attribute__((__weak__)):error' '__attribute__((__weak__)):error' ':other' 'static:error' 'static:error'; do
  number=$((number + 1))
  plx-cc -O1 -fPIC -shared -I "$PLX_SOURCE/tests" "-DLINKAGE=${identity%:*}" "-DNAME=\"${identity#*:}\"" part.c \
    -o part$number.so 2> log || wrong "part.c does not build"
done

table << 'END'
plx-cc -O1 parts.c -ldl -o parts && ./parts => 1122211222221222221222221
END
finish
