// The eh stack, the throw stack and the static objects of a program in C++, as the commands of gdb print them. The
// comments are the transcript that tests/gdb/transcript.py runs.
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>

using namespace std;

void stop() { __asm__ volatile(""); }
static void (*volatile to_stop)() = stop;

struct guard {
  ~guard() { to_stop(); }
};
struct failure : public runtime_error {
  failure() : runtime_error("it is \"broken\"") {}
};
struct throws_while_made {
  throws_while_made() {
    to_stop();
    throw 3;
  }
};

static void allows() throw(int, failure) { to_stop(); }

static void passes(int kind) {
  guard one;
  if (kind == 0) allows();
  if (kind == 1) throw failure();
  if (kind == 2) throw throws_while_made();
}

static void handles(int kind) {
  try {
    passes(kind);
  } catch (const logic_error &) {
  } catch (const char *) {
  } catch (exception &) {
    to_stop();
    try {
      throw;
    } catch (failure) {
      to_stop();
    }
  } catch (...) {}
}

static void unexpectedly() {
  to_stop();
  throw 2;
}
static void violates() throw(int) { throw failure(); }

static string text("text");
static void at_exit() {}

static void terminated() {
  to_stop();
  _Exit(0);
}

int main() {
  atexit(at_exit);
  handles(0);
  //> plx eh-stack
  //= #0   0xN  C++ frame in allows at stacks.cpp: static void allows() throw(int, failure) { to_stop(); }
  //=         throw (int, failure)
  //= #1   0xN  C++ frame in passes at stacks.cpp: if (kind == 0) allows();
  //=         cleanup
  //= #2   0xN  C++ frame in handles at stacks.cpp: passes(kind);
  //=         catch std::logic_error
  //=         catch char const*
  //=         catch std::exception
  //=         catch ...
  //> plx eh-stack 1
  //= #0   0xN  C++ frame in allows at stacks.cpp: static void allows() throw(int, failure) { to_stop(); }
  //=         throw (int, failure)
  //= (more entries)
  //> plx throw-stack
  //= No exception exists.
  //> plx destructions 2
  //= #0   0xN  function at_exit()
  //= #1   0xN  object 0xN <text>, std::string::~basic_string()
  //= (more entries)
  //> continue
  //> plx eh-stack
  //= #0   0xN  C++ frame in passes at stacks.cpp: }
  //=         nothing to do here
  //= #1   0xN  C++ frame in handles at stacks.cpp: passes(kind);
  //=         catch std::logic_error
  //=         catch char const*
  //=         catch std::exception
  //=         catch ...
  handles(1);
  // In the destructor of a local, while the exception passes it.
  //> continue
  //> plx eh-stack
  //= #0   0xN  C++ frame in passes at stacks.cpp: }
  //=         catch ...
  //= #1   0xN  exception in progress
  //=         failure at 0xN
  //= #2   0xN  C++ frame in handles at stacks.cpp: passes(kind);
  //=         catch std::logic_error
  //=         catch char const*
  //=         catch std::exception
  //=         catch ...
  //> plx throw-stack
  //= #0   failure at 0xN, in flight, references 1
  //=         "it is \"broken\""
  // In the handler.
  //> continue
  //> plx throw-stack
  //= #0   failure at 0xN, handled, references 1
  //=         "it is \"broken\""
  // In the handler of the rethrow.
  //> continue
  //> plx throw-stack
  //= #0   failure at 0xN, handled, rethrow of #1
  //=         "it is \"broken\""
  //= #1   failure at 0xN, handled, references 2
  //=         "it is \"broken\""
  //> plx throw-stack 1
  //= #0   failure at 0xN, handled, rethrow of #1
  //=         "it is \"broken\""
  //= (more entries)
  handles(2);
  // In the constructor of an exception object.
  //> continue
  //> plx throw-stack
  //= #0   object at 0xN, not thrown yet, references 1
  // In the destructor of the local: the construction was left by an exception.
  //> continue
  //> plx throw-stack
  //= #0   int at 0xN, in flight, references 1
  //= #1   object at 0xN, destroyed, references 0
  set_unexpected(unexpectedly);
  try {
    violates();
  } catch (int) {}
  //> continue
  //> plx eh-stack
  //= #0   0xN  unexpected handler at work in __cxa_call_unexpected
  //=         throw (int)
  //= #1   0xN  C++ frame in violates at stacks.cpp: static void violates() throw(int) { throw failure(); }
  //=         nothing to do here
  //= #2   0xN  C++ frame in main at stacks.cpp: violates();
  //=         catch int
  //> plx throw-stack
  //= #0   failure at 0xN, handled, references 1
  //=         "it is \"broken\""
  set_terminate(terminated);
  throw "nobody";
  //> continue
  //> plx eh-stack
  //= #0   0xN  terminate handler at work
  //> plx throw-stack
  //= #0   char const* at 0xN, handled, references 1
  //> plx nonsense
  //= error: Undefined plx command: "nonsense".  Try "help plx".
  //> plx eh-stack x
  //= error: plx eh-stack: an optional COUNT is all that it takes.
}
