// Exceptions whose own memory cannot be had: constructing, copying, assigning and throwing them with each allocation
// failing gives bad_alloc, leaks nothing and leaves what was there as it was; afterwards everything works again.
// test-variants: -O0 | -O2

#include "../fail_allocation.h"

#include <stdexcept>

typedef std::string string;

static const char text[] =
    "a message that is too long for anything but a block of its own, so that every step allocates";

struct from_text {
  void run() { const std::exception made(text); }
  void check(bool) {}
};

struct from_string {
  string message;
  from_string() : message(text) {}
  void run() { const std::out_of_range made(message); }
  void check(bool) { CHECK_TEXT(message.c_str(), text); }
};

struct from_exposed_string : from_string {
  from_exposed_string() { message[0] = 'a'; }
};

struct copying {
  std::runtime_error source;
  copying() : source(text) {}
  void run() { const std::runtime_error made(source); }
  void check(bool) { CHECK_TEXT(source.what(), text); }
};

struct assigning {
  std::runtime_error source, target;
  assigning() : source(text), target("before") {}
  void run() { target = source; }
  void check(bool failed) { CHECK_TEXT(target.what(), failed ? "before" : text); }
};

// Throws from `thrower`; what arrives is the intended exception, or bad_alloc where an allocation failed.
template <void (*thrower)()> struct throwing {
  bool arrived;
  throwing() : arrived(false) {}
  void run() {
    string local("destroyed on the way out, whatever it is that goes by");
    try {
      thrower();
    } catch (const std::logic_error &e) {
      arrived = true;
      CHECK_TEXT(e.what(), text);
    }
  }
  void check(bool failed) {
    CHECK(arrived != failed);
    CHECK(!std::uncaught_exception());
  }
};

// What throws, as template arguments with linkage.
void by_helper() { std::length_error::__throw(text); }
void by_expression() { throw std::invalid_argument(text); }
void from_a_handler() {
  try {
    by_expression();
  } catch (const std::invalid_argument &e) {
    throw std::domain_error(e.what());
  }
}
void from_a_copy() {
  try {
    by_helper();
  } catch (const std::logic_error &e) {
    const std::logic_error copied(e);
    throw std::logic_error(string(copied.what()));
  }
}

// The text of a string's errors is short, the strings are gone when they are caught.
struct string_error {
  bool arrived;
  string_error() : arrived(false) {}
  void run() {
    try {
      string local(text);
      local.insert(1000, "x");
    } catch (const std::out_of_range &e) {
      arrived = true;
      CHECK_TEXT(e.what(), "Out of range exception occurred");
    }
  }
  void check(bool failed) { CHECK(arrived != failed); }
};

// With no memory at all bad_alloc is thrown, caught, copied and asked for its text.
static void without_any_memory() {
  const long calls = allocation_calls, live = live_blocks;
  int caught = 0;
  for (int i = 0; i < 3; ++i) {
    try {
      allocation_to_fail = 1;
      std::exception made(text);
    } catch (std::bad_alloc &e) {
      const std::bad_alloc copied(e);
      try {
        throw;
      } catch (std::bad_alloc again) {
        if (strcmp(again.what(), copied.what()) == 0) ++caught;
      }
    }
  }
  CHECK_INT(caught, 3);
  CHECK_INT(allocation_calls, calls + 3);
  CHECK_INT(live_blocks, live);
}

int main() {
  const long before = live_blocks;
  // The object that holds the message, and the message.
  CHECK_INT(fail_each_allocation<from_text>(), 2);
  CHECK_INT(fail_each_allocation<from_string>(), 1);
  CHECK_INT(fail_each_allocation<from_exposed_string>(), 2);
  CHECK_INT(fail_each_allocation<copying>(), 2);
  CHECK_INT(fail_each_allocation<assigning>(), 2);
  CHECK(fail_each_allocation<throwing<by_helper> >() >= 2);
  CHECK(fail_each_allocation<throwing<by_expression> >() >= 2);
  CHECK(fail_each_allocation<throwing<from_a_handler> >() >= 4);
  CHECK(fail_each_allocation<throwing<from_a_copy> >() >= 4);
  CHECK(fail_each_allocation<string_error>() >= 3);
  without_any_memory();
  CHECK_INT(live_blocks, before);
  return TEST_RESULT();
}
