/* The ends of a program that an exception brings about: no handler, an exception that meets another, handlers of
 * std::terminate that return, throw or are absent, and the line that says what was not caught. */
#include "classes.h"

static void say(const char *text) {
  fputs(text, stdout);
  fflush(stdout);
}
/* The marker of the exception that began the termination is gone. */
static void terminated(void) {
  const an_eh_stack_entry *entry;
  for (entry = __curr_eh_stack_entry; entry; entry = entry->next)
    if (entry->kind == PLX_EH_IN_PROGRESS) say("marker ");
  printf("terminated [%s] uncaught=%d", test_trace, _ZSt18uncaught_exceptionv());
  fflush(stdout);
  _exit(3);
}
static void set_terminated(void) {
  test_trace[0] = 0;
  _ZSt13set_terminatePFvvE(terminated);
}

/* Two locals, an array and a specification around a throw. */
static void element_destroy(void *object, int flags) { trace("~%d/%d", *(int *)object, flags); }
static void element_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  static int next;
  (void)(a + b + c + d + e + f + g + h);
  if (next == 2) throw_fault(1);
  *(int *)object = 20 + next++;
}
static NOINLINE void with_cleanup(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 1, 0, 0}};
  local a, b;
  int array[4];
  void *addresses[2];
  an_eh_stack_entry function, specification;
  EMIT_FUNCTION(function, regions, addresses, 0);
  EMIT_SPECIFICATION(specification, catch_fault);
  addresses[0] = &a;
  addresses[1] = &b;
  a.id = 1;
  b.id = 2;
  __eh_curr_region = 1;
  __vec_new_eh(array, 4, sizeof *array, element_construct, element_destroy);
  EMIT_LEAVE_SPECIFICATION(specification);
  EMIT_LEAVE_FUNCTION(function);
}

/* The whole stack is unwound, then the process ends; the exception itself is not destroyed. */
static void no_handler(void) {
  set_terminated();
  with_cleanup();
}
static void no_matching_handler(void) {
  an_eh_stack_entry entry;
  set_terminated();
  EMIT_TRY(entry, catch_int) { with_cleanup(); }
  EMIT_HANDLERS { say("caught"); }
}
/* An exception that leaves a handler and finds no other one: what was handled dies on the way. */
static void no_handler_from_handler(void) {
  an_eh_stack_entry entry;
  set_terminated();
  EMIT_TRY(entry, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    throw_int(2);
  }
}

/* A destructor that lets an exception out while another one unwinds: no further destructor runs. */
static void failing_destroy(void *object, int flags) {
  local_destroy(object, flags);
  throw_int(2);
}
static void destructor_throws(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(failing_destroy), 1, 0, 0}};
  local a, b;
  void *addresses[2];
  an_eh_stack_entry outer, function;
  set_terminated();
  EMIT_TRY(outer, catch_all) {
    EMIT_FUNCTION(function, regions, addresses, 0);
    addresses[0] = &a;
    addresses[1] = &b;
    a.id = 1;
    b.id = 2;
    __eh_curr_region = 1;
    throw_fault(1);
  }
  EMIT_HANDLERS { say("caught"); }
}
/* Destructors on the inner stack run up to the exception in progress, if a handler is found before it; if not, none. */
static void nested_destroy(void *object, int flags) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  void *addresses[1];
  an_eh_stack_entry function;
  (void)flags;
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = object;
  __eh_curr_region = 0;
  throw_int(2);
}
static void destructor_throws_past_a_local(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(nested_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry outer, function;
  set_terminated();
  EMIT_TRY(outer, catch_all) {
    EMIT_FUNCTION(function, regions, addresses, 0);
    addresses[0] = &a;
    a.id = 1;
    __eh_curr_region = 0;
    throw_fault(1);
  }
  EMIT_HANDLERS { say("caught"); }
}
/* The destructor of the caught exception fails while another exception leaves the handler. */
static void failing_fault_destroy(void *object, int flags) {
  fault_destroy(object, flags);
  throw_int(3);
}
static void exception_destructor_throws(void) {
  an_eh_stack_entry outer, entry;
  set_terminated();
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(entry, catch_fault) {
      fault_construct(__throw_setup_dtor(&type_fault, sizeof(fault), 0, failing_fault_destroy), 1);
      __throw();
    }
    EMIT_HANDLERS {
      __exception_caught();
      throw_fault(2);
    }
  }
  EMIT_HANDLERS { say("caught"); }
}

