/* Arrays: construction and destruction in both directions, failing at each element, with every way to allocate and
 * free, the byte counts that each of them sees, and cookies. operator new[] and delete[] are the program's own here.
 * test-variants: -O0 | -O1 | -O2 */
#include "classes.h"

/* An element that knows where it stands. fail_at is the index whose constructor or destructor throws. */
enum { COUNT = 4, SIZE = 12 };
typedef struct element {
  int index;
  int unused[2];
} element;
PLX_LAYOUT_ASSERT(element_size, sizeof(element) == SIZE);

static element *first;
static int fail_at;

static void check_zeros(int a, int b, int c, int d, int e, int f, int g, int h) {
  CHECK(!a && !b && !c && !d && !e && !f && !g && !h);
}
static void element_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  element *self = (element *)object;
  if (!first) first = self;
  check_zeros(a, b, c, d, e, f, g, h);
  self->index = (int)(self - first);
  if (self->index == fail_at) throw_int(self->index);
  trace("+%d", self->index);
}
static void element_copy(void *object, const void *source) {
  element *self = (element *)object;
  if (!first) first = self;
  self->index = ((const element *)source)->index;
  CHECK_INT(self->index, 100 + (self - first));
  if (self - first == fail_at) throw_int(fail_at);
  trace("+%d", (int)(self - first));
}
static void element_destroy(void *object, int flags) {
  const int index = (int)((element *)object - first);
  CHECK_INT(flags, 2);
  trace("~%d", index);
  if (index == fail_at) throw_int(index);
}

/* One block at a time, so that every form can be checked for what it asked and gave back. */
static union {
  an_array_cookie cookie;
  double room[64];
} block;
#define POOL ((void *)&block)
static int refuse;
static void *allocate(size_t bytes, const char *name) {
  trace("%s(%u)", name, (unsigned)bytes);
  return refuse ? 0 : POOL;
}
static void *allocate_mine(size_t bytes) { return allocate(bytes, "mine"); }
static void *allocate_failing(size_t bytes) {
  (void)bytes;
  throw_int(77);
  return 0;
}
static void free_mine(void *freed) { trace(freed == POOL ? "free" : "free-wrong"); }
static void free_sized(void *freed, size_t bytes) {
  trace(freed == POOL ? "free(%u)" : "free-wrong(%u)", (unsigned)bytes);
}
void *_Znaj(unsigned int bytes) { return allocate(bytes, "new[]"); }
void _ZdaPv(void *freed) { trace(freed == POOL ? "delete[]" : "delete[]-wrong"); }

#define ELEMENTS ((element *)((char *)POOL + 8))
static void write_cookie(unsigned count, unsigned size) {
  block.cookie.total = count * size;
  block.cookie.inverted_count = ~count;
}

