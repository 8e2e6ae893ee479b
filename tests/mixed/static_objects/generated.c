/* Needed-destruction records of generated C, one of them registered while the program starts, as constructors of static
 * objects are.
 */
#include "statics.h"

#include <plx/runtime.h>

static void destroy(void *object, int flags) {
  if (flags == 2) gone((const char *)object);
}
static void call_without_object(void *object, int flags) {
  (void)object;
  (void)flags; /* called without arguments: neither may be looked at */
  gone("c-function");
}
static void exit_function(void) { gone("c-atexit"); }

static char early_name[] = "c-early", record_name[] = "c-record";
static a_needed_destruction early = {0, early_name, destroy};
static a_needed_destruction record = {0, record_name, destroy};
static a_needed_destruction function_record = {0, 0, call_without_object};

__attribute__((__constructor__)) static void start(void) {
  built("c-early");
  __record_needed_destruction(&early);
}

void c_records_one(void) {
  built("c-record");
  __record_needed_destruction(&record);
}
void c_records_function(void) {
  built("c-function");
  __record_needed_destruction(&function_record);
}
void c_registers_atexit(void) {
  built("c-atexit");
  __zor_std_atexit(exit_function);
}
