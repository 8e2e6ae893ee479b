// What random programs (programs.rules) share. With PART defined as 0 and 1 a program becomes two: a third of its
// functions stands in a shared object, and what is weak is the same in both.
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <typeinfo>

#ifdef PART
#define LOCAL
#else
#define PART 2
#define LOCAL static
#endif
#define APART __attribute__((__noinline__))
#define SHARED __attribute__((__weak__))

SHARED unsigned long long rs;
SHARED int live, calls, lines;
SHARED unsigned sum;
static int R(int n) {
  rs = rs * 6364136223846793005ULL + 1442695040888963407ULL;
  return (int)((unsigned)(rs >> 33) % (unsigned)n);
}
static void T(const char *format, ...) {
  char text[200];
  va_list a;
  va_start(a, format);
  vsnprintf(text, sizeof text, format, a);
  va_end(a);
  for (const char *p = text; *p; ++p) sum = sum * 31 + (unsigned char)*p;
  if (++lines < 1000) std::puts(text);
}

// Handlers at work, and rethrown exceptions on their way out of one: what `throw;` means to a destructor then, not
// every library knows.
SHARED int handled, rethrown, rethrown_before;
struct H {
  H() { ++handled, rethrown = rethrown_before; }
  ~H() { --handled, rethrown = rethrown_before; }
};
struct kept {
  int outer, before;
  kept() : outer(rethrown), before(rethrown_before) {}
  ~kept() { rethrown = outer, rethrown_before = before; }
};
static void rethrow() {
  ++rethrown;
  throw;
}
static void sort_out();

struct N {
  int n;
  explicit N(int k) : n(k) { ++live; }
  ~N() {
    --live;
    T("~n%d:u%d", n, (int)std::uncaught_exception());
    if (n % 3 == 0 && handled && !rethrown) sort_out();
  }
};

static std::exception *volatile known = new std::bad_cast;
static volatile size_t too_much = 0xF0000000u;
static void fail_in_library(int n) {
  if (n == 0) T("%p", (void *)&dynamic_cast<std::bad_alloc &>(*known));
  if (n == 1) T("%p", ::operator new(too_much));
  throw std::bad_alloc();
}

typedef int (*function)(int);
static function hide(function f) {
  function volatile g = f;
  return g;
}
static bool ends(int d, const char *name) {
  if (d <= 0 || ++calls > 200) return true;
  T(name);
  return false;
}
