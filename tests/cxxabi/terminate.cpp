// The ends of a program, and what it says then: uncaught exceptions, destructors that throw while another exception
// unwinds, terminate handlers, exit inside try blocks and handlers, pure virtual calls, statics in a circle.
//
// With plx an uncaught exception destroys everything on the stack before std::terminate runs (both are allowed).
// test-variants: -O0 | -O2 | -O1 -std=gnu++17
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
#pragma GCC diagnostic ignored "-Wc++11-compat"
#endif
#if __cplusplus >= 201103L
#define MAY_THROW noexcept(false)
#else
#define MAY_THROW
#endif

struct says {
  const char *name;
  explicit says(const char *n) : name(n) {}
  ~says() { printf("~%s ", name), fflush(stdout); }
};
static void say_terminate() { printf("terminate:%d", std::uncaught_exception()), fflush(stdout), _exit(3); }
static void throw_in_terminate() { throw 9; }
static void return_from_terminate() { puts("returning"), fflush(stdout); }
static void handle_in_terminate() {
  try { throw 5; } catch (int n) { printf("inner %d", n), fflush(stdout); }
  try { throw; } catch (...) { puts("wrong"); }
}

namespace shop {
struct sold_out { int item; };
class late_delivery : public std::runtime_error {
public:
  explicit late_delivery(const std::string &text) : std::runtime_error(text) {}
};
struct own_text : std::exception { virtual const char *what() const throw() { return "text of its own"; } };
struct hides_text : private std::exception { virtual const char *what() const throw() { return "wrong"; } };
}  // namespace shop
template <class T, int n> struct carton {};

struct throws { ~throws() MAY_THROW { throw 2; } };
struct two_at_once { ~two_at_once() MAY_THROW { try { throws t; throw 3; } catch (...) { puts("wrong"); } } };
struct fragile {
  static int left;
  fragile() {}
  fragile(const fragile &) { if (left-- == 0) throw 77; }
};
int fragile::left;
struct exits { ~exits() { exit(9); } };
struct handles_at_exit { ~handles_at_exit() { try { throw 3; } catch (int n) { printf("handled %d ", n); } } };
struct abstract {
  abstract() { call(); }
  virtual ~abstract() {}
  void call() { pure(); }
  virtual void pure() = 0;
};
struct concrete : abstract { virtual void pure() { puts("too early"); } };
static int recursive(int n) { static int value = recursive(n + 1); return value; }
static void no_throw_specified() throw() { throw 1; }

static int which;
static void run() {
  static says object("static");
  switch (which) {
    case 0: throw 1;
    case 1: throw "text";
    case 2: throw shop::sold_out();
    case 3: throw std::out_of_range("index 7 of 3");
    case 4: throw shop::late_delivery("two days");
    case 5: throw carton<carton<const shop::sold_out *, -3>, 2>();
    case 6: throw shop::own_text();
    case 7: throw shop::hides_text();
    case 8: throw std::bad_alloc();
    case 9: std::string("abc").at(5); return;
    case 10: { says a("a"); try { says b("b"); throw 1; } catch (const char *) { puts("wrong"); } return; }
    case 11: try { throw std::runtime_error("again"); } catch (std::exception &) { says local("handler"); throw; }
    case 12: try { throw 1; } catch (int) { throw std::logic_error("second"); }
    case 13: throw;
    case 14: try { throw 1; } catch (int) {} throw;
    case 15: std::set_terminate(say_terminate); throw std::runtime_error("must not be printed");
    case 16: std::set_terminate(say_terminate); std::terminate();
    case 17: std::set_terminate(say_terminate); try { throws t; throw 1; } catch (...) { puts("wrong"); } return;
    case 18: std::set_terminate(say_terminate); try { two_at_once c; throw 1; } catch (...) { puts("wrong"); } return;
    case 19:
      std::set_terminate(say_terminate);
      try { try { throw 1; } catch (int) { throws t; throw; } } catch (...) { puts("wrong"); }
      return;
    case 20: try { throws t; } catch (int n) { printf("caught %d ", n); } return;
    case 21: std::set_terminate(throw_in_terminate); try { throws t; throw 1; } catch (...) { puts("wrong"); } return;
    case 22: std::set_terminate(return_from_terminate); throw 1;
    case 23: std::set_terminate(handle_in_terminate); std::terminate();
    case 24: std::set_terminate(0); throw 1;
    case 25:
      fragile::left = 0;
      try { try { throw fragile(); } catch (fragile) { puts("wrong"); } } catch (...) { puts("wrong"); }
      return;
    case 26: { says local("wrong"); try { says inner("wrong"); exit(6); } catch (...) { puts("wrong"); } return; }
    case 27: try { throw std::runtime_error("text"); } catch (std::exception &e) { exit(e.what()[0]); }
    case 28: try { exits e; throw 1; } catch (...) { puts("wrong"); } return;
    case 29: { static handles_at_exit handler; try { exit(0); } catch (...) { puts("wrong"); } return; }
    case 30: {
      static throws thrower;
      std::set_terminate(say_terminate);
      try { exit(0); } catch (...) { puts("wrong"); }
      return;
    }
    case 31: delete new concrete; return;
    case 32: alarm(10); recursive(0); return;
    case 33: no_throw_specified(); return;
    case 34: if (std::set_terminate(say_terminate) && std::set_terminate(0) == say_terminate) puts("was set"); return;
    case 35: throw std::logic_error(std::string(3000, 'x'));
  }
}

