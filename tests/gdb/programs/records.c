/* Every record of generated C, for transcripts/records.txt and transcripts/c_trails.txt. */
#include <generated/classes.h>

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
  addresses[0] = &object, addresses[1] = elements, addresses[2] = &block;
  addresses[3] = &conditional, addresses[4] = &exists;
  FUNCTION(regions, addresses, arrays)
  REGION(5);
  FUNCTION(regions, addresses, arrays)
  REGION(0);
  array();
  END_FUNCTION
  END_FUNCTION
}

static void specified(void) {
  SPECIFICATION(allowed)
  owns();
  END_SPECIFICATION
}

static void throws(void) {
  int object = 0;
  void *addresses[1];
  const char **text;
  addresses[0] = &object;
  FUNCTION(regions, addresses, 0)
  REGION(0);
  text = (const char **)__throw_setup(&__TI_c, sizeof *text, PLX_TYPE_POINTER | PLX_TYPE_CONST);
  *text = "thrown";
  to_stop();
  __throw();
  END_FUNCTION
}

static void tries(void (*body)(void)) {
  TRY(clauses)
  body();
  PARAMETER
  to_stop();
  HANDLER
  to_stop();
  END_TRY
}

static int object;
static a_needed_destruction record = {0, &object, stop_and_destroy};

int main(void) {
  an_eh_stack_entry everything;
  _main();
  __record_needed_destruction(&record);
  memset(&everything, 0, sizeof everything);
  everything.kind = PLX_EH_TRY_BLOCK;
  __curr_eh_stack_entry = &everything;
  tries(specified);
  __curr_eh_stack_entry = 0;
  tries(throws);
  to_stop();
  return 0;
}
