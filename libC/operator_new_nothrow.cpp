// The nothrow form of operator new (1998, 18.4.1): null where the other throws bad_alloc.

#include <new>

#include <stdlib.h>

#include "eh_tools.h"
#include "new_handler.h"
#include "replaced_new.h"

using namespace __zor;

namespace {

// Runs the body; returns whether it threw bad_alloc. Anything else that it throws goes on.
template <class Body> bool gave_up(Body body) {
  static const an_exception_type_specification clauses = {&__TI_St9bad_alloc, PLX_TYPE_LAST};
  return eh_try(&clauses, body, [](void *) {}) != 0;
}

PLX_COLD void *ask_the_handler(size_t bytes) {
  eh_specification specification(nullptr);
  while (_new_handler && !gave_up([] { current_new_handler()(); }))
    if (void *block = malloc(bytes)) return block;
  return nullptr;
}

// The block will meet the program's operator delete, so it comes from the program's operator new.
PLX_COLD void *ask_the_program(size_t bytes) {
  eh_specification specification(nullptr);
  void *block = nullptr;
  gave_up([&] { block = operator new(bytes); });
  return block;
}

}  // namespace

void *operator new(size_t bytes, const std::nothrow_t &) PLX_NOTHROW {
  if (operator_new_is_replaced()) return ask_the_program(bytes);
  if (bytes == 0) bytes = 1;
  if (void *block = malloc(bytes)) return block;
  return ask_the_handler(bytes);
}
