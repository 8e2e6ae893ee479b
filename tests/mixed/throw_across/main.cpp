// Exceptions across the worlds: thrown by generated C and caught by C++ and the other way round, thrown by the
// library and caught by both, with objects and arrays of both worlds between throw and catch, destroyed in true
// nesting order.
// test-variants: -O0 | -O2 | -O3 -fomit-frame-pointer | -O2 -static
#include "worlds.h"

#include <malloc.h>
#include <new>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "../../harness.h"

#pragma clang diagnostic ignored "-Winaccessible-base"  // ambiguous bases are tested
#pragma clang diagnostic ignored "-Wexceptions"         // and clauses that must be passed over

struct first {
  int one;
};
struct second {
  int two;
};
struct joined : first, second {
  int three;
};
struct secret : private first {};
struct twice : first, joined {};
struct shared {
  int tag;
};

// Only typeid makes a compiler emit the names that C uses as identities.
extern const std::type_info *const emitted[];
const std::type_info *const emitted[] = {&typeid(first),  &typeid(second), &typeid(joined),
                                         &typeid(secret), &typeid(twice),  &typeid(shared)};

extern "C" void note(const char *format, ...) {
  char text[200];
  va_list arguments;
  va_start(arguments, format);
  vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  trace("%s", text);
}
extern "C" int check(int condition, const char *file, int line, const char *text) {
  test_report(condition, file, line, text);
  return condition;
}
extern "C" const char *cpp_what(const void *exception) {
  return static_cast<const std::exception *>(exception)->what();
}

struct noisy {
  const char *name;
  explicit noisy(const char *n) : name(n) {}
  ~noisy() { trace("~%s", name); }
};
struct error {
  int code;
  explicit error(int c) : code(c) {}
  error(const error &other) : code(other.code) {}
  ~error() { trace("!%d", code); }
};

// ---- thrown by C, caught by C++

static const char *caught_in_cpp(int what) {
  static char text[80];
  try {
    noisy local("cpp");
    c_throws(what);
    return "nothing";
  } catch (int n) {
    sprintf(text, "int%d", n);
  } catch (double d) {
    sprintf(text, "double%g", d);
  } catch (char *) {
    return "wrong: const lost";
  } catch (const char *s) {
    sprintf(text, "text=%s", s);
  } catch (second &s) {
    sprintf(text, "second%d", s.two);
  } catch (const first &f) {
    sprintf(text, "first%d", f.one);
  } catch (second *p) {
    sprintf(text, "second*%d", p ? p->two : 0);
  } catch (const void *p) {
    sprintf(text, "const void*%d", static_cast<const joined *>(p)->three);
  } catch (shared s) {
    sprintf(text, "shared%d", s.tag);
  } catch (std::bad_alloc &) {
    return "bad_alloc";
  } catch (std::exception &e) {
    sprintf(text, "exception=%s", e.what());
  } catch (...) {
    return "any";
  }
  return text;
}

static void thrown_by_c() {
  static const char *const expected[] = {"nothing",      "int101",   "double2.5",  "text=from C", "second2",
                                         "any",          "second62", "shared70",   "second*22",   "const void*33",
                                         "second*0",     "bad_alloc", "exception=Bad Cast Exception", "any"};
  for (int what = 0; what < int(sizeof expected / sizeof expected[0]); ++what) {
    CHECK_TEXT(caught_in_cpp(what), expected[what]);
    if (what == 4) CHECK_TRACE("~cpp ~joined3/2");
    else if (what == 7) CHECK_TRACE("~cpp ~holder7/2");
    else CHECK_TRACE("~cpp");
  }
  // By the class itself, and an ambiguous base that only its own clause may name.
  try {
    c_throws(4);
  } catch (joined &j) {
    CHECK_INT(j.one + j.two * 10 + j.three * 100, 321);
  }
  CHECK_TRACE("~joined3/2");
  try {
    c_throws(6);
  } catch (first &) {
    CHECK(!"ambiguous");
  } catch (twice &t) {
    CHECK_INT(t.three, 63);
  }
  try {
    c_throws(5);
  } catch (first &) {
    CHECK(!"private");
  } catch (secret &) {
    trace("secret");
  }
  CHECK_TRACE("secret");
  try {
    c_throws(8);
  } catch (const joined *const &p) {
    CHECK_INT(p->three, 33);
  }
  try {
    c_throws(13);
  } catch (long long n) {
    CHECK(n == 0x123456789ALL);
  }
}

