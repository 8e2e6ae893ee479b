// Local static objects: initialised once, tried again after an initialiser that threw, destroyed at exit in reverse
// order of completion and only if they were completed; recursion into an initialisation that is under way ends the
// program.
// test-variants: -O0 | -O2 | -O1 -std=gnu++17
#include "../harness.h"

#pragma clang diagnostic ignored "-Winfinite-recursion"  // it ends in the initialisation

struct noisy {
  int n;
  explicit noisy(int k) : n(k) { trace("+%d", n); }
  ~noisy() { trace("-%d", n); }
};

static int attempts;
static int fails_twice() {
  if (++attempts < 3) throw attempts;
  return attempts;
}

static int once() {
  static int value = fails_twice();
  return value;
}

static void retried_until_it_succeeds() {
  int caught = 0;
  for (int i = 0; i < 5; ++i) {
    try {
      CHECK_INT(once(), 3);
    } catch (int n) {
      caught = caught * 10 + n;
    }
  }
  CHECK_INT(caught, 12);
  CHECK_INT(attempts, 3);
}

// Two statics in one function: the first stays when the second fails.
struct pair_user {
  static int fail;
  noisy part;
  explicit pair_user(int n) : part(n) {
    if (fail) throw n;
  }
};
int pair_user::fail;
static pair_user *second_of_two() {
  static noisy first(1);
  static pair_user second(2);
  return &second;
}
static void completed_ones_stay() {
  pair_user::fail = 1;
  for (int i = 0; i < 2; ++i) {
    try {
      second_of_two();
      CHECK(!"must throw");
    } catch (int) {
      trace("caught");
    }
  }
  pair_user::fail = 0;
  pair_user *p = second_of_two();
  CHECK(second_of_two() == p);
  CHECK_TRACE("+1 +2 -2 caught +2 -2 caught +2");
}

// A static array, a static in a template, in an inline function, in a loop and behind a goto; a static reference.
template <class T> static T &instance() {
  static T object(sizeof(T));
  return object;
}
inline int &counter() {
  static int count;
  return ++count;
}
struct array_element {
  static int made, limit;
  int n;
  array_element() : n(made++) {
    if (n == limit) throw n;
  }
  ~array_element() { --made; }
};
int array_element::made, array_element::limit;
static array_element *static_array() {
  static array_element elements[4];
  return elements;
}
static void other_places() {
  CHECK(&instance<noisy>() == &instance<noisy>());
  CHECK_TRACE("+4");
  counter();
  CHECK_INT(counter(), 2);
  array_element::limit = 2;
  try {
    static_array();
    CHECK(!"must throw");
  } catch (int n) {
    CHECK_INT(n, 2);
  }
  CHECK_INT(array_element::made, 1);  // the element that failed counted itself
  array_element::made = 0;
  array_element::limit = -1;
  array_element *p = static_array();
  CHECK_INT(p[3].n, 3);
  CHECK(static_array() == p);
  for (int i = 0; i < 3; ++i) {
    static noisy in_loop(20);
    static const noisy &reference = noisy(30);
    trace("%d", in_loop.n + reference.n);
  }
  CHECK_TRACE("+20 +30 50 50 50");
}

// Initialisers that throw and catch for themselves, and that initialise other statics.
static int inner_static() {
  static int value = (attempts = 7);
  return value;
}
static int outer_static() {
  static int value = inner_static() + 1;
  return value;
}
static int swallow() {
  try {
    throw 3;
  } catch (int n) {
    return n;
  }
}
static int handled_inside() {
  static int value = swallow();
  return value;
}
static void nested() {
  CHECK_INT(outer_static(), 8);
  CHECK_INT(handled_inside(), 3);
}

static int recursive(int n) {
  static int value = recursive(n + 1);
  return value;
}
static void recursive_initialisation() {
  alarm(10);  // it must end, not hang
  recursive(0);
}

// Destruction at exit: in reverse order of completion, an object that contains another completes after it.
struct exit_noisy {
  const char *name;
  explicit exit_noisy(const char *n) : name(n) {}
  ~exit_noisy() { printf("~%s ", name); }
};
static exit_noisy &inner_object() {
  static exit_noisy object("inner");
  return object;
}
struct exit_outer {
  exit_outer() { inner_object(); }
  ~exit_outer() { printf("~outer "); }
};
static exit_noisy &failing_object() {
  static exit_noisy object((throw 1, "failed"));
  return object;
}
static exit_noisy &late_object() {
  static exit_noisy object("late");
  return object;
}
struct starts_late {
  ~starts_late() {
    printf("~starter ");
    late_object();  // first needed while the program ends
  }
};
static void leave() {
  static exit_outer outer;
  try {
    failing_object();
  } catch (int) {
  }
  static starts_late starter;
  exit(0);
}
static void destruction_order() {
  test_child child = test_run_child(leave);
  CHECK_INT(child.status, 0);
  CHECK(strstr(child.text, "~starter ~late ~outer ~inner ") != 0);
  CHECK(strstr(child.text, "failed") == 0);
}

int main() {
  retried_until_it_succeeds();
  completed_ones_stay();
  other_places();
  nested();
  test_child child = test_run_child(recursive_initialisation);
  // The message is the library's affair; ending by a signal other than the alarm's is what counts, and saying why.
  CHECK(child.status == -SIGABRT);
  CHECK(child.text[0] != 0);
  destruction_order();
  return TEST_RESULT();
}
