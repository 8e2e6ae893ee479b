/* longjmp over frames that stand on the eh stack and own nothing: the stack is again what it was at setjmp, and so is
 * the region. test-variants: -O0 | -O2 */
#include "classes.h"

static jmp_buf back;

static NOINLINE void leave(int value) { longjmp(back, value); }

/* A try block, a specification and a function without live objects between setjmp and longjmp. */
static NOINLINE void three_entries(int value) {
  an_eh_stack_entry entry, specification, function;
  EMIT_TRY(entry, catch_all) {
    EMIT_SPECIFICATION(specification, 0);
    EMIT_FUNCTION(function, 0, 0, 0);
    leave(value);
  }
  EMIT_HANDLERS { CHECK(0); }
}

static void over_entries(void) {
  volatile int round = 0;
  const int value = setjmp(back);
  CHECK(__curr_eh_stack_entry == 0);
  CHECK_INT(__eh_curr_region, 0);
  CHECK_INT(value, round);
  if (round < 3) {
    ++round;
    three_entries(round);
    CHECK(0);
  }
  if (setjmp(back) == 0) three_entries(0);
  CHECK_QUIET();
}

/* Back into a function with an object and a try block of its own: they stay, and an exception finds them. */
static NOINLINE void into_a_function(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 1, 0, 0}};
  local a, b;
  void *addresses[2];
  an_eh_stack_entry function, entry;
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = &a;
  addresses[1] = &b;
  local_construct(&a, 1);
  __eh_curr_region = 0;
  EMIT_TRY(entry, catch_fault) {
    local_construct(&b, 2);
    __eh_curr_region = 1;
    if (setjmp(back) == 0) three_entries(1);
    CHECK(__curr_eh_stack_entry == &entry);
    CHECK_INT(__eh_curr_region, 1);
    throw_fault(3);
  }
  EMIT_HANDLERS {
    __exception_caught();
    CHECK_INT(__eh_curr_region, 0);
    trace("caught");
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  local_destroy(&a, 2);
  EMIT_LEAVE_FUNCTION(function);
  CHECK_TRACE("+1 +2 ~2 caught ~e3 ~1");
  CHECK_QUIET();
}

/* Inside a handler: the exception is still the one that is handled. */
static NOINLINE void inside_a_handler(void) {
  an_eh_stack_entry outer, entry;
  EMIT_TRY(outer, catch_fault) {
    EMIT_TRY(entry, catch_fault) { throw_fault(1); }
    EMIT_HANDLERS {
      __exception_caught();
      if (setjmp(back) == 0) three_entries(1);
      CHECK(__curr_eh_stack_entry == &entry);
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    __exception_caught();
    CHECK_INT(caught_fault_id(), 1);
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
  CHECK_TRACE("~e1");
  CHECK_QUIET();
}

/* Out of a try block by jump, again and again. */
static void in_a_loop(void) {
  volatile int i;
  for (i = 0; i < 1000; ++i)
    if (setjmp(back) == 0) three_entries(1);
  CHECK_QUIET();
}

/* Out of handlers and of a throw expression: their exceptions end, those of the handlers outside go on. */
static NOINLINE void two_handlers(void) {
  an_eh_stack_entry outer, inner;
  EMIT_TRY(outer, catch_fault) {
    EMIT_TRY(inner, catch_fault) { throw_fault(2); }
    EMIT_HANDLERS {
      __exception_caught();
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(inner, catch_fault) { throw_fault(3); }
    EMIT_HANDLERS {
      __exception_caught();
      __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
      leave(1);
    }
  }
}
static NOINLINE void out_of_handlers(void) {
  an_eh_stack_entry entry;
  volatile int i;
  for (i = 0; i < 2; ++i) {
    EMIT_TRY(entry, catch_fault) { throw_fault(1); }
    EMIT_HANDLERS {
      __exception_caught();
      if (setjmp(back) == 0) two_handlers();
      trace("back");
      CHECK(!_ZSt18uncaught_exceptionv());
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
    CHECK_TRACE("~e3 ~e2 back ~e1");
  }
  CHECK_QUIET();
}

int main(void) {
  over_entries();
  into_a_function();
  inside_a_handler();
  in_a_loop();
  out_of_handlers();
  return TEST_RESULT();
}
