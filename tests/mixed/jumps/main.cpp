// longjmp between the worlds, over frames of both that have nothing to destroy: afterwards no dead try block of
// either may catch anything.
// test-variants: -O0 | -O2 | -O2 -fomit-frame-pointer
#include "jumps.h"

#include "../../harness.h"

#pragma clang diagnostic ignored "-Winfinite-recursion"  // it ends in a jump

struct noisy {
  const char *name;
  explicit noisy(const char *n) : name(n) {}
  ~noisy() { trace("~%s", name); }
};

static void throw_and_catch() {
  try {
    noisy n("n");
    c_throws_int(5);
  } catch (int n) {
    trace("caught%d", n);
  }
}

static void cpp_frame_with_try(int depth) {
  try {
    if (depth == 0) c_jumps(2);
    cpp_frame_with_try(depth - 1);
  } catch (int) {
    trace("wrong");
  }
}

static void from_c_over_cpp() {
  try {
    noisy kept("kept");
    int code = setjmp(place);
    if (code == 0) cpp_frame_with_try(3);
    CHECK_INT(code, 3);
    throw 'c';
  } catch (char) {
    trace("char");
  }
  throw_and_catch();
  CHECK_TRACE("~kept char ~n caught5");
}

static void jump_from_cpp_try() {
  try {
    longjmp(place, 8);
  } catch (...) {
    trace("wrong");
  }
}
static void throw_then_jump() {
  throw_and_catch();
  jump_from_cpp_try();
}
static void jump_by_c() { c_jumps(3); }

static void into_c() {
  CHECK_INT(c_sets(jump_from_cpp_try), 8);
  CHECK_INT(c_sets(throw_then_jump), 8);
  CHECK_TRACE("~n caught5");
  CHECK_INT(c_sets(jump_by_c), 3);
  CHECK_INT(c_sets_then_throws(jump_from_cpp_try), 41);
  CHECK_INT(c_sets_then_throws(jump_by_c), 41);
  CHECK_INT(c_sets_then_throws(throw_then_jump), 41);
  CHECK_TRACE("~n caught5");
  throw_and_catch();
  CHECK_TRACE("~n caught5");
}

// Inside a handler of one world, over frames of the other; the exception handled stays.
static void inside_handlers() {
  try {
    throw 30;
  } catch (int &n) {
    CHECK_INT(c_sets(jump_from_cpp_try), 8);
    CHECK_INT(c_sets_then_throws(jump_by_c), 41);
    try {
      throw;
    } catch (int again) {
      CHECK_INT(again, 30);
    }
    CHECK_INT(n, 30);
  }
  throw_and_catch();
  CHECK_TRACE("~n caught5");
}

int main() {
  from_c_over_cpp();
  into_c();
  inside_handlers();
  return TEST_RESULT();
}
