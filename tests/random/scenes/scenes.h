/* Scenes: a small language about exceptions, and two worlds that play it with the same trace: generated C (world_c.c) and
 * C++ (world_cpp.cc). stage.c writes scenes at random and knows which world plays which node; the host's library says
 * what is right (../scenes.sh).
 *
 *   tfN{A}{B}  throws a fault with the number N, or a special (s), big (b), int (i), double (d), pointer (p); A runs while
 *              the object is constructed, B when it is destroyed
 *   ?C{A}{B}   A in a try block with the clauses C (see clauses()), B in its handlers
 *   +N{A}{B}   A with a local object whose destructor runs B
 *   F{A}{B}    the same in one function with two objects, one of them inside, which takes int and fault
 *   aN{A}{B}   B with an array of three, of which element N % 3 runs A while it is constructed; on the heap from 3 on
 *   LN{A}      A called by the C++ or C library: by sort, set, vector, streambuf, ostream, qsort, bsearch (C++ only)
 *   !C{A}      A in a function with an exception specification: int (i), int and fault (m)
 *   J{A}  j    A behind a setjmp; a jump to it
 *   r  .N      throw; and a word in the trace */
#ifndef SCENES_H
#define SCENES_H

#include <setjmp.h>

#ifdef __cplusplus
extern "C" {
#endif
typedef struct fault fault;
void say(const char *format, ...);
const char *block(const char *node, int which); /* inside of its braces */
void run(const char *script);
void construct(fault *self, const char *node);
void destroy(fault *self);
void report(int clause, fault *object, int value); /* what a handler got */
void end_of_local(int number, const char *script);
void element(int *place);
void not_expected(void);
extern const char *element_node;
extern int element_index;
extern jmp_buf *place;

void node_c(const char *node);
void node_cpp(const char *node);
int is_quiet_c(void);
#ifdef __cplusplus
}
#endif

#ifdef __cplusplus
struct fault {
  int alive, id;
  const char *script;
  explicit fault(const char *node) { construct(this, node); }
  ~fault() { destroy(this); }
  fault(const fault &);  // never: copies are elided
};
struct room {
  int unused[2];
};
struct special : room, fault {
  explicit special(const char *node) : fault(node) {}
};
struct big : fault {
  char more[3000];
  explicit big(const char *node) : fault(node) {}
};
#else
struct fault {
  int alive, id;
  const char *script;
};
typedef struct special {
  int unused[2];
  fault part;
} special;
typedef struct big {
  fault part;
  char more[3000];
} big;
#endif
extern fault pointed;
#endif
