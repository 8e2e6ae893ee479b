// The nothrow forms for over-aligned types: null where the others throw bad_alloc.

#include <new>

#include "eh_tools.h"
#include "replaced_new.h"

using namespace __zor;

PLX_REPLACEABLE void *operator new(size_t bytes, std::align_val_t alignment, const std::nothrow_t &) PLX_NOTHROW {
  static const an_exception_type_specification clauses = {&__TI_St9bad_alloc, PLX_TYPE_LAST};
  eh_specification specification(nullptr);
  void *block = nullptr;
  eh_try(
      &clauses, [&] { block = operator new(bytes, alignment); }, [](void *) {});
  return block;
}

PLX_REPLACEABLE void *operator new[](size_t bytes, std::align_val_t alignment,
                                     const std::nothrow_t &which) PLX_NOTHROW {
  return operator new(bytes, alignment, which);
}