// ---- thrown by C++ or the library, caught by C

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
  noisy local("cpp");
  static cpp_joined object;
  object.two = 9;
  object.one = 8;
  switch (what) {
    case 0: return;
    case 1: throw 5;
    case 2: throw "text";
    case 3: {
      joined j;
      j.one = 1;
      j.two = 2;
      throw j;
    }
    case 4: throw object;
    case 5: {
      first f = {4};
      throw f;
    }
    case 6: throw &object;
    case 7: throw static_cast<second *>(&object);
    case 8: throw static_cast<const joined *>(&object);
    case 9: throw own_error("bad");
    case 10: std::string("abc").at(7);
    case 11: ::operator new(0xF0000000u);
    case 12: throw std::runtime_error("run");
    case 13: throw own_exception();
    case 14: throw secret();
    case 15: throw &what;
    case 16: {
      cpp_virtual v;
      v.tag = 77;
      throw v;
    }
    case 17: throw 'c';
    case 18: throw static_cast<cpp_joined *>(0);
    case 19: throw twice();
    case 20: throw error(20);
    case 21: throw static_cast<const volatile char *>("v");
    case 22: throw std::string("text");
  }
}
static void (*volatile hidden_cpp_throws)(int) = cpp_throws;

static void caught_by_c() {
  static const char *const expected[] = {"nothing",
                                         "C:int5",
                                         "C:text=text",
                                         "C:second2",
                                         "C:second9",
                                         "C:first4",
                                         "C:second*9",
                                         "C:second*9",
                                         "C:any",
                                         "C:logic_error=bad",
                                         0,  // the text is the library's
                                         "C:bad_alloc",
                                         "C:exception=run",
                                         "C:exception=own",
                                         "C:any",
                                         "C:void*",
                                         "C:shared77",
                                         "C:any",
                                         "C:second*0",
                                         "C:second0",
                                         "C:any !20",
                                         "C:any",
                                         "C:any"};
  for (int what = 0; what < int(sizeof expected / sizeof expected[0]); ++what) {
    c_catches(cpp_throws, what);
    if (expected[what]) {
      char text[100];
      sprintf(text, "~cpp %s ~c-kept", expected[what]);
      CHECK_TRACE(text);
    } else {
      CHECK(strncmp(test_trace, "~cpp C:logic_error=", 19) == 0);
      test_trace[0] = 0;
    }
  }
  // A pointer to const is no match for clauses without it, but for those that have it.
  c_catches_only_pointers(cpp_throws, 6);
  CHECK_TRACE("~cpp C:first*8");
  c_catches_only_pointers(cpp_throws, 8);
  CHECK_TRACE("~cpp C:const second*9");
  c_catches_only_pointers(cpp_throws, 15);
  CHECK_TRACE("~cpp C:const void*");
  try {
    c_catches_only_pointers(cpp_throws, 1);
  } catch (int n) {
    trace("passed%d", n);
  }
  CHECK_TRACE("~cpp passed5");
  try {
    c_catches_only_pointers(cpp_throws, 21);  // volatile is in no clause
  } catch (const volatile char *) {
    trace("passed");
  }
  CHECK_TRACE("~cpp passed");
}

// ---- nesting

