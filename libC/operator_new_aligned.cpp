// operator new for over-aligned types, which code of gnu++17 and later calls.

#include <new>

#include <stdlib.h>

#include "new_handler.h"

void *operator new(size_t bytes, std::align_val_t alignment) {
  if (bytes == 0) bytes = 1;
  size_t boundary = static_cast<size_t>(alignment);
  if (boundary < sizeof(void *)) boundary = sizeof(void *);
  for (;;) {
    void *block;
    if (posix_memalign(&block, boundary, bytes) == 0) return block;
    __zor::current_new_handler()();
  }
}
