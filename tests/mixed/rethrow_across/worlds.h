/* What the two halves call of each other.
 */
#ifndef WORLDS_H
#define WORLDS_H

#ifdef __cplusplus
extern "C" {
#endif
void note(const char *format, ...);

typedef void (*callback)(int);

/* C: throws the class `c_error`, which C++ knows too. */
typedef struct c_error {
  int code;
} c_error;
void c_throws(int code);

/* C: calls, catches c_error, adds 1 to its code and rethrows. */
void c_rethrows(callback next, int code);
/* C: only rethrows, for a handler somewhere above. */
void c_rethrow_now(void);
/* C: catches anything, calls `in_handler`, and lets what that throws out. */
void c_calls_in_handler(callback next, int code, void (*in_handler)(void));
/* C: rethrows and catches the exception being handled; the handler calls cpp_ladder, until `depth` handlers nest. */
void c_ladder(int depth);
void cpp_ladder(int depth);

/* C: functions with exception specifications that call `next`. */
void c_specified_int(callback next, int code);     /* throw (int, c_error) */
void c_specified_nothing(callback next, int code); /* throw () */
void c_install_unexpected(int what);               /* that throws: 1 an int, 2 a c_error, 3 the same again */

void c_passes(callback next, int code); /* an object with a destructor around the call */
#ifdef __cplusplus
}
#endif

#endif
