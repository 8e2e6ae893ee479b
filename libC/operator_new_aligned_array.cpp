// The array form for over-aligned types.

#include <new>

void *operator new[](size_t bytes, std::align_val_t alignment) { return operator new(bytes, alignment); }
