/* <wchar.h>: the C library's. For C++ the searches that return a place in their argument have the two forms of 1998,
 * for wchar_t and for const wchar_t; by itself the C library declares them to some compilers only.
 */
#ifndef PLX_WCHAR_H
#define PLX_WCHAR_H

#if defined __cplusplus && !defined __CORRECT_ISO_CPP_WCHAR_H_PROTO
#define __CORRECT_ISO_CPP_WCHAR_H_PROTO
#endif

#include_next <wchar.h>

#endif
