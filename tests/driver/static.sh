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
  plx-cc -c foreign.c || wrong "the parts do not compile"
for order in "a.o b.o main.o foreign.o" "foreign.o main.o b.o a.o"; do
  # shellcheck disable=SC2086 # words
  plx-c++ $order -o with_shared && plx-c++ -static -Wl,--gc-sections $order -o program 2> log &&
    ./with_shared > expected 2>&1 && ./program > got 2>&1 || wrong "static: $order"
  diff expected got > log && [ "$(wc -l < got)" -eq 16 ] || wrong "static and shared differ: $order"
done
readelf -lW program | grep -Eq 'INTERP|DYNAMIC' && wrong "the program is not static"

# Every facet that a program can name is in its locales, though the linker takes in only what is asked for.
for facet in 'numpunct<char>' 'num_get<char>' 'num_put<char>' 'ctype<char>' 'codecvt<char, char, int>' 'collate<char>' \
  'time_put<char>' 'time_get<char>' 'moneypunct<char, true>' 'moneypunct<char, false>' 'money_put<char>' 'money_get<char>'; do
  cat > facet.cpp << END
#include <locale>
typedef std::$facet facet;
int main() {
  const std::locale classic = std::locale::classic(), combined(classic, std::locale("C"), std::locale::all);
  return std::has_facet<facet>(classic) && std::has_facet<facet>(combined) ? 0 : 1;
}
END
  plx-c++ -static facet.cpp -o program 2> log && ./program || wrong "$facet in a static program"
done

# What is not asked for is not there.
lacks() { ! nm -C program | grep -E "$1" | head -3 | grep .; }
cat > throws.cpp <<'END'
#include <stdexcept>
int main() { try { throw std::runtime_error("x"); } catch (std::exception &) { } }
END
cat > hello.cpp <<'END'
#include <iostream>
int main() { std::cout << "hello" << std::endl; }
END
cat > generated.c <<'END'
#include <stdio.h>
#include <plx/runtime.h>
static const a_virtual_table_slot a_slot;
int main(void) { return __f_debug != stderr || __dynamic_cast(0, &a_slot, 0) != 0; }
END
table <<'END'
plx-c++ -static throws.cpp -o program && ./program && lacks 'std::(locale|ios_base|basic_streambuf)' =>
plx-c++ -static hello.cpp -o program && ./program => hello
lacks 'std::(money|time_|num_get|num_put|collate|basic_fstream|deque|basic_ostringstream)|strtod|strftime' =>
plx-cc -static -Werror generated.c -o program && ./program && lacks __zor_cxx_start =>
plx-c++ -static -O2 -flto throws.cpp -o program && ./program =>
END
[ ! -f "$PLX_PREFIX/lib/libplx_pie.a" ] || table <<'END'
plx-c++ -static-pie -fPIE throws.cpp -o program && ./program && readelf -hW program | grep -c 'Type: *DYN' => 1
plx-c++ -static-pie -fPIE hello.cpp -o program && ./program && readelf -dW program | grep -c 'NEEDED\|TEXTREL' => hello 0 !1
plx-cc -static-pie -fPIE generated.c -o program && ./program =>
END

# The archive as the linker sees it: nothing runs before the program's own constructors, whose order is open; no code
# for a global offset table; no names of the program's.
archive=$PLX_PREFIX/lib/libplx.a
readelf -SW "$archive" | grep -E '\.(init_array|ctors|fini_array)' > log && wrong "libplx.a has constructors"
readelf -rW "$archive" | grep -E 'R_386_GOT' > log && wrong "libplx.a is position-independent"
nm -gC --defined-only "$archive" 2> /dev/null | awk 'NF >= 3' | cut -c12- |
  grep -Ev '^_|std::|__zor|__cxxabiv1|^operator (new|delete)|^typeinfo|^exit\(int\)' > log &&
  wrong "libplx.a defines names that belong to programs"
finish
