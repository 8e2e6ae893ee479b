// Types across the worlds: C++ and generated C throw what they have at each other and themselves, and see the same:
// classes, bases, pointers; type_info objects compare as the types they stand for. Two units of C++ that know
// different classes, unwind/objects has. test-variants: -O0 | -O2 | -O2 -static
#include "shared.h"

#include <plx/runtime.h>

#include <exception>
#include <stdexcept>
#include <typeinfo>

#include "../../harness.h"

#pragma clang diagnostic ignored "-Winaccessible-base"  // ambiguous bases are tested
#pragma clang diagnostic ignored "-Wexceptions"         // and clauses that must be passed over

struct secret : private first {};
struct twice : first, joined {
  twice() { two = 62; }
};
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

struct traced : joined {
  traced() { one = 1, two = 11; }
  ~traced() { say("~%d", one); }
};
struct offset_base {
  double d;
  virtual ~offset_base() throw() {}
};
struct virtually : virtual shared, offset_base {
  virtually() { tag = 72; }
  ~virtually() throw() { say("~7"); }
};
struct own_error : std::invalid_argument {
  own_error() : std::invalid_argument("bad") {}
};
struct own_exception : offset_base, std::exception {
  virtual const char *what() const throw() { return "own"; }
};
static void cpp_throws(int what) {
  static joined object;
  static int number = 44, *to_number = &number;
  static own_exception own;
  std::exception *volatile some_exception = &own;
  object.two = 22;
  switch (what) {
    case 1: throw 101;
    case 2: throw 2.5;
    case 3: throw "text";
    case 4: throw traced();
    case 5: throw secret();
    case 6: throw twice();
    case 7: throw virtually();
    case 8: throw &object;
    case 9: throw static_cast<const joined *>(&object);
    case 10: throw static_cast<joined *>(0);
    case 11: ::operator new(0xF0000000u);
    case 12: throw dynamic_cast<own_error &>(*some_exception);
    case 13: throw &to_number;
    case 14: throw &number;
    // C has none of these.
    case 15: throw own_error();
    case 16: throw own;
    case 17: throw static_cast<const volatile char *>("v");
    case 18: throw static_cast<int first::*>(0);
    case 19: throw static_cast<const int **>(0);
    case 20: throw static_cast<second *>(&object);
  }
}
enum { of_both = 15, of_cpp = 21 };

// One or two clauses of a frame are matched in another way than many.
static __attribute__((__noinline__)) void catches_int(thrower throws, int what) {
  try {
    throws(what);
    say("nothing");
  } catch (int n) { say("int%d", n); }
}

static void cpp_catches(thrower throws, int what) {
  try {
    catches_int(throws, what);
    // clang-format off
  } catch (const int **) { say("void*");  // as which C sees it
  } catch (int **const &p) { say("int**%d", **p);
  } catch (double d) { say("double%g", d);
  } catch (char *) { say("wrong");
  } catch (const char *const &s) { say("text=%s", s);
  } catch (second &s) { say("second%d", s.two);
  } catch (const first &f) { say("first%d", f.one);
  } catch (second *p) { say("second*%d", p ? p->two : 0);
  } catch (void *p) { say(p == reinterpret_cast<void *>(c_throws) ? "function" : "void*");
  } catch (const void *) { say("const void*");
  } catch (shared s) { say("shared%d", s.tag);
  } catch (std::bad_alloc &) { say("bad_alloc");
  } catch (std::exception &e) { say("exception=%s", e.what());
  } catch (...) { say("any");
  }
  // clang-format on
}

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
  CHECK(dynamic_cast<derived *>(p) == &object && c_casts());
}

// The inner specification allows what the first report throws, the outer what the second throws. Merged, as from -O1
// on, only the outer one may be left, and what it gets from the handler is not allowed there.
static void translate() {
  static int reports;
  if (++reports == 2) throw "text";
  throw 1;
}
static inline void inner() throw(int, long) { throw 1.5; }
static void outer() throw(const char *) { inner(); }
static void violate_both() {
  std::set_unexpected(translate);
  try {
    outer();
  } catch (const char *) { puts("two reports"); }
}

static void uncaught() { c_throws(4); }

int main() {
  // clang-format off
  static const char *const wants[of_cpp] = {
      "nothing", "int101", "double2.5", "text=text", "second11 ~1", "any", "second62", "shared72 ~7", "second*22", "const void*",
      "second*0", "bad_alloc", "exception=Bad Cast Exception", "int**44", "void*", "exception=bad", "exception=own", "any",
      "any", "void*", "second*22"};
  // clang-format on
  for (int what = 0; what < of_cpp; ++what)
    for (int worlds = 0; worlds < (what < of_both ? 4 : 2); ++worlds) {
      (worlds & 1 ? c_catches : cpp_catches)(worlds & 2 ? c_throws : cpp_throws, what);
      CHECK_TRACE(wants[what]);
    }
  cpp_catches(c_throws, 15);
  CHECK_TRACE("function");
  type_information();
  const test_child child = test_run_child(violate_both);
  CHECK_TEXT(child.text, child.status == 0 ? "two reports\n" : "plx: uncaught exception of type int\n");
  CHECK_ABORTS(uncaught, "plx: uncaught exception of type joined\n");
  return TEST_RESULT();
}
