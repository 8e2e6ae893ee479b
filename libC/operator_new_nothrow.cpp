// The nothrow form of operator new (1998, 18.4.1): null where the other throws bad_alloc.

#include <new>

#include <stdlib.h>

#include "eh_tools.h"
#include "new_handler.h"

using namespace __zor;

const std::nothrow_t std::nothrow = {};

namespace {

// Runs the new handler; returns whether it threw bad_alloc. Anything else that it throws goes on.
bool handler_gave_up() {
  static const an_exception_type_specification clauses = {&__TI_St9bad_alloc, PLX_TYPE_LAST};
  return eh_try(&clauses, [] { current_new_handler()(); }, [](void *) {}) != 0;
}

PLX_COLD void *ask_the_handler(size_t bytes) {
  eh_specification specification(nullptr);
  while (_new_handler && !handler_gave_up())
    if (void *block = malloc(bytes)) return block;
  return nullptr;
}

}  // namespace

void *operator new(size_t bytes, const std::nothrow_t &) PLX_NOTHROW {
  if (bytes == 0) bytes = 1;
  if (void *block = malloc(bytes)) return block;
  return ask_the_handler(bytes);
}
