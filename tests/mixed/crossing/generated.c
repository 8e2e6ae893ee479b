/* Generated C that throws classes of C++, and catches what C++ and the library throw. */
#include "shared.h"

#include "emit.h"

#pragma GCC diagnostic ignored "-Wimplicit-fallthrough" /* __throw does not come back */

extern const char _ZTS5first[], _ZTS6second[], _ZTS6joined[], _ZTS6secret[], _ZTS6shared[], _ZTS5twice[];
extern const char _ZTS8cpp_type[], _ZTSPi[];
#define PUBLIC PLX_BASE_PUBLIC
#define END PLX_BASE_LAST
#define LAST PLX_TYPE_LAST
#define POINTER PLX_TYPE_POINTER
#define CONST PLX_TYPE_CONST
#define TYPE(type, identity, bases) \
  static const a_type_info_impl type##_type = {PLX_TYPE_INFO_VTABLE, #type, identity, bases}
TYPE(first, _ZTS5first, 0);
TYPE(second, _ZTS6second, 0);
static const a_base_class_spec joined_bases[] = {{&first_type, 0, PUBLIC}, {&second_type, 4, PUBLIC | END}};
TYPE(joined, _ZTS6joined, joined_bases);
static const a_base_class_spec secret_bases[] = {{&first_type, 0, END}};
TYPE(secret, _ZTS6secret, secret_bases);
static const a_base_class_spec twice_bases[] = {{&first_type, 0, PUBLIC | PLX_BASE_AMBIGUOUS},
                                                {&joined_type, 4, PUBLIC | END}};
TYPE(twice, _ZTS5twice, twice_bases);
TYPE(shared, _ZTS6shared, 0);
TYPE(routine, 0, 0);
/* Of this file only, with a virtual base: the pointer at offset 4 leads to it. */
static const a_base_class_spec holder_bases[] = {{&shared_type, 4, PUBLIC | PLX_BASE_VIRTUAL | END}};
TYPE(holder, 0, holder_bases);
/* `int *`, for `int **`: the name object of C++ is the identity. */
static const a_type_info_impl int_pointer = {PLX_TYPE_INFO_VTABLE, "int *", _ZTSPi, 0};

static void destroy(void *object, int flags) { say(flags == 2 ? "~%d" : "flags", *(int *)object); }

static struct { int one, two, three; } static_joined = {11, 22, 33};
static int number = 44, *pointer_to_number = &number;

static NOINLINE int *made(const a_type_info_impl *type, a_destructor destructor, int first_word) {
  int *const object = (int *)__throw_setup_dtor(type, 16, 0, destructor);
  object[0] = first_word;
  object[1] = first_word * 10 + 1;
  object[2] = first_word * 10 + 2;
  return object;
}
void c_throws(int what) {
  switch (what) {
    case 1: THROW(__TI_i, int, 0, 101);
    case 2: THROW(__TI_d, double, 0, 2.5);
    case 3: THROW(__TI_c, const char *, POINTER | CONST, "text");
    case 4: made(&joined_type, destroy, 1), __throw();
    case 5: THROW(secret_type, int, 0, 5);
    case 6: made(&twice_type, 0, 6), __throw();
    case 7: {
      int *const object = made(&holder_type, destroy, 7);
      ((int **)object)[1] = object + 2;
      __throw();
    }
    case 8: THROW(joined_type, void *, POINTER, &static_joined);
    case 9: THROW(joined_type, void *, POINTER | CONST, &static_joined);
    case 10: THROW(joined_type, void *, POINTER, 0);
    case 11: {
      void *volatile block = _Znwj(0xF0000000u); /* volatile: compilers may drop the call */
      (void)block;
    }
    case 12: __throw_bad_cast();
    case 13: THROW(int_pointer, int **, POINTER, &pointer_to_number);
    case 14: THROW(__TI_i, int *, POINTER, &number);
    case 15: THROW(routine_type, a_routine, POINTER, (a_routine)c_throws);
  }
}

/* clang-format off */
static const an_exception_type_specification clauses[] = {
    {&__TI_i, 0}, {&__TI_d, 0}, {&__TI_c, POINTER | CONST}, {&second_type, 0}, {&first_type, 0}, {&second_type, POINTER},
    {&__TI_St11logic_error, 0}, {&__TI_St9bad_alloc, 0}, {&__TI_St9exception, 0}, {&int_pointer, POINTER},
    {&__TI_v, POINTER}, {&__TI_v, POINTER | CONST}, {&shared_type, 0}, {0, PLX_TYPE_ELLIPSIS | LAST}};
void c_catches(thrower throws, int what) {
  TRY(clauses)
  throws(what);
  say("nothing");
  HANDLERS
  switch (clause) {
    case 1: say("int%d", *(int *)caught); break;
    case 2: say("double%g", *(double *)caught); break;
    case 3: say("text=%s", *(const char **)caught); break;
    case 4: say("second%d", *(int *)caught); break;
    case 5: say("first%d", *(int *)caught); break;
    case 6: say("second*%d", *(second **)caught ? (*(second **)caught)->two : 0); break;
    case 7:
    case 9: say("exception=%s", cpp_what(caught)); break;
    case 8: say("bad_alloc"); break;
    case 10: say("int**%d", ***(int ***)caught); break;
    case 11: say("void*"); break;
    case 12: say("const void*"); break;
    case 13: say("shared%d", *(int *)caught); break;
    default: say("any");
  }
  END_TRY
}
/* clang-format on */
/* For typeid of C++. */
const a_type_info_impl c_view_of_cpp_type = {PLX_TYPE_INFO_VTABLE, "another name", _ZTS8cpp_type, 0};
TYPE(whole, 0, 0);
const a_type_info_impl *const c_class = &whole_type;
/* In a program that has the casts of C++, too. */
int c_casts(void) {
  static const a_virtual_table_slot table[] = {{0, 0, &joined_type}};
  return __dynamic_cast(&static_joined, table, &second_type) == &static_joined.two &&
         !__dynamic_cast(&static_joined, table, &c_view_of_cpp_type);
}
