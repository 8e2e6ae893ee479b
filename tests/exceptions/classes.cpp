// The exception classes as a program sees them: the tree, the texts, what a copy keeps, and the throw helpers, caught
// by their own class and by every base.
// test-variants: -O0 | -O2 | -O1 -std=gnu++17

#include <new>
#include <stdexcept>
#include <typeinfo>

#include "../harness.h"

typedef std::string string;

// Throws once for every class that must catch it, and once where a class that must not stands in front.
#define CAUGHT_BY(handler, text, expression) \
  do {                                       \
    bool caught = false;                     \
    try {                                    \
      expression;                            \
    } catch (const handler &e) {             \
      caught = true;                         \
      CHECK_TEXT(e.what(), text);            \
    }                                        \
    CHECK(caught);                           \
  } while (0)

#define PASSES_BY(handler, expression) \
  do {                                 \
    bool passed = false;               \
    try {                              \
      try {                            \
        expression;                    \
      } catch (const handler &) {      \
        CHECK(!"caught by " #handler); \
      }                                \
    } catch (const std::exception &) { \
      passed = true;                   \
    }                                  \
    CHECK(passed);                     \
  } while (0)

#define IN_TREE(type, base, stranger, text)                  \
  CAUGHT_BY(std::type, text, throw std::type(text));         \
  CAUGHT_BY(std::base, text, throw std::type(text));         \
  CAUGHT_BY(std::exception, text, throw std::type(text));    \
  CAUGHT_BY(std::type, text, std::type::__throw(text));      \
  CAUGHT_BY(std::base, text, std::type::__throw(text));      \
  CAUGHT_BY(std::exception, text, std::type::__throw(text)); \
  PASSES_BY(std::stranger, throw std::type(text));           \
  PASSES_BY(std::stranger, std::type::__throw(text))

static void tree() {
  IN_TREE(logic_error, logic_error, domain_error, "logic");
  IN_TREE(domain_error, logic_error, runtime_error, "domain");
  IN_TREE(invalid_argument, logic_error, out_of_range, "argument");
  IN_TREE(length_error, logic_error, out_of_range, "length");
  IN_TREE(out_of_range, logic_error, length_error, "range");
  IN_TREE(runtime_error, runtime_error, range_error, "run time");
  IN_TREE(range_error, runtime_error, logic_error, "range");
  IN_TREE(overflow_error, runtime_error, underflow_error, "overflow");
  IN_TREE(underflow_error, runtime_error, overflow_error, "underflow");
  CAUGHT_BY(std::bad_cast, "Facet not present\n", std::bad_cast::__throw("Facet not present\n"));
  CAUGHT_BY(std::exception, "x", std::bad_cast::__throw("x"));
  CAUGHT_BY(std::bad_alloc, "Allocation Failure", throw std::bad_alloc());
  CAUGHT_BY(std::exception, "Allocation Failure", operator delete(operator new(0xFFFFFFFFu)));
  CAUGHT_BY(std::bad_exception, "", throw std::bad_exception());
  CAUGHT_BY(std::bad_typeid, "", throw std::bad_typeid());
  PASSES_BY(std::bad_cast, throw std::bad_typeid());
}

struct shape {
  virtual ~shape() {}
};
struct circle : shape {};
struct square : shape {};

static shape *none;

static void the_runtime_throws_them() {
  circle round;
  shape *volatile any = &round;
  CAUGHT_BY(std::bad_cast, "Bad Cast Exception", (void)dynamic_cast<square &>(*any));
  CAUGHT_BY(std::bad_typeid, "", (void)typeid(*none).name());
}

static void messages() {
  CHECK_TEXT(std::exception().what(), "");
  CHECK_TEXT(std::exception("").what(), "");
  CHECK_TEXT(std::exception("plain text").what(), "plain text");
  CHECK_TEXT(std::exception(string("a string")).what(), "a string");
  CHECK_TEXT(std::bad_cast().what(), "");

  string text("whose text");
  const std::out_of_range error(text);
  text[0] = 'W';
  CHECK_TEXT(error.what(), "whose text");
  text = string(10000, 'x');
  CHECK_INT(strlen(std::runtime_error(text).what()), 10000);
}

static void copies() {
  std::runtime_error *source = new std::runtime_error("kept");
  const std::runtime_error copied(*source);
  std::runtime_error assigned("lost");
  assigned = *source;
  CHECK(copied.what() != source->what());
  delete source;
  CHECK_TEXT(copied.what(), "kept");
  CHECK_TEXT(assigned.what(), "kept");
  const std::runtime_error &same = assigned;
  assigned = same;
  CHECK_TEXT(assigned.what(), "kept");

  std::exception plain;
  plain = copied;
  CHECK_TEXT(plain.what(), "kept");
  plain = std::exception();
  CHECK_TEXT(plain.what(), "");
  const std::exception &as_base = std::exception(copied);
  CHECK_TEXT(as_base.what(), "kept");
}

struct talking : std::exception {
  explicit talking(const char *text) : std::exception(text) {}
  const char *what() const PLX_NOTHROW { return "says something else"; }
};

// A copy is made from the source's what(): it ends at a null character, and is what an override says.
static void copies_come_from_what() {
  const std::logic_error whole(string("cut\0here", 8));
  CHECK(memcmp(whole.what(), "cut\0here", 9) == 0);
  const std::logic_error copied(whole);
  CHECK_INT(strlen(copied.what()), 3);
  const std::exception sliced(talking("its own text"));
  CHECK_TEXT(sliced.what(), "says something else");
  const std::bad_exception nothing;
  std::exception from_bad(nothing);
  CHECK_TEXT(from_bad.what(), "");
  const std::bad_alloc memory;
  const std::exception from_memory(memory);
  CHECK_TEXT(from_memory.what(), "");
  std::bad_alloc other;
  other = memory;
  CHECK_TEXT(std::bad_alloc(other).what(), "Allocation Failure");
}

static void tell() { std::exception::__issue_msg_to_stderr("to standard error\n"); }

int main() {
  tree();
  the_runtime_throws_them();
  messages();
  copies();
  copies_come_from_what();
  CHECK_ENDS(tell, 0, "to standard error\n");
  return TEST_RESULT();
}
