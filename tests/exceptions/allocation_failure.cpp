// Exceptions whose own memory cannot be had: constructing, copying, assigning and throwing them with each allocation
// failing gives bad_alloc, leaks nothing and leaves what was there as it was; afterwards everything works again.
// test-variants: -O0 | -O2
#include "../fail_allocation.h"

#include <stdexcept>

static const char text[] =
    "a message that is too long for anything but a block of its own, so that every step allocates";

// Each kind makes an exception in its way; those from 5 on throw it, and what arrives is that or bad_alloc.
static void by_expression() { throw std::invalid_argument(text); }
template <int kind> struct attempt {
  std::string message, exposed;
  std::runtime_error source, target;
  bool arrived;
  attempt() : message(text), exposed(text), source(text), target("before"), arrived(false) { exposed[0] = 'a'; }
  void run() {
    std::string local("destroyed on the way out, whatever it is that goes by");
    try {
      switch (kind) {
        case 0: static_cast<void>(std::exception(text)); break;
        case 1: static_cast<void>(std::out_of_range(message)); break;
        case 2: static_cast<void>(std::out_of_range(exposed)); break;
        case 3: static_cast<void>(std::runtime_error(source)); break;
        case 4: target = source; break;
        case 5: std::length_error::__throw(text);
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
      CHECK_TEXT(e.what(), kind == 8 ? "Out of range exception occurred" : text);
    }
  }
  void check(bool failed) {
    CHECK(arrived == (kind >= 5 && !failed) && !std::uncaught_exception());
    CHECK_TEXT(target.what(), kind == 4 && !failed ? text : "before");
    CHECK(message == text && exposed == text && strcmp(source.what(), text) == 0);
  }
};

int main() {
  const long before = live_blocks;
  // The object that holds the message, and the message; and the local string of the attempt.
#define ATTEMPT(kind) fail_each_allocation<attempt<kind> >()
  CHECK(ATTEMPT(0) == 3 && ATTEMPT(1) == 2 && ATTEMPT(2) == 3 && ATTEMPT(3) == 3 && ATTEMPT(4) == 3);
  CHECK(ATTEMPT(5) >= 2 && ATTEMPT(6) >= 2 && ATTEMPT(7) >= 4 && ATTEMPT(8) >= 3);
  CHECK_INT(live_blocks, before);
  return TEST_RESULT();
}