static void bottom(int what) {
  noisy n("bottom");
  if (what < 100) hidden_cpp_throws(what);
  else c_throws(what - 100);
}
static void over_objects(int what) {
  noisy n("over-objects");
  c_with_objects(bottom, what);
}
static void over_array(int what) {
  noisy a("over-array-1");
  {
    noisy b("over-array-2");
    c_with_array(over_objects, what);
  }
}
static void nesting() {
  c_catches(over_array, 20);
  CHECK_TRACE(
      "~cpp ~bottom ~c-b ~c-a ~over-objects ~e1 ~e0 ~e101 ~e100 ~over-array-2 ~over-array-1 C:any !20 ~c-kept");
  try {
    c_with_objects(over_array, 104);
  } catch (joined &) {
    trace("caught");
  }
  CHECK_TRACE(
      "~bottom ~c-b ~c-a ~over-objects ~e1 ~e0 ~e101 ~e100 ~over-array-2 ~over-array-1 ~c-b ~c-a caught ~joined3/2");
  // nothing thrown: the same destructions by calls
  c_with_objects(over_array, 0);
  CHECK_TRACE(
      "~cpp ~bottom ~c-b ~c-a ~over-objects ~e3 ~e2 ~e1 ~e0 ~e101 ~e100 ~over-array-2 ~over-array-1 ~c-b ~c-a");
}

// ---- arrays of one world with constructors of the other

struct cpp_object {
  int number;
};
static int element_number, element_failure;
extern "C" void cpp_construct(void *place, int number) {
  noisy n("construct");
  if (number < 0) throw error(number);
  static_cast<cpp_object *>(place)->number = number;
}
extern "C" void cpp_destroy(void *place, int) { trace("~o%d", static_cast<cpp_object *>(place)->number); }
extern "C" void cpp_element_construct(void *element, int, int, int, int, int, int, int, int) {
  noisy n("e");
  if (element_number == element_failure) throw error(element_number);
  static_cast<cpp_object *>(element)->number = element_number++;
}
static void arrays() {
  unsigned before = 0;
  for (int round = 0; round < 20; ++round) {
    if (round == 10) before = mallinfo2().uordblks;
    try {
      c_new_expression(2);
    } catch (error &e) {
      trace("caught%d", e.code);
    }
    CHECK_TRACE("~construct ~e1 ~e0 caught-1 !-1");
    element_number = 0;
    element_failure = 3;
    try {
      c_construct_cpp_array(3);
    } catch (error &e) {
      trace("caught%d", e.code);
    }
    CHECK_TRACE("~e ~e ~e ~e ~o2 ~o1 ~o0 caught3 !3");
  }
  CHECK_INT(mallinfo2().uordblks - before, 0);
  c_new_expression(-1);
  CHECK_TRACE("~e3 ~e2 ~e1 ~e0");
}

// ---- handlers

static void throw_error(int code) {
  noisy n("thrower");
  throw error(code);
}
static void throw_and_catch(int code) {
  try {
    noisy n("inner");
    throw_error(code);
  } catch (error &e) {
    trace("h%d", e.code);
  }
}
static void throw_and_catch_through_c(int code) {
  try {
    c_with_objects(throw_error, code);
  } catch (error &e) {
    trace("h%d", e.code);
    c_catches(throw_error, code + 1);
  }
}
static void handlers() {
  try {
    c_handler_throws_anew(throw_error, throw_error);
  } catch (error &e) {
    trace("caught%d", e.code);
  }
  CHECK_TRACE("~thrower ~thrower !1 ~c-handler ~c-outer caught2 !2");
  c_handler_calls(throw_error, throw_and_catch);
  CHECK_TRACE("~thrower C:handler ~thrower ~inner h2 !2 C:end !1");
  c_handler_calls(throw_error, throw_and_catch_through_c);
  CHECK_TRACE("~thrower C:handler ~thrower ~c-b ~c-a h2 ~thrower C:any !3 ~c-kept !2 C:end !1");
  // the handler of a C++ frame calls C that throws past it
  try {
    try {
      throw error(7);
    } catch (error &) {
      noisy n("in-handler");
      c_with_objects(bottom, 101);
    }
  } catch (int n) {
    trace("caught%d", n);
  }
  CHECK_TRACE("~bottom ~c-b ~c-a ~in-handler !7 caught101");
}

int main() {
  thrown_by_c();
  caught_by_c();
  nesting();
  arrays();
  handlers();
  return TEST_RESULT();
}
