// Scenes as C++: each node is a function with the construct that it names.
#include "scenes.h"

#include <stdlib.h>

#include <algorithm>
#include <exception>
#include <ostream>
#include <set>
#include <streambuf>
#include <vector>

#define APART static __attribute__((__noinline__)) void

APART throw_node(const char *node) {
  switch (node[1]) {
    case 'i': throw node[2] - '0';
    case 'd': throw double(node[2] - '0');
    case 'p': throw &pointed;
    case 's': throw special(node);
    case 'b': throw big(node);
    case 'v': throw shared(node);
    default: throw fault(node);
  }
}

APART try_node(const char *node) {
#define HANDLERS(letter, clauses)         \
  case letter: try { run(block(node, 0)); \
    }                                     \
    clauses;                              \
    break;
#define CLAUSE(parameter, ...) \
  catch (parameter) {          \
    report(__VA_ARGS__);       \
    run(block(node, 1));       \
  }
  switch (node[1]) {
    HANDLERS('f', CLAUSE(fault & f, 1, &f, 0))
    HANDLERS('s', CLAUSE(special & s, 1, &s, 0))
    HANDLERS('i', CLAUSE(int i, 1, 0, i))
    HANDLERS('m', CLAUSE(int i, 1, 0, i) CLAUSE(special & s, 2, &s, 0) CLAUSE(fault & f, 3, &f, 0))
    HANDLERS('p', CLAUSE(const fault *p, 1, 0, p->id))
    HANDLERS('q', CLAUSE(const void *, 1, 0, 0) CLAUSE(..., 2, 0, 0))
    HANDLERS('e', CLAUSE(std::exception &, 1, 0, 0))
    default: HANDLERS('a', CLAUSE(..., 1, 0, 0))
  }
}

struct local {
  int number;
  const char *script;
  local(int n, const char *s) : number(n), script(s) {}
  ~local() { end_of_local(number, script); }
};
APART local_node(const char *node) {
  local object(node[1] - '0', block(node, 1));
  run(block(node, 0));
}

APART function_node(const char *node) {
  local outer(10, "");
  try {
    local inner(11, "");
    run(block(node, 0));
  } catch (int i) {
    report(1, 0, i);
    run(block(node, 1));
  } catch (fault &f) {
    report(2, &f, 0);
    run(block(node, 1));
  }
}

// Frames of a library between: it calls back once; how often it would, libraries differ.
static const char *once;
static void call_once() {
  const char *const script = once;
  once = 0;
  if (script) run(script);
}
struct less {
  bool operator()(int a, int b) const {
    call_once();
    return a < b;
  }
};
static int compare(const void *a, const void *b) {
  call_once();
  return *(const int *)a - *(const int *)b;
}
struct buffer : std::streambuf {
  virtual int overflow(int c) {
    call_once();
    return c == -1 ? 0 : c;
  }
};
struct copied {
  copied() {}
  copied(const copied &) { call_once(); }
};
APART library_node(const char *node) {
  int numbers[] = {3, 1, 2, 5, 4};
  buffer to;
  once = block(node, 0);
  switch ((node[1] - '0') % 6) {
    case 0: std::sort(numbers, numbers + 5, less()); break;
    case 1: std::set<int, less>(numbers, numbers + 5); break;
    case 2: std::vector<copied>(2, copied()); break;
    case 3: to.sputn("text", 4); break;
    case 4: std::ostream(&to) << 42; break;  // keeps the exception
    case 5: qsort(numbers, 5, sizeof(int), compare); break;
  }
  say("L");
}

APART int_only(const char *node) throw(int) { run(block(node, 0)); }
APART int_or_fault(const char *node) throw(int, fault) { run(block(node, 0)); }
APART int_or_bad(const char *node) throw(int, std::bad_exception) { run(block(node, 0)); }
// By pointers: compilers merge specifications that they see nested.
static void (*volatile specified[])(const char *) = {int_only, int_or_fault, int_or_bad};
APART specification_node(const char *node) { specified[node[1] == 'm' ? 1 : node[1] == 'b' ? 2 : 0](node); }

APART rethrow_node(const char *) { throw; }
a_player *const nodes_cpp[] = {throw_node,   try_node,  local_node,     function_node, specification_node,
                               library_node, jump_node, jump_back_node, rethrow_node};
