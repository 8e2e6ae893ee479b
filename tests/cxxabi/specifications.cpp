// Exception specifications (1998, 15.4 and 18.6.2): what passes, and what std::unexpected may do: return, throw
// something allowed, rethrow, throw something else with or without std::bad_exception in the list. Nested
// specifications, and what has been destroyed when the handler runs.
// test-variants: -O0 | -O1 | -O2 | -Os
#include <exception>
#include <malloc.h>
#include <typeinfo>

#include "../harness.h"

struct noisy {
  const char *name;
  explicit noisy(const char *n) : name(n) {}
  ~noisy() { trace("~%s", name); }
};
struct error {
  int code;
  explicit error(int c) : code(c) {}
  error(const error &other) : code(other.code) {}
  virtual ~error() { trace("!%d", code); }
};
struct special : error {
  explicit special(int c) : error(c) {}
};
struct hidden : private error {
  hidden() : error(0) {}
};

// The pointer is volatile so that the compiler cannot merge the frames of nested specifications: inlined ones it
// reports once.
static void fail_now(int kind) {
  noisy n("fail");
  switch (kind) {
    case 0: return;
    case 1: throw 1;
    case 2: throw error(2);
    case 3: throw special(3);
    case 4: throw "four";
    case 5: throw hidden();
    case 6: throw std::bad_exception();
    case 7: {
      static special s(7);
      throw &s;
    }
    case 8: throw 8L;
  }
}
static void (*volatile fail)(int) = fail_now;

static void allows_int_and_error(int kind) throw(int, error) {
  noisy n("spec");
  fail(kind);
}
static void allows_nothing(int kind) throw() {
  noisy n("spec");
  fail(kind);
}
static void allows_bad_exception(int kind) throw(int, std::bad_exception) {
  noisy n("spec");
  fail(kind);
}
static void allows_pointers(int kind) throw(const error *, char *) {
  noisy n("spec");
  fail(kind);
}

template <class F> static void outcome(F function, int kind) {
  try {
    noisy n("try");
    function(kind);
    trace("returned");
  } catch (int n) {
    trace("int%d", n);
  } catch (error &e) {
    trace("error%d", e.code);
  } catch (const char *text) {
    trace("text:%s", text);
  } catch (std::bad_exception &) {
    trace("bad_exception");
  } catch (const error *e) {
    trace("pointer%d", e->code);
  } catch (long) {
    trace("long");
  } catch (...) {
    trace("other");
  }
}

static void allowed_ones_pass() {
  outcome(allows_int_and_error, 0);
  CHECK_TRACE("~fail ~spec returned ~try");
  outcome(allows_int_and_error, 1);
  CHECK_TRACE("~fail ~spec ~try int1");
  outcome(allows_int_and_error, 2);
  CHECK_TRACE("~fail ~spec ~try error2 !2");
  outcome(allows_int_and_error, 3);
  CHECK_TRACE("~fail ~spec ~try error3 !3");
  outcome(allows_pointers, 7);
  CHECK_TRACE("~fail ~spec ~try pointer7");
  outcome(allows_nothing, 0);
  CHECK_TRACE("~fail ~spec returned ~try");
}

static int instead;  // what the handler throws
static void throw_instead() {
  trace("unexpected");
  switch (instead) {
    case 0: throw;  // the same again
    case 1: throw 11;
    case 2: throw error(12);
    case 3: throw "thirteen";
    case 4: throw 14L;
    case 5: throw std::bad_exception();
  }
}

// The handler runs when everything inside the specification has been destroyed, and nothing outside. The exception that
// violated lives until the handler has thrown another.
static void handler_throws_something_allowed() {
  std::set_unexpected(throw_instead);
  instead = 1;
  outcome(allows_int_and_error, 4);
  CHECK_TRACE("~fail ~spec unexpected ~try int11");
  instead = 2;
  outcome(allows_int_and_error, 4);
  CHECK_TRACE("~fail ~spec unexpected ~try error12 !12");
  outcome(allows_int_and_error, 5);  // a private base is no base; the old exception goes when the new one is there
  CHECK_TRACE("~fail ~spec unexpected !0 ~try error12 !12");
  outcome(allows_int_and_error, 8);
  CHECK_TRACE("~fail ~spec unexpected ~try error12 !12");
  instead = 1;
  outcome(allows_bad_exception, 2);
  CHECK_TRACE("~fail ~spec unexpected !2 ~try int11");
}

