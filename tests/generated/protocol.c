/* What only generated C can do or see: the order in one function, reference counts, markers, broken stacks and what is said
 * of them, how a program ends. Scenes at random (random/scenes) have the rest.
 * test-variants: -O0 | -O2 | -O1 -static */
#include "classes.h"

static int round_number;
static jmp_buf back;
static an_eh_stack_entry static_entry, other_entry;

/* Two locals of one function, each with a destructor. */
#define OBJECTS(first, second)                                                                          \
  {                                                                                                     \
    static const a_region_record regions[] = {{DESTRUCTOR(first), 0, PLX_NO_REGION, 0}, {DESTRUCTOR(second), 1, 0, 0}}; \
    local a = {1}, b = {2};                                                                             \
    void *addresses[2];                                                                                 \
    addresses[0] = &a;                                                                                  \
    addresses[1] = &b;                                                                                  \
    FUNCTION(regions, addresses, 0)
#define END_OBJECTS END_FUNCTION }
#define LOCALS OBJECTS(local_destroy, local_destroy)

static void say(const char *text) { printf("%s ", text), fflush(stdout); }
static void terminated(void) {
  const an_eh_stack_entry *entry;
  for (entry = __curr_eh_stack_entry; entry; entry = entry->next)
    if (entry->kind == PLX_EH_IN_PROGRESS) say("marker");
  printf("[%s] uncaught=%d", test_trace, _ZSt18uncaught_exceptionv()), fflush(stdout);
  _exit(3);
}
static NOINLINE void throw_with(a_destructor destructor, int id) {
  fault_construct(__throw_setup_dtor(&type_fault, sizeof(fault), 0, destructor), id);
  __throw();
}
static NOINLINE void caught_fault(void (*body)(void)) {
  TRY(catch_fault) body();
  HANDLERS trace("caught-%d", ((fault *)caught)->id);
  END_TRY
}
static NOINLINE void rethrow(void) { __rethrow(); }

/* ---- one function */

/* The caught exception ends before the locals of its handler: the try block's entry is the inner one. */
static NOINLINE void leaves_its_handler(void) {
  LOCALS
    REGION(0);
    TRY(catch_fault) throw_fault(1);
    HANDLERS REGION(1), throw_fault(2);
    END_TRY
  END_OBJECTS
}
static void one_function(void) {
  caught_fault(leaves_its_handler);
  LOCALS
    TRY(catch_fault)
      TRY(catch_fault) throw_fault(1);
      HANDLERS REGION(1), throw_fault(2);
      END_TRY
    HANDLERS trace("caught-%d", ((fault *)caught)->id);
    END_TRY
  END_OBJECTS
}
/* A specification and another try lie between the handler and the entry of its function. */
static void far_from_the_function(void) {
  LOCALS
    REGION(0);
    SPECIFICATION(catch_all)
      TRY(catch_double)
        TRY(catch_int) REGION(1), throw_int(0);
        HANDLERS CHECK_INT(__eh_curr_region, 0), trace("handler");
        END_TRY
      HANDLERS END_TRY
    END_SPECIFICATION
    throw_fault(9);
  END_OBJECTS
}
/* What is handled, as a destructor sees it that unwinding runs: in a function inside, and in the handler's own. */
static void asks(void *object, int flags) {
  (void)object, (void)flags;
  TRY(catch_all) __rethrow();
  PARAMETER trace("[%s]", ((a_throw_stack_entry *)try_entry.body.try_block.handled_exception)->type->name);
  HANDLER END_TRY
}
static NOINLINE void throws_past_asker(void) { OBJECTS(asks, asks) REGION(0), throw_double(1); END_OBJECTS }
static void asked(void) {
  TRY(catch_int) throw_int(1);
  HANDLERS
    TRY(catch_double) throws_past_asker();
    HANDLERS trace("caught");
    END_TRY
  END_TRY
  OBJECTS(asks, asks)
    TRY(catch_int) throw_int(1);
    HANDLERS
      TRY(catch_double) REGION(0), throw_double(1);
      HANDLERS trace("caught");
      END_TRY
    END_TRY
    REGION(PLX_NO_REGION);
  END_OBJECTS
}
static NOINLINE void leaves_with_asker(void) {
  OBJECTS(asks, asks)
    REGION(0);
    TRY(catch_fault) throw_fault(1);
    HANDLERS throw_fault(2);
    END_TRY
  END_OBJECTS
}
static void asked_when_left(void) {
  TRY(catch_int) throw_int(7);
  HANDLERS caught_fault(leaves_with_asker);
  END_TRY
}

/* ---- references */

static void references(void) {
  a_throw_stack_entry *volatile source = 0;
  TRY(catch_all)
    TRY(catch_fault)
      TRY(catch_fault) throw_fault(1);
      PARAMETER
        source = try_entry.body.try_block.handled_exception;
        trace("%u", source->reference_count);
        __internal_rethrow(); /* takes the marker off itself */
      END_TRY
    HANDLERS {
      const a_throw_stack_entry *const again = try_entry.body.try_block.handled_exception;
      CHECK(again->source == source && again->next == source && again->is_rethrow && again->object == source->object);
      trace("%u %d%d", source->reference_count, source->released, source->destroyed);
      TRY(catch_fault) rethrow();
      HANDLERS trace("%u", source->reference_count);
      END_TRY
      trace("%u", source->reference_count);
      __rethrow();
    }
    END_TRY
  HANDLERS trace("%u %d", source->reference_count, source->destroyed);
  END_TRY
}
/* Try blocks at one address: what was noted of the first says nothing of the next. */
static NOINLINE void at_one_address(void (*body)(int), int id) {
  EMIT_TRY(static_entry, catch_double) { body(id); }
  EMIT_HANDLERS { CHECK(0); }
}
static NOINLINE void interrupted(int id) {
  void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  throw_fault(id);
  fault_construct(object, id);
}
static void rethrow_instead(int unused) { (void)unused, __rethrow(); }
static void one_address(void) {
  for (round_number = 0; round_number < 4; ++round_number) {
    TRY(catch_fault) at_one_address(round_number & 1 ? interrupted : throw_fault, 1);
    HANDLERS
      TRY(catch_fault) at_one_address(round_number & 2 ? interrupted : throw_fault, 2);
      HANDLERS
        TRY(catch_fault) at_one_address(rethrow_instead, 0);
        HANDLERS trace("%d", ((fault *)caught)->id);
        END_TRY
        trace("second");
      END_TRY
      trace("first");
    END_TRY
  }
}
static void fails_at_end(void *object, int flags) { fault_destroy(object, flags), throw_fault(9); }
static void with_failing_end(void) {
  TRY(catch_fault) throw_with(fails_at_end, 1);
  HANDLERS trace("end");
  END_TRY
}
static void destructor_of_the_exception_throws(void) { caught_fault(with_failing_end); }
static void pointer_with_destructor(void) {
  static const an_exception_type_specification clauses[] = {{&type_fault, PLX_TYPE_POINTER | PLX_TYPE_LAST}};
  static fault object;
  TRY(clauses)
    *(fault **)__throw_setup_dtor(&type_fault, sizeof(fault *), PLX_TYPE_POINTER, fault_destroy) = &object;
    __throw();
  HANDLERS trace("%d", *(fault **)caught == &object);
  END_TRY
}
static void started_early(void) {
  void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  __exception_started();
  trace("%d", _ZSt18uncaught_exceptionv());
  caught_fault(with_failing_end);
  trace("%d", _ZSt18uncaught_exceptionv());
  fault_construct(object, 1);
  __throw();
}
static void caught_after_start(void) { caught_fault(started_early); }
static void left_after_start(void) {
  LOCALS
    REGION(1);
    __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
    __exception_started();
    throw_fault(2);
  END_OBJECTS
}
static void interrupted_without_try(void) { interrupted(2); }
static void loops(void) {
  for (round_number = 0; round_number < 2000; ++round_number) {
    TRY(catch_fault) interrupted(2);
    HANDLERS END_TRY
    test_trace[0] = 0;
  }
}

/* ---- jumps over entries */

static NOINLINE void jumps_over_entries(int value) {
  TRY(catch_all)
    SPECIFICATION(0)
      FUNCTION(0, 0, 0) longjmp(back, value); END_FUNCTION
    END_SPECIFICATION
  HANDLERS END_TRY
}
/* Out of handlers and a throw expression: their exceptions end, the rethrown and those outside go on. */
static NOINLINE void jumps_out_of_handlers(void) {
  TRY(catch_fault)
    TRY(catch_fault) throw_fault(2);
    HANDLERS __rethrow();
    END_TRY
  HANDLERS
    TRY(catch_fault) throw_fault(3);
    HANDLERS
      __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
      jumps_over_entries(1);
    END_TRY
  END_TRY
}
static NOINLINE void constructs_across_a_jump(void) {
  __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  if (setjmp(back) == 0) jumps_out_of_handlers();
  throw_fault(5);
}
static void jumped_while_constructed(void) { caught_fault(constructs_across_a_jump); }
static void jumped(void) {
  LOCALS
    REGION(0);
    TRY(catch_fault)
      REGION(1);
      for (round_number = 0; round_number < 3; ++round_number) {
        const int value = setjmp(back);
        CHECK(__curr_eh_stack_entry == &try_entry && __eh_curr_region == 1 && (value == 0 || value == round_number + 1));
        if (value == 0) jumps_over_entries(round_number + 1);
      }
      throw_fault(1);
    HANDLERS
      if (setjmp(back) == 0) jumps_out_of_handlers();
      trace("back%d", _ZSt18uncaught_exceptionv());
    END_TRY
  END_OBJECTS
}

/* ---- specifications, where generated C checks no second time */

static void violates(void) { SPECIFICATION(catch_int) LOCALS REGION(0), throw_fault(1); END_OBJECTS END_SPECIFICATION }
static void violates_nothing(void) { SPECIFICATION(0) violates(); END_SPECIFICATION }
static void throws_fault_8(void) {
  CHECK(!_ZSt18uncaught_exceptionv());
  trace("U"), throw_fault(8);
}
static void rethrows(void) { trace("U"), __rethrow(); }
static void returns(void) { say("returned"); }
static void replaced_by(a_handler handler, void (*body)(void)) {
  _ZSt14set_unexpectedPFvvE(handler);
  caught_fault(body);
}
static void violated(void) {
  CHECK(_ZSt14set_unexpectedPFvvE(returns) == (a_handler)_ZSt9terminatev);
  replaced_by(throws_fault_8, violates), replaced_by(throws_fault_8, violates_nothing);
  replaced_by(rethrows, violates), replaced_by(rethrows, violates_nothing);
  TRY(catch_fault) throw_fault(3);
  HANDLERS
    TRY(catch_fault) SPECIFICATION(catch_int) rethrow(); END_SPECIFICATION
    HANDLERS END_TRY
    trace("end");
  END_TRY
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
  HANDLERS trace("%d", caught == object);
  END_TRY
}
static void unexpected_returns(void) { replaced_by(returns, violates); }
static void unexpected_is_terminate(void) { violates(); }
static void unexpected_is_null(void) { replaced_by(0, violates); }
static void unexpected_called(void) { _ZSt14set_unexpectedPFvvE(returns), __call_unexpected(); }
static void unexpected_throws_uncaught(void) { _ZSt14set_unexpectedPFvvE(throws_fault_8), violates(); }

/* ---- the ends */

static void element_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  (void)(a + b + c + d + e + f + g + h);
  if (round_number == 2) throw_fault(1);
  ((local *)object)->id = 20 + round_number++;
}
static void everything_is_unwound(void) {
  local array[4];
  TRY(catch_int)
    LOCALS
      SPECIFICATION(catch_fault)
        REGION(1);
        __vec_new_eh(array, 4, sizeof *array, element_construct, local_destroy);
      END_SPECIFICATION
    END_OBJECTS
  HANDLERS END_TRY
}
static void uncaught_from_a_handler(void) {
  TRY(catch_fault) throw_fault(1);
  HANDLERS throw_int(2);
  END_TRY
}
static void fails(void *object, int flags) { local_destroy(object, flags), throw_int(2); }
static void fails_inside(void *object, int flags) {
  (void)object, (void)flags;
  LOCALS REGION(0), throw_int(2); END_OBJECTS
}
static void destructor_throws(void) {
  TRY(catch_all) OBJECTS(local_destroy, fails) REGION(1), throw_fault(1); END_OBJECTS
  HANDLERS END_TRY
}
static void destructor_throws_past_a_local(void) {
  TRY(catch_all) OBJECTS(fails_inside, fails) REGION(0), throw_fault(1); END_OBJECTS
  HANDLERS END_TRY
}
static void exception_fails_while_another_leaves(void) {
  TRY(catch_all)
    TRY(catch_fault) throw_with(fails_at_end, 1);
    HANDLERS throw_fault(2);
    END_TRY
  HANDLERS END_TRY
}
static void parameter_fails(void) {
  LOCALS
    REGION(1);
    TRY(catch_fault) throw_fault(1);
    PARAMETER throw_int(5);
    END_TRY
  END_OBJECTS
}
static void rethrown_too_early(void) {
  TRY(catch_int) throw_int(1);
  PARAMETER __rethrow();
  END_TRY
}
static void rethrown_too_late(void) {
  TRY(catch_int) throw_int(1);
  HANDLERS END_TRY
  __rethrow();
}
static void terminate_throws(void) { say("handler"), throw_double(1); }
static void terminate_rethrows(void) { say("handler"), __rethrow(); }
static void terminate_handles(void) {
  TRY(catch_int) throw_int(4);
  HANDLERS printf("inside-%d ", *(int *)caught);
  END_TRY
  terminated();
}
static void uncaught_inside(a_handler handler) {
  _ZSt13set_terminatePFvvE(handler);
  TRY(catch_double) throw_fault(1);
  HANDLERS say("caught");
  END_TRY
}
static void handler_throws(void) { uncaught_inside(terminate_throws); }
static void handler_throws_while_unwinding(void) { _ZSt13set_terminatePFvvE(terminate_throws), destructor_throws(); }
static void handler_rethrows(void) { uncaught_inside(terminate_rethrows); }
static void handler_handles(void) { uncaught_inside(terminate_handles); }
static void handler_returns(void) { uncaught_inside(returns); }
static void null_called(void) { _ZSt13set_terminatePFvvE(0), _ZSt9terminatev(); }
static void terminate_called(void) { _ZSt9terminatev(); }
static void called_by_the_runtime(void) { __call_terminate(); }

