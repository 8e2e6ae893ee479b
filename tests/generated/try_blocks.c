/* Try blocks: a body that does not throw, the clause that is chosen, where the object is found, several try blocks
 * around a throw, and what uncaught_exception says at each step. test-variants: -O0 | -O2 */
#include "classes.h"

/* Nothing but data in reach of a debugger says so: the first region is 0 until a function says otherwise. */
static void starting_state(void) {
  CHECK(__curr_eh_stack_entry == 0);
  CHECK_INT(__eh_curr_region, 0);
  CHECK(__f_debug == stderr);
  CHECK(__default_terminate_routine == (a_routine)abort);
  CHECK(__default_unexpected_routine == (a_routine)_ZSt9terminatev);
  CHECK_INT(__ZOR_PLX_3_3_eh, 0);
  CHECK(__PLX_Library_Version_String != 0 && strlen(__PLX_Library_Version_String) > 0);
  CHECK(!_ZSt18uncaught_exceptionv());
}

static void body_without_throw(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_all) { trace("body"); }
  EMIT_HANDLERS { trace("handler"); }
  EMIT_END_TRY(entry);
  CHECK_TRACE("body");
  CHECK_QUIET();
}

static void clause_and_object(void) {
  static const an_exception_type_specification clauses[] = {
      {&__TI_d, 0}, {&type_fault, 0}, {&__TI_i, 0}, {0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
  static const struct { int thrown, clause; } cases[] = {{0, 1}, {1, 2}, {2, 3}, {3, 4}};
  volatile unsigned i;
  for (i = 0; i < sizeof cases / sizeof *cases; ++i) {
    an_eh_stack_entry entry;
    EMIT_TRY(entry, clauses) {
      if (cases[i].thrown == 0) throw_double(2.5);
      if (cases[i].thrown == 1) throw_fault(7);
      if (cases[i].thrown == 2) throw_int(42);
      __throw_setup(&__TI_c, 1, 0);
      __throw();
    }
    EMIT_HANDLERS {
      CHECK(_ZSt18uncaught_exceptionv());
      CHECK(((unsigned long)__caught_object_address & 7) == 0);
      CHECK_INT(__catch_clause_number, cases[i].clause);
      if (__catch_clause_number == 1) CHECK(*(double *)__caught_object_address == 2.5);
      if (__catch_clause_number == 2) CHECK_INT(caught_fault_id(), 7);
      if (__catch_clause_number == 3) CHECK_INT(*(int *)__caught_object_address, 42);
      CHECK(__curr_eh_stack_entry != &entry && __curr_eh_stack_entry->kind == PLX_EH_IN_PROGRESS);
      CHECK(__curr_eh_stack_entry->next == &entry);
      __exception_caught();
      CHECK(__curr_eh_stack_entry == &entry);
      CHECK(!_ZSt18uncaught_exceptionv());
      CHECK(entry.body.try_block.handled_exception != 0);
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
  }
  CHECK_TRACE("~e7");
  CHECK_QUIET();
}

/* The record of an exception in its handler. */
static void throw_stack_record(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    a_throw_stack_entry *thrown = entry.body.try_block.handled_exception;
    __exception_caught();
    CHECK(thrown->next == 0 && thrown->type == &type_fault && thrown->destructor == fault_destroy);
    CHECK_INT(thrown->flags, 0);
    CHECK(thrown->qualifier_string == 0 && thrown->object == __caught_object_address);
    CHECK(thrown->catch_context == &entry && thrown->source == 0);
    CHECK_INT(thrown->reference_count, 1);
    CHECK_INT(thrown->is_rethrow, 0);
    CHECK_INT(thrown->released, 0);
    CHECK_INT(thrown->destroyed, 0);
    CHECK_INT(thrown->handled, 1);
    CHECK_INT(thrown->started, 1);
    CHECK_INT(thrown->thrown, 1);
    CHECK_INT(thrown->access_value, 0);
    CHECK_INT(thrown->marker.kind, PLX_EH_IN_PROGRESS);
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK_TRACE("~e1");
  CHECK_QUIET();
}

/* The first try block outwards that has a match wins; what lies between is left behind. */
static NOINLINE void three_deep(void) {
  an_eh_stack_entry outer, middle, inner;
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(middle, catch_int) {
      EMIT_TRY(inner, catch_double) { throw_int(3); }
      EMIT_HANDLERS {
        trace("inner");
        __exception_caught();
        __free_thrown_object();
      }
      EMIT_END_TRY(inner);
      trace("after-inner");
    }
    EMIT_HANDLERS {
      trace("middle");
      CHECK(__curr_eh_stack_entry->next == &middle);
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(middle);
    trace("after-middle");
  }
  EMIT_HANDLERS {
    trace("outer");
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

/* A try block without a clause list takes everything, as clause 1, and an outer one does not displace it. */
static void null_clause_list(void) {
  an_eh_stack_entry outer, inner;
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(inner, 0) { throw_int(8); }
    EMIT_HANDLERS {
      CHECK_INT(__catch_clause_number, 1);
      CHECK_INT(*(int *)__caught_object_address, 8);
      __exception_caught();
      CHECK(__curr_eh_stack_entry == &inner);
      trace("inner");
      __free_thrown_object();
    }
    EMIT_END_TRY(inner);
  }
  EMIT_HANDLERS { trace("outer"); }
  EMIT_END_TRY(outer);
  CHECK_TRACE("inner");
  CHECK_QUIET();
}

/* The marker may be pushed before the object is constructed. */
static void started_early(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) {
    void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
    CHECK(!_ZSt18uncaught_exceptionv());
    __exception_started();
    CHECK(_ZSt18uncaught_exceptionv());
    CHECK_INT(__curr_eh_stack_entry->kind, PLX_EH_IN_PROGRESS);
    fault_construct(object, 4);
    __throw();
  }
  EMIT_HANDLERS {
    CHECK_INT(caught_fault_id(), 4);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK_TRACE("~e4");
  CHECK_QUIET();
}

/* One try block in a loop: nothing of one exception is left for the next. */
static void many_times(void) {
  volatile int sum = 0, i;
  for (i = 0; i < 10000; ++i) {
    an_eh_stack_entry entry;
    EMIT_TRY(entry, catch_int) { throw_int(i & 7); }
    EMIT_HANDLERS {
      int value = *(int *)__caught_object_address;
      __exception_caught();
      sum += value;
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
  }
  CHECK_INT(sum, 35000);
  CHECK_QUIET();
}

int main(void) {
  starting_state();
  body_without_throw();
  clause_and_object();
  throw_stack_record();
  three_deep();
  CHECK_TRACE("middle after-middle");
  null_clause_list();
  started_early();
  many_times();
  return TEST_RESULT();
}
