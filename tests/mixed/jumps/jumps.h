/* Functions of both halves that jump over each other.
 */
#ifndef JUMPS_H
#define JUMPS_H

#include <setjmp.h>

#ifdef __cplusplus
extern "C" {
#endif
extern jmp_buf place;
typedef void (*callback)(void);

void c_jumps(int depth);                     /* longjmp(place, 3) below try entries of generated C */
int c_sets(callback next);                   /* what setjmp returned at last, `next` having been called once */
int c_sets_then_throws(callback next);       /* the same inside a try block whose handler catches an int thrown after */
void c_throws_int(int n);
#ifdef __cplusplus
}
#endif

#endif
