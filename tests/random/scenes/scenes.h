/* clang-format off */
/* Scenes: a small language about exceptions, and two worlds that play it with the same trace: generated C (world_c.c)
 * and C++ (world_cpp.cc). stage.c writes scenes at random and says which world plays which node; what is right, the
 * host's library says (../scenes.sh).
 *
 *   tXN{A}{B}  throws X with the number N: a fault (f), a class with a fault as base behind other members (s), before
 *              3000 bytes (b), as virtual base (v); an int (i), a double (d), a pointer to a fault (p).
 *              A runs while a fault is constructed, B when it is destroyed
 *   ?X{A}{B}   A in a try block with the clauses X (see `choices`), B in its handlers
 *   +N{A}{B}   A with a local object whose destructor runs B
 *   F{A}{B}    the same in one function with two objects, one of them inside, which takes int and fault
 *   LN{A}      A called by the C++ or C library: by sort, set, vector, streambuf, ostream, qsort (C++ only)
 *   !X{A}      A in a function with an exception specification: int (i), int and fault (m); in C++ only, which checks
 *              what the unexpected handler throws, int (o), int and bad_exception (b)
 *   JN{A}  j   A behind a setjmp; a jump to it with the value N
 *   r  .N      throw; and a word in the trace
 *
 * A word of the trace ends in a star while std::uncaught_exception() is true. */
/* clang-format on */
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
void not_expected(void);

/* Where `j` leads. */
typedef struct a_place {
  jmp_buf buffer;
  int value;
} a_place;
extern a_place *place;

/* Who plays `t`, `?`, `+`, `F`, `!`, `L`, `J`, `j`, `r`. */
typedef void a_player(const char *node);
extern a_player *const nodes_c[], *const nodes_cpp[];
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
struct shared : room, virtual fault {
  explicit shared(const char *node) : fault(node) {}
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

/* Each world has its own. */
static void jump_node(const char *node) {
  a_place here;
  here.value = node[1] - '0';
  place = &here;
  switch (setjmp(here.buffer)) {
    case 0: run(block(node, 0)); break;
    case 1: say("J1"); break;
    default: say("J%d", here.value);
  }
}
static void jump_back_node(const char *node) {
  (void)node;
  longjmp(place->buffer, place->value);
}
#endif
