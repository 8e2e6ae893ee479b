/* Classes with virtual functions as a compiler lays them out in C, with their tables, and casts of such objects by the
 * runtime's three-argument __dynamic_cast. C++ has a function of that name of its own in the same program.
 */
#include "emit.h"

extern const char _ZTS8cpp_type[];

/* struct base { virtual ...; int n; };  struct other { virtual ...; };  struct whole : base, private other {}; */
static const a_type_info_impl base_type = {PLX_TYPE_INFO_VTABLE, "c_world::base", 0, 0};
static const a_type_info_impl other_type = {PLX_TYPE_INFO_VTABLE, "c_world::other", 0, 0};
static const a_base_class_spec whole_bases[] = {{&base_type, 0, PLX_BASE_PUBLIC}, {&other_type, 8, PLX_BASE_LAST}};
static const a_type_info_impl whole_type = {PLX_TYPE_INFO_VTABLE, "c_world::whole", 0, whole_bases};

/* The descriptor of a class that C++ defines too. */
const a_type_info_impl c_view_of_cpp_type = {PLX_TYPE_INFO_VTABLE, "cpp_type", _ZTS8cpp_type, 0};

static const a_virtual_table_slot base_table[] = {{0, 0, &base_type}};
static const a_virtual_table_slot whole_table[] = {{0, 0, &whole_type}};
static const a_virtual_table_slot whole_other_table[] = {{8, 0, &whole_type}};

typedef struct polymorphic {
  const a_virtual_table_slot *table;
  int n;
} polymorphic;
typedef struct whole {
  polymorphic base_part;
  polymorphic other_part;
} whole;

static polymorphic a_base = {base_table, 1};
static whole a_whole = {{whole_table, 2}, {whole_other_table, 3}};

static void *cast(polymorphic *object, const a_type_info_impl *target) {
  return __dynamic_cast(object, object->table, target);
}

/* How many of the casts below do what they must. */
int c_casts(void) {
  int right = 0;
  right += cast(&a_whole.base_part, &whole_type) == &a_whole;
  right += cast(&a_whole.other_part, &whole_type) == &a_whole;
  right += cast(&a_whole.other_part, &base_type) == &a_whole.base_part;
  right += cast(&a_whole.base_part, &other_type) == 0;
  right += cast(&a_whole.other_part, 0) == &a_whole;
  right += cast(&a_base, &whole_type) == 0;
  right += cast(&a_base, &base_type) == &a_base;
  right += cast(&a_base, &c_view_of_cpp_type) == 0;
  return right;
}

void c_failing_cast(void) { __dynamic_cast_ref(&a_base, a_base.table, &whole_type); }
const a_type_info_impl *c_typeid(int null) { return __get_typeid(null ? 0 : a_whole.other_part.table); }

static const an_exception_type_specification bad_cast_clause[] = {{&__TI_St10bad_typeid, 0},
                                                                   {&__TI_St8bad_cast, PLX_TYPE_LAST}};
int c_catches_bad_cast(void (*f)(void)) {
  int caught_clause = 0;
  TRY(bad_cast_clause)
    f();
  HANDLERS
    caught_clause = clause;
  END_TRY
  return caught_clause;
}