static void bad_exception_stands_in() {
  std::set_unexpected(throw_instead);
  instead = 5;
  outcome(allows_bad_exception, 2);
  CHECK_TRACE("~fail ~spec unexpected !2 ~try bad_exception");
  instead = 3;
  outcome(allows_bad_exception, 2);
  CHECK_TRACE("~fail ~spec unexpected !2 ~try bad_exception");
  instead = 0;  // the same again is not allowed either
  outcome(allows_bad_exception, 8);
  CHECK_TRACE("~fail ~spec unexpected ~try bad_exception");
}

// The violating exception is being handled while the handler runs: throw; in a function that it calls finds it.
static void look_and_throw() {
  try {
    throw;
  } catch (error &e) {
    trace("violated%d", e.code);
  } catch (...) {
    trace("violated");
  }
  throw 21;
}
static void handler_looks() {
  std::set_unexpected(look_and_throw);
  outcome(allows_bad_exception, 3);
  CHECK_TRACE("~fail ~spec violated3 !3 ~try int21");
}

// Nested: what the inner handler throws meets the outer specification.
static void inner_specification(int kind) throw(error, int) {
  noisy n("inner");
  fail(kind);
}
static void (*volatile inner)(int) = inner_specification;
static void outer_specification(int kind) throw(error, const char *) {
  noisy n("outer");
  inner(kind);
}
static void escalate() {
  try {
    throw;
  } catch (int) {
    trace("u:int");
    throw "translated";
  } catch (...) {
    trace("u:other");
    throw 31;
  }
}
static void nested() {
  std::set_unexpected(escalate);
  outcome(outer_specification, 8);
  CHECK_TRACE("~fail ~inner u:other ~outer u:int ~try text:translated");
  outcome(outer_specification, 3);
  CHECK_TRACE("~fail ~inner ~outer ~try error3 !3");
  outcome(outer_specification, 1);
  CHECK_TRACE("~fail ~inner ~outer u:int ~try text:translated");
}

