/* Scenes as generated C: each node is a function with the entries that a compiler makes for it. */
#include "scenes.h"

#include "emit.h"

#define BASES(type, offset) \
  static const a_base_class_spec type##_bases[] = {{&fault_type, offset, PLX_BASE_PUBLIC | PLX_BASE_LAST}}
#if WORLDS == 1
EMIT_CLASS(fault_type, "fault", 0);
#define DERIVED(type, name) EMIT_CLASS(type##_type, #type, type##_bases)
#else
extern const char _ZTS5fault[], _ZTS7special[], _ZTS3big[];
static const a_type_info_impl fault_type = {PLX_TYPE_INFO_VTABLE, "fault", _ZTS5fault, 0};
#define DERIVED(type, name) \
  static const a_type_info_impl type##_type = {PLX_TYPE_INFO_VTABLE, #type, name, type##_bases}
#endif
BASES(special, 8);
DERIVED(special, _ZTS7special);
BASES(big, 0);
DERIVED(big, _ZTS3big);

#define LAST PLX_TYPE_LAST
#define POINTER (PLX_TYPE_POINTER | PLX_TYPE_CONST)
typedef const an_exception_type_specification a_list[];
static a_list fault_list = {{&fault_type, LAST}};
static a_list special_list = {{&special_type, LAST}};
static a_list int_list = {{&__TI_i, LAST}};
static a_list several = {{&__TI_i, 0}, {&special_type, 0}, {&fault_type, LAST}};
static a_list pointer = {{&fault_type, POINTER | LAST}};
static a_list pointer_or_all = {{&__TI_v, POINTER}, {0, PLX_TYPE_ELLIPSIS | LAST}};
static a_list exception = {{&__TI_St9exception, LAST}};
static a_list never = {{&__TI_f, LAST}};
static a_list all = {{0, PLX_TYPE_ELLIPSIS | LAST}};
static a_list int_or_fault = {{&__TI_i, 0}, {&fault_type, LAST}};

/* The clauses of a letter, and what they take, a letter each: int, fault, special, pointer, or what is not looked at.
 */
typedef struct a_choice {
  char letter;
  const an_exception_type_specification *clauses;
  const char *taken;
} a_choice;
static const a_choice choices[] = {{'f', fault_list, "f"},      {'s', special_list, "s"}, {'i', int_list, "i"},
                                   {'m', several, "isf"},       {'p', pointer, "p"},      {'e', exception, "-"},
                                   {'q', pointer_or_all, "--"}, {'a', all, "-"}};
static const a_choice *chosen(char letter) {
  const a_choice *at = choices;
  while (at->letter != letter) ++at;
  return at;
}
static void handle(const char *taken, int clause, void *caught, const char *node) {
  switch (taken[clause - 1]) {
    case 'i': report(clause, 0, *(int *)caught); break;
    case 'f': report(clause, (fault *)caught, 0); break;
    case 's': report(clause, &((special *)caught)->part, 0); break;
    case 'p': report(clause, 0, (*(fault **)caught)->id); break;
    default: report(clause, 0, 0);
  }
  run(block(node, 1));
}

static void check_flags(int flags) {
  if (flags != 2) say("flags");
}
static void destroy_fault(void *object, int flags) {
  check_flags(flags);
  destroy((fault *)object);
}
static void destroy_special(void *object, int flags) {
  check_flags(flags);
  destroy(&((special *)object)->part);
}

static NOINLINE void throw_special(const char *node) {
  special *object = (special *)__throw_setup_dtor(&special_type, sizeof(special), 0, destroy_special);
  construct(&object->part, node);
  __throw();
}
static NOINLINE void throw_fault(const a_type_info_impl *type, int size, const char *node) {
  construct((fault *)__throw_setup_dtor(type, size, 0, destroy_fault), node);
  __throw();
}
static NOINLINE void throw_node(const char *node) {
  switch (node[1]) {
    case 'i': THROW(__TI_i, int, 0, node[2] - '0');
    case 'd': THROW(__TI_d, double, 0, node[2] - '0');
    case 'p': THROW(fault_type, fault *, PLX_TYPE_POINTER, &pointed);
    case 's': throw_special(node);
    case 'b':
    case 'v': throw_fault(&big_type, sizeof(big), node); /* v is of C++; this one is caught alike */
    default: throw_fault(&fault_type, sizeof(fault), node);
  }
}

static NOINLINE void try_node(const char *node) {
  TRY(chosen(node[1])->clauses)
  run(block(node, 0));
  HANDLERS
  handle(chosen(node[1])->taken, clause, caught, node);
  END_TRY
}

typedef struct local {
  int number;
  const char *script;
} local;
static void destroy_local(void *object, int flags) {
  check_flags(flags);
  end_of_local(((local *)object)->number, ((local *)object)->script);
}
static void check_region(int region) {
  if (__eh_curr_region != region) say("region");
}
static const a_region_record two_objects[] = {{(a_routine)destroy_local, 0, PLX_NO_REGION, 0},
                                              {(a_routine)destroy_local, 1, 0, 0}};
/* A try block, its locals and those around it in one function, a specification and another try between. */
static NOINLINE void function_node(const char *node) {
  local outer = {10, ""}, inner = {11, ""};
  void *addresses[2];
  addresses[0] = &outer;
  addresses[1] = &inner;
  FUNCTION(two_objects, addresses, 0)
  REGION(0);
  SPECIFICATION(all)
  TRY(never)
  TRY(int_or_fault)
  REGION(1);
  run(block(node, 0));
  REGION(0);
  destroy_local(&inner, 2);
  HANDLERS
  check_region(0);
  handle("if", clause, caught, node);
  END_TRY
  HANDLERS END_TRY END_SPECIFICATION REGION(PLX_NO_REGION);
  destroy_local(&outer, 2);
  END_FUNCTION
}
static NOINLINE void local_node(const char *node) {
  local object;
  void *addresses[1];
  addresses[0] = &object;
  object.number = node[1] - '0';
  object.script = block(node, 1);
  FUNCTION(two_objects, addresses, 0)
  REGION(0);
  run(block(node, 0));
  check_region(0);
  REGION(PLX_NO_REGION);
  destroy_local(&object, 2);
  END_FUNCTION
}

/* Where no library is between: a stream keeps the exception. */
static NOINLINE void library_node(const char *node) {
  if ((node[1] - '0') % 6 != 4) {
    run(block(node, 0));
  } else {
    TRY(all)
    run(block(node, 0));
    HANDLERS END_TRY
  }
  say("L");
}

static NOINLINE void specification_node(const char *node) {
  SPECIFICATION(node[1] == 'i' ? int_list : int_or_fault)
  run(block(node, 0));
  END_SPECIFICATION
}

static void rethrow_node(const char *node) {
  (void)node;
  __rethrow();
}
a_player *const nodes_c[] = {throw_node,   try_node,  local_node,     function_node, specification_node,
                             library_node, jump_node, jump_back_node, rethrow_node};

/* Both stacks are empty: a throw sees none below it. */
int is_quiet_c(void) {
  volatile int quiet = __curr_eh_stack_entry == 0 && __eh_curr_region == 0;
  TRY(all)
  THROW(__TI_i, int, 0, 1);
  HANDLERS
  quiet = quiet && try_entry.body.try_block.handled_exception->next == 0;
  END_TRY
  return quiet;
}
