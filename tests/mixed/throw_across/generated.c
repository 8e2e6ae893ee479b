/* Generated C that throws C++ classes, catches what C++ and the library throw, and stands with objects and arrays
 * between C++ frames.
 */
#include "worlds.h"

#include "emit.h"

/* ---- types */

extern const char _ZTS5first[], _ZTS6second[], _ZTS6joined[], _ZTS6secret[], _ZTS6shared[], _ZTS5twice[];

static const a_type_info_impl first_type = {PLX_TYPE_INFO_VTABLE, "first", _ZTS5first, 0};
static const a_type_info_impl second_type = {PLX_TYPE_INFO_VTABLE, "second", _ZTS6second, 0};
static const a_base_class_spec joined_bases[] = {{&first_type, 0, PLX_BASE_PUBLIC},
                                                 {&second_type, 4, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
static const a_type_info_impl joined_type = {PLX_TYPE_INFO_VTABLE, "joined", _ZTS6joined, joined_bases};
static const a_base_class_spec secret_bases[] = {{&first_type, 0, PLX_BASE_LAST}};
static const a_type_info_impl secret_type = {PLX_TYPE_INFO_VTABLE, "secret", _ZTS6secret, secret_bases};
static const a_base_class_spec twice_bases[] = {{&first_type, 0, PLX_BASE_PUBLIC | PLX_BASE_AMBIGUOUS},
                                                {&joined_type, 4, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
static const a_type_info_impl twice_type = {PLX_TYPE_INFO_VTABLE, "twice", _ZTS5twice, twice_bases};
static const a_type_info_impl shared_type = {PLX_TYPE_INFO_VTABLE, "shared", _ZTS6shared, 0};

/* A class of this file only, with a virtual base: the pointer at offset 4 leads to it. */
static const a_base_class_spec holder_bases[] = {{&shared_type, 4, PLX_BASE_PUBLIC | PLX_BASE_VIRTUAL | PLX_BASE_LAST}};
static const a_type_info_impl holder_type = {PLX_TYPE_INFO_VTABLE, "holder", 0, holder_bases};

typedef struct first {
  int one;
} first;
typedef struct second {
  int two;
} second;
typedef struct joined {
  first base_first;
  second base_second;
  int three;
} joined;
typedef struct shared {
  int tag;
} shared;
typedef struct holder {
  int number;
  shared *base_shared;
  shared base_shared_part;
} holder;

static void joined_destroy(void *object, int flags) { note("~joined%d/%d", ((joined *)object)->three, flags); }
static void holder_destroy(void *object, int flags) { note("~holder%d/%d", ((holder *)object)->number, flags); }

/* ---- throwing */

static joined static_joined = {{11}, {22}, 33};

void c_throws(int what) {
  switch (what) {
    case 0: return;
    case 1: THROW(__TI_i, int, 0, 101);
    case 2: THROW(__TI_d, double, 0, 2.5);
    case 3: THROW(__TI_c, const char *, PLX_TYPE_POINTER | PLX_TYPE_CONST, "from C");
    case 4: {
      joined *object = (joined *)__throw_setup_dtor(&joined_type, sizeof *object, 0, joined_destroy);
      object->base_first.one = 1;
      object->base_second.two = 2;
      object->three = 3;
      __throw();
    }
    case 5: {
      first *object = (first *)__throw_setup(&secret_type, sizeof *object, 0);
      object->one = 5;
      __throw();
    }
    case 6: {
      int *object = (int *)__throw_setup(&twice_type, 16, 0);
      object[0] = 6;
      object[1] = 61;
      object[2] = 62;
      object[3] = 63;
      __throw();
    }
    case 7: {
      holder *object = (holder *)__throw_setup_dtor(&holder_type, sizeof *object, 0, holder_destroy);
      object->number = 7;
      object->base_shared = &object->base_shared_part;
      object->base_shared_part.tag = 70;
      __throw();
    }
    case 8: THROW(joined_type, joined *, PLX_TYPE_POINTER, &static_joined);
    case 9: THROW(joined_type, joined *, PLX_TYPE_POINTER | PLX_TYPE_CONST, &static_joined);
    case 10: THROW(joined_type, joined *, PLX_TYPE_POINTER, 0);
    case 11: {
      void *volatile block = _Znwj(0xF0000000u); /* volatile, since compilers know the function and may drop its call */
      (void)block;
    }
    case 12: __throw_bad_cast();
    case 13: THROW(__TI_x, long long, 0, 0x123456789ALL);
  }
}

/* ---- standing in between */

typedef struct object {
  const char *name;
} object;

static void object_destroy(void *p, int flags) {
  (void)flags;
  note("~%s", ((object *)p)->name);
}

static const a_region_record two_objects[] = {
    {(a_routine)object_destroy, 0, PLX_NO_REGION, 0},
    {(a_routine)object_destroy, 1, 0, 0},
};

void c_with_objects(callback next, int argument) {
  object a, b;
  void *addresses[2];
  addresses[0] = &a;
  addresses[1] = &b;
  FUNCTION(two_objects, addresses, 0)
    a.name = "c-a";
    REGION(0);
    b.name = "c-b";
    REGION(1);
    next(argument);
    REGION(0);
    object_destroy(&b, 2);
    REGION(PLX_NO_REGION);
    object_destroy(&a, 2);
  END_FUNCTION
}

/* An array as a region, and below it an array whose construction calls the next function: a kind-4 entry between. */
static callback array_next;
static int array_argument, array_number;

typedef struct numbered {
  int number;
} numbered;
static void numbered_destroy(void *p, int flags) {
  (void)flags;
  note("~e%d", ((numbered *)p)->number);
}
static void numbered_construct(void *p, int a, int b, int c, int d, int e, int f, int g, int h) {
  ((numbered *)p)->number = array_number++;
  if (a || b || c || d || e || f || g || h) note("arguments");
  if (array_number == 3) array_next(array_argument);
}
static const an_array_record local_array[] = {{0, sizeof(numbered), 2}};
static const a_region_record array_region[] = {{(a_routine)numbered_destroy, 0, PLX_NO_REGION, PLX_REGION_ARRAY}};

void c_with_array(callback next, int argument) {
  numbered local[2];
  void *addresses[1];
  void *heap;
  addresses[0] = local;
  array_next = next;
  array_argument = argument;
  FUNCTION(array_region, addresses, local_array)
    local[0].number = 100;
    local[1].number = 101;
    REGION(0);
    array_number = 0;
    heap = __vec_new_eh(0, 4, sizeof(numbered), numbered_construct, numbered_destroy);
    __vec_delete(heap, 4, sizeof(numbered), numbered_destroy, 1);
    REGION(PLX_NO_REGION);
    __vec_delete(local, 2, sizeof(numbered), numbered_destroy, 0);
  END_FUNCTION
}

/* new numbered[4] whose element fail_at fails with a C++ exception; the memory must go back. */
static int fail_number;
static void failing_construct(void *p, int a, int b, int c, int d, int e, int f, int g, int h) {
  (void)a, (void)b, (void)c, (void)d, (void)e, (void)f, (void)g, (void)h;
  if (array_number == fail_number) cpp_construct(p, -1);
  ((numbered *)p)->number = array_number++;
}
void c_new_expression(int fail_at) {
  array_number = 0;
  fail_number = fail_at;
  __array_delete(__array_new(4, sizeof(numbered), failing_construct, numbered_destroy, 0, 0, 0), PLX_COUNT_FROM_COOKIE,
                 sizeof(numbered), numbered_destroy, 0, 0);
}

/* An array of C++ objects, constructed and destroyed by C. */
void c_construct_cpp_array(int fail_at) {
  void *array;
  (void)fail_at;
  array = __vec_new_eh(0, 5, 4, cpp_element_construct, cpp_destroy);
  __vec_delete(array, 5, 4, cpp_destroy, 1);
}

/* ---- catching */

static const an_exception_type_specification clauses[] = {
    {&__TI_i, 0},
    {&__TI_c, PLX_TYPE_POINTER | PLX_TYPE_CONST},
    {&second_type, 0},
    {&first_type, 0},
    {&second_type, PLX_TYPE_POINTER},
    {&__TI_St11logic_error, 0},
    {&__TI_St9bad_alloc, 0},
    {&__TI_St9exception, 0},
    {&__TI_v, PLX_TYPE_POINTER},
    {&shared_type, 0},
    {0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST},
};

extern const char *cpp_what(const void *);

void c_catches(callback next, int argument) {
  object local;
  void *addresses[2];
  addresses[0] = &local;
  addresses[1] = 0;
  FUNCTION(two_objects, addresses, 0)
    local.name = "c-kept";
    REGION(0);
    TRY(clauses)
      next(argument);
      note("nothing");
    HANDLERS
      switch (clause) {
        case 1: note("C:int%d", *(int *)caught); break;
        case 2: note("C:text=%s", *(const char **)caught); break;
        case 3: note("C:second%d", ((second *)caught)->two); break;
        case 4: note("C:first%d", ((first *)caught)->one); break;
        case 5: note("C:second*%d", *(second **)caught ? (*(second **)caught)->two : 0); break;
        case 6: note("C:logic_error=%s", cpp_what(caught)); break;
        case 7: note("C:bad_alloc"); break;
        case 8: note("C:exception=%s", cpp_what(caught)); break;
        case 9: note("C:void*"); break;
        case 10: note("C:shared%d", ((shared *)caught)->tag); break;
        default: note("C:any"); break;
      }
    END_TRY
    REGION(PLX_NO_REGION);
    object_destroy(&local, 2);
  END_FUNCTION
}

static const an_exception_type_specification pointer_clauses[] = {
    {&first_type, PLX_TYPE_POINTER},
    {&second_type, PLX_TYPE_POINTER | PLX_TYPE_CONST},
    {&__TI_v, PLX_TYPE_POINTER | PLX_TYPE_CONST | PLX_TYPE_LAST},
};
void c_catches_only_pointers(callback next, int argument) {
  TRY(pointer_clauses)
    next(argument);
  HANDLERS
    if (clause == 1) note("C:first*%d", *(first **)caught ? (*(first **)caught)->one : 0);
    if (clause == 2) note("C:const second*%d", (*(second **)caught)->two);
    if (clause == 3) note("C:const void*");
  END_TRY
}

static const an_exception_type_specification any_clause[] = {{0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};

/* The handler has an object of its own and calls `second`, which throws: the exception handled goes first, then the
 * object. */
void c_handler_throws_anew(callback first_call, callback second_call) {
  object outer, in_handler;
  void *addresses[2];
  addresses[0] = &outer;
  addresses[1] = &in_handler;
  FUNCTION(two_objects, addresses, 0)
    outer.name = "c-outer";
    REGION(0);
    TRY(any_clause)
      first_call(1);
    HANDLERS
      in_handler.name = "c-handler";
      REGION(1);
      second_call(2);
      REGION(0);
      object_destroy(&in_handler, 2);
    END_TRY
    REGION(PLX_NO_REGION);
    object_destroy(&outer, 2);
  END_FUNCTION
}

/* The handler calls something that throws and catches for itself. */
void c_handler_calls(callback first_call, callback in_handler) {
  TRY(any_clause)
    first_call(1);
  HANDLERS
    note("C:handler");
    in_handler(2);
    note("C:end");
  END_TRY
}
