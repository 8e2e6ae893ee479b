/* Which clause takes which exception, and where the handler finds the object: bases of every sort, pointers with their
 * qualifiers, void *, ellipsis, descriptors that share an identity or have none. */
#include "classes.h"

#define POINTER PLX_TYPE_POINTER
#define CONST PLX_TYPE_CONST
#define VOLATILE PLX_TYPE_VOLATILE
#define LAST PLX_TYPE_LAST
#define PUBLIC PLX_BASE_PUBLIC
#define END PLX_BASE_LAST

EMIT_CLASS(left, "left", 0);
EMIT_CLASS(right, "right", 0);
EMIT_CLASS(other, "other", 0);

/* The descriptor of `left` as another file emitted it. */
static const a_type_info_impl left_again = {PLX_TYPE_INFO_VTABLE, "left", &left_identity, 0};

static const a_base_class_spec join_bases[] = {{&left, 0, PUBLIC}, {&right, 8, PUBLIC | END}};
EMIT_CLASS(join, "join", join_bases);
static const a_base_class_spec deep_bases[] = {{&other, 0, PUBLIC}, {&join, 16, PUBLIC | END}};
EMIT_CLASS(deep, "deep", deep_bases);
static const a_base_class_spec again_bases[] = {{&left_again, 4, PUBLIC | END}};
EMIT_CLASS(from_again, "from_again", again_bases);
static const a_base_class_spec private_bases[] = {{&left, 0, 0}, {&right, 8, PUBLIC | END}};
EMIT_CLASS(hidden, "hidden", private_bases);
static const a_base_class_spec ambiguous_bases[] = {{&right, 4, PUBLIC | PLX_BASE_AMBIGUOUS | END}};
EMIT_CLASS(twice, "twice", ambiguous_bases);
static const a_base_class_spec private_path[] = {{&join, 0, END}};
EMIT_CLASS(through_private, "through_private", private_path);
static const a_base_class_spec ambiguous_path[] = {{&join, 0, PUBLIC | PLX_BASE_AMBIGUOUS | END}};
EMIT_CLASS(through_ambiguous, "through_ambiguous", ambiguous_path);
static const a_base_class_spec virtual_bases[] = {{&left, 4, PLX_BASE_VIRTUAL | PUBLIC | END}};
EMIT_CLASS(shared, "shared", virtual_bases);
static const a_base_class_spec virtual_path[] = {{&join, 4, PLX_BASE_VIRTUAL | PUBLIC | END}};
EMIT_CLASS(shared_path, "shared_path", virtual_path);
static const a_base_class_spec backward_bases[] = {{&left, -8, PUBLIC | END}};
EMIT_CLASS(backward, "backward", backward_bases);

/* Classes without identity, as local classes may be. */
static const a_type_info_impl local_class = {PLX_TYPE_INFO_VTABLE, "local", 0, 0};
static const a_type_info_impl local_twin = {PLX_TYPE_INFO_VTABLE, "local", 0, 0};
static const a_base_class_spec local_bases[] = {{&local_class, 8, PUBLIC}, {&left, 12, PUBLIC | END}};
static const a_type_info_impl local_derived = {PLX_TYPE_INFO_VTABLE, "local_derived", 0, local_bases};

/* void as another file emitted it. */
static const a_type_info_impl void_again = {PLX_TYPE_INFO_VTABLE, "void", &__TID_v, 0};

/* Throws 64 bytes of type `type`, or a pointer to such, at a try block with `clauses`. Returns the clause, 0 for none,
 * and in `moved` how far from the object the handler found it. The pointer at offset 4 leads 32 bytes ahead. */
