/* Every record of generated C, as the commands of gdb print it. The comments are the transcript that tests/gdb/transcript.py
 * runs. */
#include <generated/emit.h>

void stop(void) { __asm__ volatile(""); }
static void (*volatile to_stop)(void) = stop;

static const a_base_class_spec error_bases[] = {{&__TI_St9exception, 0, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
EMIT_CLASS(type_error, "app::error", error_bases);

static const an_exception_type_specification clauses[] = {
    {&type_error, 0}, {&__TI_c, PLX_TYPE_POINTER | PLX_TYPE_CONST}, {0, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST}};
static const an_exception_type_specification allowed[] = {{&__TI_i, 0}, {&__TI_v, PLX_TYPE_POINTER | PLX_TYPE_LAST}};

static void stop_and_destroy(void *object, int flags) {
  to_stop();
  (void)object, (void)flags;
}
static void give_back(void *block) { (void)block; }
static void construct(void *element, int a, int b, int c, int d, int e, int f, int g, int h) {
  static int constructed;
  if (++constructed == 3) to_stop();
  (void)element, (void)a, (void)b, (void)c, (void)d, (void)e, (void)f, (void)g, (void)h;
}

static void array(void) {
  int elements[5];
  __vec_new_eh(elements, 5, sizeof elements[0], construct, stop_and_destroy);
}

static const a_region_record regions[] = {
    {DESTRUCTOR(stop_and_destroy), 0, PLX_NO_REGION, 0},
    {DESTRUCTOR(stop_and_destroy), 0, 0, PLX_REGION_ARRAY},
    {(a_routine)give_back, 2, 1, PLX_REGION_DEALLOCATE | PLX_REGION_INDIRECT},
    {DESTRUCTOR(stop_and_destroy), 3, 2, PLX_REGION_CONDITIONAL},
    {0, 4, 0, 0},
    {0, 0, 3, PLX_REGION_CLEAR},
};
static const an_array_record arrays[] = {{1, 4, 6}};

static void owns(void) {
  int object = 0, elements[6], conditional = 0, exists = 0;
  void *block = &elements[1];
  void *addresses[5];
  an_eh_stack_entry entry, inner;
  EMIT_FUNCTION(entry, regions, addresses, arrays);
  addresses[0] = &object, addresses[1] = elements, addresses[2] = &block;
  addresses[3] = &conditional, addresses[4] = &exists;
  __eh_curr_region = 5;
  EMIT_FUNCTION(inner, regions, addresses, arrays);
  __eh_curr_region = 0;
  array();
  EMIT_LEAVE_FUNCTION(inner);
  EMIT_LEAVE_FUNCTION(entry);
}

static void specified(void) {
  an_eh_stack_entry entry;
  EMIT_SPECIFICATION(entry, allowed);
  owns();
  EMIT_LEAVE_SPECIFICATION(entry);
}

static void throws(void) {
  an_eh_stack_entry entry, nothing;
  void *addresses[1];
  int object = 0;
  const char **text;
  EMIT_SPECIFICATION(nothing, 0);
  EMIT_LEAVE_SPECIFICATION(nothing);
  EMIT_FUNCTION(entry, regions, addresses, 0);
  addresses[0] = &object;
  __eh_curr_region = 0;
  text = (const char **)__throw_setup(&__TI_c, sizeof *text, PLX_TYPE_POINTER | PLX_TYPE_CONST);
  *text = "thrown";
  to_stop();
  __throw();
}

static void tries(void (*body)(void)) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, clauses) { body(); }
  EMIT_HANDLERS {
    to_stop();
    __exception_caught();
    to_stop();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

static int object;
static a_needed_destruction record = {0, &object, stop_and_destroy};

int main(void) {
  an_eh_stack_entry everything;
  _main();
  __record_needed_destruction(&record);
  everything.kind = PLX_EH_TRY_BLOCK;
  everything.next = __curr_eh_stack_entry;
  everything.body.try_block.clause_list = 0;
  everything.body.try_block.handled_exception = 0;
  __curr_eh_stack_entry = &everything;
  tries(specified);
  //> plx eh-stack
  //= #0   0xN  array
  //=         construction of 5 elements of 4 bytes at 0xN: 2 done
  //= #1   0xN  function in owns at records.c: array();
  //=         region 0: 0xN, stop_and_destroy
  //= #2   0xN  function in owns at records.c: array();
  //=         region 5: 0xN, cleared to null
  //=         region 3: 0xN, stop_and_destroy (does not exist)
  //=         region 2: 0xN, memory for give_back
  //=         region 1: 0xN, 6 elements of 4 bytes for stop_and_destroy
  //=         region 0: 0xN, stop_and_destroy
  //= #3   0xN  specification in specified at records.c: owns();
  //=         throw (int, void*)
  //= #4   0xN  try block in tries at records.c: EMIT_TRY(entry, clauses) { body(); }
  //=         clause 1: catch (app::error)
  //=         clause 2: catch (char const*)
  //=         clause 3: catch (...)
  //= #5   0xN  try block in main at records.c: tries(specified);
  //=         catches everything
  //> plx destructions 1
  //= #0   0xN  object 0xN <object>, stop_and_destroy
  //= (more entries)
  __curr_eh_stack_entry = everything.next;
  tries(throws);
  //> continue
  //> plx throw-stack
  //= #0   char const* at 0xN, not thrown yet, references 1
  //> continue
  //> plx eh-stack
  //= #0   0xN  exception in progress
  //=         char const* at 0xN
  //= #1   0xN  try block in tries at records.c: EMIT_TRY(entry, clauses) { body(); }
  //=         clause 1: catch (app::error)
  //=         clause 2: catch (char const*)
  //=         clause 3: catch (...)
  //> plx throw-stack
  //= #0   char const* at 0xN, in flight, references 1
  //> continue
  //> plx eh-stack
  //= #0   0xN  exception in progress
  //=         char const* at 0xN
  //= #1   0xN  try block in tries at records.c: to_stop();
  //=         handles char const* at 0xN
  //=         clause 1: catch (app::error)
  //=         clause 2: catch (char const*)
  //=         clause 3: catch (...)
  //> plx throw-stack
  //= #0   char const* at 0xN, handled, references 1
  //> continue
  //> plx eh-stack
  //= #0   0xN  try block in tries at records.c: to_stop();
  //=         handles char const* at 0xN
  //=         clause 1: catch (app::error)
  //=         clause 2: catch (char const*)
  //=         clause 3: catch (...)
  //> plx throw-stack
  //= #0   char const* at 0xN, handled, references 1
  __curr_eh_stack_entry = 0;
  to_stop();
  //> continue
  //> plx eh-stack
  //= The eh stack is empty.
  //> plx throw-stack
  //= No exception exists.
  /* Broken stacks end where they cannot be followed. */
  //> set var everything.next = &everything
  //> set var *(void **)&__curr_eh_stack_entry = &everything
  //> plx eh-stack
  //= #0   0xN  try block in main at records.c: to_stop();
  //=         catches everything
  //= <invalid: the eh stack goes in circles at 0xN>
  //> set var everything.kind = 77
  //> plx eh-stack
  //= <invalid: an entry of kind 77 at 0xN>
  //> set var *(void **)&__curr_eh_stack_entry = (void *)16
  //> plx eh-stack
  //= <invalid: Cannot access memory at address 0x14>
  //> set var everything.kind = 0
  //> set var everything.next = 0
  //> set var everything.body.try_block.clause_list = (void *)&everything
  //> set var *(void **)&__curr_eh_stack_entry = &everything
  //> plx eh-stack
  //= #0   0xN  try block in main at records.c: to_stop();
  //=         <invalid: Cannot access memory at address 0x0>
  //> set var record.next = (a_needed_destruction *)3
  //> plx destructions
  //= #0   0xN  object 0xN <object>, stop_and_destroy
  //= <invalid: Cannot access memory at address 0x7>
  //> set var record.next = &record
  //> plx destructions
  //= #0   0xN  object 0xN <object>, stop_and_destroy
  //= <invalid: the list is broken at 0xN>
  return 0;
}
