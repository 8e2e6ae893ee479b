/* Where thrown objects live: no heap until 8192 bytes are alive at once, blocks that come and go with the depth, and
 * what happens when there is no memory for the next one. test-variants: -O0 | -O2 */
#include "classes.h"
#include "heap.h"

EMIT_CLASS(big, "big", 0);
static const an_exception_type_specification catch_big[] = {{&big, PLX_TYPE_LAST}};

static NOINLINE void throw_big(int size, int pattern) {
  void *object = __throw_setup(&big, size, 0);
  CHECK(((size_t)object & 7) == 0);
  memset(object, pattern, (size_t)size);
  __throw();
}
static int holds(const char *object, int size, int pattern) {
  while (size > 0 && object[size - 1] == (char)pattern) --size;
  return size == 0;
}

/* `depth` exceptions alive at once, each in the handler of the one before. */
static int live_at_depth;
static NOINLINE void nested(int depth, int size) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_big) { throw_big(size, depth); }
  EMIT_HANDLERS {
    const char *object = (const char *)__caught_object_address;
    __exception_caught();
    if (depth > 1)
      nested(depth - 1, size);
    else
      live_at_depth = heap_live;
    CHECK(holds(object, size, depth));
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* The same object, thrown again at each depth. */
static NOINLINE void rethrown(int depth, int is_last) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_big) {
    if (depth == 0)
      throw_big(100, 'r');
    else
      rethrown(depth - 1, 0);
  }
  EMIT_HANDLERS {
    __exception_caught();
    CHECK(holds((const char *)__caught_object_address, 100, 'r'));
    if (!is_last) __rethrow();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

#if HEAP_IS_COUNTED
static void shallow(void) {
  const int calls = heap_calls;
  volatile int i;
  for (i = 0; i < 1000; ++i) {
    nested(1, 1);
    nested(1, 4000);
    nested(3, 2000);
  }
  CHECK_INT(heap_calls, calls);
}

/* What one exception of each size takes from the heap. The object that just leaves 56 bytes of the initial block
 * still fits there, and its record then needs a block of its own. */
static void sizes(void) {
  static const struct {
    int size;
    size_t bytes;
  } cases[] = {{1, 0},        {7000, 0},      {8136, 8192},   {8137, 16384},  {8144, 16384},
               {8192, 16384}, {12288, 16384}, {12289, 24576}, {12296, 24576}, {100000, 106496}};
  unsigned i;
  for (i = 0; i < sizeof cases / sizeof *cases; ++i) {
    const int live = heap_live;
    const size_t bytes = heap_bytes;
    nested(1, cases[i].size);
    CHECK_INT(heap_bytes - bytes, cases[i].bytes);
    CHECK_INT(heap_live, live);
  }
}

static void deep(void) {
  const int live = heap_live;
  size_t bytes = heap_bytes;
  nested(2, 5000); /* the first fits into the initial block, the second needs 8192 and has less than 4096 to spare */
  CHECK_INT(heap_bytes - bytes, 16384);
  CHECK_INT(live_at_depth, live + 1);
  CHECK_INT(heap_live, live);
  bytes = heap_bytes;
  nested(200, 100); /* small objects share blocks of 8192 */
  CHECK(live_at_depth > live + 5 && (heap_bytes - bytes) % 8192 == 0);
  CHECK_INT((heap_bytes - bytes) / 8192, live_at_depth - live);
  CHECK_INT(heap_live, live);
  nested(50, 9000);
  CHECK_INT(live_at_depth, live + 50);
  CHECK_INT(heap_live, live);
  rethrown(0, 1);
  rethrown(200, 1);
  CHECK_INT(heap_live, live);
}

/* Out of memory at every depth and, for the initial block, at every size that leaves room for the object and not for
 * its record: std::terminate. With memory back, its handler can throw and catch as before. */
static int terminations;
static void terminated(void) {
  heap_fails_at = -1;
  if (++terminations == 1) {
    nested(3, 16);
    nested(3, 5000);
    nested(1, 100);
    rethrown(0, 1);
  }
  printf("terminated %d, %d failed", terminations, test_failures);
  fflush(stdout);
  _exit(3);
}
static int failing_size, failing_block;
static void out_of_memory(void) {
  _ZSt13set_terminatePFvvE(terminated);
  heap_fails_at = failing_block;
  nested(1000, failing_size);
}
/* Memory stays away: the handler's own exception has no room either, which is the end. */
static void still_no_memory(void) {
  printf("handler;");
  fflush(stdout);
  nested(1000, 100);
}
static void no_memory_in_handler(void) {
  _ZSt13set_terminatePFvvE(still_no_memory);
  heap_fails_at = 0;
  nested(1000, 100);
}
static void no_memory(void) {
  heap_fails_at = 0;
  nested(1, 9000);
}
static void exhausted(void) {
  for (failing_size = 8; failing_size < 9000; failing_size += 808)
    for (failing_block = 0; failing_block < 3; ++failing_block) CHECK_ENDS(out_of_memory, 3, "terminated 1, 0 failed");
  failing_block = 0;
  for (failing_size = 7840; failing_size <= 8136; failing_size += 8)
    CHECK_ENDS(out_of_memory, 3, "terminated 1, 0 failed");
  CHECK_ABORTS(no_memory_in_handler, "handler;");
  CHECK_ABORTS(no_memory, "plx: terminated: no memory for an exception\n");
}
#endif

/* A size that no block can have. */
static void too_big(void) { __throw_setup(&big, 0x7FFFFFF0, 0); }

int main(void) {
  nested(3, 0);
  nested(200, 100);
  nested(50, 9000);
  nested(2, 70000);
  rethrown(300, 1);
#if HEAP_IS_COUNTED
  shallow();
  sizes();
  deep();
  exhausted();
#endif
  CHECK_ABORTS(too_big, "");
  CHECK_QUIET();
  return TEST_RESULT();
}
