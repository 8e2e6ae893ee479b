// The library's identification. The version and the day come from the build (cmake/library.cmake).

#include <plx/runtime.h>

const char *__PLX_Library_Version_String = "plx run-time library, version " PLX_VERSION ", built " PLX_DATE;
