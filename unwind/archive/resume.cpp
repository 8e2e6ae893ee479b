// In static programs the C library brings the host's _Unwind_Resume along: the drivers have the linker lead every call
// here (--wrap).

#include "../i386/resume.h"

PLX_UNWIND_RESUME("__wrap__Unwind_Resume");
