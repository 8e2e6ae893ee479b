// Static objects of a first file: at namespace scope, in a class template, and local ones.
#include "statics.h"

static watched first_of_one("one-1");
static watched array_of_one[2] = {watched("one-2a"), watched("one-2b")};
namespace {
watched second_of_one("one-3");
}
static watched &of_template = with_static<int>::object;

void touch_one() {
  static watched local("one-local");
  inline_static();
  (void)&of_template;
}