/* Calls `body` with the failure at `index`; the trace ends with what was caught. */
static void *result;
static NOINLINE void failing_at(int index, void (*body)(void)) {
  an_eh_stack_entry entry;
  fail_at = index;
  first = 0;
  result = 0;
  EMIT_TRY(entry, catch_int) { body(); }
  EMIT_HANDLERS {
    const int value = *(int *)__caught_object_address;
    __exception_caught();
    trace("caught-%d", value);
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK(__curr_eh_stack_entry == 0);
}

static element in_place[COUNT + 2], source[COUNT];

static void vec_new_here(void) { result = __vec_new(in_place, COUNT, SIZE, element_construct); }
static void vec_new(void) { result = __vec_new(0, COUNT, SIZE, element_construct); }
static void vec_new_eh_here(void) { result = __vec_new_eh(in_place, COUNT, SIZE, element_construct, element_destroy); }
static void vec_new_eh(void) { result = __vec_new_eh(0, COUNT, SIZE, element_construct, element_destroy); }
static void vec_cctor_here(void) { result = __vec_cctor(in_place, COUNT, SIZE, element_copy, source); }
static void vec_cctor_eh_here(void) {
  result = __vec_cctor_eh(in_place, COUNT, SIZE, element_copy, source, element_destroy);
}
static void vec_cctor_eh(void) { result = __vec_cctor_eh(0, COUNT, SIZE, element_copy, source, element_destroy); }
static void array_new(void) {
  result =
      __array_new(COUNT, SIZE, element_construct, element_destroy, (a_routine)allocate_mine, (a_routine)free_mine, 0);
}
static void array_new_sized(void) {
  result =
      __array_new(COUNT, SIZE, element_construct, element_destroy, (a_routine)allocate_mine, (a_routine)free_sized, 1);
}
static void array_new_plain(void) {
  result = __array_new(COUNT, SIZE, element_construct, 0, (a_routine)allocate_mine, (a_routine)free_sized, 1);
}
static void array_new_default(void) { result = __array_new(COUNT, SIZE, element_construct, element_destroy, 0, 0, 0); }
static void array_new_refused(void) {
  result = __array_new(COUNT, SIZE, element_construct, element_destroy, (a_routine)allocate_failing,
                       (a_routine)free_sized, 1);
}
static void array_new_empty(void) {
  result = __array_new(0, SIZE, element_construct, element_destroy, (a_routine)allocate_mine, (a_routine)free_sized, 1);
}
static void placement(void) {
  result = __placement_array_new(ELEMENTS, COUNT, SIZE, element_construct, element_destroy);
}

/* Without a failure. */
static void constructed(void) {
  int i;
  for (i = 0; i < COUNT; ++i) source[i].index = 100 + i;
  CHECK_INT(__array_new_prefix_size, 8);

  failing_at(-1, vec_new_here);
  CHECK_TRACE("+0 +1 +2 +3");
  CHECK(result == in_place);
  failing_at(-1, vec_new);
  CHECK_TRACE("new[](56) +0 +1 +2 +3");
  CHECK(result == ELEMENTS);
  CHECK_INT(block.cookie.total, COUNT * SIZE);
  CHECK_INT(block.cookie.inverted_count, ~(unsigned)COUNT);
  failing_at(-1, vec_new_eh_here);
  CHECK_TRACE("+0 +1 +2 +3");
  failing_at(-1, vec_cctor_here);
  CHECK_TRACE("+0 +1 +2 +3");
  failing_at(-1, vec_cctor_eh_here);
  CHECK_TRACE("+0 +1 +2 +3");
  CHECK(result == in_place);

  memset(&block, 0, sizeof block);
  failing_at(-1, array_new_sized);
  CHECK_TRACE("mine(56) +0 +1 +2 +3");
  CHECK(result == ELEMENTS);
  CHECK_INT(block.cookie.total, COUNT * SIZE);
  CHECK_INT(block.cookie.inverted_count, ~(unsigned)COUNT);
  failing_at(-1, array_new_empty);
  CHECK_TRACE("mine(8)");
  CHECK(result == ELEMENTS);
  CHECK_INT(block.cookie.total, 0);
  CHECK_INT(block.cookie.inverted_count, -1);
  memset(&block, 0, sizeof block);
  failing_at(-1, placement);
  CHECK_TRACE("+0 +1 +2 +3");
  CHECK(result == ELEMENTS);
  CHECK_INT(block.cookie.total, COUNT * SIZE);

  CHECK(__vec_cctor(in_place, COUNT, SIZE, 0, source) == in_place);
  CHECK(__vec_new_eh(in_place, COUNT, SIZE, 0, element_destroy) == in_place);
  CHECK_TRACE("");
  refuse = 1;
  failing_at(-1, array_new_sized);
  CHECK(result == 0);
  failing_at(-1, vec_new_eh);
  CHECK(result == 0);
  CHECK_TRACE("mine(56) new[](56)");
  refuse = 0;
  failing_at(-1, array_new_refused);
  CHECK_TRACE("caught-77");
}

/* The elements before `index` die in reverse order, then the memory goes if it was allocated there. */
static void undone(int index, void (*body)(void), const char *before, int destroys, const char *after) {
  char want[200];
  int i;
  strcpy(want, before);
  for (i = 0; i < index; ++i) sprintf(want + strlen(want), "+%d ", i);
  if (destroys)
    for (i = index; i-- > 0;) sprintf(want + strlen(want), "~%d ", i);
  sprintf(want + strlen(want), after, SIZE * index + 8);
  sprintf(want + strlen(want), "caught-%d", index);
  failing_at(index, body);
  CHECK_TRACE(want);
}

static void construction_fails(void) {
  int i;
  for (i = 0; i < COUNT; ++i) {
    undone(i, vec_new_here, "", 0, "");
    undone(i, vec_new, "new[](56) ", 0, "delete[] ");
    undone(i, vec_new_eh_here, "", 1, "");
    undone(i, vec_new_eh, "new[](56) ", 1, "delete[] ");
    undone(i, vec_cctor_here, "", 0, "");
    undone(i, vec_cctor_eh_here, "", 1, "");
    undone(i, vec_cctor_eh, "new[](56) ", 1, "delete[] ");
    undone(i, array_new, "mine(56) ", 1, "free ");
    undone(i, array_new_sized, "mine(56) ", 1, "free(%d) ");
    undone(i, array_new_default, "new[](56) ", 1, "delete[] ");
    undone(i, array_new_plain, "mine(56) ", 0, "free(8) "); /* without destructor nothing counts as constructed */
    undone(i, placement, "", 1, "");
  }
  CHECK_QUIET();
}

static void vec_delete_here(void) { __vec_delete(ELEMENTS, COUNT, SIZE, element_destroy, 0); }
static void vec_delete(void) { __vec_delete(ELEMENTS, COUNT, SIZE, element_destroy, 1); }
static void vec_delete_cookie(void) { __vec_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, element_destroy, 1); }
static void array_delete(void) { __array_delete(ELEMENTS, COUNT, SIZE, element_destroy, (a_routine)free_mine, 0); }
static void array_delete_sized(void) {
  __array_delete(ELEMENTS, COUNT, SIZE, element_destroy, (a_routine)free_sized, 1);
}
static void array_delete_cookie(void) {
  __array_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, element_destroy, (a_routine)free_sized, 1);
}
static void array_delete_default(void) { __array_delete(ELEMENTS, COUNT, SIZE, element_destroy, 0, 0); }
static void nothing_to_delete(void) {
  __vec_delete(0, COUNT, SIZE, element_destroy, 1);
  __vec_delete(0, PLX_COUNT_FROM_COOKIE, SIZE, element_destroy, 1);
  __array_delete(0, COUNT, SIZE, element_destroy, (a_routine)free_sized, 1);
}
static void without_destructor(void) {
  __vec_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, 0, 1);
  __array_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, 0, (a_routine)free_sized, 1);
}

