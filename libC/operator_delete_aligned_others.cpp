// The forms of operator delete for over-aligned types that lead to the plain one.

#include <new>

#include "replaced_new.h"

PLX_REPLACEABLE void operator delete[](void *block, std::align_val_t alignment) PLX_NOTHROW {
  operator delete(block, alignment);
}
PLX_REPLACEABLE void operator delete(void *block, size_t, std::align_val_t alignment) PLX_NOTHROW {
  operator delete(block, alignment);
}
PLX_REPLACEABLE void operator delete[](void *block, size_t, std::align_val_t alignment) PLX_NOTHROW {
  operator delete[](block, alignment);
}
PLX_REPLACEABLE void operator delete(void *block, std::align_val_t alignment, const std::nothrow_t &) PLX_NOTHROW {
  operator delete(block, alignment);
}
PLX_REPLACEABLE void operator delete[](void *block, std::align_val_t alignment, const std::nothrow_t &) PLX_NOTHROW {
  operator delete[](block, alignment);
}
