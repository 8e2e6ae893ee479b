/* The passages of random programs as generated C: functions that stand between C++ frames with an object, an array, a
 * handler that rethrows, throws anew or catches. The host's build of a random program has the same functions in C++.
 */
#include "emit.h"

typedef int (*function)(int);

/* The program's own: tracing, the handlers' common work. */
void passage_object(int number, int is_destroyed);
void passage_trace(const char *what, int value);
void passage_base(const char *what, void *object);
void passage_sort(void);
int passage_of_library(int kind, function f, int d);

extern const char _ZTS2X0[];
static const a_type_info_impl x0_type = {PLX_TYPE_INFO_VTABLE, "X0", _ZTS2X0, 0};

static const an_exception_type_specification any_clause[] = {{0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
static const an_exception_type_specification int_and_base_clauses[] = {
    {&__TI_i, 0}, {&x0_type, 0}, {&__TI_St9exception, PLX_TYPE_LAST}};

static void object_destroy(void *object, int flags) {
  (void)flags;
  passage_object(*(int *)object, 1);
}
static const a_region_record two_objects[] = {
    {(a_routine)object_destroy, 0, PLX_NO_REGION, 0},
    {(a_routine)object_destroy, 1, 0, 0},
};

static int with_objects(function f, int d) {
  int a, b, result;
  void *addresses[2];
  addresses[0] = &a;
  addresses[1] = &b;
  FUNCTION(two_objects, addresses, 0)
    passage_object(a = 20001, 0);
    REGION(0);
    passage_object(b = 20002, 0);
    REGION(1);
    result = f(d);
    REGION(0);
    object_destroy(&b, 2);
    REGION(PLX_NO_REGION);
    object_destroy(&a, 2);
  END_FUNCTION
  return result;
}

static int rethrowing(function f, int d) {
  volatile int result = 0;
  TRY(any_clause)
    result = f(d);
  HANDLERS
    passage_trace("p-rethrow", d);
    passage_sort();
    __rethrow();
  END_TRY
  return result;
}

static int catching(function f, int d) {
  volatile int result = 0;
  int a;
  void *addresses[2];
  addresses[0] = addresses[1] = &a;
  FUNCTION(two_objects, addresses, 0)
    passage_object(a = 20003, 0);
    REGION(0);
    TRY(int_and_base_clauses)
      result = f(d);
    HANDLERS
      if (clause == 1) passage_trace("p-int", *(int *)caught);
      if (clause == 2) passage_base("p-base", caught);
      if (clause == 3) passage_trace("p-exception", 0);
      result = clause;
    END_TRY
    REGION(PLX_NO_REGION);
    object_destroy(&a, 2);
  END_FUNCTION
  return result;
}

static int throwing_anew(function f, int d) {
  volatile int result = 0;
  TRY(any_clause)
    result = f(d);
  HANDLERS
    passage_trace("p-anew", d);
    result = f(d - 1);
  END_TRY
  return result;
}

static function element_function;
static int element_number, element_argument;
static void element_construct(void *element, int a, int b, int c, int e, int f, int g, int h, int i) {
  int number = element_number++;
  (void)a, (void)b, (void)c, (void)e, (void)f, (void)g, (void)h, (void)i;
  if (number == 2) {
    function call = element_function;
    int argument = element_argument;
    call(argument);
  }
  passage_object(*(int *)element = 20010 + number, 0);
}
static int with_array(function f, int d) {
  void *array;
  element_function = f;
  element_argument = d;
  element_number = 0;
  array = __array_new(4, sizeof(int), element_construct, object_destroy, 0, 0, 0);
  __array_delete(array, PLX_COUNT_FROM_COOKIE, sizeof(int), object_destroy, 0, 0);
  return 4;
}

int passage(int kind, function f, int d) {
  switch (kind) {
    case 0: return with_objects(f, d);
    case 1: return rethrowing(f, d);
    case 2: return catching(f, d);
    case 3: return throwing_anew(f, d);
    case 4: return with_array(f, d);
    default: return passage_of_library(kind, f, d);
  }
}
