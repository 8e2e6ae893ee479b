/* What only generated C can do or see: records of throws, markers, broken stacks and what is said of them, how a
 * program ends. Each case is a process of its own. What exceptions do, random/scenes has.
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

/* ---- one function */

/* Two objects of one function; the region says which of them exist. */
static const a_region_record both_regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                               {DESTRUCTOR(local_destroy), 1, 0, 0}};
static local first_local = {1}, second_local = {2};
static void *both_addresses[] = {&first_local, &second_local};
#define LOCALS FUNCTION(both_regions, both_addresses, 0)

/* ---- references */

static void tell(const a_throw_stack_entry *thrown) {
  trace("%d%d%d%d%d%d:%d", thrown->is_rethrow, thrown->released, thrown->destroyed, thrown->handled, thrown->started,
        thrown->thrown, thrown->reference_count);
}
static void references(void) {
  a_throw_stack_entry *volatile source = 0;
  TRY(catch_all)
  TRY(catch_fault)
  TRY(catch_fault) throw_fault(1);
  PARAMETER
  source = try_entry.body.try_block.handled_exception;
  CHECK(source->catch_context == &try_entry);
  tell(source);
  __internal_rethrow(); /* takes the marker off itself */
  END_TRY
  HANDLERS
  const a_throw_stack_entry *const again = try_entry.body.try_block.handled_exception;
  CHECK(again->source == source && again->next == source && again->object == source->object);
  CHECK(again->catch_context == &try_entry);
  tell(source);
  tell(again);
  TRY(catch_fault) __rethrow();
  HANDLERS tell(source);
  END_TRY
  tell(source);
  __rethrow();
  END_TRY
  HANDLERS tell(source);
  END_TRY
}
static void pointer_with_destructor(void) {
  static const an_exception_type_specification clauses[] = {{&type_fault, PLX_TYPE_POINTER | PLX_TYPE_LAST}};
  static fault object;
  TRY(clauses)
  *(fault **)__throw_setup_dtor(&type_fault, sizeof(fault *), PLX_TYPE_POINTER, fault_destroy) = &object;
  __throw();
  HANDLERS trace("%d", *(fault **)caught == &object);
  END_TRY
}
/* An exception that has started stays in flight while others come and go; one that leaves meets its marker. */
static void started_early(void) {
  TRY(catch_fault)
  void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  __exception_started();
  TRY(catch_int) throw_int(1);
  HANDLERS trace("inner");
  END_TRY
  trace("%d", _ZSt18uncaught_exceptionv());
  fault_construct(object, 1);
  __throw();
  HANDLERS trace("%d", _ZSt18uncaught_exceptionv());
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
/* ---- the ends; `variant` is that of the case */

static int variant;
static void returns(void) { say("returned"); }
static void ends(void) {
  if (variant == 1) _ZSt13set_terminatePFvvE(0), __throw_setup(&__TI_i, sizeof(int), 0); /* what is not thrown yet */
  switch (variant) {
    case 0:
    case 1: _ZSt9terminatev(); break;
    case 2: __call_terminate(); break;
    case 3:
      _ZSt14set_unexpectedPFvvE(returns);
      __call_unexpected();
      break;
    case 4: CHECK(_ZSt14set_unexpectedPFvvE(0) == (a_handler)_ZSt9terminatev); /* fall through */
    default: SPECIFICATION(catch_int) throw_fault(1); END_SPECIFICATION
  }
}
/* Before the parameter of a handler is initialised. */
static void parameter_fails(void) {
  LOCALS
  REGION(1);
  TRY(catch_fault) throw_fault(1);
  PARAMETER
  if (variant) __rethrow();
  throw_int(5);
  END_TRY
  END_FUNCTION
}

/* What is said of the uncaught: a class of generated code with std::exception at offset 4, types of all sorts. */
static const char *what_of_failure(const void *self) {
  (void)self;
  return "disk is full";
}
static void no_destructor(void) {}
static const a_base_class_spec failure_bases[] = {{&__TI_St9exception, 4, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
EMIT_CLASS(failure, "storage::failure", failure_bases);
static void throw_failure(void) {
  static a_routine table[] = {0, 0, no_destructor, no_destructor, (a_routine)what_of_failure};
  void **object = (void **)__throw_setup(&failure, 16, 0);
  memset(object, 0, 16);
  object[1] = (void *)(table + 2);
  __throw();
}
static void uncaught(void) {
  _ZSt13set_terminatePFvvE(variant % 2 ? 0 : (a_handler)abort);
  if (variant == 0) throw_failure();
  THROW(type_fault, void *, PLX_TYPE_POINTER | PLX_TYPE_CONST | PLX_TYPE_VOLATILE, 0);
}

/* ---- broken stacks; the entries are static, so that the harm outlives who does it */

static an_eh_stack_entry static_entry, other_entry;
static void push(an_eh_stack_entry *pushed, int kind) {
  memset(pushed, 0, sizeof *pushed);
  pushed->next = __curr_eh_stack_entry;
  pushed->kind = (unsigned char)kind;
  __curr_eh_stack_entry = pushed;
}
static void without_throw(void) {
  switch (variant) {
    case 0: __exception_caught(); break;
    case 1:
      push(&static_entry, PLX_EH_TRY_BLOCK);
      __exception_caught();
      break;
    case 2: __throw(); break;
    case 3: __exception_started(); break;
    case 4:
      __throw_setup(&__TI_i, sizeof(int), 0);
      __exception_started();
      push(&static_entry, PLX_EH_TRY_BLOCK);
      __throw();
      break;
    case 5:
      push(&static_entry, 9);
      throw_int(1);
      break;
    default: __free_thrown_object();
  }
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
static void head_changed(void) {
  harm = leave_entry;
  FUNCTION(harmful, both_addresses, 0)
  TRY(catch_all)
  REGION(0);
  variant ? throw_int(1) : leave_harmful();
  HANDLERS END_TRY END_FUNCTION
}
static void handled_twice(void) {
  TRY(catch_all) throw_int(1);
  HANDLERS
  a_throw_stack_entry *const handled = try_entry.body.try_block.handled_exception;
  if (variant == 0) __free_thrown_object();
  if (variant == 1) ++handled->reference_count; /* a reference that nobody holds */
  if (variant == 2) handled->object = &other_entry;
  END_TRY
}
/* A try without clauses takes everything, but the search goes on, and may meet no specification. */
static void bare_try(void) {
  TRY(catch_int)
  TRY(0) throw_int(1);
  HANDLERS trace("bare%d", clause);
  END_TRY
  HANDLERS END_TRY
}
static void bare_try_in_specification(void) {
  SPECIFICATION(catch_int)
  bare_try();
  TRY(0) throw_int(1);
  HANDLERS END_TRY END_SPECIFICATION
}
static void debug_to_file(void) {
  close(2);
  __f_debug = stdout;
  setvbuf(stdout, 0, _IONBF, 0);
  __suppress_optim_on_vars_in_try();
}
#define ASSERTED(line) -SIGABRT, "Assertion failed in file \"libC/throw\", line " #line "\n"
#define UNCAUGHT(variant, text) \
  { uncaught, variant, -SIGABRT, "plx: uncaught exception of type " text "\n" }

static const struct {
  void (*body)(void);
  int variant, status;
  const char *text;
} cases[] = {
    /* clang-format off */
    {references, 0, 0, "000111:1 010111:1 100111:0 010111:2 010111:1 010111:1 ~e1"},
    {pointer_with_destructor, 0, 0, "1"}, {started_early, 0, 0, "inner 1 0 ~e1"}, {left_after_start, 0, 3, "[] uncaught=1"},
    {ends, 0, 3, "[] uncaught=0"}, {ends, 1, -SIGABRT, ""}, {ends, 2, 3, "[] uncaught=1"},
    {ends, 3, 3, "returned [] uncaught=0"}, {ends, 4, 3, "[] uncaught=0"}, {ends, 5, 3, "[] uncaught=0"},
    {parameter_fails, 0, 3, "[] uncaught=1"}, {parameter_fails, 1, 3, "[] uncaught=1"},
    UNCAUGHT(0, "storage::failure: disk is full"), UNCAUGHT(1, "fault const volatile*"), {without_throw, 0, ASSERTED(849)},
    {without_throw, 1, ASSERTED(849)}, {without_throw, 2, ASSERTED(916)}, {without_throw, 3, ASSERTED(916)},
    {without_throw, 4, ASSERTED(916)}, {without_throw, 5, ASSERTED(1003)}, {without_throw, 6, ASSERTED(1387)},
    {bare_try_in_specification, 0, ASSERTED(1003)}, {bare_try, 0, 0, "bare1"},
    {unknown_kind_while_unwinding, 0, ASSERTED(1055)}, {head_changed, 0, ASSERTED(1099)}, {head_changed, 1, ASSERTED(1099)},
    {handled_twice, 0, ASSERTED(1387)},
    {handled_twice, 1, ASSERTED(1399)}, {handled_twice, 2, ASSERTED(436)}, {debug_to_file, 0, ASSERTED(1449)},
    {_array_pointer_not_from_vec_new, 0, -SIGABRT, ""}, {__pure_virtual_called, 0, -SIGABRT, ""},
    {__main_called_more_than_once, 0, -SIGABRT, ""}, {__already_marked_for_destruction, 0, -SIGABRT, ""},
    /* clang-format on */
};

static unsigned current;
static void play(void) {
  test_trace[0] = 0;
  test_failures = 0;
  _ZSt13set_terminatePFvvE(terminated);
  variant = cases[current].variant;
  cases[current].body();
  printf("%s", test_trace);
  CHECK_QUIET();
  if (test_failures) printf(" failures");
}
int main(void) {
  for (; current < sizeof cases / sizeof *cases; ++current) {
    const test_child child = test_run_child(play);
    CHECK_INT(child.status, cases[current].status);
    CHECK_TEXT(child.text, cases[current].text);
    if (child.status != cases[current].status) fprintf(stderr, "  in case %u\n", current);
  }
  return TEST_RESULT();
}
