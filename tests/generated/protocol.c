/* What only generated C can do or see: reference counts, markers, broken stacks and what is said of them, how a program ends.
 * Each case is a process of its own. What exceptions do, random/scenes has.
 * test-variants: -O0 | -O2 | -O1 -static */
#include "classes.h"

static void say(const char *text) {
  printf("%s ", text);
  fflush(stdout);
}
static void terminated(void) {
  const an_eh_stack_entry *entry;
  for (entry = __curr_eh_stack_entry; entry; entry = entry->next)
    if (entry->kind == PLX_EH_IN_PROGRESS) say("marker");
  printf("[%s] uncaught=%d", test_trace, _ZSt18uncaught_exceptionv());
  fflush(stdout);
  _exit(3);
}
static NOINLINE void rethrow(void) { __rethrow(); }

/* ---- one function */

/* Two objects of one function; the region says which of them exist. */
static const a_region_record both_regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                               {DESTRUCTOR(local_destroy), 1, 0, 0}};
static local first_local = {1}, second_local = {2};
static void *both_addresses[] = {&first_local, &second_local};
#define LOCALS FUNCTION(both_regions, both_addresses, 0)

/* A specification and another try lie between the handler and the entry of its function. */
static void far_from_the_function(void) {
  LOCALS
    REGION(0);
    SPECIFICATION(catch_all)
      TRY(catch_double)
        TRY(catch_int)
          REGION(1);
          throw_int(0);
        HANDLERS
          CHECK_INT(__eh_curr_region, 0);
          trace("handler");
        END_TRY
      HANDLERS
      END_TRY
    END_SPECIFICATION
    throw_fault(9);
  END_FUNCTION
}

/* ---- references */

