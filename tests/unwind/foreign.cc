// Exceptions of two C++ libraries in one process, which do not see each other's. This is both a C library that keeps
// the host's C++ library and its unwinder behind its interface (FOREIGN), and a program of ours, which ends as its
// argument says, and has the library linked or opens it (OPENED).
#include <bitset>
#include <complex>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <locale>
#include <memory>
#include <pthread.h>
#include <sstream>
#include <stdexcept>
#include <string>

typedef void (*callback)(int);
#ifdef FOREIGN
#define SIDE "theirs"
#define MINE(function) their_##function
#else
#define SIDE "ours"
#define MINE(function) our_##function
#endif

struct noisy {
  int n;
  ~noisy() { std::printf("~" SIDE "%d ", n); }
};
extern "C" {
void MINE(throws)(int n) {
  noisy local = {n};
  if (n == 1) throw std::runtime_error(SIDE);
  throw n;
}
void MINE(catches)(callback f, int n) {
  noisy local = {n + 10};
  try {
    noisy inner = {n + 20};
    f(n);
  } catch (std::exception &e) { std::printf(SIDE " caught %s ", e.what()); } catch (int k) {
    std::printf(SIDE " caught %d ", k);
  }
}
// Calls with an exception at work.
void MINE(calls)(callback f, int n) {
  try {
    std::string("x").at(n);
  } catch (std::out_of_range &) {
    f(n);
    // Function templates and inline functions of the same names are in both.
    std::ostringstream text;
    text << std::bitset<2>(n) << std::locale(text.getloc()).name() << std::complex<float>(1);
    std::get_temporary_buffer<int>(n);
    std::printf(SIDE " says %s ", text.str().c_str());
  }
}
}

#ifdef FOREIGN
static struct at_end {
  ~at_end() { std::printf("the library ends\n"); }
} end;
#else
#ifdef OPENED
static void (*their_throws)(int), (*their_catches)(callback, int), (*their_calls)(callback, int);
#else
extern "C" void their_throws(int), their_catches(callback, int), their_calls(callback, int);
#endif

static void ours_pass_theirs(int n) { their_catches(our_throws, n); }
static void theirs_pass_ours(int n) { our_catches(their_throws, n); }
static void handle_ours(int n) { our_catches(our_throws, n); }
static void call_theirs(int n) { their_calls(handle_ours, n); }
static void let_none_pass(int n) PLX_NOTHROW { their_throws(n); }
static void leave(int n) {
  noisy local = {n};
  pthread_exit(0);
}

int main(int, char **argv) {
  std::setvbuf(stdout, 0, _IONBF, 0);
#ifdef OPENED
  void *const library = dlopen("./libforeign.so", RTLD_NOW | RTLD_LOCAL);
  *(void **)&their_throws = dlsym(library, "their_throws");
  *(void **)&their_catches = dlsym(library, "their_catches");
  *(void **)&their_calls = dlsym(library, "their_calls");
#endif
  our_calls(call_theirs, 3);
  std::printf("\n");
  for (int n = 1; n < 3; ++n) {
    our_catches(ours_pass_theirs, n);
    their_catches(theirs_pass_ours, n);
    std::printf("\n");
  }
  switch (argv[1][0]) {
    case 'e': leave(3);
    case 'c': their_catches(leave, 3);
    case 'n': let_none_pass(1);
    case 'u': their_catches(our_throws, 1);
  }
  return 0;
}
#endif
