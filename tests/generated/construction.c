/* Throw expressions whose operand throws: the object that never came to be is given up without a destructor, the one
 * that interrupted it takes its place, and exceptions that are being handled meanwhile keep their turn.
 * test-variants: -O0 | -O2 */
#include "classes.h"

/* throw fault(id), with something done while the object is constructed. */
static NOINLINE void throw_constructed(int id, void (*during)(int), int argument) {
  void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  during(argument);
  fault_construct(object, id);
  __throw();
}

static NOINLINE void caught_at(void (*body)(int), int argument) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { body(argument); }
  EMIT_HANDLERS {
    __exception_caught();
    trace("caught-%d", caught_fault_id());
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

static NOINLINE void interrupted(int id) { throw_constructed(1, throw_fault, id); }
static NOINLINE void interrupted_twice(int id) { throw_constructed(3, interrupted, id); }

/* The operand has a try block of its own that does not match, so the contexts of the two throws differ. */
static NOINLINE void fails_through_try(int id) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_double) { throw_fault(id); }
  EMIT_HANDLERS { CHECK(0); }
}
static NOINLINE void interrupted_through_try(int id) { throw_constructed(1, fails_through_try, id); }

/* The operand handles one exception and is left by another from that handler. */
static NOINLINE void fails_in_handler(int id) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(5); }
  EMIT_HANDLERS {
    __exception_caught();
    throw_fault(id);
  }
}
static NOINLINE void interrupted_in_handler(int id) { throw_constructed(1, fails_in_handler, id); }

/* The operand throws again what a handler outside is handling. */
static NOINLINE void throw_again(int unused) {
  (void)unused;
  __rethrow();
}
static NOINLINE void interrupted_by_rethrow(int unused) { throw_constructed(1, throw_again, unused); }

/* The operand throws and catches: that changes nothing for the outer throw. */
static NOINLINE void completed(int id) { throw_constructed(id, interrupted, 6); }
static NOINLINE void catches_inside(int id) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(id); }
  EMIT_HANDLERS {
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}
static NOINLINE void catches_twice(int id) {
  catches_inside(id);
  caught_at(interrupted, id + 1);
}
static NOINLINE void not_interrupted(int id) { throw_constructed(1, catches_twice, id); }

/* The same from inside a handler that is left or goes on: its exception keeps its turn. */
static void (*inner_body)(int);
static NOINLINE void handled_meanwhile(int id) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(9); }
  EMIT_HANDLERS {
    __exception_caught();
    caught_at(inner_body, id);
    trace("end");
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}
static NOINLINE void handler_left(int id) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(9); }
  EMIT_HANDLERS {
    __exception_caught();
    inner_body(id);
  }
}

/* One try block that catches what interrupts, in a loop: nothing is left behind, whatever is interrupted. */
static void no_growth(void (*body)(int)) {
  volatile int i;
  for (i = 0; i < 1000; ++i) {
    caught_at(body, 2);
    test_trace[0] = 0;
  }
  CHECK_QUIET();
}

/* A try block at the address of one that saw an interrupted throw. */
static an_eh_stack_entry same_address;
static NOINLINE void at_same_address(void (*body)(int), int id) {
  EMIT_TRY(same_address, catch_double) { body(id); }
  EMIT_HANDLERS { CHECK(0); }
}
static NOINLINE void interrupted_at_same_address(int id) { at_same_address(interrupted, id); }
static NOINLINE void thrown_at_same_address(int id) { at_same_address(throw_fault, id); }
static NOINLINE void same_context_again(void) {
  an_eh_stack_entry first, second;
  EMIT_TRY(first, catch_fault) { interrupted_at_same_address(2); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(second, catch_fault) { interrupted_at_same_address(3); }
    EMIT_HANDLERS {
      __exception_caught();
      caught_at(thrown_at_same_address, 4);
      trace("second");
      CHECK_INT(((fault *)second.body.try_block.handled_exception->object)->alive, FAULT_ALIVE);
      __free_thrown_object();
    }
    EMIT_END_TRY(second);
    trace("first");
    CHECK_INT(((fault *)first.body.try_block.handled_exception->object)->alive, FAULT_ALIVE);
    __free_thrown_object();
  }
  EMIT_END_TRY(first);
}