static void references(void) {
  a_throw_stack_entry *volatile source = 0;
  TRY(catch_all)
    TRY(catch_fault)
      TRY(catch_fault)
        throw_fault(1);
      PARAMETER
        source = try_entry.body.try_block.handled_exception;
        trace("%u", source->reference_count);
        __internal_rethrow(); /* takes the marker off itself */
      END_TRY
    HANDLERS
      const a_throw_stack_entry *const again = try_entry.body.try_block.handled_exception;
      CHECK(again->source == source && again->next == source && again->is_rethrow && again->object == source->object);
      trace("%u %d%d", source->reference_count, source->released, source->destroyed);
      TRY(catch_fault)
        rethrow();
      HANDLERS
        trace("%u", source->reference_count);
      END_TRY
      trace("%u", source->reference_count);
      __rethrow();
    END_TRY
  HANDLERS
    trace("%u %d", source->reference_count, source->destroyed);
  END_TRY
}
/* Try blocks at one address: what was noted of the first says nothing of the next. */
static an_eh_stack_entry static_entry, other_entry;
static NOINLINE void at_one_address(void (*body)(int), int id) {
  EMIT_TRY(static_entry, catch_double) { body(id); }
  EMIT_HANDLERS { CHECK(0); }
}
static NOINLINE void interrupted(int id) {
  void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  throw_fault(id);
  fault_construct(object, id);
}
static void rethrow_instead(int unused) {
  (void)unused;
  __rethrow();
}
static void one_address(void) {
  int volatile round;
  for (round = 0; round < 4; ++round) {
    TRY(catch_fault)
      at_one_address(round & 1 ? interrupted : throw_fault, 1);
    HANDLERS
      TRY(catch_fault)
        at_one_address(round & 2 ? interrupted : throw_fault, 2);
      HANDLERS
        TRY(catch_fault)
          at_one_address(rethrow_instead, 0);
        HANDLERS
          trace("%d", ((fault *)caught)->id);
        END_TRY
      END_TRY
      trace("first");
    END_TRY
  }
}
static void pointer_with_destructor(void) {
  static const an_exception_type_specification clauses[] = {{&type_fault, PLX_TYPE_POINTER | PLX_TYPE_LAST}};
  static fault object;
  TRY(clauses)
    *(fault **)__throw_setup_dtor(&type_fault, sizeof(fault *), PLX_TYPE_POINTER, fault_destroy) = &object;
    __throw();
  HANDLERS
    trace("%d", *(fault **)caught == &object);
  END_TRY
}
/* An exception that has started stays in flight while others come and go; one that leaves meets its marker. */
static void started_early(void) {
  TRY(catch_fault)
    void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
    __exception_started();
    TRY(catch_int)
      throw_int(1);
    HANDLERS
      trace("inner");
    END_TRY
    trace("%d", _ZSt18uncaught_exceptionv());
    fault_construct(object, 1);
    __throw();
  HANDLERS
    trace("%d", _ZSt18uncaught_exceptionv());
  END_TRY
}
static void left_after_start(void) {
  LOCALS
    REGION(1);
    __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
    __exception_started();
    throw_fault(2);
  END_FUNCTION
}
/* What a specification lets pass is not moved to its base. */
static const a_base_class_spec derived_bases[] = {{&type_fault, 8, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
EMIT_CLASS(derived, "derived", derived_bases);
static void not_moved(void) {
  static const an_exception_type_specification clauses[] = {{&derived, PLX_TYPE_LAST}};
  void *volatile object = 0;
  TRY(clauses)
    SPECIFICATION(catch_fault)
      object = __throw_setup(&derived, 32, 0);
      __throw();
    END_SPECIFICATION
  HANDLERS
    trace("%d", caught == object);
  END_TRY
}

/* ---- the ends */

static void returns(void) { say("returned"); }
static void violates(void) {
  SPECIFICATION(catch_int)
    throw_fault(1);
  END_SPECIFICATION
}
static void unexpected_is_terminate(void) { violates(); }
static void unexpected_is_null(void) {
  CHECK(_ZSt14set_unexpectedPFvvE(0) == (a_handler)_ZSt9terminatev);
  violates();
}
static void unexpected_called(void) {
  _ZSt14set_unexpectedPFvvE(returns);
  __call_unexpected();
}
static void parameter_fails(void) {
  LOCALS
    REGION(1);
    TRY(catch_fault)
      throw_fault(1);
    PARAMETER
      throw_int(5);
    END_TRY
  END_FUNCTION
}
static void rethrown_too_early(void) {
  TRY(catch_int)
    throw_int(1);
  PARAMETER
    __rethrow();
  END_TRY
}
static void null_called(void) {
  _ZSt13set_terminatePFvvE(0);
  _ZSt9terminatev();
}
static void terminate_called(void) { _ZSt9terminatev(); }
static void called_by_the_runtime(void) { __call_terminate(); }

/* What is said of the uncaught: a class of generated code with std::exception at offset 4, types of all sorts. */
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
  static a_routine table[] = {0, 0, no_destructor, no_destructor, (a_routine)what_of_failure};
  void **object = (void **)__throw_setup(type, 16, 0);
  memset(object, 0, 16);
  object[1] = (void *)(table + 2);
  __throw();
}
static int reported;
static void uncaught(void) {
  _ZSt13set_terminatePFvvE(reported % 2 ? 0 : (a_handler)abort);
  switch (reported) {
    case 0: throw_int(1); break;
    case 1: throw_failure_of(&failure); break;
    case 2: throw_failure_of(&hidden_failure); break;
    case 3: __throw_bad_cast(); break;
    case 4: __default_new_handler(); break;
    case 5: __rethrow(); break;
    case 6:
      TRY(catch_fault)
        throw_fault(1);
      HANDLERS
        __rethrow();
      END_TRY
      break;
    default: THROW(type_fault, void *, PLX_TYPE_POINTER | PLX_TYPE_CONST | PLX_TYPE_VOLATILE, 0);
  }
}

/* ---- broken stacks; the entries are static, so that the harm outlives who does it */

static void push(an_eh_stack_entry *pushed, int kind) {
  memset(pushed, 0, sizeof *pushed);
  pushed->next = __curr_eh_stack_entry;
  pushed->kind = (unsigned char)kind;
  __curr_eh_stack_entry = pushed;
}
static void caught_without_marker(void) {
  push(&static_entry, PLX_EH_TRY_BLOCK);
  __exception_caught();
}
static void throw_without_marker(void) {
  __throw_setup(&__TI_i, sizeof(int), 0);
  __exception_started();
  push(&static_entry, PLX_EH_TRY_BLOCK);
  __throw();
}
static void throw_of_nothing(void) { __throw(); }
static void started_nothing(void) { __exception_started(); }
static void unknown_kind(void) {
  push(&static_entry, 9);
  throw_int(1);
}
/* A destructor that does harm, to what is outside of its function and inside of it. */
static a_routine harm;
static void do_harm(void *object, int flags) {
  (void)object;
  (void)flags;
  harm();
}
static const a_region_record harmful[] = {{DESTRUCTOR(do_harm), 0, PLX_NO_REGION, 0}};
static NOINLINE void leave_harmful(void) {
  FUNCTION(harmful, both_addresses, 0)
    REGION(0);
    throw_int(1);
  END_FUNCTION
}
static void spoil(void) { other_entry.kind = 9; }
static void leave_entry(void) { push(&other_entry, PLX_EH_FUNCTION); }
static void unknown_kind_while_unwinding(void) {
  push(&other_entry, PLX_EH_SPECIFICATION);
  other_entry.body.specification.allowed_list = catch_all;
  harm = spoil;
  leave_harmful();
}
static void head_changed_while_unwinding(void) {
  harm = leave_entry;
  TRY(catch_all)
    leave_harmful();
  HANDLERS
  END_TRY
}
static void head_changed_in_the_function(void) {
  harm = leave_entry;
  FUNCTION(harmful, both_addresses, 0)
    TRY(catch_all)
      REGION(0);
      throw_int(1);
    HANDLERS
    END_TRY
  END_FUNCTION
}
static void free_twice(void) {
  TRY(catch_all)
    throw_int(1);
  HANDLERS
    __free_thrown_object();
  END_TRY
}
static void free_undestroyed(void) { /* a reference that nobody holds */
  TRY(catch_all)
    throw_int(1);
  HANDLERS
    ++try_entry.body.try_block.handled_exception->reference_count;
  END_TRY
}
static void free_out_of_order(void) {
  TRY(catch_all)
    throw_int(1);
  HANDLERS
    try_entry.body.try_block.handled_exception->object = &other_entry;
  END_TRY
}
/* A try without clauses takes everything, but the search goes on, and may meet no specification. */
static void bare_try(void) {
  TRY(catch_int)
    TRY(0)
      throw_int(1);
    HANDLERS
      trace("bare%d", clause);
    END_TRY
  HANDLERS
  END_TRY
}
static void bare_try_in_specification(void) {
  SPECIFICATION(catch_int)
    bare_try();
    TRY(0)
      throw_int(1);
    HANDLERS
    END_TRY
  END_SPECIFICATION
}
static void debug_to_file(void) {
  close(2);
  __f_debug = stdout;
  setvbuf(stdout, 0, _IONBF, 0);
  __suppress_optim_on_vars_in_try();
}
#define ASSERTED(line) -SIGABRT, "Assertion failed in file \"libC/throw\", line " #line "\n"
#define UNCAUGHT(text) {uncaught, -SIGABRT, "plx: uncaught exception of type " text "\n"}

static const struct {
  void (*body)(void);
  int status;
  const char *text;
} cases[] = {
    {far_from_the_function, 3, "[~2 handler ~1] uncaught=1"},
    {references, 0, "1 1 10 2 1 1 0 ~e1"},
    {one_address, 0, "2 ~e2 first ~e1 2 ~e2 first ~e1 2 ~e2 first ~e1 2 ~e2 first ~e1"},
    {pointer_with_destructor, 0, "1"},
    {started_early, 0, "inner 1 0 ~e1"},
    {left_after_start, 3, "[] uncaught=1"},
    {not_moved, 0, "1"},
    {unexpected_is_terminate, 3, "[] uncaught=0"},
    {unexpected_is_null, 3, "[] uncaught=0"},
    {unexpected_called, 3, "returned [] uncaught=0"},
    {parameter_fails, 3, "[] uncaught=1"},
    {rethrown_too_early, 3, "[] uncaught=1"},
    {null_called, -SIGABRT, ""},
    {terminate_called, 3, "[] uncaught=0"},
    {called_by_the_runtime, 3, "[] uncaught=1"},
    UNCAUGHT("int"),
    UNCAUGHT("storage::failure: disk is full"),
    UNCAUGHT("storage::hidden"),
    UNCAUGHT("std::bad_cast: Bad Cast Exception"),
    UNCAUGHT("std::bad_alloc: Allocation Failure"),
    {uncaught, -SIGABRT, "plx: terminated: throw; while no exception is being handled\n"},
    UNCAUGHT("fault"),
    UNCAUGHT("fault const volatile*"),
    {__exception_caught, ASSERTED(849)},
    {caught_without_marker, ASSERTED(849)},
    {throw_of_nothing, ASSERTED(916)},
    {started_nothing, ASSERTED(916)},
    {throw_without_marker, ASSERTED(916)},
    {unknown_kind, ASSERTED(1003)},
    {bare_try_in_specification, ASSERTED(1003)},
    {bare_try, 0, "bare1"},
    {unknown_kind_while_unwinding, ASSERTED(1055)},
    {head_changed_while_unwinding, ASSERTED(1099)},
    {head_changed_in_the_function, ASSERTED(1099)},
    {__free_thrown_object, ASSERTED(1387)},
    {free_twice, ASSERTED(1387)},
    {free_undestroyed, ASSERTED(1399)},
    {free_out_of_order, ASSERTED(436)},
    {debug_to_file, ASSERTED(1449)},
    {_array_pointer_not_from_vec_new, -SIGABRT, ""},
    {__pure_virtual_called, -SIGABRT, ""},
    {__main_called_more_than_once, -SIGABRT, ""},
    {__already_marked_for_destruction, -SIGABRT, ""},
};

static unsigned current;
static void play(void) {
  test_trace[0] = 0;
  test_failures = 0;
  _ZSt13set_terminatePFvvE(terminated);
  cases[current].body();
  printf("%s", test_trace);
  if (__curr_eh_stack_entry || __eh_curr_region) printf(" entries left");
  TRY(catch_int)
    throw_int(1);
  HANDLERS
    if (try_entry.body.try_block.handled_exception->next) printf(" exceptions left");
  END_TRY
  if (test_failures) printf(" failures");
}
int main(void) {
  for (; current < sizeof cases / sizeof *cases; ++current) {
    const test_child child = test_run_child(play);
    CHECK_INT(child.status, cases[current].status);
    CHECK_TEXT(child.text, cases[current].text);
    if (child.status != cases[current].status) fprintf(stderr, "  in case %u\n", current);
    if (cases[current].body == uncaught) ++reported;
  }
  return TEST_RESULT();
}
