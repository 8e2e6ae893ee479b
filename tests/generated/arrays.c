/* Arrays: every entry point, failing at each element, with every way to allocate and free, the byte counts that each of
 * them sees, and cookies. operator new[] and delete[] are the program's own here. test-variants: -O0 | -O2 */
#include "classes.h"

enum { COUNT = 4, SIZE = 12 };
typedef struct element {
  int index, unused[2];
} element;

/* An element knows where it stands; fail_at is the index whose constructor or destructor throws. */
static element *first;
static int fail_at;
static void element_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  if (!first) first = (element *)object;
  CHECK(!(a | b | c | d | e | f | g | h));
  if ((element *)object - first == fail_at) throw_int(fail_at);
  trace("+%d", (int)((element *)object - first));
}
static void element_copy(void *object, const void *source) {
  if (!first) first = (element *)object;
  CHECK_INT(((const element *)source)->index, 100 + ((element *)object - first));
  element_construct(object, 0, 0, 0, 0, 0, 0, 0, 0);
}
static void element_destroy(void *object, int flags) {
  const int index = (int)((element *)object - first);
  CHECK_INT(flags, 2);
  trace("~%d", index);
  if (index == fail_at) throw_int(index);
}
static void whole(void *array, unsigned count) {
  trace("whole(%u)", count);
  (void)array;
  if (fail_at >= 0) throw_int(fail_at);
}

/* One block at a time, so that every form can be checked for what it asked and gave back. */
static union {
  an_array_cookie cookie;
  double room[64];
} block;
#define ELEMENTS ((element *)((char *)&block + 8))
static int refuse;
static void *allocate(size_t bytes, const char *name) {
  trace("%s(%u)", name, (unsigned)bytes);
  return refuse ? 0 : &block;
}
static void *allocate_mine(size_t bytes) { return allocate(bytes, "mine"); }
static void *allocate_failing(size_t bytes) {
  throw_int((int)bytes);
  return 0;
}
static void free_mine(void *freed) { trace(freed == &block ? "free" : "free-wrong"); }
static void free_sized(void *freed, size_t bytes) {
  trace("%s(%u)", freed == &block ? "free" : "wrong", (unsigned)bytes);
}
void *_Znaj(unsigned int bytes) { return allocate(bytes, "new[]"); }
void _ZdaPv(void *freed) { trace(freed == &block ? "delete[]" : "delete[]-wrong"); }
static void write_cookie(unsigned count, unsigned size) {
  block.cookie.total = count * size;
  block.cookie.inverted_count = ~count;
}

/* What each form traces: before the elements, after them when element i failed (%d: its bytes and the cookie's), and
 * whether it destroys and writes a cookie. */
static element in_place[COUNT + 2], source[COUNT];
#define MINE (a_routine) allocate_mine
#define FORMS(FORM)                                                                                                   \
  FORM("", 0, "", 0, __vec_new(in_place, COUNT, SIZE, element_construct))                                             \
  FORM("new[](56) ", 0, "delete[] ", 1, __vec_new(0, COUNT, SIZE, element_construct))                                 \
  FORM("", 1, "", 0, __vec_new_eh(in_place, COUNT, SIZE, element_construct, element_destroy))                         \
  FORM("new[](56) ", 1, "delete[] ", 1, __vec_new_eh(0, COUNT, SIZE, element_construct, element_destroy))             \
  FORM("", 0, "", 0, __vec_cctor(in_place, COUNT, SIZE, element_copy, source))                                        \
  FORM("", 1, "", 0, __vec_cctor_eh(in_place, COUNT, SIZE, element_copy, source, element_destroy))                    \
  FORM("new[](56) ", 1, "delete[] ", 1, __vec_cctor_eh(0, COUNT, SIZE, element_copy, source, element_destroy))        \
  FORM("mine(56) ", 1, "free ", 1,                                                                                    \
       __array_new(COUNT, SIZE, element_construct, element_destroy, MINE, (a_routine)free_mine, 0))                   \
  FORM("mine(56) ", 1, "free(%d) ", 1,                                                                                \
       __array_new(COUNT, SIZE, element_construct, element_destroy, MINE, (a_routine)free_sized, 1))                  \
  /* without a destructor nothing counts as constructed */                                                            \
  FORM("mine(56) ", 0, "free(8) ", 1, __array_new(COUNT, SIZE, element_construct, 0, MINE, (a_routine)free_sized, 1)) \
  FORM("new[](56) ", 1, "delete[] ", 1, __array_new(COUNT, SIZE, element_construct, element_destroy, 0, 0, 0))        \
  FORM("", 1, "", 1, __placement_array_new(ELEMENTS, COUNT, SIZE, element_construct, element_destroy))
