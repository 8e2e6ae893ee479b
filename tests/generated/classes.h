/* Two small classes that the tests of generated C throw and keep as locals, and lists that catch them. */
#ifndef TESTS_GENERATED_CLASSES_H
#define TESTS_GENERATED_CLASSES_H

#include "../emit.h"
#include "../harness.h"

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

static TEST_UNUSED NOINLINE void throw_int(int value) { THROW(__TI_i, int, 0, value); }

/* A class with a destructor whose objects are locals; its trace is ~ and its number. */
typedef struct local {
  int id;
} local;

static TEST_UNUSED void local_destroy(void *object, int flags) {
  trace(flags == 2 ? "~%d" : flags == 0 ? "~%d:sub" : "~%d:bad-flags", ((local *)object)->id);
}

static TEST_UNUSED const an_exception_type_specification catch_all[] = {{0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
static TEST_UNUSED const an_exception_type_specification catch_int[] = {{&__TI_i, PLX_TYPE_LAST}};
static TEST_UNUSED const an_exception_type_specification catch_fault[] = {{&type_fault, PLX_TYPE_LAST}};

/* Both stacks are empty and the region is the one the process started with. */
static TEST_UNUSED void free_without_exception(void) { __free_thrown_object(); }
#define CHECK_QUIET()                                                 \
  (CHECK(__curr_eh_stack_entry == 0), CHECK_INT(__eh_curr_region, 0), \
   CHECK_ABORTS(free_without_exception, "Assertion failed in file \"libC/throw\", line 1387\n"))

#endif
