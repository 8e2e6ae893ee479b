// operator new for over-aligned types, which code of gnu++17 and later calls. The specification of the plain form holds
// for these too.

#include <new>

#include <stdlib.h>

#include "eh_tools.h"
#include "new_handler.h"

using namespace __zor;

namespace {

const an_exception_type_specification bad_alloc_only = {&__TI_St9bad_alloc, PLX_TYPE_LAST};

void *allocate(size_t bytes, std::align_val_t alignment) {
  size_t boundary = static_cast<size_t>(alignment);
  if (boundary < sizeof(void *)) boundary = sizeof(void *);
  void *block;
  return posix_memalign(&block, boundary, bytes ? bytes : 1) == 0 ? block : nullptr;
}

PLX_COLD void *ask_the_handler(size_t bytes, std::align_val_t alignment) {
  eh_specification specification(&bad_alloc_only);
  for (;;) {
    current_new_handler()();
    if (void *block = allocate(bytes, alignment)) return block;
  }
}

}  // namespace

void *operator new(size_t bytes, std::align_val_t alignment) {
  if (void *block = allocate(bytes, alignment)) return block;
  return ask_the_handler(bytes, alignment);
}
