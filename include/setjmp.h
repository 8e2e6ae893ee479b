/* <setjmp.h> (1998, 18.7): the C library's, for C and C++, made fit for programs whose frames stand on the eh stack.
 *
 * A jump that leaves frames must take them off the eh stack. So setjmp notes the stack's head in the buffer and longjmp
 * goes back to it. No destructor runs: jumping over an object that has one is undefined. sigsetjmp and siglongjmp are
 * the platform's and must not leave such frames.
 */
#ifndef PLX_SETJMP_H
#define PLX_SETJMP_H

/* The platform's declaration goes by another name, in whatever form it comes. */
#undef longjmp
#define longjmp __plx_platform_longjmp
#include_next <setjmp.h>
#undef longjmp
#undef setjmp

#ifdef __cplusplus
#include <plx/base/config.h>
extern "C" {
struct __jmp_buf_tag *__zor_mark_jump(struct __jmp_buf_tag *) PLX_NOTHROW;
void longjmp(struct __jmp_buf_tag *, int) PLX_NOTHROW __asm__("__zor_longjmp") __attribute__((__noreturn__));
}
#else
struct __jmp_buf_tag *__zor_mark_jump(struct __jmp_buf_tag *);
void longjmp(struct __jmp_buf_tag *, int) __asm__("__zor_longjmp") __attribute__((__noreturn__));
#endif

#define setjmp(env) _setjmp(__zor_mark_jump(env))

#endif
