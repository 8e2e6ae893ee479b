// What the start-up object of C++ (program/start.cpp) calls, in a program and in each shared object of C++.

#include <plx/base/config.h>
#include <plx/runtime.h>

#include "landing.h"
#include "plan.h"

using namespace __zor;

extern "C" {

// Before the first static object of the program or shared object that begins at `image`.
PLX_API void __zor_start_cxx(const void *image) {
  throw_across_frames = throw_and_land;
  __call_ctors();
  note_object(image);
}

// Its end. Static objects of a program have ended by then; those of a shared object that is unloaded end now.
PLX_API void __zor_end_cxx(const void *image, unsigned size) {
  __process_shared_object_destruction(image, size, image, size);
  forget_object(image);
}

}  // extern "C"
