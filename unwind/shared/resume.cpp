// In the shared object: for programs and shared objects of C++.

#include "../i386/resume.h"

PLX_UNWIND_RESUME("_Unwind_Resume");
