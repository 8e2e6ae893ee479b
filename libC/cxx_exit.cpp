// The exit(int) of C++ linkage. The C library's function of the same name is not in sight here.

#include <plx/base/config.h>
#include <plx/runtime.h>

PLX_NORETURN PLX_API void exit(int status);
void exit(int status) { __pliv_exit(status); }
