/* What a unit of C++ and one of generated C, which describes the same classes, throw at each other. A catcher writes
 * what it saw into the trace. */
#ifndef SHARED_H
#define SHARED_H

#ifdef __cplusplus
extern "C" {
#endif
typedef void (*thrower)(int what);
void say(const char *format, ...);
void c_throws(int what);
void c_catches(thrower throws, int what);
int c_casts(void);
const char *cpp_what(const void *exception);

typedef struct first {
  int one;
} first;
typedef struct second {
  int two;
} second;
typedef struct shared {
  int tag;
} shared;
#ifdef __cplusplus
}
struct joined : first, second {
  int three;
};
#endif
#endif
