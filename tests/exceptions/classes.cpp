// The exception classes as a program sees them: which handlers take which, thrown by an expression or by a helper,
// their texts, what a copy and an assignment keep; and without memory. test-variants: -O0 | -O2 | -O1 -std=gnu++17
#include <new>
#include <stdexcept>
#include <typeinfo>

#include "../fail_allocation.h"

#pragma clang diagnostic ignored "-Wpotentially-evaluated-expression"
#pragma clang diagnostic ignored "-Wself-assign-overloaded"

struct shape {
  virtual ~shape() {}
};
struct circle : shape {};
static shape a_shape, *volatile some_shape = &a_shape, *volatile no_shape;

#define CLASSES(CLASS)    \
  CLASS(logic_error)      \
  CLASS(domain_error)     \
  CLASS(invalid_argument) \
  CLASS(length_error)     \
  CLASS(out_of_range) CLASS(runtime_error) CLASS(range_error) CLASS(overflow_error) CLASS(underflow_error)
static void throw_one(int which) {
  int n = 0;
#define THROW(type)                          \
  if (which == n++) throw std::type("text"); \
  if (which == n++) std::type::__throw("text");
  CLASSES(THROW)
  switch (which - n) {
    case 0: throw std::exception("text");
    case 1: std::bad_cast::__throw("text");
    case 2: (void)dynamic_cast<circle &>(*some_shape); return;
    case 3: operator delete(operator new(0xFFFFFFFFu)); return;
    case 4: throw std::bad_alloc();
    case 5: throw std::bad_exception();
    case 6: (void)typeid(*no_shape).name(); return;
    case 7: throw std::bad_typeid();
    case 8: throw std::bad_cast();
  }
}
// Two letters of each handler that takes it, and its text.
static void tell(int which) {
  std::string taken;
#define HANDLER(type)                                                                              \
  try {                                                                                            \
    throw_one(which);                                                                              \
  } catch (const std::type &) { taken += std::string(#type, 2); } catch (const std::exception &) { \
  }
  CLASSES(HANDLER) HANDLER(bad_cast) HANDLER(bad_alloc) HANDLER(bad_exception) HANDLER(bad_typeid) taken += "=";
  try {
    throw_one(which);
  } catch (const std::exception &e) { trace("%s%s,%s", taken.c_str(), e.what(), std::exception(e).what()); }
}

// A copy is made from the source's what(): it ends at a null character, and is what an override says.
struct talking : std::exception {
  talking() : std::exception("its own text") {}
  const char *what() const PLX_NOTHROW { return "says something else"; }
};
static void copies() {
  std::string text("whose text");
  const std::out_of_range error(text);
  const std::logic_error whole(std::string("cut\0here", 8));
  const std::exception sliced = talking();
  text[0] = 'W';
  CHECK(memcmp(whole.what(), "cut\0here", 9) == 0);
  trace("%s %s %s", error.what(), std::logic_error(whole).what(), sliced.what());

  std::runtime_error *const source = new std::runtime_error("kept"), copied(*source), assigned("lost");
  assigned = *source;
  CHECK(copied.what() != source->what() && assigned.what() != source->what());
  delete source;
  assigned = static_cast<const std::runtime_error &>(assigned);
  std::exception plain, empty;
  std::bad_alloc memory, other;
  plain = copied;
  trace("%s %s %s", copied.what(), assigned.what(), plain.what());
  plain = empty;
  CHECK_INT(plain.what()[0], 0);
  plain = talking();
  plain = plain;
  other = memory;
  trace("%s %s %s.", plain.what(), std::bad_alloc(other).what(), std::exception("").what());
}

// ---- Memory that cannot be had: constructing, copying, assigning and throwing with each allocation failing gives
// bad_alloc, leaks nothing and leaves what was there as it was; afterwards everything works again.

static const char long_text[] =
    "a message that is too long for anything but a block of its own, so that every step allocates";

// Each kind makes an exception in its way; those from 5 on throw it, and what arrives is that or bad_alloc.
static void by_expression() { throw std::invalid_argument(long_text); }
template <int kind> struct attempt {
  std::string message, exposed;
  std::runtime_error source, target;
  bool arrived;
  attempt() : message(long_text), exposed(long_text), source(long_text), target("before"), arrived(false) {
    exposed[0] = 'a';
  }
  void run() {
    std::string local("destroyed on the way out, whatever it is that goes by");
    try {
      switch (kind) {
        case 0: static_cast<void>(std::exception(long_text)); break;
        case 1: static_cast<void>(std::out_of_range(message)); break;
        case 2: static_cast<void>(std::out_of_range(exposed)); break;
        case 3: static_cast<void>(std::runtime_error(source)); break;
        case 4: target = source; break;
        case 5: std::length_error::__throw(long_text);
        case 6: by_expression(); break;
        case 7: try { by_expression();
          } catch (std::logic_error &e) {
            const std::logic_error copied(e);
            throw std::logic_error(std::string(copied.what()));
          }
          break;
        case 8: local.insert(1000, "x");
      }
    } catch (const std::logic_error &e) {
      arrived = true;
      CHECK_TEXT(e.what(), kind == 8 ? "Out of range exception occurred" : long_text);
    }
  }
  void check(bool failed) {
    CHECK(arrived == (kind >= 5 && !failed) && !std::uncaught_exception());
    CHECK_TEXT(target.what(), kind == 4 && !failed ? long_text : "before");
    CHECK(message == long_text && exposed == long_text && strcmp(source.what(), long_text) == 0);
  }
};

static void to_stderr() { std::exception::__issue_msg_to_stderr("to standard error\n"); }

int main() {
  for (int which = 0; which < 27; ++which) tell(which);
  CHECK_TRACE(
      "lo=text,text lo=text,text lodo=text,text lodo=text,text loin=text,text loin=text,text lole=text,text "
      "lole=text,text loou=text,text loou=text,text ru=text,text ru=text,text rura=text,text rura=text,text "
      "ruov=text,text ruov=text,text ruun=text,text ruun=text,text =text,text ba=text,text "
      "ba=Bad Cast Exception,Bad Cast Exception ba=Allocation Failure, ba=Allocation Failure, ba=, ba=, ba=, ba=,");
  copies();
  CHECK_TRACE("whose text cut says something else kept kept kept says something else Allocation Failure .");
  const long before = live_blocks;
  // The object that holds the message, and the message; and the local string of the attempt.
#define ATTEMPT(kind) fail_each_allocation<attempt<kind> >()
  CHECK(ATTEMPT(0) == 3 && ATTEMPT(1) == 2 && ATTEMPT(2) == 3 && ATTEMPT(3) == 3 && ATTEMPT(4) == 3);
  CHECK(ATTEMPT(5) >= 2 && ATTEMPT(6) >= 2 && ATTEMPT(7) >= 4 && ATTEMPT(8) >= 3);
  CHECK_INT(live_blocks, before);
  CHECK_ENDS(to_stderr, 0, "to standard error\n");
  return TEST_RESULT();
}
