// Static objects of a second file; a local one whose destructor needs another for the first time.
#include "statics.h"

#include <cstdlib>

static watched first_of_two("two-1");

static void registered_later() { gone("two-late-atexit"); }

namespace {
struct busy {
  ~busy() {
    gone("two-busy");
    std::atexit(registered_later);  // while the program ends: runs next
  }
};
}  // namespace

void touch_two() {
  static watched local("two-local");
  inline_static();
  with_static<int>::object.name = with_static<int>::object.name;
}

void touch_two_later() {
  static busy object;
  built("two-busy");
}
