// operator new (1998, 18.4.1). Only the handler may throw, so the specification is entered when
// memory has run out, and the usual case is one call of malloc.

#include <new>

#include <stdlib.h>

#include "eh_tools.h"
#include "new_handler.h"
#include "replaced_new.h"

using namespace __zor;

namespace {

const an_exception_type_specification bad_alloc_only = {&__TI_St9bad_alloc, PLX_TYPE_LAST};

PLX_COLD void *ask_the_handler(size_t bytes) {
  eh_specification specification(&bad_alloc_only);
  for (;;) {
    current_new_handler()();
    if (void *block = malloc(bytes)) return block;
  }
}

}  // namespace

void *operator new(size_t bytes) {
  if (bytes == 0) bytes = 1;
  if (void *block = malloc(bytes)) return block;
  return ask_the_handler(bytes);
}

const char __zor::own_operator_new = 0;
