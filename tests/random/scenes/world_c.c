/* Scenes as generated C: each node is a function with the entries that a compiler makes for it. */
#include "scenes.h"

#include "emit.h"

#if WORLDS == 1
EMIT_CLASS(fault_type, "fault", 0);
#define DERIVED(type) EMIT_CLASS(type##_type, #type, type##_bases)
#else
extern const char _ZTS5fault[], _ZTS7special[], _ZTS3big[];
static const a_type_info_impl fault_type = {PLX_TYPE_INFO_VTABLE, "fault", _ZTS5fault, 0};
#define DERIVED(type) static const a_type_info_impl type##_type = {PLX_TYPE_INFO_VTABLE, #type, NAME_##type, type##_bases}
#define NAME_special _ZTS7special
#define NAME_big _ZTS3big
#endif
static const a_base_class_spec special_bases[] = {{&fault_type, 8, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
DERIVED(special);
static const a_base_class_spec big_bases[] = {{&fault_type, 0, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
DERIVED(big);

#define LAST PLX_TYPE_LAST
#define POINTER (PLX_TYPE_POINTER | PLX_TYPE_CONST)
typedef an_exception_type_specification a_list[];
static const a_list fault_list = {{&fault_type, LAST}}, special_list = {{&special_type, LAST}}, int_list = {{&__TI_i, LAST}},
                    several = {{&__TI_i, 0}, {&special_type, 0}, {&fault_type, LAST}}, pointer = {{&fault_type, POINTER | LAST}},
                    all = {{0, PLX_TYPE_ELLIPSIS | LAST}}, int_or_fault = {{&__TI_i, 0}, {&fault_type, LAST}},
                    pointer_or_all = {{&__TI_v, POINTER}, {0, PLX_TYPE_ELLIPSIS | LAST}};

static const an_exception_type_specification *clauses(char letter) {
  switch (letter) {
    case 'f': return fault_list;
    case 's': return special_list;
    case 'i': return int_list;
    case 'm': return several;
    case 'p': return pointer;
    case 'q': return pointer_or_all;
    default: return all;
  }
}

static void destroy_fault(void *object, int flags) { flags == 2 ? destroy((fault *)object) : say("flags"); }
static void destroy_special(void *object, int flags) { destroy_fault(&((special *)object)->part, flags); }

static NOINLINE void throw_node(const char *node) {
  switch (node[1]) {
    case 'i': THROW(__TI_i, int, 0, node[2] - '0');
    case 'd': THROW(__TI_d, double, 0, node[2] - '0');
    case 'p': THROW(fault_type, fault *, PLX_TYPE_POINTER, &pointed);
    case 's':
      construct(&((special *)__throw_setup_dtor(&special_type, sizeof(special), 0, destroy_special))->part, node);
      break;
    case 'b': construct((fault *)__throw_setup_dtor(&big_type, sizeof(big), 0, destroy_fault), node); break;
    default: construct((fault *)__throw_setup_dtor(&fault_type, sizeof(fault), 0, destroy_fault), node);
  }
  __throw();
}

static NOINLINE void try_node(const char *node) {
  jmp_buf *const before = place;
  TRY(clauses(node[1]))
    run(block(node, 0));
  HANDLERS
    place = before;
    switch (node[1]) {
      case 'i': report(clause, 0, *(int *)caught); break;
      case 'm': clause == 1 ? report(1, 0, *(int *)caught) : report(clause, clause == 2 ? &((special *)caught)->part : (fault *)caught, 0); break;
      case 'f': report(1, (fault *)caught, 0); break;
      case 's': report(1, &((special *)caught)->part, 0); break;
      case 'p': report(1, 0, (*(fault **)caught)->id); break;
      default: report(clause, 0, 0);
    }
    run(block(node, 1));
  END_TRY
}

typedef struct local {
  int number;
  const char *script;
} local;
static void destroy_local(void *object, int flags) {
  flags == 2 ? end_of_local(((local *)object)->number, ((local *)object)->script) : say("flags");
}
/* Try block, its locals and those around it in one function. */
static const a_region_record two_objects[] = {{(a_routine)destroy_local, 0, PLX_NO_REGION, 0},
                                              {(a_routine)destroy_local, 1, 0, 0}};
static NOINLINE void function_node(const char *node) {
  local outer, inner;
  void *addresses[2];
  addresses[0] = &outer;
  addresses[1] = &inner;
  outer.number = 10;
  inner.number = 11;
  outer.script = inner.script = "";
  FUNCTION(two_objects, addresses, 0)
    REGION(0);
    TRY(int_or_fault)
      REGION(1);
      run(block(node, 0));
      REGION(0);
      destroy_local(&inner, 2);
    HANDLERS
      if (__eh_curr_region != 0) say("region");
      clause == 1 ? report(1, 0, *(int *)caught) : report(2, (fault *)caught, 0);
      run(block(node, 1));
    END_TRY
    REGION(PLX_NO_REGION);
    destroy_local(&outer, 2);
  END_FUNCTION
}

static const a_region_record one_object[] = {{(a_routine)destroy_local, 0, PLX_NO_REGION, 0}};
static NOINLINE void local_node(const char *node) {
  local object;
  void *addresses[1];
  addresses[0] = &object;
  FUNCTION(one_object, addresses, 0)
    object.number = node[1] - '0';
    object.script = block(node, 1);
    REGION(0);
    run(block(node, 0));
    if (__eh_curr_region != 0) say("region");
    REGION(PLX_NO_REGION);
    destroy_local(&object, 2);
  END_FUNCTION
}

static void construct_element(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  (void)(a + b + c + d + e + f + g + h);
  element((int *)object);
}
static void destroy_element(void *object, int flags) { end_of_local(*(int *)object + flags - 2, "}"); }
static const an_array_record three[] = {{0, sizeof(int), 3}};
static const a_region_record array_regions[] = {{(a_routine)destroy_element, 0, PLX_NO_REGION, PLX_REGION_ARRAY}};
static NOINLINE void array_node(const char *node) {
  int array[3];
  void *addresses[1], *heap;
  addresses[0] = array;
  element_node = node;
  element_index = 0;
  if (node[1] >= '3') {
    heap = __array_new(3, sizeof(int), construct_element, destroy_element, 0, 0, 0);
    __array_delete(heap, PLX_COUNT_FROM_COOKIE, sizeof(int), destroy_element, 0, 0);
    run(block(node, 1));
    return;
  }
  FUNCTION(array_regions, addresses, three)
    __vec_new_eh(array, 3, sizeof(int), construct_element, destroy_element);
    REGION(0);
    run(block(node, 1));
    REGION(PLX_NO_REGION);
    __vec_delete(array, 3, sizeof(int), destroy_element, 0);
  END_FUNCTION
}

/* Where no library is between: a stream keeps the exception. */
static NOINLINE void library_node(const char *node) {
  if ((node[1] - '0') % 7 != 4) {
    run(block(node, 0));
  } else {
    TRY(all) run(block(node, 0));
    HANDLERS END_TRY
  }
  say("L");
}

static NOINLINE void specification_node(const char *node) {
  SPECIFICATION(node[1] == 'i' ? int_list : int_or_fault)
    run(block(node, 0));
  END_SPECIFICATION
}

static NOINLINE void jump_node(const char *node) {
  jmp_buf here, *volatile before = place;
  place = &here;
  if (setjmp(here) == 0) run(block(node, 0));
  else say("J");
  place = before;
}

void node_c(const char *node) {
  switch (*node) {
    case 't': throw_node(node); break;
    case '?': try_node(node); break;
    case '+': local_node(node); break;
    case 'F': function_node(node); break;
    case 'a': array_node(node); break;
    case '!': specification_node(node); break;
    case 'L': library_node(node); break;
    case 'J': jump_node(node); break;
    case 'j': longjmp(*place, 1);
    default: __rethrow();
  }
}

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
