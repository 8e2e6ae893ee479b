/* What the runtime says, with which line number, when a stack is broken: each check that generated code can reach,
 * from a process that does the harm on purpose. */
#include "classes.h"

/* Static, so that the harm outlives the functions that do it. */
static an_eh_stack_entry entry, other;

static void push(an_eh_stack_entry *pushed, int kind) {
  memset(pushed, 0, sizeof *pushed);
  pushed->next = __curr_eh_stack_entry;
  pushed->kind = (unsigned char)kind;
  __curr_eh_stack_entry = pushed;
}

static void caught_on_empty_stack(void) { __exception_caught(); }
static void caught_without_marker(void) {
  push(&entry, PLX_EH_TRY_BLOCK);
  __exception_caught();
}
static void throw_without_marker(void) {
  *(int *)__throw_setup(&__TI_i, sizeof(int), 0) = 1;
  __exception_started();
  push(&entry, PLX_EH_TRY_BLOCK);
  __throw();
}
static void unknown_kind(void) {
  push(&entry, 9);
  throw_int(1);
}
/* A destructor spoils an entry that the search has passed. */
static void spoil(void *object, int flags) {
  (void)flags;
  ((an_eh_stack_entry *)object)->kind = 9;
}
static void unknown_kind_while_unwinding(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(spoil), 0, PLX_NO_REGION, 0}};
  static void *addresses[1];
  an_eh_stack_entry function;
  push(&entry, PLX_EH_SPECIFICATION);
  entry.body.specification.allowed_list = catch_all;
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = &entry;
  __eh_curr_region = 0;
  throw_int(1);
}
/* A destructor leaves an entry behind. */
static void leave_entry(void *object, int flags) {
  (void)flags;
  push((an_eh_stack_entry *)object, PLX_EH_FUNCTION);
}
static void head_changed_while_unwinding(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(leave_entry), 0, PLX_NO_REGION, 0}};
  static void *addresses[1];
  an_eh_stack_entry function;
  EMIT_TRY(entry, catch_all) {
    EMIT_FUNCTION(function, regions, addresses, 0);
    addresses[0] = &other;
    __eh_curr_region = 0;
    throw_int(1);
  }
  EMIT_HANDLERS { printf("caught"); }
}
static void free_nothing(void) { __free_thrown_object(); }
static void free_twice(void) {
  EMIT_TRY(entry, catch_all) { throw_int(1); }
  EMIT_HANDLERS {
    __exception_caught();
    __free_thrown_object();
    __free_thrown_object();
  }
}
/* A reference that nobody holds: the exception is at its end and was not destroyed. */
static void free_undestroyed(void) {
  EMIT_TRY(entry, catch_all) { throw_int(1); }
  EMIT_HANDLERS {
    __exception_caught();
    ++entry.body.try_block.handled_exception->reference_count;
    __free_thrown_object();
  }
}
/* The storage to be returned is not what was taken last. */
static void free_out_of_order(void) {
  EMIT_TRY(entry, catch_all) { throw_int(1); }
  EMIT_HANDLERS {
    __exception_caught();
    entry.body.try_block.handled_exception->object = &other;
    __free_thrown_object();
  }
}
static void suppress(void) { __suppress_optim_on_vars_in_try(); }

/* A try block without clauses inside a specification: the search cannot go on, and must not go on for ever. */
static void null_clause_list_in_specification(void) {
  EMIT_SPECIFICATION(other, catch_all);
  EMIT_TRY(entry, 0) { throw_int(1); }
  EMIT_HANDLERS { printf("caught"); }
}

/* Messages go where __f_debug says. */
static void debug_to_file(void) {
  close(2);
  __f_debug = stdout;
  setvbuf(stdout, 0, _IONBF, 0);
  __suppress_optim_on_vars_in_try();
}

/* The message is all that is written. */
static void check_line(void (*body)(void), int line, int source_line) {
  char text[80];
  const test_child child = test_run_child(body);
  sprintf(text, "Assertion failed in file \"libC/throw\", line %d\n", line);
  test_report_int(child.status, -SIGABRT, __FILE__, source_line, "aborts");
  test_report_text(child.text, text, __FILE__, source_line, "the message");
}
#define CHECK_LINE(body, line) check_line(body, line, __LINE__)

/* A try block without a clause list, and a specification outside it: the search could not end. */
static void specification_outside_bare_try(void) {
  an_eh_stack_entry specification, entry;
  EMIT_SPECIFICATION(specification, catch_int);
  EMIT_TRY(entry, 0) { throw_int(1); }
}

int main(void) {
  CHECK_LINE(caught_on_empty_stack, 849);
  CHECK_LINE(caught_without_marker, 849);
  CHECK_LINE(throw_without_marker, 916);
  CHECK_LINE(unknown_kind, 1003);
  CHECK_LINE(specification_outside_bare_try, 1003);
  CHECK_LINE(unknown_kind_while_unwinding, 1055);
  CHECK_LINE(head_changed_while_unwinding, 1099);
  CHECK_LINE(free_nothing, 1387);
  CHECK_LINE(free_twice, 1387);
  CHECK_LINE(free_undestroyed, 1399);
  CHECK_LINE(free_out_of_order, 436);
  CHECK_LINE(suppress, 1449);
  CHECK_LINE(debug_to_file, 1449);
  CHECK_ABORTS(null_clause_list_in_specification, "Assertion failed in file \"libC/throw\"");
  return TEST_RESULT();
}
