// A last word to the user, for code that cannot go on.

#include <stdio.h>
#include <stdlib.h>

#include <plx/locale/locale_core.h>

void __vexil_report_error(const char *text) {
  fprintf(stderr, "%s\n", text);
  exit(1);
}
