/* Throws in generated C: a try block, and functions that each own one object, written as a compiler emits them. The
 * peers' side of the same cases is generated.peer.cpp: the C++ that this code would have been translated from.
 */
#include <plx/runtime.h>

#include "bench.h"

#ifndef WORLD
#define WORLD "generated C"
#endif

static unsigned long destroyed = 0;

static void destroy_guard(void *object, int flags) {
  (void)flags;
  BENCH_TOUCH(object);
  ++destroyed;
}

static const a_region_record guard_regions[] = {{(a_routine)destroy_guard, 0, PLX_NO_REGION, 0}};
static const an_exception_type_specification int_clause[] = {{&__TI_i, PLX_TYPE_LAST}};

static BENCH_NOINLINE void throw_if(int value) {
  if (value != 0) {
    *(int *)__throw_setup(&__TI_i, sizeof(int), 0) = value;
    __throw();
  }
  BENCH_TOUCH(&value);
}

/* { guard local; next(value); } */
#define OWNING_FRAME(name, callee)                       \
  static BENCH_NOINLINE void name(int value) {           \
    an_eh_stack_entry entry;                             \
    void *addresses[1];                                  \
    char guard;                                          \
    entry.next = __curr_eh_stack_entry;                  \
    entry.kind = PLX_EH_FUNCTION;                        \
    entry.body.function.region_table = guard_regions;    \
    entry.body.function.object_addresses = addresses;    \
    entry.body.function.array_table = 0;                 \
    entry.body.function.saved_region = __eh_curr_region; \
    __eh_curr_region = PLX_NO_REGION;                    \
    __curr_eh_stack_entry = &entry;                      \
    addresses[0] = &guard;                               \
    __eh_curr_region = 0;                                \
    callee(value);                                       \
    __eh_curr_region = PLX_NO_REGION;                    \
    destroy_guard(&guard, 2);                            \
    __eh_curr_region = entry.body.function.saved_region; \
    __curr_eh_stack_entry = entry.next;                  \
  }

OWNING_FRAME(frame_1, throw_if)
OWNING_FRAME(frame_2, frame_1)
OWNING_FRAME(frame_3, frame_2)
OWNING_FRAME(frame_4, frame_3)
OWNING_FRAME(frame_5, frame_4)
OWNING_FRAME(frame_6, frame_5)
OWNING_FRAME(frame_7, frame_6)
OWNING_FRAME(frame_8, frame_7)
OWNING_FRAME(frame_9, frame_8)
OWNING_FRAME(frame_10, frame_9)
OWNING_FRAME(frame_11, frame_10)
OWNING_FRAME(frame_12, frame_11)
OWNING_FRAME(frame_13, frame_12)
OWNING_FRAME(frame_14, frame_13)
OWNING_FRAME(frame_15, frame_14)
OWNING_FRAME(frame_16, frame_15)
OWNING_FRAME(frame_17, frame_16)
OWNING_FRAME(frame_18, frame_17)
OWNING_FRAME(frame_19, frame_18)
OWNING_FRAME(frame_20, frame_19)

/* for each i: try { body(i); } catch (int value) { sum += value; }
 *
 * _setjmp, because the setjmp of <setjmp.h> also notes the eh stack in the buffer for a longjmp of the program's own;
 * the runtime, which jumps here, has no use for it. */
#define TRY_LOOP(name, body_statement)                      \
  static unsigned long name(unsigned long iterations) {     \
    volatile unsigned long sum = 0;                         \
    volatile unsigned long i;                               \
    destroyed = 0;                                          \
    for (i = 1; i <= iterations; ++i) {                     \
      an_eh_stack_entry entry;                              \
      entry.next = __curr_eh_stack_entry;                   \
      entry.kind = PLX_EH_TRY_BLOCK;                        \
      entry.body.try_block.clause_list = int_clause;        \
      entry.body.try_block.handled_exception = 0;           \
      entry.body.try_block.try_region = __eh_curr_region;   \
      __curr_eh_stack_entry = &entry;                       \
      if (_setjmp(entry.body.try_block.jump_buffer) == 0) { \
        body_statement                                      \
      } else {                                              \
        int value = *(int *)__caught_object_address;        \
        __exception_caught();                               \
        sum += value;                                       \
        __free_thrown_object();                             \
      }                                                     \
      __curr_eh_stack_entry = entry.next;                   \
    }                                                       \
    return sum + destroyed;                                 \
  }

TRY_LOOP(same_function, {
  *(int *)__throw_setup(&__TI_i, sizeof(int), 0) = (int)i;
  __throw();
})
TRY_LOOP(through_5, frame_5((int)i);)
TRY_LOOP(through_20, frame_20((int)i);)
TRY_LOOP(no_throw, throw_if(0);)

static const bench_case cases[] = {
    {WORLD ": throw and catch", 20, 1, same_function},
    {WORLD ": throw through 5 owning frames", 20, 1, through_5},
    {WORLD ": throw through 20 owning frames", 20, 1, through_20},
    {WORLD ": try block, nothing thrown", 1, 1, no_throw},
};

int main(int argc, char **argv) {
  _main();
  return bench_main(argc, argv, cases, (int)(sizeof cases / sizeof cases[0]));
}