/* Last to first; the element whose destructor throws is done with, the ones before it still die. */
static void destroyed(int index, void (*body)(void), const char *after) {
  char want[200];
  int i;
  want[0] = 0;
  for (i = COUNT; i-- > 0;) sprintf(want + strlen(want), "~%d ", i);
  strcat(want, after);
  if (index >= 0) sprintf(want + strlen(want), "%scaught-%d", *after ? " " : "", index);
  if (index < 0 && !*after) want[strlen(want) - 1] = 0;
  first = ELEMENTS;
  write_cookie(COUNT, SIZE);
  {
    an_eh_stack_entry entry;
    fail_at = index;
    EMIT_TRY(entry, catch_int) { body(); }
    EMIT_HANDLERS {
      const int value = *(int *)__caught_object_address;
      __exception_caught();
      trace("caught-%d", value);
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
  }
  CHECK_TRACE(want);
}

static void destruction(void) {
  char bytes[32];
  int i;
  destroyed(-1, vec_delete_here, "");
  destroyed(-1, vec_delete, "delete[]");
  destroyed(-1, vec_delete_cookie, "delete[]");
  destroyed(-1, array_delete, "free");
  destroyed(-1, array_delete_sized, "free(8)"); /* an explicit count says nothing of the block */
  destroyed(-1, array_delete_cookie, "free(56)");
  destroyed(-1, array_delete_default, "delete[]");
  for (i = 0; i < COUNT; ++i) {
    sprintf(bytes, "free(%d)", SIZE * i + 8);
    destroyed(i, vec_delete_here, "");
    destroyed(i, vec_delete, "delete[]");
    destroyed(i, vec_delete_cookie, "delete[]");
    destroyed(i, array_delete, "free");
    destroyed(i, array_delete_sized, bytes);
    destroyed(i, array_delete_cookie, bytes);
    destroyed(i, array_delete_default, "delete[]");
  }
  nothing_to_delete();
  CHECK_TRACE("");
  write_cookie(COUNT, SIZE);
  without_destructor();
  CHECK_TRACE("delete[] free(56)");
  CHECK_QUIET();
}

/* Elements that are arrays, and an element constructor with a local: each level undoes its own part. */
static element *row;
static int fail_column;
static void column_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  check_zeros(a, b, c, d, e, f, g, h);
  trace("+%d", (int)((element *)object - in_place));
  if ((element *)object - in_place == fail_column) throw_int(fail_column);
}
static void column_destroy(void *object, int flags) {
  CHECK_INT(flags, 2);
  trace("~%d", (int)((element *)object - in_place));
}
static void row_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  local temporary;
  void *addresses[1];
  an_eh_stack_entry function;
  check_zeros(a, b, c, d, e, f, g, h);
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = &temporary;
  local_construct(&temporary, 90);
  __eh_curr_region = 0;
  row = (element *)object;
  __vec_new_eh(row, 2, SIZE, column_construct, column_destroy);
  local_destroy(&temporary, 2);
  EMIT_LEAVE_FUNCTION(function);
}
static void row_destroy(void *object, int flags) {
  CHECK_INT(flags, 2);
  __vec_delete(object, 2, SIZE, column_destroy, 0);
}
static void rows(void) { result = __vec_new_eh(in_place, 3, 2 * SIZE, row_construct, row_destroy); }
static void nested_arrays(void) {
  fail_column = 3;
  failing_at(-1, rows);
  CHECK_TRACE("+90 +0 +1 ~90 +90 +2 +3 ~2 ~90 ~1 ~0 caught-3");
  CHECK_QUIET();
}