int main() {
  static const struct { int status; const char *text; } wants[] = {
      {-SIGABRT, "plx: uncaught exception of type int\n"}, {-SIGABRT, "plx: uncaught exception of type char const*\n"},
      {-SIGABRT, "plx: uncaught exception of type shop::sold_out\n"},
      {-SIGABRT, "plx: uncaught exception of type std::out_of_range: index 7 of 3\n"},
      {-SIGABRT, "plx: uncaught exception of type shop::late_delivery: two days\n"},
      {-SIGABRT, "plx: uncaught exception of type carton<carton<shop::sold_out const*, -3>, 2>\n"},
      {-SIGABRT, "plx: uncaught exception of type shop::own_text: text of its own\n"},
      {-SIGABRT, "plx: uncaught exception of type shop::hides_text\n"},
      {-SIGABRT, "plx: uncaught exception of type std::bad_alloc: Allocation Failure\n"},
      {-SIGABRT, "plx: uncaught exception of type std::out_of_range: "}, {-SIGABRT, "~b ~a plx: uncaught"},
      {-SIGABRT, "~handler plx: uncaught exception of type std::runtime_error: again\n"},
      {-SIGABRT, "plx: uncaught exception of type std::logic_error: second\n"},
      {-SIGABRT, "plx: terminated: throw; while no exception is being handled\n"},
      {-SIGABRT, "plx: terminated: throw; while no exception is being handled\n"},
      {3, "terminate:1"}, {3, "terminate:"}, {3, "terminate:"}, {3, "terminate:"}, {3, "terminate:"},
      {0, "caught 2 "}, {-SIGABRT, ""}, {-SIGABRT, "returning"}, {-SIGABRT, "inner 5"},
      {-SIGABRT, ""}, {-SIGABRT, ""}, {6, "~static "}, {'t', "~static "}, {9, "~static "}, {0, "handled 3 ~static "},
      {3, "terminate:"}, {-SIGABRT, ""}, {-SIGABRT, " "}, {-SIGABRT, "plx: "}, {0, "was set"}, {-SIGABRT, "xxx\n"}};
  for (; which < (int)(sizeof wants / sizeof wants[0]); ++which) {
    const test_child child = test_run_child(run);
    const bool good = child.status == wants[which].status && strstr(child.text, wants[which].text) && !strstr(child.text, "wrong");
    if (!good) fprintf(stderr, "%d: %d, %s\n", which, child.status, child.text);
    CHECK(good);
  }
  return TEST_RESULT();
}
