// The ends of a program of C++, and what it says then: uncaught exceptions of all sorts, a parameter that fails,
// what is thrown at exit, statics in a circle, noexcept; exceptions before main begins and after it has ended. What
// runs before an end, random/scenes has.
// test-variants: -O0 | -O2 -static | -O1 -std=gnu++17
#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "../harness.h"

#ifdef __clang__
#pragma clang diagnostic ignored "-Winfinite-recursion"  // it ends in the initialisation
#pragma clang diagnostic ignored "-Wexceptions"
#else
#pragma GCC diagnostic ignored "-Wterminate"
#endif

struct says {
  const char *name;
  ~says() { printf("~%s ", name); }
};
namespace shop {
struct sold_out {
  int item;
};
struct own_text : std::exception {
  virtual const char *what() const throw() { return "text of its own"; }
};
struct hides_text : private std::exception {
  virtual const char *what() const throw() { return "wrong"; }
};
}  // namespace shop
template <class T, int n> struct carton {};
struct fragile {
  fragile() {}
  fragile(const fragile &) { throw 77; }
};
static void throw_at_exit() { throw 2; }
static void thrower() {
  const says local = {"local"};
  throw 1;
}
static void (*volatile hidden)() = thrower;
// Whether the function that nothing may leave ends its own objects first, is the compiler's affair.
static void never() PLX_NOTHROW {
  const says outer = {"outer"};
  hidden();
}
static int recursive(int n) {
  static int value = recursive(n + 1);
  return value;
}
static void say_terminate() {
  printf("terminate:%d", std::uncaught_exception());
  fflush(stdout);
  _exit(3);
}

// In static objects and in constructors and destructors of the program, which an environment variable asks for.
static const char *mode() { return getenv("TEST_EXCEPTIONS"); }
static void throw_and_tell(const char *when) {
  if (!mode()) return;
  try {
    const says local = {when};
    if (*mode() == 'u') throw std::logic_error("before main");
    std::string("abc").at(100);
  } catch (std::out_of_range &e) {
    std::exception &base = e;
    printf(dynamic_cast<std::logic_error *>(&base) && e.what()[0] ? "range " : "wrong ");
  }
  fflush(stdout);
}
struct early {
  early() { throw_and_tell("early"); }
  ~early() { throw_and_tell("static"); }
};
static early one __attribute__((__init_priority__(101)));
__attribute__((__destructor__)) static void very_last() { throw_and_tell("last"); }
static void run_again(const char *how) {
  setenv("TEST_EXCEPTIONS", how, 1);
  execl("/proc/self/exe", "terminate", (char *)0);
}

static int which;
static void end() {
  switch (which) {
    case 0: throw "text";
    case 1: throw shop::sold_out();
    case 2: throw std::out_of_range("index 7 of 3");
    case 3: throw carton<carton<const shop::sold_out *, -3>, 2>();
    case 4: throw shop::own_text();
    case 5: throw shop::hides_text();
    case 6: throw std::bad_alloc();
    case 7: throw std::logic_error(std::string(3000, 'x'));
    case 8: throw;
    case 9: try { throw std::runtime_error("again");
      } catch (std::exception &) { throw; }
    case 10:
      std::set_terminate(say_terminate);
      try {
        throw fragile();
      } catch (fragile) { puts("wrong"); }
      break;
    case 11:
      std::set_terminate(say_terminate);
      atexit(throw_at_exit);
      exit(0);
    case 12: recursive(0); break;
    case 13: run_again("handled"); break;
    case 14: run_again("uncaught"); break;
    case 15:
      std::set_terminate(say_terminate);
      never();
      break;
    default:
      if (std::set_terminate(say_terminate) != say_terminate && std::set_terminate(0) == say_terminate) puts("was set");
  }
}
static void run() {
  static const says object = {"static"};
  try {
    end();
  } catch (shop::own_text *) { puts("wrong"); }
}

#define UNCAUGHT(text) \
  { -SIGABRT, "plx: uncaught exception of type " text "\n" }
int main() {
  if (mode()) return 0;
  static const struct {
    int status;
    const char *text;
  } wants[] = {
      // clang-format off
      UNCAUGHT("char const*"), UNCAUGHT("shop::sold_out"),
      UNCAUGHT("std::out_of_range: index 7 of 3"),
      UNCAUGHT("carton<carton<shop::sold_out const*, -3>, 2>"), UNCAUGHT("shop::own_text: text of its own"),
      UNCAUGHT("shop::hides_text"), UNCAUGHT("std::bad_alloc: Allocation Failure"),
      {-SIGABRT, "xxx\n"}, {-SIGABRT, "plx: terminated: throw; while no exception is being handled\n"},
      UNCAUGHT("std::runtime_error: again"), {3, "terminate:"}, {3, "terminate:"},
      {-SIGABRT, "plx: the initialiser of a local static object uses that object\n"}, {0, "~early range ~static range ~last range "}, UNCAUGHT("std::logic_error: before main"),
      {3, "~local "}, {0, "was set"},
      // clang-format on
  };
  for (; which < (int)(sizeof wants / sizeof *wants); ++which) {
    const test_child child = test_run_child(run);
    CHECK_INT(child.status, wants[which].status);
    CHECK(strstr(child.text, wants[which].text) && !strstr(child.text, "wrong"));
    if (test_failures) fprintf(stderr, "%d: %s\n", which, child.text);
  }
  return TEST_RESULT();
}
