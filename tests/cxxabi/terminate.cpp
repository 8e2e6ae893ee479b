// The ends of a program: uncaught exceptions and the line they print, destructors that throw while another exception
// unwinds, terminate handlers, exit inside try blocks and handlers, pure virtual calls, abort.
//
// With plx an uncaught exception destroys everything on the stack before std::terminate runs (both are allowed); table
// based systems do not, so only here this test differs from them.
// test-variants: -O0 | -O2 | -O1 -std=gnu++17
#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "../harness.h"

#if __cplusplus >= 201103L
#define MAY_THROW noexcept(false)
#else
#define MAY_THROW
#endif

struct says {
  const char *name;
  explicit says(const char *n) : name(n) {}
  ~says() {
    printf("~%s ", name);
    fflush(stdout);
  }
};
static void say_terminate() {
  printf("terminate handler");
  fflush(stdout);
  _exit(3);
}

// ---- uncaught exceptions

namespace shop {
struct sold_out {
  int item;
};
class late_delivery : public std::runtime_error {
 public:
  explicit late_delivery(const std::string &text) : std::runtime_error(text) {}
};
struct own_text : std::exception {
  virtual const char *what() const throw() { return "text of its own"; }
};
}  // namespace shop

static void uncaught_int() { throw 1; }
static void uncaught_text() { throw "text"; }
static void uncaught_class() {
  shop::sold_out s = {1};
  throw s;
}
static void uncaught_library_class() { throw std::out_of_range("index 7 of 3"); }
static void uncaught_derived() { throw shop::late_delivery("two days"); }
template <class T, int n> struct carton {};
static void uncaught_template() { throw carton<const shop::sold_out *, -3>(); }
static void uncaught_nested_template() { throw carton<carton<shop::sold_out, 1>, 2>(); }
static void uncaught_own_text() { throw shop::own_text(); }
static void uncaught_bad_alloc() { throw std::bad_alloc(); }
static void uncaught_library_throw() { std::string("abc").at(5); }
static void uncaught_with_handler() {
  std::set_terminate(say_terminate);
  throw std::runtime_error("must not be printed");
}
static void uncaught_below_a_stack() {
  says a("a");
  try {
    says b("b");
    throw 1;
  } catch (const char *) {
    puts("wrong");
  }
}
static void uncaught_rethrow() {
  try {
    throw std::runtime_error("again");
  } catch (std::exception &) {
    says local("handler");
    throw;
  }
}
static void uncaught_from_handler() {
  try {
    throw 1;
  } catch (int) {
    throw std::logic_error("second");
  }
}

static void uncaught() {
#ifdef PLX_CONFIG_H
  CHECK_ABORTS(uncaught_int, "plx: uncaught exception of type int\n");
  CHECK_ABORTS(uncaught_text, "plx: uncaught exception of type ");
  CHECK_ABORTS(uncaught_class, "plx: uncaught exception of type shop::sold_out\n");
  CHECK_ABORTS(uncaught_library_class, "plx: uncaught exception of type std::out_of_range: index 7 of 3\n");
  CHECK_ABORTS(uncaught_derived, "plx: uncaught exception of type shop::late_delivery: two days\n");
  CHECK_ABORTS(uncaught_own_text, "plx: uncaught exception of type shop::own_text: text of its own\n");
  CHECK_ABORTS(uncaught_template, "plx: uncaught exception of type carton<shop::sold_out const*, -3>\n");
  CHECK_ABORTS(uncaught_nested_template, "plx: uncaught exception of type carton<carton<shop::sold_out, 1>, 2>\n");
  CHECK_ABORTS(uncaught_bad_alloc, "plx: uncaught exception of type std::bad_alloc: Allocation Failure\n");
  CHECK_ABORTS(uncaught_library_throw, "plx: uncaught exception of type std::out_of_range: ");
  CHECK_ABORTS(uncaught_rethrow, "plx: uncaught exception of type std::runtime_error: again\n");
  CHECK_ABORTS(uncaught_from_handler, "plx: uncaught exception of type std::logic_error: second\n");
  CHECK_ABORTS(uncaught_below_a_stack, "~b ~a ");
  CHECK_ABORTS(uncaught_rethrow, "~handler ");
#else
  CHECK_ABORTS(uncaught_int, "");
  CHECK_ABORTS(uncaught_class, "");
  CHECK_ABORTS(uncaught_own_text, "");
#endif
  test_child child = test_run_child(uncaught_with_handler);
  CHECK_INT(child.status, 3);
  CHECK_TEXT(child.text, "terminate handler");
}

// ---- exceptions that meet while one is unwinding