static void terminated(void) {
  printf("terminated[%s]", test_trace);
  fflush(stdout);
  _exit(3);
}

/* With the marker pushed first, what escapes the construction terminates, and nothing is unwound. */
static NOINLINE void interrupted_after_start(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry outer, function;
  test_trace[0] = 0;
  _ZSt13set_terminatePFvvE(terminated);
  EMIT_TRY(outer, catch_all) {
    EMIT_FUNCTION(function, regions, addresses, 0);
    addresses[0] = &a;
    a.id = 1;
    __eh_curr_region = 0;
    __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
    __exception_started();
    throw_fault(2);
  }
  EMIT_HANDLERS { printf("caught"); }
}

/* What is caught inside the construction does no harm, marker or not. */
static NOINLINE void caught_after_start(int id) {
  void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  __exception_started();
  CHECK(_ZSt18uncaught_exceptionv());
  catches_inside(7);
  CHECK(_ZSt18uncaught_exceptionv());
  fault_construct(object, id);
  __throw();
}

/* No try block at all: both contexts are null. */
static NOINLINE void interrupted_without_try(void) {
  test_trace[0] = 0;
  _ZSt13set_terminatePFvvE(terminated);
  interrupted(2);
}

int main(void) {
  caught_at(interrupted, 2);
  CHECK_TRACE("caught-2 ~e2");
  CHECK_QUIET();
  caught_at(interrupted_twice, 2);
  CHECK_TRACE("caught-2 ~e2");
  CHECK_QUIET();
  caught_at(interrupted_through_try, 2);
  CHECK_TRACE("caught-2 ~e2");
  CHECK_QUIET();
  caught_at(interrupted_in_handler, 2);
  CHECK_TRACE("~e5 caught-2 ~e2");
  CHECK_QUIET();
  caught_at(not_interrupted, 2);
  CHECK_TRACE("~e2 caught-3 ~e3 caught-1 ~e1");
  CHECK_QUIET();
  caught_at(completed, 4);
  CHECK_TRACE("caught-6 ~e6");
  CHECK_QUIET();

  inner_body = interrupted;
  handled_meanwhile(2);
  CHECK_TRACE("caught-2 ~e2 end ~e9");
  caught_at(handler_left, 2);
  CHECK_TRACE("~e9 caught-2 ~e2");
  inner_body = interrupted_through_try;
  handled_meanwhile(2);
  CHECK_TRACE("caught-2 ~e2 end ~e9");
  caught_at(handler_left, 2);
  CHECK_TRACE("~e9 caught-2 ~e2");
  inner_body = interrupted_in_handler;
  handled_meanwhile(2);
  CHECK_TRACE("~e5 caught-2 ~e2 end ~e9");
  CHECK_QUIET();
  inner_body = interrupted_by_rethrow;
  handled_meanwhile(0);
  CHECK_TRACE("caught-9 end ~e9");
  caught_at(handler_left, 0);
  CHECK_TRACE("caught-9 ~e9");
  CHECK_QUIET();

  no_growth(interrupted);
  no_growth(interrupted_twice);
  no_growth(interrupted_through_try);
  no_growth(interrupted_in_handler);

  same_context_again();
  CHECK_TRACE("caught-4 ~e4 second ~e3 first ~e2");
  CHECK_QUIET();
  caught_at(caught_after_start, 1);
  CHECK_TRACE("~e7 caught-1 ~e1");
  CHECK_QUIET();

  CHECK_ENDS(interrupted_after_start, 3, "terminated[]");
  CHECK_ENDS(interrupted_without_try, 3, "terminated[]");
  return TEST_RESULT();
}