static void returns(void) { say("returned;"); }
static void handler_returns(void) {
  _ZSt13set_terminatePFvvE(returns);
  throw_int(1);
}
static void no_terminate_handler(void) {
  _ZSt13set_terminatePFvvE(0);
  throw_int(1);
}
static void null_and_called_directly(void) {
  _ZSt13set_terminatePFvvE(0);
  _ZSt9terminatev();
}
static void called_directly(void) {
  set_terminated();
  _ZSt9terminatev();
}
static void called_by_the_runtime(void) {
  set_terminated();
  __call_terminate();
}

/* A terminate handler that lets an exception out terminates for good. The try blocks around the first throw are no
 * place to go on: what stood inside them is destroyed already. */
static void throws(void) {
  say("handler;");
  throw_double(1);
}
static NOINLINE void uncaught_inside(void (*handler)(void)) {
  an_eh_stack_entry outer, inner;
  _ZSt13set_terminatePFvvE(handler);
  EMIT_TRY(outer, catch_double) {
    EMIT_TRY(inner, catch_double) { throw_fault(1); }
    EMIT_HANDLERS { say("caught"); }
  }
  EMIT_HANDLERS { say("caught"); }
  _exit(0);
}
static void handler_throws(void) { uncaught_inside(throws); }
static void handler_throws_while_unwinding(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(failing_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry outer, function;
  _ZSt13set_terminatePFvvE(throws);
  EMIT_TRY(outer, catch_all) {
    EMIT_FUNCTION(function, regions, addresses, 0);
    addresses[0] = &a;
    a.id = 1;
    __eh_curr_region = 0;
    throw_fault(1);
  }
  EMIT_HANDLERS { say("caught"); }
}
static void rethrows(void) {
  say("handler;");
  __rethrow();
}
static void handler_rethrows(void) { uncaught_inside(rethrows); }

/* What it throws and catches itself is its own affair. */
static void handles(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_int) { throw_int(4); }
  EMIT_HANDLERS {
    printf("inside-%d;", *(int *)__caught_object_address);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  printf("uncaught=%d", _ZSt18uncaught_exceptionv());
  fflush(stdout);
  _exit(5);
}
static void handler_handles(void) { uncaught_inside(handles); }
static void handler_handles_without_try(void) {
  _ZSt13set_terminatePFvvE(handles);
  throw_int(1);
}

/* A class of generated code that derives from std::exception, at offset 4: {int, virtual table, message, flag}. */
static const char *what_of_failure(const void *self) {
  (void)self;
  return "disk is full";
}
static void no_destructor(void) {}
static const a_base_class_spec failure_bases[] = {{&__TI_St9exception, 4, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
EMIT_CLASS(failure, "storage::failure", failure_bases);
static const a_base_class_spec hidden_bases[] = {{&__TI_St9exception, 4, PLX_BASE_LAST}};
EMIT_CLASS(hidden_failure, "storage::hidden", hidden_bases);
static void throw_failure_of(const a_type_info_impl *type) {
  static a_routine table[5]; /* offset, type, two destructors, what */
  void **object = (void **)__throw_setup(type, 16, 0);
  table[2] = table[3] = no_destructor;
  table[4] = (a_routine)what_of_failure;
  memset(object, 0, 16);
  object[1] = (void *)(table + 2);
  __throw();
}
static void uncaught_int(void) { throw_int(1); }
static void uncaught_fault(void) { throw_fault(1); }
static void uncaught_failure(void) { throw_failure_of(&failure); }
static void uncaught_hidden(void) { throw_failure_of(&hidden_failure); }
void _ZNSt12out_of_range7__throwEPKc(const char *);
static void uncaught_library(void) { _ZNSt12out_of_range7__throwEPKc("Out of range exception occurred"); }
static void uncaught_cast(void) { __throw_bad_cast(); }
static void uncaught_allocation(void) { __default_new_handler(); }
static void uncaught_rethrow(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    __rethrow();
  }
}
static void uncaught_with_handler(void) {
  _ZSt13set_terminatePFvvE(returns);
  throw_failure_of(&failure);
}

static void check_terminated(void (*body)(void), const char *text, int line) {
  const test_child child = test_run_child(body);
  test_report_int(child.status, 3, __FILE__, line, "runs the terminate handler");
  test_report_text(child.text, text, __FILE__, line, "what the handler saw");
}
#define CHECK_TERMINATES(body, text) check_terminated(body, text, __LINE__)

static void check_whole_text(void (*body)(void), const char *text, int line) {
  const test_child child = test_run_child(body);
  test_report_int(child.status, -SIGABRT, __FILE__, line, "aborts");
  test_report_text(child.text, text, __FILE__, line, "all that is written");
}
#define CHECK_ABORTS_WITH(body, text) check_whole_text(body, text, __LINE__)

int main(void) {
  CHECK_TERMINATES(no_handler, "terminated [~21/2 ~20/2 ~2 ~1] uncaught=1");
  CHECK_TERMINATES(no_matching_handler, "terminated [~21/2 ~20/2 ~2 ~1] uncaught=1");
  CHECK_TERMINATES(no_handler_from_handler, "terminated [~e1] uncaught=1");
  CHECK_TERMINATES(destructor_throws, "terminated [~2] uncaught=1");
  CHECK_TERMINATES(destructor_throws_past_a_local, "terminated [] uncaught=1");
  CHECK_TERMINATES(exception_destructor_throws, "terminated [~e1] uncaught=1");

  CHECK_ABORTS_WITH(handler_returns, "returned;");
  CHECK_ABORTS_WITH(no_terminate_handler, "plx: uncaught exception of type int\n");
  CHECK_ABORTS(null_and_called_directly, "");
  CHECK_TERMINATES(called_directly, "terminated [] uncaught=0");
  CHECK_TERMINATES(called_by_the_runtime, "terminated [] uncaught=1");
  CHECK_ABORTS_WITH(handler_throws, "handler;");
  CHECK_ABORTS_WITH(handler_throws_while_unwinding, "handler;");
  CHECK_ABORTS_WITH(handler_rethrows, "handler;");
  CHECK_ENDS(handler_handles, 5, "inside-4;uncaught=1");
  CHECK_ENDS(handler_handles_without_try, 5, "inside-4;uncaught=1");

  CHECK_ABORTS_WITH(uncaught_int, "plx: uncaught exception of type int\n");
  CHECK_ABORTS_WITH(uncaught_fault, "plx: uncaught exception of type fault\n");
  CHECK_ABORTS_WITH(uncaught_rethrow, "plx: uncaught exception of type fault\n");
  CHECK_ABORTS_WITH(uncaught_failure, "plx: uncaught exception of type storage::failure: disk is full\n");
  CHECK_ABORTS_WITH(uncaught_hidden, "plx: uncaught exception of type storage::hidden\n");
  CHECK_ABORTS_WITH(uncaught_library,
                    "plx: uncaught exception of type std::out_of_range: Out of range exception occurred\n");
  CHECK_ABORTS_WITH(uncaught_cast, "plx: uncaught exception of type std::bad_cast: Bad Cast Exception\n");
  CHECK_ABORTS_WITH(uncaught_allocation, "plx: uncaught exception of type std::bad_alloc: Allocation Failure\n");
  CHECK_ABORTS_WITH(uncaught_with_handler, "returned;");
  CHECK_ABORTS_WITH(__rethrow, "plx: terminated: throw; while no exception is being handled\n");
  return TEST_RESULT();
}
