/* Generated C that rethrows what the other world threw, and specifies what may pass.
 */
#include "worlds.h"

#include "emit.h"

extern const char _ZTS7c_error[];
static const a_type_info_impl c_error_type = {PLX_TYPE_INFO_VTABLE, "c_error", _ZTS7c_error, 0};

static void c_error_destroy(void *object, int flags) {
  (void)flags;
  note("!c%d", ((c_error *)object)->code);
}

static const an_exception_type_specification c_error_clause[] = {{&c_error_type, PLX_TYPE_LAST}};
static const an_exception_type_specification any_clause[] = {{0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
static const an_exception_type_specification int_and_error[] = {{&__TI_i, 0}, {&c_error_type, PLX_TYPE_LAST}};

void c_throws(int code) {
  c_error *object = (c_error *)__throw_setup_dtor(&c_error_type, sizeof *object, 0, c_error_destroy);
  object->code = code;
  __throw();
}

typedef struct object {
  const char *name;
} object;
static void object_destroy(void *p, int flags) {
  (void)flags;
  note("~%s", ((object *)p)->name);
}
static const a_region_record one_object[] = {{(a_routine)object_destroy, 0, PLX_NO_REGION, 0}};

void c_passes(callback next, int code) {
  object local;
  void *addresses[1];
  addresses[0] = &local;
  local.name = "c";
  FUNCTION(one_object, addresses, 0)
    REGION(0);
    next(code);
    REGION(PLX_NO_REGION);
    object_destroy(&local, 2);
  END_FUNCTION
}

void c_rethrows(callback next, int code) {
  object local;
  void *addresses[1];
  addresses[0] = &local;
  local.name = "c-rethrows";
  FUNCTION(one_object, addresses, 0)
    REGION(0);
    TRY(c_error_clause)
      next(code);
    HANDLERS
      note("C%d", ((c_error *)caught)->code++);
      __rethrow();
    END_TRY
    REGION(PLX_NO_REGION);
    object_destroy(&local, 2);
  END_FUNCTION
}

void c_rethrow_now(void) { __rethrow(); }

void c_calls_in_handler(callback next, int code, void (*in_handler)(void)) {
  TRY(any_clause)
    next(code);
  HANDLERS
    note("C:handler");
    in_handler();
    note("C:end");
  END_TRY
}

void c_ladder(int depth) {
  TRY(any_clause)
    __rethrow();
  HANDLERS
    if (depth) cpp_ladder(depth - 1);
  END_TRY
}

void c_specified_int(callback next, int code) {
  object local;
  void *addresses[1];
  addresses[0] = &local;
  local.name = "c-spec";
  SPECIFICATION(int_and_error)
    FUNCTION(one_object, addresses, 0)
      REGION(0);
      next(code);
      REGION(PLX_NO_REGION);
      object_destroy(&local, 2);
    END_FUNCTION
  END_SPECIFICATION
}

void c_specified_nothing(callback next, int code) {
  SPECIFICATION(0)
    next(code);
  END_SPECIFICATION
}

static int unexpected_throws;
static void handle_unexpected(void) {
  note("C:unexpected");
  if (unexpected_throws == 1) THROW(__TI_i, int, 0, 77);
  if (unexpected_throws == 2) c_throws(78);
  if (unexpected_throws == 3) __rethrow();
}
void c_install_unexpected(int what) {
  unexpected_throws = what;
  _ZSt14set_unexpectedPFvvE(handle_unexpected);
}
