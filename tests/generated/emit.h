/* What a compiler emits for try blocks, functions with objects, exception specifications and classes, as macros, and
 * two small classes that the tests throw and keep as locals.
 *
 * The macros hold nothing but stores to the records and to the two globals, so that a test reads like the output of a
 * compiler and still fits on a page. Locals that change between setjmp and the handler are volatile or in an array
 * whose address the eh stack knows. */
#ifndef TESTS_GENERATED_EMIT_H
#define TESTS_GENERATED_EMIT_H

#include "../harness.h"

#include <plx/runtime.h>

#if defined(__GNUC__)
#define NOINLINE __attribute__((__noinline__))
#else
#define NOINLINE
#endif

/* try { ... } HANDLERS { ... } END_TRY. */
#define EMIT_TRY(entry, clauses)                                                                 \
  ((entry).next = __curr_eh_stack_entry, (entry).kind = PLX_EH_TRY_BLOCK,                        \
   (entry).body.try_block.clause_list = (clauses), (entry).body.try_block.handled_exception = 0, \
   (entry).body.try_block.try_region = __eh_curr_region, __curr_eh_stack_entry = &(entry));      \
  if (setjmp((entry).body.try_block.jump_buffer) == 0)
#define EMIT_HANDLERS else
#define EMIT_END_TRY(entry) (__curr_eh_stack_entry = (entry).next)

/* Entry to and exit from a function that owns objects. */
#define EMIT_FUNCTION(entry, regions, addresses, arrays)                                                 \
  ((entry).next = __curr_eh_stack_entry, (entry).kind = PLX_EH_FUNCTION,                                 \
   (entry).body.function.region_table = (regions), (entry).body.function.object_addresses = (addresses), \
   (entry).body.function.array_table = (arrays), (entry).body.function.saved_region = __eh_curr_region,  \
   __curr_eh_stack_entry = &(entry), __eh_curr_region = PLX_NO_REGION)
#define EMIT_LEAVE_FUNCTION(entry) \
  (__eh_curr_region = (entry).body.function.saved_region, __curr_eh_stack_entry = (entry).next)

/* Entry to and exit from a function with an exception specification. */
#define EMIT_SPECIFICATION(entry, allowed)                                    \
  ((entry).next = __curr_eh_stack_entry, (entry).kind = PLX_EH_SPECIFICATION, \
   (entry).body.specification.allowed_list = (allowed), __curr_eh_stack_entry = &(entry))
#define EMIT_LEAVE_SPECIFICATION(entry) (__curr_eh_stack_entry = (entry).next)

/* The descriptor and identity of a class. */
#define EMIT_CLASS(type, text, base_list) \
  static const char type##_identity = 0;  \
  static const a_type_info_impl type TEST_UNUSED = {PLX_TYPE_INFO_VTABLE, text, &type##_identity, base_list}

/* A region's routine. */
#define DESTRUCTOR(function) ((a_routine)(function))

/* A class with a destructor that is thrown; its trace is ~e and its number. */
typedef struct fault {
  int alive;
  int id;
} fault;
#define FAULT_ALIVE 0x0FA17000

EMIT_CLASS(type_fault, "fault", 0);

static TEST_UNUSED void fault_construct(void *object, int id) {
  ((fault *)object)->alive = FAULT_ALIVE;
  ((fault *)object)->id = id;
}

static TEST_UNUSED void fault_destroy(void *object, int flags) {
  fault *self = (fault *)object;
  CHECK_INT(self->alive, FAULT_ALIVE);
  CHECK_INT(flags, 2);
  self->alive = 0;
  trace("~e%d", self->id);
}

static TEST_UNUSED NOINLINE void throw_fault(int id) {
  void *object = __throw_setup_dtor(&type_fault, sizeof(fault), 0, fault_destroy);
  fault_construct(object, id);
  __throw();
}

static TEST_UNUSED NOINLINE void throw_int(int value) {
  int *object = (int *)__throw_setup(&__TI_i, sizeof *object, 0);
  *object = value;
  __throw();
}

static TEST_UNUSED NOINLINE void throw_double(double value) {
  double *object = (double *)__throw_setup(&__TI_d, sizeof *object, 0);
  *object = value;
  __throw();
}

static TEST_UNUSED int caught_fault_id(void) { return ((fault *)__caught_object_address)->id; }

/* A class with a destructor whose objects are locals; its trace is + or ~ and its number. */
typedef struct local {
  int id;
} local;

static TEST_UNUSED void local_construct(local *self, int id) {
  self->id = id;
  trace("+%d", id);
}

static TEST_UNUSED void local_destroy(void *object, int flags) {
  trace(flags == 2 ? "~%d" : flags == 0 ? "~%d:sub" : "~%d:bad-flags", ((local *)object)->id);
}

static TEST_UNUSED const an_exception_type_specification catch_all[] = {{0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
static TEST_UNUSED const an_exception_type_specification catch_int[] = {{&__TI_i, PLX_TYPE_LAST}};
static TEST_UNUSED const an_exception_type_specification catch_double[] = {{&__TI_d, PLX_TYPE_LAST}};
static TEST_UNUSED const an_exception_type_specification catch_fault[] = {{&type_fault, PLX_TYPE_LAST}};

/* Both stacks are empty and the region is the one the process started with. */
static TEST_UNUSED void free_without_exception(void) { __free_thrown_object(); }
#define CHECK_QUIET()                                                 \
  (CHECK(__curr_eh_stack_entry == 0), CHECK_INT(__eh_curr_region, 0), \
   CHECK_ABORTS(free_without_exception, "Assertion failed in file \"libC/throw\", line 1387\n"))

#endif
