// What every public header of plx stands on: the markers of exported and of non-throwing functions, and the refusal of
// programs that this library cannot serve.
//
// In all public headers of C++, names that are no part of an interface begin with an underscore: a program may define
// any other word as a macro before it includes them. tests/headers/names.sh holds the headers to it.
#ifndef PLX_CONFIG_H
#define PLX_CONFIG_H

#if !defined(__i386__)
#error "plx serves 32-bit x86 programs: build with plx-c++, or with -m32"
#endif

// Exported from the shared object.
#define PLX_API __attribute__((__visibility__("default")))

// "Cannot throw", in the dialect at hand. What cannot throw says so: callers are then compiled without cleanup frames.
#if __cplusplus >= 201103L
#define PLX_NOTHROW noexcept
#else
#define PLX_NOTHROW throw()
#endif

#define PLX_NORETURN_CXX __attribute__((__noreturn__))
#define PLX_COLD __attribute__((__noinline__, __cold__))

#endif
