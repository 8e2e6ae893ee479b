// longjmp over C++ frames without destructors (1998, 18.7) where random/scenes do not jump: by every spelling, inside
// of a handler and out of handlers, whose exceptions end with plx.
// test-variants: -O0 | -O2 -fomit-frame-pointer
#include <csetjmp>
#include <cstdlib>
#include <exception>
#include <setjmp.h>

#include "../harness.h"

static jmp_buf place;
static sigjmp_buf other;
struct noisy {
  int n;
  explicit noisy(int k) : n(k) {}
  noisy(const noisy &o) : n(o.n) {}
  ~noisy() { trace("~%d", n); }
};
static void throw_and_catch(int n) {
  try {
    noisy local(1);
    throw n;
  } catch (int got) {
    trace("caught%d", got);
  }
}
static void jump_from_try(int depth, int how) {
  try {
    if (depth > 0) jump_from_try(depth - 1, how);
    if (how == 0) std::longjmp(place, 3);
    if (how == 1) _longjmp(place, 4);
    if (how == 2) siglongjmp(other, 5);
    std::longjmp(place, 0);
  } catch (int) {
    trace("wrong");
  }
}
static int set_and_jump(int how) {
  int code;
  if (how == 2) code = sigsetjmp(other, 1);
  else if (how == 1) code = _setjmp(place);
  else code = setjmp(place);
  if (code == 0) jump_from_try(how, how);
  return code;
}
static void out_of_handlers() {
  try { throw noisy(2); } catch (noisy &) {
    try { throw noisy(3); } catch (noisy &) {
      try { throw; } catch (noisy &) { jump_from_try(1, 0); }
    }
  }
}

int main() {
  static const int wants[] = {3, 4, 5, 1};
  for (int how = 0; how < 4; ++how) {
    CHECK_INT(set_and_jump(how), wants[how]);
    throw_and_catch(how);
    CHECK(strncmp(test_trace, "~1 caught", 9) == 0), test_trace[0] = 0;
  }
  try {
    noisy outer(4);
    throw noisy(5);
  } catch (noisy &kept) {
    volatile int rounds = 0;
    setjmp(place);
    rounds = rounds + 1;
    if (rounds < 3) jump_from_try(1, 0);
    if (rounds < 6) out_of_handlers();
    try { throw; } catch (noisy &again) { CHECK(&again == &kept); }
    trace("in%d", kept.n);
  }
  throw_and_catch(6);
#ifdef PLX_CONFIG_H
  CHECK_TRACE("~4 ~3 ~2 ~3 ~2 ~3 ~2 in5 ~5 ~1 caught6");
#endif
  CHECK(!std::uncaught_exception());
  return TEST_RESULT();
}
