#!/bin/bash
# Static programs: self-contained, the same to the last line of output as with the shared library, and no larger than
# what they use asks for.
. "$PLX_SOURCE/tests/driver/common.bash"
if [ ! -f "$PLX_PREFIX/lib/libplx.a" ]; then
  echo "skipped: there is no libplx.a in this build"
  exit 77
fi

# Constructors, destructors and exit functions of every kind, in C++, in generated C and in C that knows nothing of plx.
cat > first.cpp <<'END'
#include <cstdlib>
#include <iostream>
#include <locale>
#include <stdexcept>
struct says {
  const char *name;
  says(const char *n) : name(n) { std::cout << "+" << name << " " << 4 * 11 << "\n"; }
  ~says() {
    try {
      throw std::runtime_error(name);
    } catch (const std::exception &error) {
      std::cout << "-" << error.what() << "\n";
    }
  }
};
static says one(NAME);
static void at_exit() { std::cout << "atexit of " NAME "\n"; }
static int registered = std::atexit(at_exit);
static says two("second " NAME);
END
cat > main.cpp <<'END'
#include <iostream>
#include <typeinfo>
extern "C" void foreign();
struct base { virtual ~base() {} };
struct derived : base {};
struct after {
  ~after() { std::cout << "made after the foreign atexit\n"; }
};
int main() {
  foreign();
  static after late;
  static base *objects[2] = {new derived, new base};
  std::cout << (typeid(*objects[0]) == typeid(derived)) << (dynamic_cast<derived *>(objects[1]) == 0) << '\n';
  std::clog << "to the log" << std::endl;
  std::cout << "not flushed";
}
END
cat > foreign.c <<'END'
#include <stdio.h>
#include <stdlib.h>
static void at_exit(void) { puts("; foreign atexit"); }
void foreign(void) { atexit(at_exit); }
__attribute__((destructor)) static void last(void) { puts("foreign destructor"); }
__attribute__((constructor)) static void start(void) { puts("foreign constructor"); }
END
plx-c++ -c -O1 '-DNAME="a"' first.cpp -o a.o && plx-c++ -c -O1 '-DNAME="b"' first.cpp -o b.o && plx-c++ -c main.cpp &&
  "${PLX_CLANG:-clang-14}" -m32 -fno-pic -c foreign.c || wrong "the parts do not compile"
for order in "a.o b.o main.o foreign.o" "foreign.o main.o b.o a.o"; do
  # shellcheck disable=SC2086 # words
  plx-c++ $order -o with_shared && plx-c++ -static $order -o program 2> log && ./with_shared > expected 2>&1 &&
    ./program > got 2>&1 || wrong "static: $order"
  diff expected got > log && [ "$(wc -l < got)" -eq 16 ] || wrong "static and shared differ: $order"
done
# shellcheck disable=SC2086
plx-c++ -static -Wl,--gc-sections $order -o program && ./program > got 2>&1 && cmp got expected || wrong "--gc-sections"
readelf -lW program | grep -Eq 'INTERP|DYNAMIC' && wrong "the program is not static"

# Every facet that a program can name is in its locales, though the linker takes in only what is asked for.
cat > facets.cpp <<'END'
#include <locale>
typedef std::FACET facet;
int main() {
  const std::locale classic = std::locale::classic(), combined(classic, std::locale("C"), std::locale::all);
  return std::has_facet<facet>(classic) && std::has_facet<facet>(combined) ? 0 : 1;
}
END
for facet in 'numpunct<char>' 'num_get<char>' 'num_put<char>' 'ctype<char>' 'codecvt<char, char, int>' 'collate<char>' \
  'time_put<char>' 'time_get<char>' 'moneypunct<char, true>' 'moneypunct<char, false>' 'money_put<char>' 'money_get<char>'; do
  sed "s/FACET/$facet/" facets.cpp > facet.cpp
  plx-c++ -static facet.cpp -o program 2> log && ./program || wrong "$facet in a static program"
done

# What is not asked for is not there.
lacks() { # PATTERN WHAT
  nm -C program | grep -E "$1" | head -3 > log
  [ ! -s log ] || wrong "$2"
}
echo '#include <stdexcept>
int main() { try { throw std::runtime_error("x"); } catch (std::exception &) { } }' > throws.cpp
plx-c++ -static throws.cpp -o program && ./program || wrong "a program that throws"
lacks 'std::(locale|ios_base|basic_streambuf)' "a program that only throws has streams or locales"
echo '#include <iostream>
int main() { std::cout << "hello" << std::endl; }' > hello.cpp
plx-c++ -static hello.cpp -o program && [ "$(./program)" = hello ] || wrong "hello"
lacks 'std::(money|time_|num_get|num_put|collate|basic_fstream|deque|basic_ostringstream)|strtod|strftime' \
  "a hello has numbers, money, dates or more"

# Generated C.
cat > generated.c <<'END'
#include <stdio.h>
#include <plx/runtime.h>
static const a_virtual_table_slot a_slot;
int main(void) { return __f_debug != stderr || __dynamic_cast(0, &a_slot, 0) != 0; }
END
for cc in clang-14 gcc; do
  command -v $cc > log || continue
  PLX_CC=$cc plx-cc -static -Werror generated.c -o program 2> log && ./program || wrong "$cc: plx-cc -static"
done

# The archive as the linker sees it: nothing runs before the program's own constructors, whose order is open; no code
# for a global offset table; no names of the program's.
archive=$PLX_PREFIX/lib/libplx.a
readelf -SW "$archive" | grep -E '\.(init_array|ctors|fini_array)' > log && wrong "libplx.a has constructors"
readelf -rW "$archive" | grep -E 'R_386_GOT' > log && wrong "libplx.a is position-independent"
nm -gC --defined-only "$archive" 2> /dev/null | awk 'NF >= 3' | cut -c12- |
  grep -Ev '^_|std::|__zor|__cxxabiv1|^operator (new|delete)|^typeinfo|^exit\(int\)' > log &&
  wrong "libplx.a defines names that belong to programs"
finish