/* One call for the whole array. */
static void whole(void *array, unsigned count) { trace("whole(%d,%u)", array == ELEMENTS, count); }
static void one_call(void) {
  CHECK(__zor_fast_vec_new(0, COUNT, SIZE, (a_routine)whole) == ELEMENTS);
  CHECK_TRACE("new[](56) whole(1,4)");
  CHECK_INT(block.cookie.total, COUNT * SIZE);
  CHECK(__zor_fast_vec_new(ELEMENTS, COUNT, SIZE, (a_routine)whole) == ELEMENTS);
  CHECK_TRACE("whole(1,4)");
  __zor_fast_vec_delete(ELEMENTS, COUNT, SIZE, (a_routine)whole, 1);
  CHECK_TRACE("whole(1,4) delete[]");
  __zor_fast_vec_delete(ELEMENTS, COUNT, SIZE, (a_routine)whole, 0);
  CHECK_TRACE("whole(1,4)");
}

/* The cleanup of a kind-4 entry, by hand. */
static void cleanup(int construction, unsigned progress, int sized, const char *want) {
  an_array_alloc_eh_info info;
  an_eh_stack_entry entry;
  memset(&info, 0, sizeof info);
  info.array = ELEMENTS;
  info.count = COUNT;
  info.size = SIZE;
  info.progress = progress;
  info.is_construction = construction;
  info.free_memory = 1;
  info.destructor = element_destroy;
  info.deallocation = sized ? (a_routine)free_sized : (a_routine)free_mine;
  info.sized_deallocation = sized;
  entry.next = 0;
  entry.kind = PLX_EH_ARRAY;
  entry.body.array.info = &info;
  fail_at = -1;
  first = ELEMENTS;
  __cleanup_vec_new_or_delete(&entry);
  CHECK_TRACE(want);
}

static void terminated(void) {
  printf("terminated [%s]", test_trace);
  fflush(stdout);
  _exit(3);
}
/* A destructor that throws while the cleanup runs. */
static void always_throws(void *object, int flags) {
  (void)flags;
  trace("~%d", (int)((element *)object - first));
  throw_int(1);
}
static void cleanup_fails(void) {
  test_trace[0] = 0;
  first = ELEMENTS;
  _ZSt13set_terminatePFvvE(terminated);
  __vec_delete(ELEMENTS, COUNT, SIZE, always_throws, 1);
}

static void bad_total(void) {
  write_cookie(COUNT, SIZE);
  ++block.cookie.total;
  vec_delete_cookie();
}
static void bad_count(void) {
  write_cookie(COUNT, SIZE);
  block.cookie.inverted_count = COUNT;
  array_delete_cookie();
}
static void other_size(void) {
  write_cookie(COUNT, SIZE / 2);
  vec_delete_cookie();
}
static void not_from_vec_new(void) { _array_pointer_not_from_vec_new(); }
static void check_silent_abort(void (*body)(void)) {
  test_child child;
  test_trace[0] = 0;
  child = test_run_child(body);
  CHECK_INT(child.status, -SIGABRT);
  CHECK_TEXT(child.text, "");
}

/* 0x20000001 elements of 8 bytes are 8 bytes in 32 bits: they must not fit into a small block. */
static void too_many(void) {
  refuse = 1;
  CHECK(__vec_new(0, 0x20000001u, 8, 0) == 0);
  refuse = 0;
  CHECK_TRACE("new[](4294967295)");
}
static void no_element_size(void) {
  unsigned words[4] = {0, ~1u, 0, 0};
  __vec_delete(words + 2, PLX_COUNT_FROM_COOKIE, 0, 0, 0);
}

int main(void) {
  constructed();
  too_many();
  construction_fails();
  destruction();
  nested_arrays();
  one_call();
  cleanup(1, 0, 1, "free(8)");
  cleanup(1, 2, 0, "~1 ~0 free");
  cleanup(1, COUNT, 1, "~3 ~2 ~1 ~0 free(56)");
  cleanup(0, 1, 1, "~2 ~1 ~0 free(44)");
  cleanup(0, COUNT, 1, "free(8)");
  CHECK_ENDS(cleanup_fails, 3, "terminated [~3 ~2]");
  check_silent_abort(bad_total);
  check_silent_abort(bad_count);
  check_silent_abort(other_size);
  check_silent_abort(not_from_vec_new);
  check_silent_abort(no_element_size);
  return TEST_RESULT();
}
