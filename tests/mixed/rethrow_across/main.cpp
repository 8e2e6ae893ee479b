// Rethrowing and exception specifications across the worlds: an exception object stays one object, destroyed once,
// however often and by whom it is rethrown; specifications of either world are violated by throws of the other, with
// unexpected handlers of both; what nobody catches names its type.
// test-variants: -O0 | -O2 | -Os
#include "worlds.h"

#include <exception>
#include <malloc.h>
#include <stdexcept>

#include "../../harness.h"

extern "C" void note(const char *format, ...) {
  char text[200];
  va_list arguments;
  va_start(arguments, format);
  vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  trace("%s", text);
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

static void throw_c_error(int code) {
  c_error e = {code};
  throw e;
}
static void throw_error(int code) {
  noisy n("thrower");
  throw error(code);
}
static void throw_int(int code) { throw code; }
static void cpp_rethrows(int code) {
  noisy n("cpp-rethrows");
  try {
    c_throws(code);
  } catch (c_error &e) {
    trace("cpp%d", e.code++);
    throw;
  }
}
static void c_then_cpp(int code) {
  try {
    c_rethrows(cpp_rethrows, code);
  } catch (c_error &e) {
    trace("cpp%d", e.code++);
    throw;
  }
}

static void one_object() {
  try {
    c_rethrows(cpp_rethrows, 10);
  } catch (c_error &e) {
    trace("caught%d", e.code);
  }
  CHECK_TRACE("cpp10 ~cpp-rethrows C11 ~c-rethrows caught12 !c12");
  try {
    c_rethrows(c_then_cpp, 20);
  } catch (c_error e) {
    trace("caught%d", e.code);
  }
  CHECK_TRACE("cpp20 ~cpp-rethrows C21 ~c-rethrows cpp22 C23 ~c-rethrows caught24 !c24");
  try {
    c_rethrows(throw_c_error, 30);
  } catch (c_error &e) {
    trace("caught%d", e.code);
  }
  CHECK_TRACE("C30 ~c-rethrows caught31");
}

// throw; in one world for a handler of the other.
static void sort_out() {
  try {
    throw;
  } catch (error &e) {
    trace("sorted%d", e.code);
    e.code += 100;
  } catch (c_error &e) {
    trace("sorted-c%d", e.code);
    e.code += 100;
  } catch (...) {
    trace("sorted");
  }
}
static void throw_another() { throw_error(99); }
static void called_by_handlers() {
  try {
    throw_error(1);
  } catch (...) {
    trace("h");
    try {
      c_rethrow_now();
    } catch (error &e) {
      trace("inner%d", e.code++);
    }
    c_calls_in_handler(throw_int, 5, sort_out);
    sort_out();
  }
  CHECK_TRACE("~thrower h inner1 C:handler sorted C:end sorted2 !102");
  c_calls_in_handler(throw_error, 6, sort_out);
  CHECK_TRACE("~thrower C:handler sorted6 C:end !106");
  c_calls_in_handler(c_throws, 7, sort_out);
  CHECK_TRACE("C:handler sorted-c7 C:end !c107");
  try {
    c_calls_in_handler(throw_error, 8, c_rethrow_now);
  } catch (error &e) {
    trace("caught%d", e.code);
  }
  CHECK_TRACE("~thrower C:handler caught8 !8");
  try {
    c_calls_in_handler(throw_error, 9, throw_another);
  } catch (error &e) {
    trace("caught%d", e.code);
  }
  CHECK_TRACE("~thrower C:handler ~thrower !9 caught99 !99");
}

// Handlers nested alternately in both worlds, all for one exception.
static int ladder_bottom;
extern "C" void cpp_ladder(int depth) {
  try {
    throw;
  } catch (c_error &e) {
    ++e.code;
    if (depth > 0) c_ladder(depth - 1);
    else ladder_bottom = e.code;
  }
}
static void ladder() {
  size_t before = 0;
  for (int round = 0; round < 10; ++round) {
    if (round == 5) before = mallinfo2().uordblks;
    ladder_bottom = 0;
    try {
      c_throws(1000);
    } catch (...) {
      c_ladder(201);
    }
    CHECK_INT(ladder_bottom, 1101);
    CHECK_TRACE("!c1101");
  }
  CHECK_INT(mallinfo2().uordblks - before, 0);
}

// ---- specifications

static void cpp_specified_int(int code) throw(int) {
  noisy n("cpp-spec");
  c_passes(c_throws, code);
}
static void cpp_throws_int_through_spec(int code) throw(int) { c_specified_int(throw_int, code); }
static void cpp_unexpected() {
  trace("cpp:unexpected");
  throw 55;
}

template <class F> static void outcome(F function) {
  try {
    noisy n("try");
    function();
    trace("returned");
  } catch (int n) {
    trace("int%d", n);
  } catch (c_error &e) {
    trace("c_error%d", e.code);
  } catch (error &e) {
    trace("error%d", e.code);
  }
}
static void c_by_cpp_error() { c_specified_int(throw_error, 1); }
static void c_by_cpp_int() { c_specified_int(throw_int, 2); }
static void c_by_cpp_c_error() { c_specified_int(throw_c_error, 3); }
static void c_nothing_by_int() { c_specified_nothing(throw_int, 4); }
static void cpp_by_c() { cpp_specified_int(5); }
static void both() { c_specified_int(cpp_specified_int, 6); }
static void passing() { cpp_throws_int_through_spec(7); }

static void specifications() {
  std::set_unexpected(cpp_unexpected);
  outcome(c_by_cpp_int);
  CHECK_TRACE("~c-spec ~try int2");
  outcome(c_by_cpp_c_error);
  CHECK_TRACE("~c-spec ~try c_error3");
  outcome(passing);
  CHECK_TRACE("~c-spec ~try int7");
  outcome(c_by_cpp_error);
  CHECK_TRACE("~thrower ~c-spec cpp:unexpected !1 ~try int55");
  outcome(cpp_by_c);
  CHECK_TRACE("~c ~cpp-spec cpp:unexpected !c5 ~try int55");
  outcome(c_nothing_by_int);  // generated C checks no second time, and its library does not put bad_exception in
  CHECK_TRACE("cpp:unexpected ~try int55");
  outcome(both);
  CHECK_TRACE("~c ~cpp-spec cpp:unexpected !c6 ~c-spec ~try int55");

  c_install_unexpected(1);
  outcome(c_by_cpp_error);
  CHECK_TRACE("~thrower ~c-spec C:unexpected !1 ~try int77");
  outcome(cpp_by_c);
  CHECK_TRACE("~c ~cpp-spec C:unexpected !c5 ~try int77");
  outcome(both);
  CHECK_TRACE("~c ~cpp-spec C:unexpected !c6 ~c-spec ~try int77");
  c_install_unexpected(2);
  outcome(c_by_cpp_error);
  CHECK_TRACE("~thrower ~c-spec C:unexpected !1 ~try c_error78 !c78");
  c_install_unexpected(3);  // the violating exception itself goes on
  outcome(c_by_cpp_error);
  CHECK_TRACE("~thrower ~c-spec C:unexpected ~try error1 !1");
  // nothing is left over
  outcome(c_by_cpp_int);
  CHECK_TRACE("~c-spec ~try int2");
  std::set_unexpected(0);
}

// ---- fatal ends

static void say_terminate() {
  puts("terminate handler");
  fflush(stdout);
  _exit(3);
}
struct says {
  const char *name;
  explicit says(const char *n) : name(n) {}
  ~says() {
    printf("~%s ", name);
    fflush(stdout);
  }
};
static void uncaught_from_c() {
  says outer("outer");
  c_passes(c_throws, 1);
}
static void throw_logic_error(int) { throw std::logic_error("what it says"); }
static void uncaught_through_c() {
  says outer("outer");
  c_passes(throw_logic_error, 1);
}
static void c_violated() {
  std::set_terminate(say_terminate);
  c_specified_nothing(throw_int, 1);
}
static void cpp_violated_again() {
  c_install_unexpected(2);
  std::set_terminate(say_terminate);
  cpp_specified_int(1);
}
struct throws_c_when_destroyed {
  ~throws_c_when_destroyed() { c_passes(c_throws, 2); }
};
static void c_throws_while_cpp_unwinds() {
  std::set_terminate(say_terminate);
  try {
    throws_c_when_destroyed t;
    throw 1;
  } catch (...) {
    puts("caught");
  }
}
static void fatal_ends() {
  CHECK_ABORTS(uncaught_from_c, "~outer plx: uncaught exception of type c_error\n");
  CHECK_ABORTS(uncaught_through_c, "~outer plx: uncaught exception of type std::logic_error: what it says\n");
  CHECK_ENDS(c_violated, 3, "terminate handler");
  CHECK_ENDS(cpp_violated_again, 3, "terminate handler");
  CHECK_ENDS(c_throws_while_cpp_unwinds, 3, "terminate handler");
  CHECK_ABORTS(c_rethrow_now, "");
}

int main() {
  one_object();
  called_by_handlers();
  ladder();
  specifications();
  fatal_ends();
  return TEST_RESULT();
}
