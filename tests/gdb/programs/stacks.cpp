// Frames of C++, entries of the eh stack and exceptions in every state, for transcripts/stacks.txt and
// transcripts/trails.txt.
#include <cstdlib>
#include <exception>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string>

#include <plx/runtime.h>

using namespace std;

#define NOINLINE __attribute__((__noinline__))

extern "C" NOINLINE void stop() { __asm__ volatile(""); }
static void (*volatile to_stop)() = stop;

struct guard {
  NOINLINE ~guard() { to_stop(); }
};
struct failure : public runtime_error {
  failure() : runtime_error("it is \"broken\"") {}
};
struct throws_while_made {
  NOINLINE throws_while_made() {
    to_stop();
    throw 3;
  }
};

static NOINLINE void allows() throw(failure) { to_stop(); }

static NOINLINE void passes(int kind) {
  guard one;
  if (kind == 0) allows();
  if (kind == 1) throw failure();
  if (kind == 2) throw throws_while_made();
  to_stop();
}

static NOINLINE void handles(int kind) {
  try {
    passes(kind);
  } catch (const logic_error &) {
  } catch (const char *) {
  } catch (exception &) {
    to_stop();
    try {
      throw;
    } catch (failure) { to_stop(); }
  } catch (...) {}
}

// Called by the library, which has entries on the eh stack then: one while it builds an array, one that keeps what a
// buffer throws from whoever writes.
static NOINLINE void constructs(void *, int) {
  guard one;
  to_stop();
  string().at(1);
}
static void destroys(void *, int) {}
struct buffer : public streambuf {
  NOINLINE virtual int overflow(int) {
    guard one;
    char elements[3];
    __vec_new_eh(elements, 3, 1, (a_constructor)constructs, destroys);
    return 0;
  }
};
static NOINLINE void writes() {
  buffer sink;
  ostream out(&sink);
  out.put('x');
}

static NOINLINE void unexpectedly() {
  to_stop();
  throw 2;
}
// What a new handler throws violates the specification of operator new.
static NOINLINE void refuses() {
  guard one;
  throw 4;
}
static void *volatile block;
static NOINLINE void allocates() { block = operator new(0xFFFF0000); }
static NOINLINE void violates() throw(int) { throw failure(); }

static string text("text");
static void at_exit() {}

static NOINLINE void terminated() {
  to_stop();
  _Exit(0);
}

int main() {
  string words[2];
  words[1] = "word";
  atexit(at_exit);
  handles(0);
  handles(1);
  handles(2);
  writes();
  set_unexpected(unexpectedly);
  set_new_handler(refuses);
  try {
    allocates();
  } catch (int) {}
  try {
    violates();
  } catch (int) {}
  set_terminate(terminated);
  throw "nobody";
}
