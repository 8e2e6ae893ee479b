// The nothrow array form of operator new (1998, 18.4.1), over the nothrow form.

#include <new>

void *operator new[](size_t bytes, const std::nothrow_t &which) PLX_NOTHROW { return operator new(bytes, which); }