static int moved;
static NOINLINE int thrown_at(const an_exception_type_specification *clauses, const a_type_info_impl *type, int flags) {
  static char target[64];
  an_eh_stack_entry outer, entry;
  char *volatile base;
  volatile int clause = 0;
  moved = -1;
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(entry, clauses) {
      char *storage = (char *)__throw_setup(type, sizeof target, (unsigned char)flags);
      char *object = flags & POINTER ? target : storage;
      char *ahead = object + 32;
      memset(object, 0, sizeof target);
      memcpy(object + 4, &ahead, sizeof ahead);
      if (flags & POINTER) memcpy(storage, &object, sizeof object);
      base = object;
      __throw();
    }
    EMIT_HANDLERS {
      char *found = flags & POINTER ? *(char **)__caught_object_address : (char *)__caught_object_address;
      clause = __catch_clause_number;
      moved = (int)(found - base);
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
  }
  EMIT_HANDLERS {
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
  return clause;
}

/* One clause against one thrown type; `at` is where the object is found, or -1 when the clause must not match. */
static void one_clause(int line, const a_type_info_impl *clause_type, int clause_flags, const a_type_info_impl *type,
                       int flags, int at) {
  an_exception_type_specification clauses[1];
  int clause;
  clauses[0].type = clause_type;
  clauses[0].flags = (unsigned char)(clause_flags | LAST);
  clause = thrown_at(clauses, type, flags);
  test_report_int(clause, at != -1, __FILE__, line, "the clause chosen");
  test_report_int(moved, at, __FILE__, line, "where the object is found");
}
#define MATCH(clause, clause_flags, type, flags, at) one_clause(__LINE__, clause, clause_flags, type, flags, at)

static void values(void) {
  MATCH(&left, 0, &left, 0, 0);
  MATCH(&left, 0, &right, 0, -1);
  MATCH(&left, 0, &left_again, 0, 0);
  MATCH(&left_again, 0, &left, 0, 0);
  MATCH(&left, CONST | VOLATILE, &left, 0, 0);
  MATCH(&__TI_i, 0, &__TI_i, 0, 0);
  MATCH(&__TI_i, 0, &__TI_l, 0, -1);
  MATCH(&__TI_c, 0, &__TI_a, 0, -1);
}

static void bases(void) {
  MATCH(&left, 0, &join, 0, 0);
  MATCH(&right, 0, &join, 0, 8);
  MATCH(&join, 0, &right, 0, -1);
  MATCH(&right, 0, &deep, 0, 24);
  MATCH(&other, 0, &deep, 0, 0);
  MATCH(&left, 0, &from_again, 0, 4);
  MATCH(&left, 0, &hidden, 0, -1);
  MATCH(&right, 0, &hidden, 0, 8);
  MATCH(&right, 0, &twice, 0, -1);
  MATCH(&left, 0, &through_private, 0, -1);
  MATCH(&right, 0, &through_ambiguous, 0, -1);
  MATCH(&left, 0, &shared, 0, 32);
  MATCH(&right, 0, &shared_path, 0, 40);
  MATCH(&right, CONST, &join, 0, 8);
}

static void pointers(void) {
  MATCH(&left, POINTER, &left, POINTER, 0);
  MATCH(&left, 0, &left, POINTER, -1);
  MATCH(&left, POINTER, &left, 0, -1);
  MATCH(&left_again, POINTER, &left, POINTER, 0);
  MATCH(&right, POINTER, &join, POINTER, 8);
  MATCH(&right, POINTER, &deep, POINTER, 24);
  MATCH(&left, POINTER, &shared, POINTER, 32);
  MATCH(&left, POINTER, &backward, POINTER, -8);
  MATCH(&left, POINTER, &hidden, POINTER, -1);
  MATCH(&right, 0, &join, POINTER, -1);
  MATCH(&right, POINTER, &join, 0, -1);
  MATCH(&__TI_i, POINTER, &__TI_j, POINTER, -1);
}

/* A clause must have every qualifier that the thrown pointer has; it may have more. */
static void qualifiers(void) {
  static const int sets[] = {0, CONST, VOLATILE, CONST | VOLATILE};
  int thrown, named;
  for (thrown = 0; thrown < 4; ++thrown)
    for (named = 0; named < 4; ++named) {
      int fits = (sets[named] & sets[thrown]) == sets[thrown];
      MATCH(&__TI_c, POINTER | sets[named], &__TI_c, POINTER | sets[thrown], fits ? 0 : -1);
      MATCH(&right, POINTER | sets[named], &join, POINTER | sets[thrown], fits ? 8 : -1);
      MATCH(&__TI_v, POINTER | sets[named], &join, POINTER | sets[thrown], fits ? 0 : -1);
    }
}

static void pointer_to_void(void) {
  MATCH(&__TI_v, POINTER, &__TI_i, POINTER, 0);
  MATCH(&void_again, POINTER, &__TI_i, POINTER, 0);
  MATCH(&__TI_v, POINTER, &local_class, POINTER, 0);
  MATCH(&__TI_v, POINTER, &shared, POINTER, 0);
  MATCH(&__TI_v, POINTER, &__TI_v, POINTER, 0);
  MATCH(&__TI_v, POINTER, &__TI_i, 0, -1);
  MATCH(&__TI_i, POINTER, &__TI_v, POINTER, -1);
}

static void without_identity(void) {
  MATCH(&local_class, 0, &local_class, 0, 0);
  MATCH(&local_class, 0, &local_twin, 0, -1);
  MATCH(&local_class, POINTER, &local_twin, POINTER, -1);
  MATCH(&local_class, 0, &local_derived, 0, 8);
  MATCH(&local_twin, 0, &local_derived, 0, -1);
  MATCH(&left, 0, &local_derived, 0, 12);
  MATCH(&left, 0, &local_class, 0, -1);
}

/* The order of the list decides, nothing else; clauses after the last are not looked at, and a clause that fails
 * leaves the object's address alone. */
static void lists(void) {
  static const an_exception_type_specification base_first[] = {{&right, 0}, {&join, LAST}};
  static const an_exception_type_specification derived_first[] = {{&join, 0}, {&right, LAST}};
  static const an_exception_type_specification all_first[] = {{0, PLX_TYPE_ELLIPSIS}, {&join, LAST}};
  static const an_exception_type_specification ended[] = {{&__TI_i, 0}, {&__TI_d, LAST}, {&join, LAST}};
  static const an_exception_type_specification failing_first[] = {
      {&right, POINTER}, {&deep, 0}, {&join, POINTER}, {&left, POINTER | CONST}, {&join, LAST}};
  CHECK_INT(thrown_at(base_first, &join, 0), 1);
  CHECK_INT(moved, 8);
  CHECK_INT(thrown_at(derived_first, &join, 0), 1);
  CHECK_INT(moved, 0);
  CHECK_INT(thrown_at(derived_first, &right, 0), 2);
  CHECK_INT(thrown_at(all_first, &join, 0), 1);
  CHECK_INT(thrown_at(ended, &join, 0), 0);
  CHECK_INT(thrown_at(failing_first, &join, 0), 5);
  CHECK_INT(moved, 0);
  CHECK_INT(thrown_at(catch_all, &join, POINTER | CONST), 1);
  CHECK_INT(moved, 0);
}

/* A null pointer stays null, also on its way to a virtual base; and the slot belongs to the throw, so what a handler
 * stores there does not reach an outer handler. */
static void null_pointer(void) {
  static const an_exception_type_specification clauses[] = {{&left, POINTER | LAST}};
  an_eh_stack_entry outer, inner;
  EMIT_TRY(outer, clauses) {
    EMIT_TRY(inner, clauses) {
      *(void **)__throw_setup(&shared, sizeof(void *), POINTER) = 0;
      __throw();
    }
    EMIT_HANDLERS {
      CHECK(*(void **)__caught_object_address == 0);
      *(void **)__caught_object_address = &inner;
      __exception_caught();
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    CHECK(*(void **)__caught_object_address == 0);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

/* A rethrow starts from the object that was thrown, not from the base that a handler saw. */
static void rethrow_of_base(void) {
  static const an_exception_type_specification by_right[] = {{&right, LAST}};
  static const an_exception_type_specification by_join[] = {{&join, LAST}};
  an_eh_stack_entry outer, inner;
  char *volatile object;
  EMIT_TRY(outer, by_join) {
    EMIT_TRY(inner, by_right) {
      object = (char *)__throw_setup(&join, 64, 0);
      __throw();
    }
    EMIT_HANDLERS {
      CHECK((char *)__caught_object_address == object + 8);
      __exception_caught();
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    CHECK((char *)__caught_object_address == object);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

int main(void) {
  values();
  bases();
  pointers();
  qualifiers();
  pointer_to_void();
  without_identity();
  lists();
  null_pointer();
  rethrow_of_base();
  CHECK_QUIET();
  return TEST_RESULT();
}
