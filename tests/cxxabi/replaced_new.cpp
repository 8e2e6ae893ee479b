// A program that replaces operator new and delete: every allocation of new-expressions goes through its versions, the
// array forms that it does not replace lead to the ones it does, and each block goes back where it came from, also
// when constructors throw and when an exception class of the library copies its message.
// test-variants: -O0 | -O2 -static
#include <new>
#include <stdexcept>
#include <string>

#include "../harness.h"

// Volatile because compilers believe that operator new changes no variable.
static volatile int taken, given, fail_countdown = -1;

#if __cplusplus >= 201103L
void *operator new(size_t size) {
#else
void *operator new(size_t size) throw(std::bad_alloc) {
#endif
  if (fail_countdown == 0) throw std::bad_alloc();
  if (fail_countdown > 0) fail_countdown = fail_countdown - 1;
  taken = taken + 1;
  return malloc(size ? size : 1);
}
// As the 1998 library has it, the nothrow form allocates for itself, so a program that counts replaces it too.
void *operator new(size_t size, const std::nothrow_t &) throw() {
  if (fail_countdown == 0) return 0;
  if (fail_countdown > 0) fail_countdown = fail_countdown - 1;
  taken = taken + 1;
  return malloc(size ? size : 1);
}
void operator delete(void *p) throw() {
  if (p) given = given + 1;
  free(p);
}

struct fragile {
  static volatile int countdown;
  volatile double room[3];
  fragile() {
    int left = countdown;
    countdown = left - 1;
    if (left == 0) throw 1;
  }
  ~fragile() {}
};
volatile int fragile::countdown = -1;

static void all_forms() {
  taken = given = 0;
  int *volatile one = new int;
  CHECK_INT(taken, 1);
  delete one;
  CHECK_INT(given, 1);
  int *volatile many = new int[10];
  CHECK_INT(taken, 2);
  delete[] many;
  CHECK_INT(given, 2);
  int *volatile quiet = new (std::nothrow) int;
  CHECK_INT(taken, 3);
  ::operator delete(quiet, std::nothrow);
  CHECK_INT(given, 3);
  int *volatile quiet_many = new (std::nothrow) int[10];
  CHECK_INT(taken, 4);
  ::operator delete[](quiet_many, std::nothrow);
  CHECK_INT(given, 4);
  fragile *volatile objects = new fragile[4];
  CHECK_INT(taken, 5);
  delete[] objects;
  CHECK_INT(given, 5);
}

static void failing_constructors() {
  for (int at = 0; at < 5; ++at) {
    taken = 0;
  given = 0;
    fragile::countdown = at;
    try {
      fragile *volatile p = new fragile[5];
      CHECK(p == 0);
    } catch (int) {
    }
    CHECK_INT(taken, 1);
    CHECK_INT(given, 1);
  }
  fragile::countdown = -1;
}

static void array_forms_follow() {
  fail_countdown = 0;
  int *volatile one = new (std::nothrow) int;
  CHECK(one == 0);
  int *volatile many = new (std::nothrow) int[3];
  CHECK(many == 0);
  bool caught = false;
  try {
    many = new int[3];
  } catch (std::bad_alloc &) {
    caught = true;
  }
  CHECK(caught);
  fail_countdown = -1;
}

// Library exceptions own their text; every copy of one is destroyed with what it allocated. Whatever happens when the
// N-th allocation fails, nothing is lost and what is caught is either the exception or bad_alloc.
static void library_exceptions() {
  int completed = 0;
  for (int n = 0; n < 50 && !completed; ++n) {
    taken = 0;
  given = 0;
    fail_countdown = n;
    try {
      try {
        throw std::runtime_error(std::string("a text that is too long for any small buffer, however large"));
      } catch (std::runtime_error &e) {
        std::runtime_error copy(e);
        if (strcmp(copy.what(), e.what()) == 0) completed = 1;
        throw std::out_of_range(copy.what());
      }
    } catch (std::bad_alloc &) {
      completed = 0;
    } catch (std::out_of_range &e) {
      CHECK_INT(strlen(e.what()), 59);
      CHECK(completed);
    }
    fail_countdown = -1;
    CHECK_INT(taken, given);
  }
  CHECK(completed);
}

int main() {
  all_forms();
  failing_constructors();
  array_forms_follow();
  library_exceptions();
  return TEST_RESULT();
}
