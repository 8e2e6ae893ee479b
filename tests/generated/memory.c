/* Memory in generated C: where thrown objects live and what happens when there is none for the next. operator new,
 * cxxabi/memory has. The heap is the C library's behind counters. test-variants: -O0 | -O2 */
#include "classes.h"
#include "../heap.h"

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
  TRY(catch_big) throw_big(size, depth);
  HANDLERS
  if (depth > 1)
    nested(depth - 1, size);
  else
    live_at_depth = heap_live;
  CHECK(holds((char *)caught, size, depth));
  END_TRY
}

#if HEAP_IS_COUNTED
/* What one exception of each size takes from the heap: nothing until 8192 bytes are alive. The object that just leaves
 * 56 bytes of the initial block still fits there, and its record then needs a block of its own. */
static void sizes(void) {
  static const int cases[][2] = {{1, 0},        {7000, 0},      {8136, 8192},   {8137, 16384},  {8144, 16384},
                                 {8192, 16384}, {12288, 16384}, {12289, 24576}, {12296, 24576}, {100000, 106496}};
  const int live = heap_live;
  size_t bytes = heap_bytes;
  unsigned i;
  for (i = 0; i < 1000; ++i) {
    nested(1, 4000);
    nested(3, 2000);
  }
  CHECK_INT(heap_bytes, bytes);
  for (i = 0; i < sizeof cases / sizeof *cases; ++i) {
    nested(1, cases[i][0]);
    CHECK_INT(heap_bytes - bytes, cases[i][1]);
    bytes = heap_bytes;
  }
  nested(2, 5000); /* the second needs 8192 and has less than 4096 to spare */
  CHECK_INT(heap_bytes - bytes, 16384);
  CHECK_INT(live_at_depth, live + 1);
  bytes = heap_bytes;
  nested(200, 100); /* small objects share blocks */
  CHECK(live_at_depth > live + 5 && heap_bytes - bytes == 8192u * (live_at_depth - live));
  nested(50, 9000);
  CHECK_INT(live_at_depth, live + 50);
  CHECK_INT(heap_live, live);
}

/* Out of memory at every depth and, for the initial block, at every size that leaves room for the object and not for
 * its record: std::terminate. With memory back, its handler can throw and catch as before. */
static int terminations, failing_size, failing_block;
static void terminated(void) {
  heap_fails_at = -1;
  if (++terminations == 1) {
    nested(3, 16);
    nested(3, 5000);
  }
  printf("terminated %d, %d failed", terminations, test_failures);
  fflush(stdout);
  _exit(3);
}
static void out_of_memory(void) {
  _ZSt13set_terminatePFvvE(terminated);
  heap_fails_at = failing_block;
  nested(1000, failing_size);
}
static void no_memory(void) {
  heap_fails_at = 0;
  nested(1, 9000);
}
static void exhausted_heap(void) {
  for (failing_size = 8; failing_size < 9000; failing_size += failing_size >= 7840 && failing_size < 8136 ? 8 : 808)
    for (failing_block = 0; failing_block < 3; ++failing_block) CHECK_ENDS(out_of_memory, 3, "terminated 1, 0 failed");
  CHECK_ABORTS(no_memory, "plx: terminated: no memory for an exception\n");
}
#endif
/* No block can have it, and the heap is not asked. */
static void impossible(void) { __throw_setup(&big, 0x7FFFFFF0, 0); }
static void negative(void) { __throw_setup(&big, -8, 0); }

int main(void) {
  char bytes[8];
  nested(3, 0);
#if HEAP_IS_COUNTED
  sizes();
  exhausted_heap();
#endif
  CHECK_ABORTS(impossible, "plx: terminated: an exception of impossible size\n");
  CHECK_ABORTS(negative, "plx: terminated: an exception of impossible size\n");
  memset(bytes, 'x', sizeof bytes);
  CHECK(__memzero(bytes + 1, 6) == bytes + 1 && memcmp(bytes, "x\0\0\0\0\0\0x", 8) == 0);
  CHECK_QUIET();
  return TEST_RESULT();
}
