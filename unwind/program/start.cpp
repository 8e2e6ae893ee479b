// The start and the end of a program or shared object of C++, linked into each: -lplx and the drivers ask the linker
// for this unit by its symbol. A main that a C++ compiler made makes no start-up call, so all that comes before the
// first static object is here.

#include <plx/base/config.h>

extern "C" {

PLX_HIDDEN char __zor_cxx_start;

// Set by the linker: the first byte of this object.
extern PLX_HIDDEN const char __ehdr_start[];

PLX_API void __zor_start_cxx(const void *image);
PLX_API void __zor_end_cxx(const void *image);

}  // extern "C"

// Priorities up to 100 are the implementation's: 101, a program's first, may throw already.
#ifndef __clang__
#pragma GCC diagnostic ignored "-Wprio-ctor-dtor"
#endif

namespace {

__attribute__((__constructor__(100))) void start() { __zor_start_cxx(__ehdr_start); }
__attribute__((__destructor__(99))) void end() { __zor_end_cxx(__ehdr_start); }

}  // namespace
