// Function-try-blocks: of functions, of constructors (the handler cannot swallow the exception, bases and members are
// gone when it runs, parameters are not) and of destructors.
// test-variants: -O0 | -O2 | -Os | -O2 -std=gnu++17
#include "../harness.h"

struct noisy {
  const char *name;
  explicit noisy(const char *n) : name(n) {}
  noisy(const noisy &other) : name(other.name) { trace("copy"); }
  ~noisy() { trace("~%s", name); }
};

static int function(int n) try {
  noisy local("local");
  if (n < 0) throw n;
  return n;
} catch (int code) {
  noisy local("handler");
  return 1000 - code;
}

// Parameters live until the function is left, so a handler may use them.
static int with_parameter(noisy parameter, int n) try {
  if (n) throw n;
  return 0;
} catch (int code) {
  trace("h:%s", parameter.name);
  return code;
}

static void nothing(int n) try {
  if (n) throw n;
} catch (int) {
  trace("caught");
}  // falls off the end: returns

static void functions() {
  CHECK_INT(function(5), 5);
  CHECK_TRACE("~local");
  CHECK_INT(function(-5), 1005);
  CHECK_TRACE("~local ~handler");
  {
    noisy n("n");
    CHECK_INT(with_parameter(n, 3), 3);
  }
  CHECK_TRACE("copy h:n ~n ~n");
  nothing(0);
  nothing(1);
  CHECK_TRACE("caught");
}

struct base {
  noisy b;
  explicit base(int n) : b("base-part") {
    if (n == 1) throw 1;
  }
  ~base() { trace("~base"); }
};
struct member {
  const char *name;
  explicit member(const char *text, int n, int at) : name(text) {
    if (n == at) throw at;
  }
  ~member() { trace("~%s", name); }
};
struct whole : base {
  member m2, m3;
  int *counted;
  whole(int n, int *count) try : base(n), m2("m2", n, 2), m3("m3", n, 3), counted(count) {
    noisy local("body");
    if (n == 4) throw 4;
    trace("built");
  } catch (int code) {
    trace("h%d", code);
    ++*count;  // parameters may be used, members not
    if (code == 3) throw "translated";
  }  // else the exception is rethrown
  ~whole() { trace("~whole"); }
};

static void build(int n, int *count) {
  try {
    whole w(n, count);
    trace("used");
  } catch (int code) {
    trace("out%d", code);
  } catch (const char *text) {
    trace("%s", text);
  }
}

static void constructors() {
  int count = 0;
  build(0, &count);
  CHECK_TRACE("built ~body used ~whole ~m3 ~m2 ~base ~base-part");
  build(1, &count);
  CHECK_TRACE("~base-part h1 out1");
  build(2, &count);
  CHECK_TRACE("~base ~base-part h2 out2");
  build(3, &count);
  CHECK_TRACE("~m2 ~base ~base-part h3 translated");
  build(4, &count);
  CHECK_TRACE("~body ~m3 ~m2 ~base ~base-part h4 out4");
  CHECK_INT(count, 4);
}

// The handler of the most derived class sees virtual bases destroyed too.
struct virtual_base {
  virtual_base() { trace("vb"); }
  virtual ~virtual_base() { trace("~vb"); }
};
struct middle : virtual virtual_base {
  middle(bool fails) try {
    if (fails) throw 9;
  } catch (...) {
    trace("middle");
  }
  ~middle() { trace("~middle"); }
};
struct most : middle {
  most(bool middle_fails, bool fails) try : middle(middle_fails) {
    if (fails) throw 10;
  } catch (int code) {
    trace("most%d", code);
    throw code + 1;
  }
};
static void virtual_bases() {
  try {
    most m(true, false);
  } catch (int code) {
    trace("out%d", code);
  }
  CHECK_TRACE("vb middle ~vb most9 out10");
  try {
    most m(false, true);
  } catch (int code) {
    trace("out%d", code);
  }
  CHECK_TRACE("vb ~middle ~vb most10 out11");
}

#if __cplusplus >= 201103L
#define MAY_THROW noexcept(false)
#else
#define MAY_THROW
#endif

// A destructor's handler runs after the members; falling off its end rethrows, a return statement does not.
struct falls_off {
  member m;
  falls_off() : m("m", 0, 1) {}
  ~falls_off() MAY_THROW try {
    noisy local("body");
    throw 5;
  } catch (int code) {
    trace("h%d", code);
  }
};
struct returns {
  member m;
  returns() : m("m", 0, 1) {}
  ~returns() MAY_THROW try {
    throw 6;
  } catch (int code) {
    trace("h%d", code);
    return;
  }
};
static void destructors() {
  try {
    noisy outer("outer");
    falls_off f;
  } catch (int code) {
    trace("out%d", code);
  }
  CHECK_TRACE("~body ~m h5 ~outer out5");
  try {
    noisy outer("outer");
    returns r;
  } catch (int code) {
    trace("wrong%d", code);
  }
  CHECK_TRACE("~m h6 ~outer");
}

// main's rules do not differ: a function-try-block there handles what main's body throws.
int main() try {
  functions();
  constructors();
  virtual_bases();
  destructors();
  throw 1;
} catch (int) {
  return TEST_RESULT();
}
