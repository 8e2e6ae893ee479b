// What handlers may do: rethrow (also from a function they call, also several levels deep), throw anew, nest, and throw
// while another exception waits. Traces show the order of destruction; everything is compared with plain C++.
// test-variants: -O0 | -O1 | -O2 | -O3 | -O2 -fomit-frame-pointer
#include <exception>

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
  ~error() { trace("!%d", code); }
};
struct special_error : error {
  explicit special_error(int c) : error(c) {}
};

static void fail(int code) {
  noisy n("fail");
  if (code >= 100) throw special_error(code);
  throw error(code);
}

// The exception handled is gone after the handler's locals when the handler is left by another.
static void leave_by_another() {
  try {
    noisy outer("outer");
    try {
      noisy inner("inner");
      fail(1);
    } catch (error &e) {
      noisy in_handler("in_handler");
      trace("h%d", e.code);
      fail(2);
    }
    trace("not here");
  } catch (error &e) {
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail ~inner h1 ~fail ~in_handler !1 ~outer h2 !2");
}

static void rethrow() {
  try {
    try {
      try {
        fail(3);
      } catch (error &e) {
        noisy n("first");
        e.code = 4;
        throw;
      }
    } catch (error &e) {
      noisy n("second");
      trace("h%d", e.code);
      throw;
    }
  } catch (error e) {
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail ~first h4 ~second h4 !4 !4");
}

// The usual way to share handlers: a function that rethrows and sorts.
static const char *sort_out() {
  try {
    throw;
  } catch (special_error &) {
    return "special";
  } catch (error &) {
    return "error";
  } catch (int) {
    return "int";
  } catch (...) {
    return "unknown";
  }
}
static const char *sort_out_from_below(int depth) {
  noisy n("below");
  return depth ? sort_out_from_below(depth - 1) : sort_out();
}

static void rethrow_in_a_called_function() {
  try {
    fail(100);
  } catch (...) {
    trace(sort_out());
    trace(sort_out_from_below(1));
    trace(sort_out());
  }
  CHECK_TRACE("~fail special ~below ~below special special !100");
  try {
    fail(5);
  } catch (error &e) {
    trace(sort_out());
    try {
      throw 6;
    } catch (...) {
      trace(sort_out());
    }
    trace(sort_out());  // the outer one is current again
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail error int error h5 !5");
  try {
    try {
      throw "text";
    } catch (...) {
      trace(sort_out());
      throw;
    }
  } catch (const char *text) {
    trace(text);
  }
  CHECK_TRACE("unknown text");
}

// A rethrow that is caught inside the handler: the exception stays alive until the outer handler ends.
static void rethrow_caught_inside() {
  try {
    fail(7);
  } catch (error &outer) {
    try {
      throw;
    } catch (error &inner) {
      trace(&inner == &outer ? "same" : "other");
      try {
        throw;
      } catch (error &innermost) {
        trace(&innermost == &outer ? "same" : "other");
        innermost.code = 8;
      }
      trace("in");
    }
    trace("out%d", outer.code);
  }
  CHECK_TRACE("~fail same same in out8 !8");
}

// Rethrown by the inner handler after a second exception came and went.
static void rethrow_after_another() {
  try {
    try {
      fail(9);
    } catch (error &) {
      try {
        fail(10);
      } catch (error &second) {
        trace("h%d", second.code);
      }
      throw;
    }
  } catch (error &e) {
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail ~fail h10 !10 h9 !9");
  // and: both are rethrown, the second first, so that the first is handled while the second flies out over it
  try {
    try {
      fail(11);
    } catch (error &first) {
      try {
        try {
          fail(12);
        } catch (error &) {
          throw;
        }
      } catch (error &second) {
        trace("h%d,%d", first.code, second.code);
        throw;
      }
    }
  } catch (error &e) {
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail ~fail h11,12 !11 h12 !12");
}

// The same through recursion: at the bottom the exception is thrown, every level adds to it and passes it on.
static int handled_levels;
static void pass_on(int depth) {
  if (depth == 0) throw error(0);
  try {
    pass_on(depth - 1);
  } catch (error &e) {
    ++handled_levels;
    ++e.code;
    throw;
  }
}
// Every level handles the exception itself and then throws a new one from a function called in the handler.
static void throw_anew(int level) { throw error(level); }
static void replace(int depth) {
  if (depth == 0) throw error(0);
  try {
    replace(depth - 1);
  } catch (error &e) {
    ++handled_levels;
    throw_anew(e.code + 2);
  }
}
// A long way to the handler, with something to destroy in every frame.
static int destroyed_on_the_way;
struct counted {
  ~counted() { ++destroyed_on_the_way; }
};
static int far_away(int depth) {
  counted c;
  if (depth == 0) throw error(depth);
  return far_away(depth - 1) + 1;
}
static int (*volatile far_away_pointer)(int) = far_away;
static void deep() {
  try {
    far_away_pointer(20000);
  } catch (error &) {
  }
  CHECK_INT(destroyed_on_the_way, 20001);
  CHECK_TRACE("!0");
  handled_levels = 0;
  try {
    pass_on(2000);
  } catch (error &e) {
    CHECK_INT(e.code, 2000);
  }
  CHECK_INT(handled_levels, 2000);
  CHECK_TRACE("!2000");
  handled_levels = 0;
  try {
    replace(1000);
  } catch (error &e) {
    CHECK_INT(e.code, 2000);
  }
  CHECK_INT(handled_levels, 1000);
  test_trace[0] = 0;
}

// Inside one handler, rethrow again and again: references must be counted, not the object destroyed early.
static void rethrow_many_times() {
  int times = 0;
  try {
    fail(20);
  } catch (error &e) {
    for (int i = 0; i < 1000; ++i) {
      try {
        throw;
      } catch (error &again) {
        if (&again == &e) ++times;
      }
    }
    trace("h%d", e.code);
  }
  CHECK_INT(times, 1000);
  CHECK_TRACE("~fail h20 !20");
}

// A handler that calls the failed function again, at the same stack addresses, and again: a retry loop by recursion.
static int attempts;
static void flaky() {
  try {
    noisy n("try");
    if (++attempts < 4) fail(attempts);
    trace("ok");
  } catch (error &e) {
    flaky();
    trace("h%d", e.code);
  }
}
static void retry() {
  attempts = 0;
  flaky();
  CHECK_TRACE("~fail ~try ~fail ~try ~fail ~try ok ~try h3 !3 h2 !2 h1 !1");
}

// Exceptions that are thrown, and handled, by destructors during unwinding; the first flies on undisturbed.
struct busy_destructor {
  int code;
  explicit busy_destructor(int c) : code(c) {}
  ~busy_destructor() {
    try {
      fail(code);
    } catch (error &e) {
      trace("d%d", e.code);
      try {
        throw;
      } catch (...) {
        trace("again");
      }
    }
  }
};
static void destructors_that_handle() {
  try {
    busy_destructor a(31);
    busy_destructor b(32);
    throw error(30);
  } catch (error &e) {
    trace("h%d", e.code);
  }
  CHECK_TRACE("~fail d32 again !32 ~fail d31 again !31 h30 !30");
}
// Destructors in destructors in unwinding.
struct recursive_destructor {
  int depth;
  explicit recursive_destructor(int d) : depth(d) {}
  ~recursive_destructor() {
    if (depth == 0) return;
    try {
      recursive_destructor inner(depth - 1);
      throw depth;
    } catch (int n) {
      trace("%d", n);
    }
  }
};
static void destructors_nested_in_unwinding() {
  try {
    recursive_destructor r(6);
    throw 7;
  } catch (int n) {
    trace("%d", n);
  }
  CHECK_TRACE("1 2 3 4 5 6 7");
}

// An exception's own destructor throws and handles, while it is being destroyed at its handler's end.
struct exception_with_busy_destructor {
  int code;
  explicit exception_with_busy_destructor(int c) : code(c) {}
  exception_with_busy_destructor(const exception_with_busy_destructor &o) : code(o.code) {}
  ~exception_with_busy_destructor() {
    try {
      throw error(code);
    } catch (error &e) {
      trace("in%d", e.code);
    }
    trace("gone%d", code);
  }
};
static void exception_destructor_that_handles() {
  try {
    throw exception_with_busy_destructor(41);
  } catch (exception_with_busy_destructor &) {
    trace("h");
  }
  CHECK_TRACE("h in41 !41 gone41");
  try {
    try {
      throw exception_with_busy_destructor(42);
    } catch (exception_with_busy_destructor &) {
      throw error(43);  // 42 is destroyed while 43 is in flight
    }
  } catch (error &e) {
    trace("h%d", e.code);
  }
  CHECK_TRACE("in42 !42 gone42 h43 !43");
}

static void no_exception_to_rethrow() { throw; }
static void rethrow_after_the_handler() {
  try {
    throw 1;
  } catch (int) {
  }
  try {
    throw;
  } catch (...) {
    puts("caught what nobody threw");
  }
}
static void say_terminate() {
  puts("terminate handler");
  fflush(stdout);
  _exit(3);
}
static void rethrow_with_terminate_handler() {
  std::set_terminate(say_terminate);
  no_exception_to_rethrow();
}

int main() {
  leave_by_another();
  rethrow();
  rethrow_in_a_called_function();
  rethrow_caught_inside();
  rethrow_after_another();
  deep();
  rethrow_many_times();
  retry();
  destructors_that_handle();
  destructors_nested_in_unwinding();
  exception_destructor_that_handles();
  CHECK_ABORTS(no_exception_to_rethrow, "");
  CHECK_ABORTS(rethrow_after_the_handler, "");
  CHECK_ENDS(rethrow_with_terminate_handler, 3, "terminate handler");
  return TEST_RESULT();
}