/* What is said of the uncaught: a class of generated code with std::exception at offset 4, types of all sorts. */
static const char *what_of_failure(const void *self) { return (void)self, "disk is full"; }
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
static void by_default(void) { _ZSt13set_terminatePFvvE(abort); }
static void uncaught_int(void) { by_default(), throw_int(1); }
static void uncaught_null_handler(void) { _ZSt13set_terminatePFvvE(0), throw_int(1); }
static void uncaught_pointer(void) {
  by_default();
  THROW(type_fault, void *, PLX_TYPE_POINTER | PLX_TYPE_CONST | PLX_TYPE_VOLATILE, 0);
}
static void uncaught_failure(void) { by_default(), throw_failure_of(&failure); }
static void uncaught_hidden(void) { by_default(), throw_failure_of(&hidden_failure); }
static void uncaught_cast(void) { by_default(), __throw_bad_cast(); }
static void uncaught_allocation(void) { by_default(), __default_new_handler(); }
static void uncaught_again(void) {
  by_default();
  TRY(catch_fault) throw_fault(1);
  HANDLERS __rethrow();
  END_TRY
}
static void rethrow_of_nothing(void) { by_default(), __rethrow(); }

/* ---- broken stacks; the entries are static, so that the harm outlives who does it */

static void push(an_eh_stack_entry *pushed, int kind) {
  memset(pushed, 0, sizeof *pushed);
  pushed->next = __curr_eh_stack_entry;
  pushed->kind = (unsigned char)kind;
  __curr_eh_stack_entry = pushed;
}
static void caught_without_marker(void) { push(&static_entry, PLX_EH_TRY_BLOCK), __exception_caught(); }
static void throw_without_marker(void) {
  *(int *)__throw_setup(&__TI_i, sizeof(int), 0) = 1;
  __exception_started();
  push(&static_entry, PLX_EH_TRY_BLOCK);
  __throw();
}
static void throw_of_nothing(void) { __throw(); }
static void started_nothing(void) { __exception_started(); }
static void unknown_kind(void) { push(&static_entry, 9), throw_int(1); }
static void spoil(void *object, int flags) { (void)object, (void)flags, other_entry.kind = 9; }
static void unknown_kind_while_unwinding(void) {
  push(&other_entry, PLX_EH_SPECIFICATION);
  other_entry.body.specification.allowed_list = catch_all;
  OBJECTS(spoil, spoil) REGION(0), throw_int(1); END_OBJECTS
}
static void leave_entry(void *object, int flags) { (void)object, (void)flags, push(&other_entry, PLX_EH_FUNCTION); }
static void head_changed_while_unwinding(void) {
  TRY(catch_all) OBJECTS(leave_entry, leave_entry) REGION(0), throw_int(1); END_OBJECTS
  HANDLERS END_TRY
}
static void head_changed_in_the_function(void) {
  OBJECTS(leave_entry, leave_entry)
    TRY(catch_all) REGION(0), throw_int(1);
    HANDLERS END_TRY
  END_OBJECTS
}
static void free_twice(void) {
  TRY(catch_all) throw_int(1);
  HANDLERS __free_thrown_object();
  END_TRY
}
static void free_undestroyed(void) { /* a reference that nobody holds */
  TRY(catch_all) throw_int(1);
  HANDLERS ++try_entry.body.try_block.handled_exception->reference_count;
  END_TRY
}
static void free_out_of_order(void) {
  TRY(catch_all) throw_int(1);
  HANDLERS try_entry.body.try_block.handled_exception->object = &other_entry;
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
    TRY(0) throw_int(1);
    HANDLERS END_TRY
  END_SPECIFICATION
}
static void debug_to_file(void) {
  close(2);
  __f_debug = stdout;
  setvbuf(stdout, 0, _IONBF, 0);
  __suppress_optim_on_vars_in_try();
}
#define ASSERTED(line) -SIGABRT, "Assertion failed in file \"libC/throw\", line " #line "\n"
#define UNCAUGHT(text) -SIGABRT, "plx: uncaught exception of type " text "\n"

