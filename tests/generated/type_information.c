/* Type information as generated code asks for it: identity, typeid, dynamic_cast, and the conversion to a base with
 * its access modes, qualifier string and flags. */
#include "classes.h"

#define PUBLIC PLX_BASE_PUBLIC
#define END PLX_BASE_LAST

EMIT_CLASS(one, "one", 0);
EMIT_CLASS(two, "two", 0);
EMIT_CLASS(unrelated, "unrelated", 0);
static const a_type_info_impl one_again = {PLX_TYPE_INFO_VTABLE, "one", &one_identity, 0};
static const a_type_info_impl nameless = {PLX_TYPE_INFO_VTABLE, "nameless", 0, 0};
static const a_type_info_impl nameless_too = {PLX_TYPE_INFO_VTABLE, "nameless", 0, 0};

static const a_base_class_spec both_bases[] = {{&one, 4, PUBLIC}, {&two, 12, PUBLIC | END}};
EMIT_CLASS(both, "both", both_bases);
/* `one` is a direct base and a deeper one: the direct one is meant. */
static const a_base_class_spec near_bases[] = {{&both, 16, PUBLIC}, {&one, 40, PUBLIC | END}};
EMIT_CLASS(near, "near", near_bases);
/* Two paths: the first in order of declaration. */
static const a_base_class_spec paths_bases[] = {{&both, 0, PUBLIC}, {&both, 20, PUBLIC | END}};
EMIT_CLASS(paths, "paths", paths_bases);
/* A private direct base does not end the search; an ambiguous one does. */
static const a_base_class_spec private_bases[] = {{&one, 0, 0}, {&both, 8, PUBLIC | END}};
EMIT_CLASS(private_one, "private_one", private_bases);
static const a_base_class_spec ambiguous_bases[] = {{&one, 0, PUBLIC | PLX_BASE_AMBIGUOUS}, {&both, 8, PUBLIC | END}};
EMIT_CLASS(ambiguous_one, "ambiguous_one", ambiguous_bases);
static const a_base_class_spec ambiguous_path[] = {{&both, 0, PUBLIC | PLX_BASE_AMBIGUOUS}, {&two, 30, PUBLIC | END}};
EMIT_CLASS(ambiguous_both, "ambiguous_both", ambiguous_path);
static const a_base_class_spec private_path[] = {{&both, 0, END}};
EMIT_CLASS(private_both, "private_both", private_path);
static const a_base_class_spec private_last[] = {{&two, 0, PUBLIC}, {&one, 8, END}};
EMIT_CLASS(private_last_one, "private_last_one", private_last);
/* A virtual base, and one below a virtual base. Bits without a name do not matter. */
static const a_base_class_spec virtual_bases[] = {{&both, 4, PLX_BASE_VIRTUAL | PUBLIC | END | 0x70}};
EMIT_CLASS(shares_both, "shares_both", virtual_bases);
static const a_base_class_spec nameless_bases[] = {{&nameless, 4, PUBLIC | END}};
EMIT_CLASS(has_nameless, "has_nameless", nameless_bases);

/* An object whose word at offset 4 leads 24 bytes ahead. */
static char object[64];

/* Where a conversion leads, as a distance from the object; -1 when there is none. */
static char *string_after;
static int convert(const a_type_info_impl *from, const a_type_info_impl *to, char *string, int mode) {
  void *converted = 0;
  char *ahead = object + 24;
  char **in_out = string ? &string : 0;
  char *null_string = 0;
  int found, found_without;
  memcpy(object + 4, &ahead, sizeof ahead);
  found = __derived_to_base_conversion(object, &converted, from, to, in_out ? in_out : &null_string, mode);
  string_after = string;
  if (!string) {
    /* Without an object only the answer counts. */
    void *untouched = 0;
    null_string = 0;
    found_without = __derived_to_base_conversion(0, &untouched, from, to, &null_string, mode);
    CHECK_INT(!found_without, !found);
    CHECK(untouched == 0);
  }
  return found ? (int)((char *)converted - object) : -1;
}

static void conversions(void) {
  CHECK_INT(convert(&both, &one, 0, 0), 4);
  CHECK_INT(convert(&both, &two, 0, 0), 12);
  CHECK_INT(convert(&both, &one_again, 0, 0), 4);
  CHECK_INT(convert(&both, &unrelated, 0, 0), -1);
  CHECK_INT(convert(&one, &two, 0, 0), -1);
  CHECK_INT(convert(&near, &one, 0, 0), 40);
  CHECK_INT(convert(&near, &two, 0, 0), 28);
  CHECK_INT(convert(&near, &both, 0, 0), 16);
  CHECK_INT(convert(&paths, &two, 0, 0), 12);
  CHECK_INT(convert(&paths, &both, 0, 0), 0);
  CHECK_INT(convert(&private_one, &one, 0, 0), 12);
  CHECK_INT(convert(&ambiguous_one, &one, 0, 0), -1);
  CHECK_INT(convert(&ambiguous_one, &two, 0, 0), 20);
  CHECK_INT(convert(&ambiguous_both, &one, 0, 0), -1);
  CHECK_INT(convert(&ambiguous_both, &both, 0, 0), -1);
  CHECK_INT(convert(&ambiguous_both, &two, 0, 0), 30);
  CHECK_INT(convert(&private_both, &one, 0, 0), -1);
  CHECK_INT(convert(&private_both, &both, 0, 0), -1);
  CHECK_INT(convert(&private_last_one, &one, 0, 0), -1);
  CHECK_INT(convert(&shares_both, &both, 0, 0), 24);
  CHECK_INT(convert(&shares_both, &two, 0, 0), 36);
  CHECK_INT(convert(&has_nameless, &nameless, 0, 0), 4);
  CHECK_INT(convert(&has_nameless, &nameless_too, 0, 0), -1);
}

