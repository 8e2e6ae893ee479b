/* Generated C that throws classes of C++, catches what C++ and the library throw, and casts objects of its own. */
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
/* Of this file only, with a virtual base: the pointer at offset 4 leads to it. */
static const a_base_class_spec holder_bases[] = {{&shared_type, 4, PUBLIC | PLX_BASE_VIRTUAL | END}};
TYPE(holder, 0, holder_bases);
/* `int *`, for `int **`: the name object of C++ is the identity. */
static const a_type_info_impl int_pointer = {PLX_TYPE_INFO_VTABLE, "int *", _ZTSPi, 0};

static void destroy(void *object, int flags) { say("~%d/%d", *(int *)object, flags); }

static struct { int one, two, three; } static_joined = {11, 22, 33};
static int number = 44, *pointer_to_number = &number;

void c_throws(int what) {
  switch (what) {
    case 0: return;
    case 1: THROW(__TI_i, int, 0, 101);
    case 2: THROW(__TI_d, double, 0, 2.5);
    case 3: THROW(__TI_c, const char *, POINTER | CONST, "from C");
    case 4: {
      int *object = (int *)__throw_setup_dtor(&joined_type, 12, 0, destroy);
      object[0] = 1;
      object[1] = 2;
      object[2] = 3;
      __throw();
    }
    case 5: THROW(secret_type, int, 0, 5);
    case 6: {
      int *object = (int *)__throw_setup(&twice_type, 16, 0);
      object[0] = 6;
      object[2] = 62;
      object[3] = 63;
      __throw();
    }
    case 7: {
      int *object = (int *)__throw_setup_dtor(&holder_type, 12, 0, destroy);
      object[0] = 7;
      object[2] = 70;
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
  }
}

/* clang-format off */
static const an_exception_type_specification clauses[] = {
    {&__TI_i, 0}, {&__TI_c, POINTER | CONST}, {&second_type, 0}, {&first_type, 0}, {&second_type, POINTER},
    {&__TI_St11logic_error, 0}, {&__TI_St9bad_alloc, 0}, {&__TI_St9exception, 0}, {&int_pointer, POINTER},
    {&__TI_v, POINTER}, {&shared_type, 0}, {0, PLX_TYPE_ELLIPSIS | LAST}};
/* clang-format on */
void c_catches(thrower throws, int what) {
  TRY(clauses)
  throws(what);
  say("nothing");
  HANDLERS
  switch (clause) {
    case 2: say("text=%s", *(const char **)caught); break;
    case 5: say("second*%d", *(second **)caught ? (*(second **)caught)->two : 0); break;
    case 6:
    case 8: say("exception%d=%s", clause, cpp_what(caught)); break;
    case 7: say("bad_alloc"); break;
    case 9: say("int**%d", ***(int ***)caught); break;
    case 10: say("void*"); break;
    case 12: say("any"); break;
    default: say("%d:%d", clause, *(int *)caught);
  }
  END_TRY
}
/* struct base { virtual ...; int n; };  struct other { virtual ...; };  struct whole : base, private other {}; */
TYPE(base, 0, 0);
TYPE(other, 0, 0);
static const a_base_class_spec whole_bases[] = {{&base_type, 0, PUBLIC}, {&other_type, 8, END}};
TYPE(whole, 0, whole_bases);
const a_type_info_impl c_view_of_cpp_type = {PLX_TYPE_INFO_VTABLE, "another name", _ZTS8cpp_type, 0};
const a_type_info_impl *const c_class = &whole_type;
static const a_virtual_table_slot base_table[] = {{0, 0, &base_type}}, whole_table[] = {{0, 0, &whole_type}},
                                  other_table[] = {{8, 0, &whole_type}};
typedef struct polymorphic {
  const a_virtual_table_slot *table;
  int n;
} polymorphic;
static polymorphic a_base = {base_table, 1}, a_whole[2] = {{whole_table, 2}, {other_table, 3}};
static void *cast(polymorphic *object, const a_type_info_impl *target) {
  return __dynamic_cast(object, object->table, target);
}
int c_casts(void) { /* how many do what they must */
  return (cast(&a_whole[1], &base_type) == a_whole) + (cast(&a_whole[0], &other_type) == 0) +
         (cast(&a_base, &whole_type) == 0) + (cast(&a_base, &c_view_of_cpp_type) == 0);
}
