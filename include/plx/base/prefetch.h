// A line of memory that will be needed soon, fetched into the cache meanwhile. Processors without SSE take the
// instruction for a no-op; __builtin_prefetch emits nothing for i686.
#ifndef PLX_PREFETCH_H
#define PLX_PREFETCH_H

#include <plx/base/config.h>

namespace __zor {

inline void _prefetch(const void *_at) PLX_NOTHROW {
  __asm__ volatile("prefetcht0 %0" : : "m"(*static_cast<const char *>(_at)));
}

// The prefetch of a null pointer costs a TLB miss, so something at hand stands in for it.
inline void _prefetch_unless_null(const void *_at, const void *_otherwise) PLX_NOTHROW {
  _prefetch(_at ? _at : _otherwise);
}

}  // namespace __zor

#endif
