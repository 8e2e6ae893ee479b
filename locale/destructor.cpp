// locale's destructor as a function: C++ has it inline, generated C hands its address to the runtime.

#include <plx/locale/locale_core.h>

extern "C" {
PLX_API void locale_destructor(std::locale *loc) __asm__("_ZNSt6localeD1Ev");
PLX_API void locale_base_destructor(std::locale *loc) __asm__("_ZNSt6localeD2Ev");
}

void locale_destructor(std::locale *loc) { loc->_release(); }
void locale_base_destructor(std::locale *loc) { loc->_release(); }