struct throws_when_destroyed {
  ~throws_when_destroyed() MAY_THROW { throw 2; }
};
static void destructor_throws_while_unwinding() {
  std::set_terminate(say_terminate);
  try {
    throws_when_destroyed t;
    throw 1;
  } catch (...) {
    puts("caught");
  }
}
static void destructor_throws_alone() {
  try {
    throws_when_destroyed t;
  } catch (int n) {
    printf("caught %d", n);
  }
}
// A try block outside the destructor but inside the frame that is being unwound must not see the second one.
struct calls_thrower {
  ~calls_thrower() MAY_THROW {
    try {
      throws_when_destroyed t;
      throw 3;  // two at once, inside a destructor that runs for a third
    } catch (...) {
      puts("caught");
    }
  }
};
static void deeper_destructor_throws() {
  std::set_terminate(say_terminate);
  try {
    calls_thrower c;
    throw 1;
  } catch (...) {
    puts("caught");
  }
}
static void destructor_throws_while_rethrown() {
  std::set_terminate(say_terminate);
  try {
    try {
      throw 1;
    } catch (int) {
      throws_when_destroyed t;
      throw;
    }
  } catch (...) {
    puts("caught");
  }
}
static void terminate_handler_throws() { throw 9; }
static void handler_of_terminate_throws() {
  std::set_terminate(terminate_handler_throws);
  try {
    throws_when_destroyed t;
    throw 1;
  } catch (...) {
    puts("caught");
  }
}
static void terminate_handler_returns() { 
  puts("returning");
  fflush(stdout);
}
static void handler_of_terminate_returns() {
  std::set_terminate(terminate_handler_returns);
  throw 1;
}
static void terminate_handler_handles() {
  try {
    throw 5;
  } catch (int n) {
    printf("inner %d\n", n);
  }
  fflush(stdout);
  _exit(5);
}
static void handler_of_terminate_handles() {
  std::set_terminate(terminate_handler_handles);
  std::terminate();
}
static void meeting_exceptions() {
  CHECK_ENDS(destructor_throws_while_unwinding, 3, "terminate handler");
  CHECK_ENDS(destructor_throws_alone, 0, "caught 2");
  CHECK_ENDS(deeper_destructor_throws, 3, "terminate handler");
  CHECK_ENDS(destructor_throws_while_rethrown, 3, "terminate handler");
  test_child child = test_run_child(handler_of_terminate_throws);
  CHECK_INT(child.status, -SIGABRT);
  CHECK(strstr(child.text, "caught") == 0);
  CHECK_ABORTS(handler_of_terminate_returns, "returning");
  CHECK_ENDS(handler_of_terminate_handles, 5, "inner 5");
  std::terminate_handler before = std::set_terminate(say_terminate);
  CHECK(std::set_terminate(before) == say_terminate);
}
static void null_terminate_handler() {
  std::set_terminate(0);
  throw 1;
}

// ---- exit and abort

struct at_exit {
  const char *name;
  explicit at_exit(const char *n) : name(n) {}
  ~at_exit() { printf("~%s ", name); }
};
static void exit_in_try() {
  static at_exit object("static");
  says local("local");  // exit does not unwind
  try {
    says inner("inner");
    exit(6);
  } catch (...) {
    puts("caught");
  }
}
static void exit_in_handler() {
  static at_exit object("static");
  try {
    throw std::runtime_error("text");
  } catch (std::exception &e) {
    exit(strcmp(e.what(), "text") == 0 ? 7 : 8);
  }
}
struct exits_when_destroyed {
  ~exits_when_destroyed() { exit(9); }
};
static void exit_while_unwinding() {
  static at_exit object("static");
  try {
    exits_when_destroyed e;
    throw 1;
  } catch (...) {
    puts("caught");
  }
}
struct handles_at_exit {
  ~handles_at_exit() {
    try {
      throw 3;
    } catch (int n) {
      printf("handled %d ", n);
    }
  }
};
static void exceptions_at_exit() {
  static at_exit object("static");
  static handles_at_exit handler;
  try {
    exit(0);
  } catch (...) {
    puts("wrong handler");
  }
}
struct throws_at_exit {
  ~throws_at_exit() MAY_THROW { throw 3; }
};
static void uncaught_at_exit() {
  std::set_terminate(say_terminate);
  static throws_at_exit object;
  try {
    exit(0);
  } catch (...) {
    puts("caught");
  }
}
static void ends() {
  CHECK_ENDS(exit_in_try, 6, "~static ");
  CHECK(strstr(test_run_child(exit_in_try).text, "~local") == 0);
  CHECK(strstr(test_run_child(exit_in_try).text, "caught") == 0);
  CHECK_ENDS(exit_in_handler, 7, "~static ");
  CHECK_ENDS(exit_while_unwinding, 9, "~static ");
  CHECK_ENDS(exceptions_at_exit, 0, "handled 3 ~static ");
  CHECK_ENDS(uncaught_at_exit, 3, "terminate handler");
}

// ---- pure virtual calls

struct abstract {
  abstract() { call(); }
  virtual ~abstract() {}
  void call() { pure(); }
  virtual void pure() = 0;
};
struct concrete : abstract {
  virtual void pure() { puts("too early"); }
};
static void pure_virtual_call() {
  concrete *volatile c = new concrete;
  c->pure();
}

int main() {
  uncaught();
  meeting_exceptions();
  CHECK_ABORTS(null_terminate_handler, "");
  ends();
  CHECK_ABORTS(pure_virtual_call, "");
  return TEST_RESULT();
}
