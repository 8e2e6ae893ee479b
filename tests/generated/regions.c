/* Region tables: every flag of a region record and the combinations that mean something, chains that stop at a try
 * block, functions inside functions, and the order in which everything dies. test-variants: -O0 | -O2 */
#include "classes.h"

/* Runs `body`, which throws, and traces the handler. */
static NOINLINE void caught(void (*body)(void)) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_all) { body(); }
  EMIT_HANDLERS {
    __exception_caught();
    trace("caught");
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

static NOINLINE void two_locals(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 1, 0, 0}};
  local a, b;
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  addresses[1] = &b;
  local_construct(&a, 1);
  __eh_curr_region = 0;
  local_construct(&b, 2);
  __eh_curr_region = 1;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* Only what was complete is destroyed: the second constructor is what throws. */
static NOINLINE void second_constructor_throws(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 1, 0, 0}};
  local a;
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  local_construct(&a, 1);
  __eh_curr_region = 0;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* A member or base of an object whose constructor fails is a subobject. */
static NOINLINE void subobject(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, PLX_REGION_SUBOBJECT}};
  local a;
  void *addresses[1];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  local_construct(&a, 1);
  __eh_curr_region = 0;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* The object is known by a pointer that the function may still move. */
static NOINLINE void indirect(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, PLX_REGION_INDIRECT}};
  local a, b;
  local *volatile pointer = &a;
  void *addresses[1];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = (void *)&pointer;
  local_construct(&a, 1);
  local_construct(&b, 2);
  __eh_curr_region = 0;
  pointer = &b;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* A temporary that exists on one path only. The carrier record is passed over by the chain. The flag is 32 bits wide:
 * a flag whose low bytes are zero is still set. */
static volatile int conditional_flag;
static NOINLINE void conditional(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 1, 0, PLX_REGION_CONDITIONAL},
                                            {0, 3, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 2, 1, 0}};
  local a, b, c;
  void *addresses[4];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  addresses[1] = &b;
  addresses[2] = &c;
  addresses[3] = (void *)&conditional_flag;
  local_construct(&a, 1);
  __eh_curr_region = 0;
  if (conditional_flag) local_construct(&b, 2);
  __eh_curr_region = 1;
  local_construct(&c, 3);
  __eh_curr_region = 3;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* Conditional and indirect at once: with a flag of zero the pointer is not even read. */
