/* operator new and its handler as C sees them: handlers that help, give up or throw something else, the nothrow forms,
 * and the eh stack after each of them. */
#include "classes.h"
#include "heap.h"

/* No process has room for this, and a sanitizer's heap refuses it too. */
#define TOO_MUCH 0xF0000000u

static const a_base_class_spec exhausted_bases[] = {{&__TI_St9bad_alloc, 0, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
EMIT_CLASS(exhausted, "exhausted", exhausted_bases);

/* Not inlined: a compiler may take an allocation away together with its release where it sees both. */
static NOINLINE void *plain(unsigned bytes) { return _Znwj(bytes); }
static NOINLINE void *plain_array(unsigned bytes) { return _Znaj(bytes); }
static NOINLINE void *nothrow(unsigned bytes) { return _ZnwjRKSt9nothrow_t(bytes, 0); }
static NOINLINE void *nothrow_array(unsigned bytes) { return _ZnajRKSt9nothrow_t(bytes, 0); }

/* The clause of what comes out: 1 exhausted, 2 std::bad_alloc, 3 int, 0 nothing. */
static NOINLINE int outcome(void *(*form)(unsigned), void **block) {
  static const an_exception_type_specification clauses[] = {
      {&exhausted, 0}, {&__TI_St9bad_alloc, 0}, {&__TI_i, PLX_TYPE_LAST}};
  an_eh_stack_entry entry;
  volatile int clause = 0;
  *block = 0;
  EMIT_TRY(entry, clauses) { *block = form(TOO_MUCH); }
  EMIT_HANDLERS {
    clause = __catch_clause_number;
    if (clause == 2) {
      typedef const char *(*a_what)(const void *);
      const void *object = __caught_object_address;
      CHECK_TEXT((*(const a_what *const *)object)[2](object), "Allocation Failure");
    }
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK(__curr_eh_stack_entry == 0);
  return clause;
}

static volatile int calls;
static void third_time_gives_up(void) {
  if (++calls == 3) __default_new_handler();
}
static void throws_derived(void) {
  ++calls;
  __throw_setup(&exhausted, 16, 0);
  __throw();
}
static void throws_int(void) {
  ++calls;
  throw_int(5);
}
static void unexpected_int(void) {
  trace("unexpected");
  throw_int(6);
}

static void check_form(void *(*form)(unsigned), int throws) {
  void *block;
  calls = 0;
  _ZSt15set_new_handlerPFvvE(__default_new_handler);
  CHECK_INT(outcome(form, &block), throws ? 2 : 0);
  CHECK(block == 0);
  CHECK(_ZSt15set_new_handlerPFvvE(0) == __default_new_handler);
  CHECK_INT(outcome(form, &block), throws ? 2 : 0);
  CHECK(block == 0);
  CHECK(_ZSt15set_new_handlerPFvvE(third_time_gives_up) == 0);
  CHECK_INT(outcome(form, &block), throws ? 2 : 0);
  CHECK_INT(calls, 3);
  _ZSt15set_new_handlerPFvvE(throws_derived);
  CHECK_INT(outcome(form, &block), throws ? 1 : 0);
  CHECK_INT(calls, 4);
  /* Anything but std::bad_alloc violates both specifications. */
  _ZSt15set_new_handlerPFvvE(throws_int);
  CHECK_INT(outcome(form, &block), 3);
  CHECK_INT(calls, 5);
  CHECK_TRACE("unexpected");
  _ZSt15set_new_handlerPFvvE(__default_new_handler);
  CHECK_QUIET();
}

static void small_requests(void) {
  void *a = plain(0), *b = plain(0), *c = plain_array(0), *d = nothrow(0), *e = nothrow_array(100);
  char bytes[8];
  CHECK(a && b && c && d && e && a != b);
  _ZdlPv(a);
  _ZdlPv(b);
  _ZdaPv(c);
  _ZdlPv(d);
  _ZdaPv(e);
  _ZdlPv(0);
  _ZdaPv(0);
  CHECK(__curr_eh_stack_entry == 0);
  memset(bytes, 'x', sizeof bytes);
  CHECK(__memzero(bytes + 1, 6) == bytes + 1);
  CHECK(bytes[0] == 'x' && !bytes[1] && !bytes[6] && bytes[7] == 'x');
}

#if HEAP_IS_COUNTED
/* A handler that finds memory: the request succeeds, and with a heap that is exhausted a throw needs none. */
static void finds_memory(void) {
  if (++calls == 2) heap_fails_at = -1;
}
static void retried(void) {
  void *block;
  int live = heap_live;
  calls = 0;
  _ZSt15set_new_handlerPFvvE(finds_memory);
  heap_fails_at = 0;
  block = plain(16);
  CHECK(block != 0 && calls == 2);
  _ZdlPv(block);
  calls = 0;
  heap_fails_at = 0;
  block = nothrow_array(16);
  CHECK(block != 0 && calls == 2);
  _ZdaPv(block);
  _ZSt15set_new_handlerPFvvE(0);
  heap_fails_at = 0;
  CHECK_INT(outcome(plain, &block), 2);
  CHECK_INT(heap_fails_at, 0);
  heap_fails_at = -1;
  CHECK_INT(heap_live, live);
}
#endif

int main(void) {
  const a_handler initial = _ZSt15set_new_handlerPFvvE(0);
  CHECK(initial == __default_new_handler);
  _ZSt14set_unexpectedPFvvE(unexpected_int);
  check_form(plain, 1);
  check_form(plain_array, 1);
  check_form(nothrow, 0);
  check_form(nothrow_array, 0);
  small_requests();
#if HEAP_IS_COUNTED
  retried();
#endif
  CHECK_QUIET();
  return TEST_RESULT();
}
