/* <stdlib.h> (1998, 18.3, 26.5): the C library's, and for C++ three things more.
 *
 * exit and atexit lead to the list of static objects, so that functions registered here and destructors run in one
 * order, newest first. abs and div have forms for long, abs for long long too.
 */
#ifndef PLX_STDLIB_H
#define PLX_STDLIB_H

#ifdef __cplusplus

#include <plx/base/config.h>

/* The first declaration gives the name of the function that is called; the C library's own then agrees with it. */
extern "C" {
void exit(int) PLX_NOTHROW __asm__("__pliv_exit") __attribute__((__noreturn__));
int atexit(void (*)(void)) PLX_NOTHROW __asm__("__zor_std_atexit");
}

#include_next <stdlib.h>

#undef abs
#undef div

extern "C++" {
inline long abs(long __x) PLX_NOTHROW { return __builtin_labs(__x); }
// In 1998's dialect too: without it, abs(off_t) is ambiguous where files are large.
__extension__ inline long long abs(long long __x) PLX_NOTHROW { return __builtin_llabs(__x); }
inline ldiv_t div(long __x, long __y) PLX_NOTHROW { return ::ldiv(__x, __y); }
}

/* 1998, D.5: the names are in std as well. */
#include <cstdlib>

#else
#include_next <stdlib.h>
#endif

#endif
