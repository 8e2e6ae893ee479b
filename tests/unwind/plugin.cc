// A shared object of C++ with the number NUMBER.
#include <cstdlib>

struct opaque {
  int n;
};
#include "objects.h"

struct says {
  const char *name;
  explicit says(const char *n) : name(n) {}
  ~says() { std::printf("~%s%d ", name, catch_one(throw_one, 0)); }
};
static says first("first");
static void at_exit() { std::printf("atexit%d ", NUMBER); }
static int registered = std::atexit(at_exit);
static says second("second");

static shared_base *make() {
  static says local("local");
  return new both(NUMBER);
}
static bool is_type(const std::type_info &type, bool hidden) {
  const std::type_info &own = hidden ? hidden_type() : typeid(wrapped<shared_error>);
  return type == own && !type.before(own) && !own.before(type);
}
extern "C" const services plugin = {throw_one, catch_one, make, is_type};