#define DELETIONS(FORM)                                                                                           \
  FORM("", "", __vec_delete(ELEMENTS, COUNT, SIZE, element_destroy, 0))                                           \
  FORM("delete[] ", "delete[] ", __vec_delete(ELEMENTS, COUNT, SIZE, element_destroy, 1))                         \
  FORM("delete[] ", "delete[] ", __vec_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, element_destroy, 1))         \
  FORM("free ", "free ", __array_delete(ELEMENTS, COUNT, SIZE, element_destroy, (a_routine)free_mine, 0))         \
  /* an explicit count says nothing of the block */                                                               \
  FORM("free(8) ", "free(%d) ", __array_delete(ELEMENTS, COUNT, SIZE, element_destroy, (a_routine)free_sized, 1)) \
  FORM("free(56) ", "free(%d) ",                                                                                  \
       __array_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, element_destroy, (a_routine)free_sized, 1))          \
  FORM("delete[] ", "delete[] ", __array_delete(ELEMENTS, COUNT, SIZE, element_destroy, 0, 0))

/* Runs a form of construction or deletion, or what is neither, and traces what was caught. */
enum { CONSTRUCTION, DELETION, AT_ONCE, DELETION_AT_ONCE, FAILING_ALLOCATION };
static void *result;
static NOINLINE void run(int kind, int which) {
  int n = 0;
  result = 0;
  TRY(catch_int)
#define CALL(before, destroys, after, cookie, call) \
  if (kind == CONSTRUCTION && which == n++) result = call;
  FORMS(CALL)
#define CALL_DELETION(good, bad, call) \
  if (kind == DELETION && which == n++) call;
  DELETIONS(CALL_DELETION)
  if (kind == AT_ONCE) result = __zor_fast_vec_new(which ? ELEMENTS : 0, COUNT, SIZE, (a_routine)whole);
  if (kind == DELETION_AT_ONCE)
    __zor_fast_vec_delete(ELEMENTS, which & 2 ? COUNT : PLX_COUNT_FROM_COOKIE, SIZE, (a_routine)whole, which & 1);
  if (kind == FAILING_ALLOCATION)
    result = __array_new(COUNT, SIZE, 0, 0, (a_routine)allocate_failing, (a_routine)free_sized, 1);
  CHECK(__curr_eh_stack_entry == &try_entry);
  HANDLERS trace("caught-%d", *(int *)caught);
  END_TRY
  trace(""); /* ends with a blank */
}

static void constructed(void) {
  static const struct {
    const char *before;
    int destroys;
    const char *after;
    int cookie;
  } forms[] = {
#define ROW(before, destroys, after, cookie, call) {before, destroys, after, cookie},
      FORMS(ROW)};
  unsigned form;
  int at, i;
  char want[200];
  for (i = 0; i < COUNT; ++i) source[i].index = 100 + i;
  for (form = 0; form < sizeof forms / sizeof *forms; ++form)
    for (at = 0; at <= COUNT; ++at) {
      char *end = want + sprintf(want, "%s", forms[form].before);
      for (i = 0; i < at; ++i) end += sprintf(end, "+%d ", i);
      for (i = at; at < COUNT && forms[form].destroys && i-- > 0;) end += sprintf(end, "~%d ", i);
      if (at < COUNT) end += sprintf(end, forms[form].after, SIZE * at + 8);
      if (at < COUNT) sprintf(end, "caught-%d ", at);
      first = 0;
      fail_at = at < COUNT ? at : -1;
      memset(&block, 0, sizeof block);
      run(CONSTRUCTION, (int)form);
      CHECK_TRACE(want);
      if (at < COUNT) continue;
      CHECK(result == first && (first == in_place || first == ELEMENTS));
      CHECK_INT(block.cookie.total, forms[form].cookie ? COUNT * SIZE : 0);
      CHECK_INT(block.cookie.inverted_count, forms[form].cookie ? ~(unsigned)COUNT : 0);
    }
  first = 0;
  CHECK(__vec_new(in_place, 1, SIZE, element_construct) == in_place);
  CHECK_TRACE("+0");
  refuse = 1; /* what no allocation function gives is no array */
  CHECK(__vec_new(0, COUNT, SIZE, element_construct) == 0);
  /* neither fits into 32 bits, the second because of its cookie */
  CHECK(__vec_new(0, 0x20000001u, 8, 0) == 0 && __vec_new(0, 0x3FFFFFFFu, 4, 0) == 0);
  CHECK(__array_new(COUNT, SIZE, 0, 0, MINE, 0, 0) == 0 && __zor_fast_vec_new(0, COUNT, SIZE, (a_routine)whole) == 0);
  CHECK_TRACE("new[](56) new[](4294967295) new[](4294967295) mine(56) new[](56)");
  refuse = 0;
  run(FAILING_ALLOCATION, 0);
  CHECK_TRACE("caught-56 ");
  CHECK(__array_new(0, SIZE, element_construct, element_destroy, MINE, 0, 0) == ELEMENTS);
  CHECK_INT(block.cookie.inverted_count, -1);
  CHECK(__vec_cctor(in_place, COUNT, SIZE, 0, source) == in_place && __array_new_prefix_size == 8);
  CHECK_TRACE("mine(8)");
}

