/* Exceptions of the library in generated C: caught by class and by each base, thrown again, passed through functions
 * with objects and specifications, and what remains of their messages. */
#include "classes.h"
#include "heap.h"

void _ZNSt16invalid_argument7__throwEPKc(const char *);
void _ZNSt12length_error7__throwEPKc(const char *);
void _ZNSt12out_of_range7__throwEPKc(const char *);
void _ZNSt13runtime_error7__throwEPKc(const char *);
void _ZNSt14overflow_error7__throwEPKc(const char *);
void _ZNSt8bad_cast7__throwEPKc(const char *);

static const char *what_of(const void *thrown) {
  typedef const char *(*a_what)(const void *);
  return (*(const a_what *const *)thrown)[2](thrown);
}

static const struct {
  void (*thrower)(const char *);
  const a_type_info_impl *type, *base, *stranger;
} cases[] = {
    {_ZNSt16invalid_argument7__throwEPKc, &__TI_St16invalid_argument, &__TI_St11logic_error, &__TI_St12out_of_range},
    {_ZNSt12length_error7__throwEPKc, &__TI_St12length_error, &__TI_St11logic_error, &__TI_St13runtime_error},
    {_ZNSt12out_of_range7__throwEPKc, &__TI_St12out_of_range, &__TI_St11logic_error, &__TI_St12length_error},
    {_ZNSt13runtime_error7__throwEPKc, &__TI_St13runtime_error, &__TI_St9exception, &__TI_St14overflow_error},
    {_ZNSt14overflow_error7__throwEPKc, &__TI_St14overflow_error, &__TI_St13runtime_error, &__TI_St11logic_error},
    {_ZNSt8bad_cast7__throwEPKc, &__TI_St8bad_cast, &__TI_St9exception, &__TI_St9bad_alloc},
};

/* Between the throw and the handler stand a local, a specification and an array. */
static void element_destroy(void *object, int flags) {
  (void)object;
  (void)flags;
  trace("element");
}
static void (*current_thrower)(const char *);
static void element_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  (void)(a + b + c + d + e + f + g + h);
  if (*(char *)object) current_thrower("no such element");
}
static NOINLINE void through_everything(void) {
  static const an_exception_type_specification allowed[] = {{&__TI_St9exception, PLX_TYPE_LAST}};
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  char elements[3];
  local a;
  void *addresses[1];
  an_eh_stack_entry specification, function;
  EMIT_SPECIFICATION(specification, allowed);
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = &a;
  a.id = 1;
  __eh_curr_region = 0;
  memcpy(elements, "\0\0x", 3);
  __vec_new_eh(elements, 3, 1, element_construct, element_destroy);
  EMIT_LEAVE_FUNCTION(function);
  EMIT_LEAVE_SPECIFICATION(specification);
}

static int caught_by(const a_type_info_impl *first, const a_type_info_impl *second) {
  an_exception_type_specification clauses[3];
  an_eh_stack_entry entry;
  volatile int clause = 0;
  memset(clauses, 0, sizeof clauses);
  clauses[0].type = first;
  clauses[1].type = second;
  clauses[2].flags = PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST;
  EMIT_TRY(entry, clauses) { through_everything(); }
  EMIT_HANDLERS {
    clause = __catch_clause_number;
    CHECK_TEXT(what_of(__caught_object_address), "no such element");
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK_TRACE("element element ~1");
  return clause;
}

/* A base first, thrown again from there, then the class itself. */
static void caught_twice(const a_type_info_impl *type) {
  static const an_exception_type_specification by_base[] = {{&__TI_St9exception, PLX_TYPE_LAST}};
  an_exception_type_specification by_type[1];
  an_eh_stack_entry outer, inner;
  by_type[0].type = type;
  by_type[0].flags = PLX_TYPE_LAST;
  EMIT_TRY(outer, by_type) {
    EMIT_TRY(inner, by_base) { current_thrower("again"); }
    EMIT_HANDLERS {
      __exception_caught();
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    CHECK_TEXT(what_of(__caught_object_address), "again");
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

#if HEAP_IS_COUNTED
/* The helpers with every allocation failing in turn: std::bad_alloc comes instead, and nothing stays behind. */
static void without_memory(void) {
  static const an_exception_type_specification clauses[] = {{&__TI_St9bad_alloc, 0},
                                                            {&__TI_St9exception, PLX_TYPE_LAST}};
  volatile unsigned i;
  volatile int n;
  for (i = 0; i < sizeof cases / sizeof *cases; ++i) {
    volatile int clause = 1;
    for (n = 0; clause == 1 && n < 100; ++n) {
      const int live = heap_live;
      an_eh_stack_entry entry;
      heap_fails_at = n;
      EMIT_TRY(entry, clauses) {
        cases[i].thrower("a text that is too long to be kept in any small buffer of a string");
      }
      EMIT_HANDLERS {
        heap_fails_at = -1;
        clause = __catch_clause_number;
        __exception_caught();
        __free_thrown_object();
      }
      EMIT_END_TRY(entry);
      CHECK_INT(heap_live, live);
      CHECK(__curr_eh_stack_entry == 0);
    }
    CHECK(n > 1);
    CHECK_INT(clause, 2);
  }
  CHECK_QUIET();
}
#endif

int main(void) {
  unsigned i;
  /* The library may keep a pool once it has begun with it. */
  current_thrower = cases[0].thrower;
  caught_by(cases[0].type, cases[0].base);
  for (i = 0; i < sizeof cases / sizeof *cases; ++i) {
    const int live = heap_live;
    current_thrower = cases[i].thrower;
    CHECK_INT(caught_by(cases[i].type, cases[i].base), 1);
    CHECK_INT(caught_by(cases[i].base, cases[i].type), 1);
    CHECK_INT(caught_by(cases[i].stranger, cases[i].base), 2);
    CHECK_INT(caught_by(cases[i].stranger, &__TI_St9exception), 2);
    CHECK_INT(caught_by(cases[i].stranger, &__TI_i), 3);
    caught_twice(cases[i].type);
    CHECK_INT(heap_live, live);
  }
  CHECK_QUIET();
#if HEAP_IS_COUNTED
  without_memory();
#endif
  return TEST_RESULT();
}
