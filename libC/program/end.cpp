// The end of a program or shared object: the static objects that it registered end with it, before its code goes.
// Linked into each of C++ and into each shared object of generated C: -lplx and the drivers ask the linker for this
// unit by its symbol.

#include <plx/runtime.h>

extern "C" {

PLX_HIDDEN char __zor_object_end;

// Set by the linker: the first and the last byte of this object.
extern PLX_HIDDEN const char __ehdr_start[], _end[];

}  // extern "C"

// Priorities up to 100 are the implementation's: 101, the last of a program's, may need its objects still.
#ifndef __clang__
#pragma GCC diagnostic ignored "-Wprio-ctor-dtor"
#endif

namespace {

// Behind all other destructor functions but the one that forgets how this object's frames are unwound.
__attribute__((__destructor__(100))) void end() {
  const auto size = static_cast<unsigned int>(_end - __ehdr_start);
  __process_shared_object_destruction(__ehdr_start, size, __ehdr_start, size);
}

}  // namespace
