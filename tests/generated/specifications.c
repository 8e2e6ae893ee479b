/* Exception specifications: what passes, what is violated, and an unexpected handler that returns, throws, throws
 * again or handles something itself. test-variants: -O0 | -O2 */
#include "classes.h"

static const an_exception_type_specification allow_int[] = {{&__TI_i, PLX_TYPE_LAST}};
static const an_exception_type_specification allow_pointer[] = {
    {&__TI_d, 0}, {&__TI_c, PLX_TYPE_POINTER | PLX_TYPE_CONST | PLX_TYPE_LAST}};
static const a_base_class_spec derived_bases[] = {{&type_fault, 8, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
EMIT_CLASS(derived, "derived", derived_bases);

static NOINLINE void throw_derived(void) {
  fault_construct((char *)__throw_setup(&derived, 32, 0) + 8, 20);
  __throw();
}
static NOINLINE void throw_text(void) {
  *(const char **)__throw_setup(&__TI_c, sizeof(char *), PLX_TYPE_POINTER | PLX_TYPE_CONST) = "text";
  __throw();
}
static NOINLINE void throw_fault_1(void) { throw_fault(1); }
static NOINLINE void throw_fault_2(void) { throw_fault(2); }
static NOINLINE void throw_int_1(void) { throw_int(1); }
static NOINLINE void nothing(void) {}

/* A function with a specification, a local and a call; the specification stands outside the local. */
static NOINLINE void specified(const an_exception_type_specification *allowed, void (*body)(void), int id) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry specification, function;
  EMIT_SPECIFICATION(specification, allowed);
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = &a;
  local_construct(&a, id);
  __eh_curr_region = 0;
  body();
  local_destroy(&a, 2);
  EMIT_LEAVE_FUNCTION(function);
  EMIT_LEAVE_SPECIFICATION(specification);
}

/* Traces what arrives, as int or fault or other. */
static an_eh_stack_entry *caught_entry;
static NOINLINE void caught(const an_exception_type_specification *allowed, void (*body)(void)) {
  static const an_exception_type_specification clauses[] = {
      {&__TI_i, 0}, {&type_fault, 0}, {0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
  an_eh_stack_entry entry;
  caught_entry = &entry;
  EMIT_TRY(entry, clauses) { specified(allowed, body, 1); }
  EMIT_HANDLERS {
    const int clause = __catch_clause_number;
    const int *object = (const int *)__caught_object_address;
    __exception_caught();
    if (clause == 1) trace("int-%d", object[0]);
    if (clause == 2) trace("fault-%d", object[1]);
    if (clause == 3) trace("other");
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  caught_entry = 0;
}

static void not_expected(void) { trace("unexpected!"); }

static void allowed_exceptions(void) {
  const a_handler before = _ZSt14set_unexpectedPFvvE(not_expected);
  CHECK(before == (a_handler)_ZSt9terminatev);
  caught(allow_int, nothing);
  CHECK_TRACE("+1 ~1");
  caught(0, nothing);
  CHECK_TRACE("+1 ~1");
  caught(allow_int, throw_int_1);
  CHECK_TRACE("+1 ~1 int-1");
  caught(catch_fault, throw_derived);
  CHECK_TRACE("+1 ~1 fault-20");
  caught(allow_pointer, throw_text);
  CHECK_TRACE("+1 ~1 other");
  caught(catch_all, throw_fault_1);
  CHECK_TRACE("+1 ~1 fault-1 ~e1");
  CHECK(_ZSt14set_unexpectedPFvvE(before) == not_expected);
  CHECK_QUIET();
}

/* A matching specification does not move the object to its base. */
static void object_is_not_adjusted(void) {
  static const an_exception_type_specification clauses[] = {{&derived, PLX_TYPE_LAST}};
  an_eh_stack_entry entry, specification;
  void *volatile object;
  EMIT_TRY(entry, clauses) {
    EMIT_SPECIFICATION(specification, catch_fault);
    object = __throw_setup(&derived, 32, 0);
    __throw();
  }
  EMIT_HANDLERS {
    CHECK(__caught_object_address == object);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* The unexpected handler sees a stack without the specification and what was inside it. */
static void throws_int(void) {
  trace("unexpected");
  CHECK(__curr_eh_stack_entry == caught_entry);
  CHECK(!_ZSt18uncaught_exceptionv());
  throw_int(7);
}
static void throws_fault(void) {
  trace("unexpected");
  throw_fault(8);
}
static void throws_again(void) {
  trace("unexpected");
  __rethrow();
}

/* An exception of its own, handled inside; the violating one is still the one that is handled. */
static void handles_then_throws_again(void) {
  an_eh_stack_entry entry;
  trace("unexpected");
  EMIT_TRY(entry, catch_fault) { throw_fault(5); }
  EMIT_HANDLERS {
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  __rethrow();
}
static void handles_then_throws(void) {
  an_eh_stack_entry entry;
  trace("unexpected");
  EMIT_TRY(entry, catch_fault) { throw_fault(5); }
  EMIT_HANDLERS {
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  throw_fault(6);
}
/* The violating exception, thrown again and handled inside. */
static void handles_the_violating(void) {
  an_eh_stack_entry entry;
  trace("unexpected");
  EMIT_TRY(entry, catch_fault) { __rethrow(); }
  EMIT_HANDLERS {
    trace("inside-%d", caught_fault_id());
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  throw_int(3);
}
/* First something that the next specification allows neither, then something that it does. */
static int times;
static void double_then_int(void) {
  trace("unexpected");
  if (++times == 1) throw_fault(4);
  throw_int(9);
}

static NOINLINE void inner_specification(void) { specified(0, throw_fault_1, 2); }
static NOINLINE void innermost_specification(void) { specified(catch_double, inner_specification, 3); }

static void violated(void) {
  _ZSt14set_unexpectedPFvvE(throws_int);
  caught(0, throw_fault_1);
  CHECK_TRACE("+1 ~1 unexpected ~e1 int-7");
  caught(catch_double, throw_fault_1);
  CHECK_TRACE("+1 ~1 unexpected ~e1 int-7");
  caught(allow_int, throw_text);
  CHECK_TRACE("+1 ~1 unexpected int-7");
  caught(allow_pointer, throw_derived);
  CHECK_TRACE("+1 ~1 unexpected int-7");
  CHECK_QUIET();

  _ZSt14set_unexpectedPFvvE(throws_fault);
  caught(0, throw_fault_1);
  CHECK_TRACE("+1 ~1 unexpected ~e1 fault-8 ~e8");
  caught(catch_fault, inner_specification);
  CHECK_TRACE("+1 +2 ~2 unexpected ~e1 ~1 fault-8 ~e8");
  CHECK_QUIET();

  _ZSt14set_unexpectedPFvvE(throws_again);
  caught(0, throw_fault_1);
  CHECK_TRACE("+1 ~1 unexpected fault-1 ~e1");
  CHECK_QUIET();
  caught(catch_double, inner_specification);
  CHECK_TRACE("+1 +2 ~2 unexpected ~1 unexpected fault-1 ~e1");
  CHECK_QUIET();

  _ZSt14set_unexpectedPFvvE(handles_then_throws_again);
  caught(0, throw_fault_1);
  CHECK_TRACE("+1 ~1 unexpected ~e5 fault-1 ~e1");
  _ZSt14set_unexpectedPFvvE(handles_then_throws);
  caught(0, throw_fault_1);
  CHECK_TRACE("+1 ~1 unexpected ~e5 ~e1 fault-6 ~e6");
  _ZSt14set_unexpectedPFvvE(handles_the_violating);
  caught(0, throw_fault_1);
  CHECK_TRACE("+1 ~1 unexpected inside-1 ~e1 int-3");
  CHECK_QUIET();

  times = 0;
  _ZSt14set_unexpectedPFvvE(double_then_int);
  caught(allow_int, inner_specification);
  CHECK_INT(times, 2);
  CHECK_QUIET();
  test_trace[0] = 0;
}

/* A specification inside a handler: the exception of that handler is not touched. */
static void inside_a_handler(void) {
  an_eh_stack_entry outer, inner;
  _ZSt14set_unexpectedPFvvE(throws_fault);
  EMIT_TRY(outer, catch_fault) { throw_fault_2(); }
  EMIT_HANDLERS {
    a_throw_stack_entry *volatile handled = outer.body.try_block.handled_exception;
    __exception_caught();
    EMIT_TRY(inner, catch_fault) { specified(0, throw_fault_1, 1); }
    EMIT_HANDLERS {
      CHECK_INT(caught_fault_id(), 8);
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(inner);
    CHECK_INT(handled->destroyed, 0);
    CHECK_INT(handled->reference_count, 1);
    trace("end");
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
  CHECK_TRACE("+1 ~1 unexpected ~e1 ~e8 end ~e2");
  CHECK_QUIET();
}

/* The violating exception is one that a handler throws again: the handler still owns it. */
static NOINLINE void throw_again(void) { __rethrow(); }
static void violated_by_rethrow(void) {
  an_eh_stack_entry outer, inner;
  _ZSt14set_unexpectedPFvvE(throws_int);
  EMIT_TRY(outer, catch_fault) { throw_fault_2(); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(inner, catch_all) {
      caught_entry = &inner;
      specified(0, throw_again, 1);
    }
    EMIT_HANDLERS {
      CHECK_INT(__catch_clause_number, 1);
      CHECK_INT(*(int *)__caught_object_address, 7);
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(inner);
    trace("end");
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
  CHECK_TRACE("+1 ~1 unexpected end ~e2");
  CHECK_QUIET();
}

/* Many violations leave nothing behind. */
static void no_growth(void) {
  volatile int i;
  _ZSt14set_unexpectedPFvvE(throws_fault);
  for (i = 0; i < 2000; ++i) {
    caught(0, throw_fault_1);
    test_trace[0] = 0;
  }
  CHECK_QUIET();
}

static void terminated(void) {
  printf("terminated uncaught=%d", _ZSt18uncaught_exceptionv());
  fflush(stdout);
  _exit(3);
}
static void says_unexpected(void) {
  printf("unexpected ");
  fflush(stdout);
}

/* A handler that returns: std::terminate, not as a termination that an exception began. */
static void handler_returns(void) {
  _ZSt13set_terminatePFvvE(terminated);
  _ZSt14set_unexpectedPFvvE(says_unexpected);
  caught(0, throw_int_1);
}
static void default_handler(void) {
  _ZSt13set_terminatePFvvE(terminated);
  _ZSt14set_unexpectedPFvvE((a_handler)_ZSt9terminatev);
  caught(0, throw_int_1);
}
static void null_handler(void) {
  _ZSt13set_terminatePFvvE(terminated);
  _ZSt14set_unexpectedPFvvE(0);
  caught(0, throw_int_1);
}
static void called_directly(void) {
  _ZSt13set_terminatePFvvE(terminated);
  _ZSt14set_unexpectedPFvvE(says_unexpected);
  __call_unexpected();
}
/* Nobody outside takes what the handler throws. */
static void handler_throws_uncaught(void) {
  _ZSt13set_terminatePFvvE(terminated);
  _ZSt14set_unexpectedPFvvE(throws_fault);
  specified(0, throw_int_1, 1);
}

int main(void) {
  allowed_exceptions();
  object_is_not_adjusted();
  violated();
  inside_a_handler();
  violated_by_rethrow();
  no_growth();
  caught_entry = 0;
  times = 0;
  _ZSt14set_unexpectedPFvvE(double_then_int);
  caught(allow_int, innermost_specification);
  CHECK_TRACE("+1 +3 +2 ~2 unexpected ~e1 ~3 unexpected ~e4 ~1 int-9");
  CHECK_ENDS(handler_returns, 3, "unexpected terminated uncaught=0");
  CHECK_ENDS(default_handler, 3, "terminated uncaught=0");
  CHECK_ENDS(null_handler, 3, "terminated uncaught=0");
  CHECK_ENDS(called_directly, 3, "unexpected terminated uncaught=0");
  CHECK_ENDS(handler_throws_uncaught, 3, "terminated uncaught=1");
  return TEST_RESULT();
}
