// The library's identification.

#include <plx/runtime.h>

const char *__PLX_Library_Version_String = "plx run-time library, version 3.3.0, built " __DATE__;
