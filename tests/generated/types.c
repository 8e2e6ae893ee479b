/* Types: which clause takes what and where the handler finds the object, dynamic_cast, typeid and the conversion to a
 * base, for one set of descriptors. test-variants: -O1 | -O2 -static */
#include "classes.h"

#define PUBLIC PLX_BASE_PUBLIC
#define AMBIGUOUS PLX_BASE_AMBIGUOUS
#define VIRTUAL PLX_BASE_VIRTUAL
#define END PLX_BASE_LAST
#define LAST PLX_TYPE_LAST
#define CLASS(type, ...)                                         \
  static const a_base_class_spec type##_bases[] = {__VA_ARGS__}; \
  EMIT_CLASS(type, #type, type##_bases)

EMIT_CLASS(one, "one", 0);
EMIT_CLASS(two, "two", 0);
EMIT_CLASS(unrelated, "unrelated", 0);
/* As other files emitted them; and classes without identity, as local ones may be. */
static const a_type_info_impl one_again = {PLX_TYPE_INFO_VTABLE, "one", &one_identity, 0};
static const a_type_info_impl void_again = {PLX_TYPE_INFO_VTABLE, "void", &__TID_v, 0};
static const a_type_info_impl nameless = {PLX_TYPE_INFO_VTABLE, "nameless", 0, 0};
static const a_type_info_impl nameless_too = {PLX_TYPE_INFO_VTABLE, "nameless", 0, 0};
CLASS(both, {&one, 4, PUBLIC}, {&two, 12, PUBLIC | END});
CLASS(near, {&both, 16, PUBLIC}, {&one, 40, PUBLIC | END});  /* the direct base is meant */
CLASS(paths, {&both, 0, PUBLIC}, {&both, 20, PUBLIC | END}); /* the first in order of declaration */
CLASS(private_one, {&one, 0, 0}, {&both, 8, PUBLIC | END});  /* does not end the search; an ambiguous base does */
CLASS(ambiguous_one, {&one, 0, PUBLIC | AMBIGUOUS}, {&both, 8, PUBLIC | END});
CLASS(ambiguous_both, {&both, 0, PUBLIC | AMBIGUOUS}, {&two, 30, PUBLIC | END});
CLASS(private_both, {&both, 0, END});
CLASS(private_last_one, {&two, 0, PUBLIC}, {&one, 8, END});
CLASS(shares_both, {&both, 4, VIRTUAL | PUBLIC | END | 0x70}); /* bits without a name do not matter */
CLASS(below_shared, {&shares_both, 0, PUBLIC | END});
CLASS(has_nameless, {&one_again, 8, PUBLIC}, {&nameless, 4, PUBLIC | END});
CLASS(backward, {&one, -8, PUBLIC | END});

/* In an object the word at offset 4 leads 24 bytes ahead. `at` is where the base lies; -1: there is none. */
/* clang-format off */
static const struct {
  const a_type_info_impl *from, *to;
  int at;
} rows[] = {{&one, &one, 0}, {&one, &one_again, 0}, {&one_again, &one, 0}, {&one, &two, -1}, {&two, &both, -1},
            {&nameless, &nameless, 0}, {&nameless, &nameless_too, -1}, {&nameless, &one, -1}, {&one, &nameless, -1},
            {&__TI_i, &__TI_i, 0}, {&__TI_i, &__TI_l, -1}, {&__TI_c, &__TI_a, -1}, {&__TI_v, &__TI_i, -1},
            {&both, &one, 4}, {&both, &two, 12}, {&both, &one_again, 4}, {&both, &unrelated, -1}, {&near, &one, 40},
            {&near, &two, 28}, {&near, &both, 16}, {&paths, &two, 12}, {&paths, &both, 0}, {&private_one, &one, 12},
            {&ambiguous_one, &one, -1}, {&ambiguous_one, &two, 20}, {&ambiguous_both, &one, -1},
            {&ambiguous_both, &both, -1}, {&ambiguous_both, &two, 30}, {&private_both, &one, -1},
            {&private_both, &both, -1}, {&private_last_one, &one, -1}, {&private_last_one, &two, 0},
            {&shares_both, &both, 24}, {&shares_both, &two, 36}, {&below_shared, &one, 28}, {&has_nameless, &nameless, 4},
            {&has_nameless, &nameless_too, -1}, {&has_nameless, &one, 8}, {&backward, &one, -8}};
/* clang-format on */
enum { ROWS = sizeof rows / sizeof *rows };

static char storage[128], *const object = storage + 32;
static void fill(char *at) {
  char *ahead = at + 24;
  memcpy(at + 4, &ahead, sizeof ahead);
}

/* Throws an object or a pointer to one, or a null pointer; returns the clause, and in `moved` how far off the handler
 * found it. The handler's value is its own: an outer one gets what was thrown. */
static int moved, throws_null;
static NOINLINE int thrown_at(const an_exception_type_specification *clauses, const a_type_info_impl *type, int flags) {
  char *volatile base = 0;
  volatile int result = 0;
  moved = -1;
  TRY(catch_all)
  TRY(clauses)
  char *thrown = (char *)__throw_setup(type, 64, (unsigned char)flags);
  base = throws_null ? 0 : flags & PLX_TYPE_POINTER ? object : thrown;
  if (flags & PLX_TYPE_POINTER)
    *(char **)thrown = base;
  else
    fill(thrown);
  __throw();
  HANDLERS
  result = clause;
  moved = (int)((flags & PLX_TYPE_POINTER ? *(char **)caught : (char *)caught) - base);
  if (flags & PLX_TYPE_POINTER) *(char **)caught = storage;
  __rethrow();
  END_TRY
  HANDLERS
  CHECK((flags & PLX_TYPE_POINTER ? *(char **)caught : (char *)caught) == base);
  END_TRY
  return result;
}
static int takes(const a_type_info_impl *type, int flags, const a_type_info_impl *thrown, int thrown_flags, int at) {
  an_exception_type_specification clauses[1];
  clauses[0].type = type;
  clauses[0].flags = (unsigned char)(flags | LAST);
  return thrown_at(clauses, thrown, thrown_flags) == (at != -1) && moved == at;
}
/* A clause must have every qualifier that a thrown pointer has, and may have more; for values they do not count. */
static void thrown(int i) {
  static const int sets[] = {0, PLX_TYPE_CONST, PLX_TYPE_VOLATILE, PLX_TYPE_CONST | PLX_TYPE_VOLATILE};
  int is, has;
  for (is = 0; is < 4; ++is)
    for (has = 0; has < 4; ++has) {
      const int fits = (sets[has] & sets[is]) == sets[is], pointer = PLX_TYPE_POINTER;
      CHECK(takes(rows[i].to, pointer | sets[has], rows[i].from, pointer | sets[is], fits ? rows[i].at : -1));
      CHECK(takes(&__TI_v, pointer | sets[has], rows[i].from, pointer | sets[is], fits ? 0 : -1));
      CHECK(takes(&void_again, pointer | sets[has], rows[i].from, pointer | sets[is], fits ? 0 : -1));
      throws_null = 1;
      CHECK(
          takes(rows[i].to, pointer | sets[has], rows[i].from, pointer | sets[is], fits && rows[i].at != -1 ? 0 : -1));
      throws_null = 0;
      CHECK(takes(rows[i].to, sets[has], rows[i].from, sets[is], rows[i].at));
      CHECK(takes(rows[i].to, pointer | sets[has], rows[i].from, sets[is], -1));
      CHECK(takes(rows[i].to, sets[has], rows[i].from, pointer | sets[is], -1));
    }
}

/* ---- conversions and casts */

static void converted(int i) {
  char *null_string = 0;
  void *result = &result, *untouched = 0;
  const int found = __derived_to_base_conversion(object, &result, rows[i].from, rows[i].to, &null_string, 0);
  const int is_base = rows[i].at != -1 && rows[i].from->bases != 0;
  CHECK_INT(found, is_base);
  CHECK(result == (is_base ? object + rows[i].at : 0));
  CHECK_INT(__derived_to_base_conversion(0, &untouched, rows[i].from, rows[i].to, &null_string, 0), is_base);
  CHECK(untouched == 0);
}
static void cast(int i) {
  int offset;
  for (offset = 0; offset < 32; offset += 16) {
    a_virtual_table_slot table[1];
    char *const want = rows[i].at == -1 ? 0 : object + rows[i].at;
    char *volatile got = 0;
    memset(table, 0, sizeof table);
    table->offset = (short)offset;
    table->type = rows[i].from;
    CHECK(__dynamic_cast(object + offset, table, rows[i].to) == want);
    CHECK(__dynamic_cast(object + offset, table, 0) == object);
    CHECK(__get_typeid(table) == rows[i].from);
    TRY(catch_all) got = (char *)__dynamic_cast_ref(object + offset, table, rows[i].to);
    HANDLERS CHECK(try_entry.body.try_block.handled_exception->type->identity == &__TID_St8bad_cast);
    END_TRY
    CHECK(got == want);
  }
}
/* With a mode, the string says for each direct base whether it is accessible, and every base is a path. */
static void access_modes(void) {
  static const struct {
    const a_type_info_impl *from, *to;
    const char *string;
    int mode, at, read;
  } modes[] = {/* clang-format off */
      {&both, &one, "YYYY", 1, 4, 1}, {&both, &two, "YYYY", 1, 12, 2}, {&both, &one, "NY", 1, -1, 2},
      {&both, &two, "NY", 1, 12, 2}, {&both, &two, "YN", 1, -1, 2}, {&private_last_one, &one, "YYYY", 1, 8, 2},
      {&private_both, &both, "YYYY", 2, 0, 1}, {&private_both, &two, "YYYY", 1, 12, 3},
      {&ambiguous_both, &one, "NNYY", 1, 4, 3}, {&ambiguous_one, &one, "YYYY", 1, -1, 1},
      {&near, &two, "YY", 1, -1, 2}, {&both, &one, 0, 1, -1, 0}, {&near, &two, 0, 1, -1, 0},
      {&both, &two, "NN", 0, 12, 0}};
  /* clang-format on */
  unsigned i;
  for (i = 0; i < sizeof modes / sizeof *modes; ++i) {
    char *string = (char *)modes[i].string;
    void *result = 0;
    CHECK_INT(__derived_to_base_conversion(object, &result, modes[i].from, modes[i].to, &string, modes[i].mode),
              modes[i].at != -1);
    CHECK(result == (modes[i].at == -1 ? 0 : object + modes[i].at) && string - modes[i].string == modes[i].read);
  }
}

int main(void) {
  int i;
  fill(object);
  for (i = 0; i < ROWS; ++i) {
    const int before = test_failures;
    thrown(i);
    converted(i);
    cast(i);
    if (test_failures != before) fprintf(stderr, "in row %d\n", i);
  }
  access_modes();
  CHECK_TEXT(__TI_y.name, "unsigned long long");
  CHECK_QUIET();
  return TEST_RESULT();
}
