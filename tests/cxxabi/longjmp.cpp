// longjmp over C++ frames without destructors (1998, 18.7), out of try blocks and handlers, from callees and from
// called C code: exceptions must work afterwards as if the skipped frames had never been.
// test-variants: -O0 | -O2 -fomit-frame-pointer
#include <csetjmp>
#include <cstdlib>
#include <setjmp.h>

#include "../harness.h"

static jmp_buf place;

struct noisy {
  const char *name;
  explicit noisy(const char *n) : name(n) {}
  ~noisy() { trace("~%s", name); }
};

static void throw_and_catch(int n) {
  try {
    noisy local("local");
    throw n;
  } catch (int got) {
    trace("caught%d", got);
  }
}

// Frames with try blocks, but nothing to destroy.
static void jump_from_try(int depth) {
  try {
    if (depth == 0) std::longjmp(place, 3);
    jump_from_try(depth - 1);
  } catch (int n) {
    trace("wrong%d", n);
  }
}

static void out_of_try_blocks() {
  volatile int round = 0;
  int code = setjmp(place);
  if (code) trace("jumped%d", code);
  if (round < 3) {
    round = round + 1;
    jump_from_try(round);
  }
  throw_and_catch(5);
  CHECK_TRACE("jumped3 jumped3 jumped3 ~local caught5");
}

// A handler outside the setjmp must still be found, and one inside the frames left must not.
static void inner_part() {
  try {
    if (setjmp(place) == 0) jump_from_try(2);
    trace("back");
    throw 8;
  } catch (const char *) {
    trace("wrong");
  }
}
static void handlers_outside_are_kept() {
  try {
    noisy n("outer");
    inner_part();
  } catch (int n) {
    trace("caught%d", n);
  }
  CHECK_TRACE("back ~outer caught8");
}

// Within one function: the try blocks that surround the longjmp but not the setjmp are left.
static void inside_one_function() {
  volatile int count = 0;
  try {
    setjmp(place);
    count = count + 1;
    try {
      if (count < 4) longjmp(place, 1);
      throw 'c';
    } catch (int) {
      trace("wrong");
    }
  } catch (char c) {
    trace("%c%d", c, (int)count);
  }
  CHECK_TRACE("c4");
}

// The setjmp inside a try block: after the jump the block is as it was.
static void into_a_try_block(int jumps) {
  volatile int left = jumps;
  try {
    noisy n("kept");
    if (setjmp(place)) trace("jumped");
    if (left > 0) {
      left = left - 1;
      jump_from_try(1);
    }
    throw 9;
  } catch (int n) {
    trace("caught%d", n);
  }
}
static void setjmp_in_try() {
  into_a_try_block(2);
  CHECK_TRACE("jumped jumped ~kept caught9");
}

// Local functions with a destructor that has run before the jump are no obstacle.
static void cleaned_then_jump() {
  {
    noisy n("done");
    throw_and_catch(1);
  }
  std::longjmp(place, 1);
}
static void after_destructors() {
  if (setjmp(place) == 0) cleaned_then_jump();
  throw_and_catch(2);
  CHECK_TRACE("~local caught1 ~done ~local caught2");
}

// From C code that C++ called, back over C++ frames: the comparison function of qsort.
static int compare_and_jump(const void *, const void *) { longjmp(place, 7); }
static void sort_in_try() {
  int numbers[3] = {3, 1, 2};
  try {
    qsort(numbers, 3, sizeof numbers[0], compare_and_jump);
  } catch (...) {
    trace("wrong");
  }
}
static void through_c() {
  int code = setjmp(place);
  if (code == 0) sort_in_try();
  CHECK_INT(code == 0 ? 7 : code, 7);
  throw_and_catch(3);
  CHECK_TRACE("~local caught3");
}

// Jumping inside a handler, within it, leaves the exception handled.
static void inside_a_handler() {
  try {
    throw 20;
  } catch (int &n) {
    volatile int rounds = 0;
    setjmp(place);
    rounds = rounds + 1;
    if (rounds < 3) jump_from_try(1);
    try {
      throw;
    } catch (int again) {
      trace("again%d", again);
    }
    trace("in%d", n);
  }
  throw_and_catch(21);
  CHECK_TRACE("again20 in20 ~local caught21");
}

// longjmp with 0 is 1; every spelling of setjmp.
static void values() {
  volatile int seen = 0;
  if (setjmp(place) == 0) longjmp(place, 0);
  else seen = 1;
  CHECK_INT(seen, 1);
  sigjmp_buf other;
  int code = sigsetjmp(other, 1);
  if (code == 0) siglongjmp(other, 4);
  CHECK_INT(code, 4);
  code = _setjmp(place);
  if (code == 0) _longjmp(place, 5);
  CHECK_INT(code, 5);
  throw_and_catch(6);
  CHECK_TRACE("~local caught6");
}

int main() {
  out_of_try_blocks();
  handlers_outside_are_kept();
  inside_one_function();
  setjmp_in_try();
  after_destructors();
  through_c();
  inside_a_handler();
  values();
  return TEST_RESULT();
}
