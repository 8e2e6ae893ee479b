/* A needed-destruction record whose destructor prints by stdio. */
#include <stdio.h>

#include <plx/runtime.h>

void c_record(void);

static void destroy(void *object, int flags) {
  if (flags == 2) printf("-%s\n", (const char *)object);
}
static char name[] = "record";
static a_needed_destruction record = {0, name, destroy};

void c_record(void) { __record_needed_destruction(&record); }
