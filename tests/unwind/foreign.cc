// Exceptions of two C++ libraries in one process, which do not see each other's: what ours does between the foreign
// library's frames, and the other way round. Arguments: what to end with.
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <execinfo.h>
#include <new>
#include <pthread.h>
#include <stdexcept>
#include <string>

typedef void (*callback)(int);
#define FUNCTIONS(FUNCTION)                              \
  FUNCTION(int, foreign_inside, (int, callback))         \
  FUNCTION(void, foreign_passes, (callback, int))        \
  FUNCTION(void, foreign_throws, (int))                  \
  FUNCTION(void, foreign_catches, (callback, int))
#ifdef LINKED
#define DECLARE(result, name, parameters) extern "C" result name parameters;
#else
#define DECLARE(result, name, parameters) static result (*name) parameters;
#define LOOK_UP(result, name, parameters) *(void **)&name = dlsym(handle, #name);
#endif
FUNCTIONS(DECLARE)

static int news;
void *operator new(std::size_t n) {
  ++news;
  return std::malloc(n);
}
void operator delete(void *p) PLX_NOTHROW { std::free(p); }

struct noisy {
  int n;
  ~noisy() { std::printf("~ours%d ", n); }
};
static void throws(int n) {
  noisy local = {n};
  if (n == 1) throw std::runtime_error("ours");
  throw n;
}
static void handles(int n) {
  try { throws(n); } catch (int k) { std::printf("inner %d ", k); }
}
static void calls_foreign(int n) {
  noisy local = {n};
  try {
    noisy inner = {n + 10};
    foreign_throws(n);
  } catch (int) {
    std::printf("ours caught theirs ");
  } catch (std::exception &) {
    std::printf("ours caught theirs ");
  }
}
static void lets_none_pass(int n) PLX_NOTHROW { foreign_throws(n); }
static void leaves(int n) {
  noisy local = {n};
  pthread_exit(0);
}

int main(int, char **argv) {
  std::setvbuf(stdout, 0, _IONBF, 0);
#ifndef LINKED
  void *const handle = dlopen(argv[2], RTLD_NOW | RTLD_LOCAL);
  if (!handle) std::printf("%s\n", dlerror()), std::exit(1);
  FUNCTIONS(LOOK_UP)
#endif
  delete new int;
  // Both have exceptions at work.
  try {
    throw std::string("mine");
  } catch (std::string &) {
    std::printf("%d ", foreign_inside(3, handles));
    try { throw; } catch (std::string &s) { std::printf("%s\n", s.c_str()); }
  }
  for (int n = 1; n < 3; ++n) {
    try {
      foreign_passes(throws, n);
    } catch (std::exception &e) {
      std::printf("main got %s ", e.what());
    } catch (int k) {
      std::printf("main got %d ", k);
    }
    foreign_catches(calls_foreign, n);
    std::printf("\n");
  }
  void *frames[50];
  std::printf("backtrace %d new %d\n", backtrace(frames, 50) > 1, news > 0);
  switch (argv[1][0]) {
    case 'e': leaves(3);
    case 'c': foreign_passes(leaves, 3);
    case 'n': lets_none_pass(1);
    case 'u': foreign_passes(throws, 1);
  }
  return 0;
}