static NOINLINE void conditional_indirect(void) {
  static const a_region_record regions[] = {
      {DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, PLX_REGION_CONDITIONAL | PLX_REGION_INDIRECT},
      {0, 1, PLX_NO_REGION, 0}};
  local a;
  local *volatile pointer = &a;
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = conditional_flag ? (void *)&pointer : 0;
  addresses[1] = (void *)&conditional_flag;
  a.id = 1;
  __eh_curr_region = 0;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

static char block[64];
static void release(void *address) { trace(address == block ? "free" : "free-wrong"); }
static void release_sized(void *address, size_t bytes) {
  trace(address == block ? "free(%u)" : "free-wrong(%u)", (unsigned)bytes);
}

/* The memory of a new-expression whose constructor fails. */
static void *volatile new_pointer;
static NOINLINE void deallocate(void) {
  static const a_region_record regions[] = {{(a_routine)release, 0, PLX_NO_REGION, PLX_REGION_DEALLOCATE},
                                            {(a_routine)release, 1, 0, PLX_REGION_DEALLOCATE | PLX_REGION_INDIRECT}};
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = new_pointer;
  addresses[1] = (void *)&new_pointer;
  __eh_curr_region = 1;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

static NOINLINE void deallocate_sized(void) {
  static const a_region_record regions[] = {
      {(a_routine)release_sized, 0, PLX_NO_REGION, PLX_REGION_DEALLOCATE | PLX_REGION_ARRAY},
      {(a_routine)release_sized, 1, 0, PLX_REGION_DEALLOCATE | PLX_REGION_ARRAY | PLX_REGION_INDIRECT}};
  static const an_array_record arrays[] = {{1, 48, 1}, {0, 24, 3}};
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, arrays);
  addresses[0] = (void *)&new_pointer; /* array record 1 */
  addresses[1] = new_pointer;          /* array record 0 */
  __eh_curr_region = 1;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* An array of objects dies last element first; so does one behind a pointer. A null address is no array. */
static NOINLINE void arrays(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, PLX_REGION_ARRAY},
                                            {DESTRUCTOR(local_destroy), 1, 0, PLX_REGION_ARRAY | PLX_REGION_INDIRECT},
                                            {DESTRUCTOR(local_destroy), 2, 1, PLX_REGION_ARRAY}};
  static const an_array_record table[] = {{2, sizeof(local), 3}, {0, 2 * sizeof(local), 2}, {1, sizeof(local), 9}};
  local a[3], b[4];
  local *volatile pointer = b;
  void *addresses[3];
  an_eh_stack_entry entry;
  int i;
  EMIT_FUNCTION(entry, regions, addresses, table);
  addresses[0] = (void *)&pointer;
  addresses[1] = 0;
  addresses[2] = a;
  for (i = 0; i < 3; ++i) a[i].id = 10 + i;
  for (i = 0; i < 4; ++i) b[i].id = 20 + i;
  __eh_curr_region = 2;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* A local static whose initialiser fails is marked as not begun. */
static void *clear_word, *clear_other;
static NOINLINE void clear(void) {
  static const a_region_record regions[] = {{0, 0, PLX_NO_REGION, PLX_REGION_CLEAR},
                                            {0, 1, 0, PLX_REGION_CLEAR | PLX_REGION_INDIRECT}};
  void *volatile pointer = &clear_other;
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  clear_word = clear_other = block;
  addresses[0] = &clear_word;
  addresses[1] = (void *)&pointer;
  __eh_curr_region = 1;
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* A handler in the same function: only what was completed since the try is destroyed, and the region is the try's.
 * A specification and another try lie between the handler and its function's entry. */
static NOINLINE void handler_in_the_same_function(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 1, 0, 0},
                                            {DESTRUCTOR(local_destroy), 2, 1, 0},
                                            {DESTRUCTOR(local_destroy), 3, 0, 0}};
  local a, b, c, d;
  void *addresses[4];
  an_eh_stack_entry entry, specification, other, try_entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  addresses[1] = &b;
  addresses[2] = &c;
  addresses[3] = &d;
  local_construct(&a, 1);
  __eh_curr_region = 0;
  EMIT_SPECIFICATION(specification, catch_all);
  EMIT_TRY(other, catch_double) {
    EMIT_TRY(try_entry, catch_int) {
      local_construct(&b, 2);
      __eh_curr_region = 1;
      local_construct(&c, 3);
      __eh_curr_region = 2;
      throw_int(0);
    }
    EMIT_HANDLERS {
      CHECK_INT(__eh_curr_region, 0);
      __exception_caught();
      trace("handler");
      local_construct(&d, 4);
      __eh_curr_region = 3;
      local_destroy(&d, 2);
      __eh_curr_region = 0;
      __free_thrown_object();
    }
    EMIT_END_TRY(try_entry);
  }
  EMIT_HANDLERS { trace("wrong"); }
  EMIT_END_TRY(other);
  EMIT_LEAVE_SPECIFICATION(specification);
  local_destroy(&a, 2);
  __eh_curr_region = PLX_NO_REGION;
  EMIT_LEAVE_FUNCTION(entry);
}

/* Functions inside each other, each with a local and at a region of its own number when the exception passes. */
static NOINLINE void nested(int depth) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  local_construct(&a, depth);
  __eh_curr_region = (unsigned short)depth;
  if (depth < 3)
    nested(depth + 1);
  else
    throw_int(0);
  local_destroy(&a, 2);
  __eh_curr_region = PLX_NO_REGION;
  EMIT_LEAVE_FUNCTION(entry);
}
static NOINLINE void nested_from_one(void) { nested(1); }

