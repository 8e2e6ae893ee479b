// Exception specifications: every function of the list throws every kind, and the unexpected handler does every thing
// that it may. Each combination runs in a process of its own, since many end it; the trace tells what was destroyed when.
// prints: 567 lines
// test-variants: -O0 | -O2
#include <exception>
#include <stdio.h>
#include <string.h>
#include <unistd.h>
#include <sys/wait.h>

static char trace[4096];
static void say(const char *text, int n) {
  sprintf(trace + strlen(trace), "%s%d%s ", text, n, std::uncaught_exception() ? "*" : "");
}
// The order in which two exceptions end that a third replaces is free: how many there are is told, not when each ends.
static int errors;
struct noisy {
  int n;
  explicit noisy(int k) : n(k) {}
  ~noisy() { say("~", n * 10 + errors); }
};
struct error {
  int n;
  explicit error(int k) : n(k) { ++errors; }
  error(const error &o) : n(o.n) { ++errors; }
  virtual ~error() { --errors; }
};
struct special : error { explicit special(int k) : error(k) {} };
struct hidden : private error { hidden() : error(5) {} };
struct big { char bytes[9000]; };

static void fail_now(int kind) {
  static special object(9);
  noisy n(1);
  switch (kind) {
    case 1: throw 1;
    case 2: throw error(2);
    case 3: throw special(3);
    case 4: throw "four";
    case 5: throw hidden();
    case 6: throw std::bad_exception();
    case 7: throw &object;
    case 8: throw big();
  }
}
// Pointers keep compilers from merging the frames of nested specifications.
static void (*volatile fail)(int) = fail_now;
static void some(int kind) throw(int, error) { noisy n(2); fail(kind); }
static void (*volatile some_pointer)(int) = some;
static void nothing(int kind) throw() { noisy n(2); fail(kind); }
static void bad(int kind) throw(int, std::bad_exception) { noisy n(2); fail(kind); }
static void pointers(int kind) throw(const error *, char *, const char *) { noisy n(2); fail(kind); }
static void nested(int kind) throw(std::bad_exception, big, special) { noisy n(3); some_pointer(kind); }
static void in_handler(int kind) {
  try { throw error(20); } catch (error &e) { bad(kind); }
}
struct constructed { noisy member; explicit constructed(int kind) throw(int) : member(4) { fail(kind); } };
static void constructor(int kind) { constructed c(kind); }
struct violates_at_its_end {
  int kind;
  ~violates_at_its_end() { try { bad(kind); } catch (int n) { say("d", n); } catch (...) { say("d", -1); } }
};
static void (*const functions[])(int) = {some, nothing, bad, pointers, nested, in_handler, constructor};
static void in_destructor(int kind) { violates_at_its_end v = {kind}; throw error(30); }

static int instead;
static void unexpected() {
  say("unexpected", instead);
  try { throw; } catch (error &e) { say("?", e.n); } catch (int n) { say("?", n); } catch (...) { say("?", -1); }
  switch (instead) {
    case 0: return;
    case 1: throw 11;
    case 2: throw error(12);
    case 3: throw "thirteen";
    case 4: throw;
    case 5: throw std::bad_exception();
    case 6: throw big();
    case 7:
      try { throw big(); } catch (big &) {
        try { throw; } catch (...) { throw 17; }
      }
    case 8:
      try { throw; } catch (...) { throw; }
  }
}
// Whether what violated the specification still exists then is the library's affair.
static void terminate() {
  if (char *asked = strrchr(trace, '?')) strcpy(strchr(asked, ' '), "");
  printf("%s terminate\n", trace);
  fflush(stdout);
  _exit(0);
}

int main() {
  std::set_unexpected(unexpected);
  std::set_terminate(terminate);
  const int count = sizeof functions / sizeof functions[0];
  for (int i = 0; i < 7 * 9 * 9; ++i) {
    const int kind = i / 9 % 9;
    fflush(stdout);
    if (fork() == 0) {
      instead = i % 9;
      printf("%d %d %d: ", i / 81, kind, instead);
      for (int again = 0; again < 2; ++again) {
        try { noisy n(5); functions[i / 81 % count](kind); say("returned", 0); }
        catch (int n) { say("int", n); }
        catch (special &e) { say("special", e.n); }
        catch (error &e) { say("error", e.n); }
        catch (const char *text) { say(text, 0); }
        catch (std::bad_exception &) { say("bad", errors); }
        catch (const error *e) { say("pointer", e->n); }
        catch (big &) { say("big", 0); }
        catch (...) { say("other", 0); }
      }
      if (i / 81 == 2) try { in_destructor(kind); } catch (error &e) { say("after", e.n); }
      printf("%s\n", trace);
      fflush(stdout);
      _exit(0);
    }
    wait(0);
  }
  return 0;
}
