// Types across the worlds: C++ and generated C throw what they have at each other, each takes the other's classes,
// bases and pointers; type_info objects compare as the types they stand for; casts work on both sides. Two units of C++
// that know different classes, unwind/objects has. test-variants: -O0 | -O2 | -O2 -static
#include "shared.h"

#include <plx/runtime.h>

#include <stdexcept>
#include <string>
#include <typeinfo>

#include "../../harness.h"

#pragma clang diagnostic ignored "-Winaccessible-base"  // ambiguous bases are tested
#pragma clang diagnostic ignored "-Wexceptions"         // and clauses that must be passed over

struct secret : private first {};
struct twice : first, joined {};
struct cpp_type {
  virtual ~cpp_type() {}
};
// Only typeid makes a compiler emit the names that C uses as identities.
extern const std::type_info *const emitted[];
const std::type_info *const emitted[] = {&typeid(first), &typeid(second), &typeid(joined),  &typeid(secret),
                                         &typeid(twice), &typeid(shared), &typeid(cpp_type)};

extern "C" void say(const char *format, ...) {
  char text[200];
  va_list arguments;
  va_start(arguments, format);
  vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  trace("%s", text);
}
extern "C" const char *cpp_what(const void *exception) {
  return static_cast<const std::exception *>(exception)->what();
}

struct offset_base {
  double d;
  virtual ~offset_base() throw() {}
};
struct cpp_joined : offset_base, joined {};
struct cpp_virtual : virtual shared, offset_base {};
struct own_error : std::invalid_argument {
  explicit own_error(const char *text) : std::invalid_argument(text) {}
};
struct own_exception : offset_base, std::exception {
  virtual const char *what() const throw() { return "own"; }
};
static void cpp_throws(int what) {
  static cpp_joined object;
  static int number = 8, *to_number = &number;
  cpp_virtual v;
  v.tag = 77;
  object.one = 8;
  object.two = 9;
  switch (what) {
    case 0: return;
    case 1: throw "text";
    case 2: throw object;
    case 3: throw &object;
    case 4: throw static_cast<second *>(&object);
    case 5: throw static_cast<const joined *>(&object);
    case 6: throw own_error("bad");
    case 7: ::operator new(0xF0000000u);
    case 8: throw own_exception();
    case 9: throw secret();
    case 10: throw &number;
    case 11: throw v;
    case 12: throw static_cast<cpp_joined *>(0);
    case 13: throw static_cast<const volatile char *>("v");
    case 14: throw &to_number;
    case 15: throw static_cast<int first::*>(0);
    case 16: throw static_cast<const int **>(0);
  }
}

// One or two clauses of a frame are matched in another way than many.
static __attribute__((noinline)) void catches_int(thrower throws, int what) {
  try {
    throws(what);
    say("nothing");
  } catch (int n) { say("int%d", n); }
}

static void cpp_catches(thrower throws, int what) {
  try {
    catches_int(throws, what);
    // clang-format off
  } catch (const int **) { say("const int**");
  } catch (int **const &p) { say("int**%d", **p);
  } catch (double d) { say("double%g", d);
  } catch (char *) { say("wrong");
  } catch (const char *const &s) { say("text=%s", s);
  } catch (second &s) { say("second%d", s.two);
  } catch (const first &f) { say("first%d", f.one);
  } catch (second *p) { say("second*%d", p ? p->two : 0);
  } catch (const void *) { say("const void*");
  } catch (shared s) { say("shared%d", s.tag);
  } catch (std::bad_alloc &) { say("bad_alloc");
  } catch (std::exception &e) { say("exception=%s", e.what());
  } catch (...) { say("any");
  }
  // clang-format on
}
static const struct {
  thrower throws;
  void (*catches)(thrower, int);
  const char *wants;  // of 0, 1, ...
} crossings[] = {
    {c_throws, cpp_catches,
     "nothing|int101|double2.5|text=from C|second2 ~1/2|any|second62|shared70 ~7/2|second*22|const void*|"
     "second*0|bad_alloc|exception=Bad Cast Exception|int**44|const void*"},
    {c_throws, c_catches,
     "nothing|1:101|any|text=from C|3:2 ~1/2|any|3:62|11:70 ~7/2|second*22|any|second*0|bad_alloc|"
     "exception8=Bad Cast Exception|int**44|void*"},
    {cpp_throws, c_catches,
     "nothing|text=text|3:9|second*9|second*9|any|exception6=bad|bad_alloc|exception8=own|any|"
     "void*|11:77|second*0|any|int**8|any|void*"},
};

static bool same(const std::type_info &a, const std::type_info &b) {
  return a == b && b == a && !(a != b) && !a.before(b) && !b.before(a);
}
static bool different(const std::type_info &a, const std::type_info &b) {
  return a != b && b != a && !(a == b) && a.before(b) != b.before(a);
}
static const std::type_info &as_type_info(const a_type_info_impl &type) {
  return reinterpret_cast<const std::type_info &>(type);
}
extern "C" const a_type_info_impl c_view_of_cpp_type, *const c_class;

static void type_information() {
  struct derived : cpp_type {};
  derived object;
  cpp_type *volatile p = &object, &of_derived = object;
  CHECK(same(typeid(int), as_type_info(__TI_i)) && same(typeid(unsigned long long), as_type_info(__TI_y)));
  CHECK(same(typeid(void), as_type_info(__TI_v)) && same(typeid(std::exception), as_type_info(__TI_St9exception)));
  CHECK(same(typeid(cpp_type), as_type_info(c_view_of_cpp_type)));
  CHECK(different(typeid(long), as_type_info(__TI_i)) && different(typeid(int *), as_type_info(__TI_i)));
  CHECK(different(typeid(of_derived), as_type_info(c_view_of_cpp_type)) &&
        different(typeid(cpp_type), as_type_info(*c_class)));
  CHECK_TEXT(as_type_info(*c_class).name(), "whole");
  CHECK(dynamic_cast<derived *>(p) == &object);
  CHECK_INT(c_casts(), 4);
}

static void uncaught() { c_throws(4); }

int main() {
  for (unsigned i = 0; i < sizeof crossings / sizeof *crossings; ++i) {
    const char *want = crossings[i].wants;
    for (int what = 0; want; ++what) {
      const char *const end = strchr(want, '|');
      const std::string text(want, end ? end - want : strlen(want));
      crossings[i].catches(crossings[i].throws, what);
      CHECK_TRACE(text.c_str());
      want = end ? end + 1 : 0;
    }
  }
  type_information();
  CHECK_ABORTS(uncaught, "plx: uncaught exception of type joined\n");
  return TEST_RESULT();
}