/* With a mode, the string says for each direct base whether it is accessible, and every base is a path. */
static void access_modes(void) {
  char yes[] = "YYYYYY", no_yes[] = "NY", yes_no[] = "YN", no_no_yes_yes[] = "NNYY";
  CHECK_INT(convert(&both, &one, yes, 1), 4);
  CHECK(string_after == yes + 1);
  CHECK_INT(convert(&both, &two, yes, 1), 12);
  CHECK(string_after == yes + 2);
  CHECK_INT(convert(&both, &one, no_yes, 1), -1);
  CHECK_INT(convert(&both, &two, no_yes, 1), 12);
  CHECK_INT(convert(&both, &two, yes_no, 1), -1);
  CHECK_INT(convert(&private_last_one, &one, yes, 1), 8);
  CHECK_INT(convert(&private_both, &both, yes, 2), 0);
  /* Through a base that is not public: the string is read on in the recursion. */
  CHECK_INT(convert(&private_both, &two, yes, 1), 12);
  CHECK_INT(convert(&ambiguous_both, &one, no_no_yes_yes, 1), 4);
  /* An ambiguous direct base is still none. */
  CHECK_INT(convert(&ambiguous_one, &one, yes, 1), -1);
  /* No string: no base is accessible. */
  CHECK_INT(convert(&both, &one, 0, 1), -1);
  CHECK_INT(convert(&near, &two, 0, 1), -1);
  /* Without a mode the string is not touched. */
  CHECK_INT(convert(&both, &two, no_yes, 0), 12);
  CHECK(string_after == no_yes);
}

/* A polymorphic object of class `near`: the tables of the whole and of the subobject at 16. */
static const a_virtual_table_slot whole_table[] = {{0, 0, &near}};
static const a_virtual_table_slot part_table[] = {{16, 0, &near}};
static const a_virtual_table_slot shared_table[] = {{8, 0, &shares_both}};

static void casts(void) {
  CHECK(__dynamic_cast(object, whole_table, 0) == object);
  CHECK(__dynamic_cast(object + 16, part_table, 0) == object);
  CHECK(__dynamic_cast(object + 16, part_table, &near) == object);
  CHECK(__dynamic_cast(object + 16, part_table, &one) == object + 40);
  CHECK(__dynamic_cast(object + 16, part_table, &one_again) == object + 40);
  CHECK(__dynamic_cast(object + 16, part_table, &two) == object + 28);
  CHECK(__dynamic_cast(object + 16, part_table, &both) == object + 16);
  CHECK(__dynamic_cast(object, whole_table, &unrelated) == 0);
  CHECK(__dynamic_cast(object, whole_table, &paths) == 0);
  CHECK(__dynamic_cast(object + 8, shared_table, &two) == object + 36);
  CHECK(__dynamic_cast_ref(object + 16, part_table, &two) == object + 28);
  CHECK(__get_typeid(part_table) == &near);
}

/* The text of a library exception: the third entry of its virtual table is what(). */
static const char *what_of(const void *thrown) {
  typedef const char *(*a_what)(const void *);
  const a_what what = (*(const a_what *const *)thrown)[2];
  return what(thrown);
}
static void ambiguous_cast(void) {
  static const a_virtual_table_slot table[] = {{0, 0, &ambiguous_one}};
  __dynamic_cast_ref(object, table, &one);
}
static void failing_cast(void) { __dynamic_cast_ref(object, whole_table, &unrelated); }
static void typeid_of_null(void) { __get_typeid(0); }
static void bad_cast(void) { __throw_bad_cast(); }
static void bad_typeid(void) { __throw_bad_typeid(); }

static void caught(void (*body)(void), int clause, const char *what) {
  static const an_exception_type_specification clauses[] = {
      {&__TI_St8bad_cast, 0}, {&__TI_St10bad_typeid, 0}, {0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
  an_eh_stack_entry entry;
  EMIT_TRY(entry, clauses) {
    body();
    CHECK(0);
  }
  EMIT_HANDLERS {
    CHECK_INT(__catch_clause_number, clause);
    CHECK_TEXT(what_of(__caught_object_address), what);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* The library's own descriptors. */
static void library_types(void) {
  CHECK_TEXT(__TI_i.name, "int");
  CHECK_TEXT(__TI_y.name, "unsigned long long");
  CHECK_TEXT(__TI_St12out_of_range.name, "std::out_of_range");
  CHECK(__TI_St12out_of_range.identity == &__TID_St12out_of_range);
  CHECK(__TI_v.identity == &__TID_v);
  CHECK(__TI_i.virtual_table == PLX_TYPE_INFO_VTABLE);
  CHECK(__TI_i.bases == 0 && __TI_St9exception.bases == 0);
  CHECK(__TI_St12out_of_range.bases->base->identity == &__TID_St11logic_error);
  CHECK_INT(__TI_St12out_of_range.bases->flags, PUBLIC | END);
}

int main(void) {
  conversions();
  access_modes();
  casts();
  caught(failing_cast, 1, "Bad Cast Exception");
  caught(ambiguous_cast, 1, "Bad Cast Exception");
  caught(bad_cast, 1, "Bad Cast Exception");
  caught(typeid_of_null, 2, "");
  caught(bad_typeid, 2, "");
  library_types();
  CHECK_QUIET();
  return TEST_RESULT();
}
