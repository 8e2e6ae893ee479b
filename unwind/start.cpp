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

// Its end, behind that of its static objects (libC/program/end.cpp).
PLX_API void __zor_end_cxx(const void *image) { forget_object(image); }

}  // extern "C"