/* Last to first; the element whose destructor throws is done with, the ones before it still die. */
static void destroyed(void) {
  static const struct {
    const char *good, *bad;
  } forms[] = {
#define DELETION_ROW(good, bad, call) {good, bad},
      DELETIONS(DELETION_ROW)};
  unsigned form;
  char want[200];
  for (form = 0; form < sizeof forms / sizeof *forms; ++form)
    for (fail_at = -1; fail_at < COUNT; ++fail_at) {
      char *end = want + sprintf(want, "~3 ~2 ~1 ~0 ");
      end += sprintf(end, fail_at < 0 ? forms[form].good : forms[form].bad, SIZE * fail_at + 8);
      if (fail_at >= 0) sprintf(end, "caught-%d ", fail_at);
      first = ELEMENTS;
      write_cookie(COUNT, SIZE);
      run(DELETION, (int)form);
      CHECK_TRACE(want);
    }
  __vec_delete(0, COUNT, SIZE, element_destroy, 1);
  __vec_delete(0, PLX_COUNT_FROM_COOKIE, SIZE, element_destroy, 1);
  __array_delete(0, COUNT, SIZE, element_destroy, (a_routine)free_sized, 1);
  __zor_fast_vec_delete(0, COUNT, SIZE, (a_routine)whole, 1);
  __vec_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, 0, 1);
  __array_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, SIZE, 0, (a_routine)free_sized, 1);
  CHECK_TRACE("delete[] free(56)");
}

/* One call for the whole array: what it allocated, or was to free, goes when the routine throws. */
static void at_once(void) {
  static const struct {
    int kind, which;
    const char *good, *bad;
  } rows[] = {{AT_ONCE, 0, "new[](56) whole(4) ", "new[](56) whole(4) delete[] caught-1 "},
              {AT_ONCE, 1, "whole(4) ", "whole(4) caught-1 "},
              {DELETION_AT_ONCE, 0, "whole(4) ", "whole(4) caught-1 "},
              {DELETION_AT_ONCE, 1, "whole(4) delete[] ", "whole(4) delete[] caught-1 "},
              {DELETION_AT_ONCE, 2, "whole(4) ", "whole(4) caught-1 "},
              {DELETION_AT_ONCE, 3, "whole(4) delete[] ", "whole(4) delete[] caught-1 "}};
  int i;
  for (i = 0; i < 12; ++i) {
    fail_at = i % 2 ? 1 : -1;
    write_cookie(COUNT, SIZE);
    run(rows[i / 2].kind, rows[i / 2].which);
    CHECK_TRACE(i % 2 ? rows[i / 2].bad : rows[i / 2].good);
  }
}

static int ending;
static void terminated(void) {
  printf("terminated [%s]", test_trace);
  fflush(stdout);
  _exit(3);
}
static void always_throws(void *object, int flags) {
  trace("~%d", (int)((element *)object - first));
  throw_int(flags);
}
/* Cookies that say nonsense: the total, the count, and the size that the caller gives. */
enum { TOTAL = COUNT * SIZE };
static const unsigned broken[][3] = {
    {TOTAL + 1, ~COUNT, SIZE}, {TOTAL, COUNT, SIZE}, {TOTAL, ~COUNT, SIZE / 2}, {0, ~1u, 0}};
static void end(void) {
  _ZSt13set_terminatePFvvE(terminated);
  test_trace[0] = 0;
  first = ELEMENTS;
  if (ending == 4) __vec_delete(ELEMENTS, COUNT, SIZE, always_throws, 1);
  block.cookie.total = broken[ending][0];
  block.cookie.inverted_count = broken[ending][1];
  __vec_delete(ELEMENTS, PLX_COUNT_FROM_COOKIE, broken[ending][2], element_destroy, 1);
}

int main(void) {
  constructed();
  destroyed();
  at_once();
  CHECK_QUIET();
  test_trace[0] = 0;
  for (ending = 0; ending < 4; ++ending) {
    const test_child child = test_run_child(end);
    CHECK_INT(child.status, -SIGABRT);
    CHECK_TEXT(child.text, "");
  }
  CHECK_ENDS(end, 3, "terminated [~3 ~2]");
  return TEST_RESULT();
}