static const struct {
  void (*body)(void);
  int status;
  const char *text;
} cases[] = {
    {one_function, 0, "~e1 ~2 ~1 caught-2 ~e2 ~e1 ~2 ~1 caught-2 ~e2"},
    {far_from_the_function, 3, "[~2 handler ~1] uncaught=1"},
    {asked, 0, "[int] caught [int] caught"},
    {asked_when_left, 0, "~e1 [int] caught-2 ~e2"},
    {references, 0, "1 1 10 2 1 1 0 ~e1"},
    {one_address, 0, "2 second ~e2 first ~e1 2 second ~e2 first ~e1 2 second ~e2 first ~e1 2 second ~e2 first ~e1"},
    {destructor_of_the_exception_throws, 0, "end ~e1 caught-9 ~e9"},
    {pointer_with_destructor, 0, "1"},
    {caught_after_start, 0, "1 end ~e1 caught-9 ~e9 1 caught-1 ~e1"},
    {left_after_start, 3, "[] uncaught=1"},
    {interrupted_without_try, 3, "[] uncaught=1"},
    {loops, 0, ""},
    {jumped, 0, "~2 ~e3 ~e2 back0 ~e1"},
    {jumped_while_constructed, 0, "~e3 ~e2 caught-5 ~e5"},
    {violated, 0, "~1 U ~e1 caught-8 ~e8 ~1 U ~e1 U ~e8 caught-8 ~e8 ~1 U caught-1 ~e1 ~1 U U caught-1 ~e1 U end ~e3"},
    {not_moved, 0, "1"},
    {unexpected_returns, 3, "returned [~1] uncaught=0"},
    {unexpected_is_terminate, 3, "[~1] uncaught=0"},
    {unexpected_is_null, 3, "[~1] uncaught=0"},
    {unexpected_called, 3, "returned [] uncaught=0"},
    {unexpected_throws_uncaught, 3, "[~1 U] uncaught=1"},
    {everything_is_unwound, 3, "[~21 ~20 ~2 ~1] uncaught=1"},
    {uncaught_from_a_handler, 3, "[~e1] uncaught=1"},
    {destructor_throws, 3, "[~2] uncaught=1"},
    {destructor_throws_past_a_local, 3, "[] uncaught=1"},
    {exception_fails_while_another_leaves, 3, "[~e1] uncaught=1"},
    {parameter_fails, 3, "[] uncaught=1"},
    {rethrown_too_early, 3, "[] uncaught=1"},
    {rethrown_too_late, 3, "[] uncaught=1"},
    {rethrow, 3, "[] uncaught=1"},
    {handler_throws, -SIGABRT, "handler "},
    {handler_throws_while_unwinding, -SIGABRT, "handler "},
    {handler_rethrows, -SIGABRT, "handler "},
    {handler_handles, 3, "inside-4 [] uncaught=1"},
    {handler_returns, -SIGABRT, "returned "},
    {null_called, -SIGABRT, ""},
    {terminate_called, 3, "[] uncaught=0"},
    {called_by_the_runtime, 3, "[] uncaught=1"},
    {uncaught_int, UNCAUGHT("int")},
    {uncaught_null_handler, UNCAUGHT("int")},
    {uncaught_pointer, UNCAUGHT("fault const volatile*")},
    {uncaught_failure, UNCAUGHT("storage::failure: disk is full")},
    {uncaught_hidden, UNCAUGHT("storage::hidden")},
    {uncaught_cast, UNCAUGHT("std::bad_cast: Bad Cast Exception")},
    {uncaught_allocation, UNCAUGHT("std::bad_alloc: Allocation Failure")},
    {uncaught_again, UNCAUGHT("fault")},
    {rethrow_of_nothing, -SIGABRT, "plx: terminated: throw; while no exception is being handled\n"},
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
  TRY(catch_int) throw_int(1);
  HANDLERS if (try_entry.body.try_block.handled_exception->next) printf(" exceptions left");
  END_TRY
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
