// Static objects of a second file; a local one that needs others, and another function, while the program ends.
#include "life.h"

#include <cstdlib>

static watched one("other-1"), array[2] = {watched("other-2a"), watched("other-2b")};
static void registered_late() { ended("late-atexit"); }
struct busy {
  busy() { began("busy"); }
  ~busy();
};
busy::~busy() {
  ended("busy");
  static watched first_used("first-used");
  began("late-atexit");
  std::atexit(registered_late);
}
void touch_other() {
  static watched local("other-local");
  inline_static();
  with_static<int>::object.name = with_static<int>::object.name;
}
void touch_busy() { static busy object; }
