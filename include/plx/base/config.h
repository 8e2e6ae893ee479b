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

// Attributes, here only. -fvisibility=hidden is for definitions: what is declared PLX_HIDDEN is reached directly,
// without the global offset table, where its definition is not seen. Function templates of namespace std that are not
// inline are hidden too: a shared object with another C++ library has some of the same names.
#define PLX_API __attribute__((__visibility__("default")))
#define PLX_HIDDEN __attribute__((__visibility__("hidden")))
#define PLX_REGPARM __attribute__((__regparm__(3)))  // the first three words of arguments in registers
#define PLX_NOINLINE __attribute__((__noinline__))
#define PLX_ALWAYS_INLINE inline __attribute__((__always_inline__))
#define PLX_COLD __attribute__((__noinline__, __cold__))
#define PLX_NORETURN __attribute__((__noreturn__))  // <plx/runtime.h>, which stands alone, has the same

// An empty instruction that reads and writes `variable`: what the compiler knew of its value, it forgets.
#define PLX_OPAQUE(variable) __asm__("" : "+r"(variable))

// "Cannot throw", in the dialect at hand. What cannot throw says so: callers are then compiled without cleanup frames.
#if __cplusplus >= 201103L
#define PLX_NOTHROW noexcept
#else
#define PLX_NOTHROW throw()
#endif

#endif