/* A function that owns nothing yet when the exception passes. */
static NOINLINE void nothing_constructed(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  void *addresses[1];
  an_eh_stack_entry entry;
  addresses[0] = 0;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  throw_int(0);
  EMIT_LEAVE_FUNCTION(entry);
}

/* The region of the catching function is its own again, whatever the functions inside did. */
static void region_is_restored(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry entry, try_entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  local_construct(&a, 0);
  __eh_curr_region = 0;
  EMIT_TRY(try_entry, catch_int) { nested(1); }
  EMIT_HANDLERS {
    CHECK_INT(__eh_curr_region, 0);
    CHECK(__curr_eh_stack_entry->next == &try_entry);
    __exception_caught();
    trace("handler");
    __free_thrown_object();
  }
  EMIT_END_TRY(try_entry);
  local_destroy(&a, 2);
  EMIT_LEAVE_FUNCTION(entry);
  CHECK_TRACE("+0 +1 +2 +3 ~3 ~2 ~1 handler ~0");
}

/* A destructor that unwinding runs may itself own objects, throw and catch. */
static void busy_destroy(void *object, int flags) {
  an_eh_stack_entry entry;
  (void)object;
  (void)flags;
  CHECK(_ZSt18uncaught_exceptionv());
  trace("busy(");
  EMIT_TRY(entry, catch_int) { nested(2); }
  EMIT_HANDLERS {
    __exception_caught();
    CHECK(_ZSt18uncaught_exceptionv());
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  trace(")");
}
static NOINLINE void busy_destructor(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(busy_destroy), 0, 0, 0},
                                            {DESTRUCTOR(local_destroy), 1, 1, 0}};
  local a, b;
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &a;
  addresses[1] = &b;
  a.id = 8;
  b.id = 9;
  __eh_curr_region = 2;
  throw_fault(1);
  EMIT_LEAVE_FUNCTION(entry);
}

int main(void) {
  caught(two_locals);
  CHECK_TRACE("+1 +2 ~2 ~1 caught");
  caught(second_constructor_throws);
  CHECK_TRACE("+1 ~1 caught");
  caught(subobject);
  CHECK_TRACE("+1 ~1:sub caught");
  caught(indirect);
  CHECK_TRACE("+1 +2 ~2 caught");

  conditional_flag = 1;
  caught(conditional);
  CHECK_TRACE("+1 +2 +3 ~3 ~2 ~1 caught");
  conditional_flag = 0;
  caught(conditional);
  CHECK_TRACE("+1 +3 ~3 ~1 caught");
  conditional_flag = 0x10000;
  caught(conditional);
  CHECK_TRACE("+1 +2 +3 ~3 ~2 ~1 caught");
  caught(conditional_indirect);
  CHECK_TRACE("~1 caught");
  conditional_flag = 0;
  caught(conditional_indirect);
  CHECK_TRACE("caught");

  new_pointer = block;
  caught(deallocate);
  CHECK_TRACE("free free caught");
  caught(deallocate_sized);
  CHECK_TRACE("free(24) free(48) caught");
  new_pointer = 0;
  caught(deallocate);
  caught(deallocate_sized);
  CHECK_TRACE("caught caught");

  caught(arrays);
  CHECK_TRACE("~22 ~20 ~12 ~11 ~10 caught");
  caught(clear);
  CHECK_TRACE("caught");
  CHECK(clear_word == 0 && clear_other == 0);

  handler_in_the_same_function();
  CHECK_TRACE("+1 +2 +3 ~3 ~2 handler +4 ~4 ~1");
  caught(nested_from_one);
  CHECK_TRACE("+1 +2 +3 ~3 ~2 ~1 caught");
  caught(nothing_constructed);
  CHECK_TRACE("caught");
  region_is_restored();
  caught(busy_destructor);
  CHECK_TRACE("~9 busy( +2 +3 ~3 ~2 ) ~8 caught ~e1");
  CHECK_QUIET();
  return TEST_RESULT();
}