// Violated inside a handler, inside a destructor that runs while another exception flies, and repeatedly.
struct violates_when_destroyed {
  ~violates_when_destroyed() {
    try {
      allows_bad_exception(4);
    } catch (int n) {
      trace("d%d", n);
    }
  }
};
static void in_odd_places() {
  std::set_unexpected(throw_instead);
  instead = 1;
  try {
    throw error(40);
  } catch (error &e) {
    outcome(allows_int_and_error, 4);
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail ~spec unexpected ~try int11 h40 !40");
  try {
    violates_when_destroyed v;
    throw error(41);
  } catch (error &e) {
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail ~spec unexpected d11 h41 !41");
  int caught = 0;
  for (int i = 0; i < 500; ++i) {
    try {
      allows_bad_exception(2);
    } catch (int) {
      ++caught;
    }
    test_trace[0] = 0;
  }
  CHECK_INT(caught, 500);
  // after all this, nothing is left over: a later handler's end destroys its own exception
  outcome(allows_int_and_error, 2);
  CHECK_TRACE("~fail ~spec ~try error2 !2");
}

// Whatever the handler does, every exception's memory comes back, also that of ones too big for any reserve.
struct big {
  char bytes[9000];
};
static void all_sorts() {
  switch (instead) {
    case 0: throw 1;
    case 1: throw big();
    case 2: throw;
    case 3: throw std::bad_exception();
    case 4:
      try {
        throw big();
      } catch (big &) {
        try {
          throw;
        } catch (...) {
          throw 2;
        }
      }
  }
}
static void violates(int n) throw(int, std::bad_exception) {
  if (n % 2) throw big();
  throw "text";
}
static void nothing_is_lost() {
  std::set_unexpected(all_sorts);
  size_t before = 0;
  int caught = 0;
  for (int i = 0; i < 1000; ++i) {
    if (i == 20) before = mallinfo2().uordblks;
    instead = i % 5;
    try {
      try {
        throw big();
      } catch (big &) {
        violates(i / 5);
      }
    } catch (int) {
      ++caught;
    } catch (std::bad_exception &) {
      ++caught;
    }
  }
  CHECK_INT(caught, 1000);
  CHECK_INT(mallinfo2().uordblks - before, 0);
}

// Virtual functions, constructors and pointers to functions with a specification; a handler inside the function.
struct with_virtual {
  virtual ~with_virtual() throw() {}
  virtual void run(int kind) throw(int) { fail(kind); }
};
struct with_tighter : with_virtual {
  virtual ~with_tighter() throw() {}
  virtual void run(int kind) throw() {
    try {
      fail(kind);
    } catch (int n) {
      trace("inside%d", n);
    }
  }
};
struct constructor_specified {
  noisy member;
  explicit constructor_specified(int kind) throw(int) : member("member") { fail(kind); }
};
static void construct(int kind) { constructor_specified c(kind); }
static void run_tighter(int kind) {
  with_tighter t;
  with_virtual *volatile p = &t;
  p->run(kind);
}
static void run_virtual(int kind) {
  with_virtual v;
  with_virtual *volatile p = &v;
  p->run(kind);
}
static void members() {
  std::set_unexpected(throw_instead);
  instead = 1;
  outcome(run_tighter, 1);
  CHECK_TRACE("~fail inside1 returned ~try");
  outcome(run_virtual, 1);
  CHECK_TRACE("~fail ~try int1");
  outcome(run_virtual, 4);
  CHECK_TRACE("~fail unexpected ~try int11");
  outcome(construct, 4);
  CHECK_TRACE("~fail ~member unexpected ~try int11");
}

// Fatal ends. Each runs in a child process.
static void say_terminate() {
  puts("terminate handler");
  fflush(stdout);
  _exit(3);
}
static void returns_quietly() { puts("unexpected handler"); }
static void wrong_exception() {
  puts("unexpected handler");
  throw "wrong";
}
static void guarded(void (*function)(int), int kind) {
  try {
    function(kind);
  } catch (...) {
    puts("escaped");
  }
}
static void default_unexpected() {
  std::set_unexpected(0);
  guarded(allows_nothing, 1);
}
static void unexpected_leads_to_terminate() {
  std::set_unexpected(0);
  std::set_terminate(say_terminate);
  guarded(allows_nothing, 1);
}
static void handler_returns() {
  std::set_unexpected(returns_quietly);
  std::set_terminate(say_terminate);
  guarded(allows_int_and_error, 4);
}
static void handler_throws_disallowed() {
  std::set_unexpected(wrong_exception);
  std::set_terminate(say_terminate);
  guarded(allows_int_and_error, 8);
}
static void handler_throws_through_empty() {
  std::set_unexpected(wrong_exception);
  std::set_terminate(say_terminate);
  guarded(allows_nothing, 8);
}
static void rethrow_disallowed() {
  std::set_unexpected(throw_instead);
  std::set_terminate(say_terminate);
  instead = 0;
  guarded(allows_int_and_error, 4);
}
static void fatal_ends() {
  CHECK_ABORTS(default_unexpected, "");
  CHECK_ENDS(unexpected_leads_to_terminate, 3, "terminate handler");
  CHECK_ENDS(handler_returns, 3, "unexpected handler\nterminate handler");
  CHECK_ENDS(handler_throws_disallowed, 3, "unexpected handler\nterminate handler");
  CHECK_ENDS(handler_throws_through_empty, 3, "unexpected handler\nterminate handler");
  CHECK_ENDS(rethrow_disallowed, 3, "terminate handler");
}

static void set_functions() {
  std::unexpected_handler before = std::set_unexpected(throw_instead);
  CHECK(std::set_unexpected(before) == throw_instead);
  CHECK(std::set_unexpected(before) == before);
}

int main() {
  set_functions();
  allowed_ones_pass();
  handler_throws_something_allowed();
  bad_exception_stands_in();
  handler_looks();
  nested();
  in_odd_places();
  nothing_is_lost();
  members();
  fatal_ends();
  return TEST_RESULT();
}
