// Type information of both worlds in one program: type_info objects of generated C, of the library and of the C++
// compiler compare as the types they stand for, and each world's dynamic_cast works on its own objects.
// test-variants: -O0 | -O2 | -O1 -static
#include <plx/runtime.h>

#include <new>
#include <stdexcept>
#include <typeinfo>

#include "../../harness.h"

#pragma clang diagnostic ignored "-Wpotentially-evaluated-expression"  // that it throws is tested

extern "C" {
int c_casts(void);
void c_failing_cast(void);
const a_type_info_impl *c_typeid(int null);
int c_catches_bad_cast(void (*f)(void));
extern const a_type_info_impl c_view_of_cpp_type;
}

struct cpp_type {
  virtual ~cpp_type() {}
};
struct cpp_derived : cpp_type {};
struct cpp_other : virtual cpp_type {};

static const std::type_info &as_type_info(const a_type_info_impl &descriptor) {
  return reinterpret_cast<const std::type_info &>(descriptor);
}

// Equal both ways round, and neither before the other.
static bool same(const std::type_info &a, const std::type_info &b) {
  return a == b && b == a && !(a != b) && !a.before(b) && !b.before(a);
}
static bool different(const std::type_info &a, const std::type_info &b) {
  return a != b && b != a && !(a == b) && a.before(b) != b.before(a);
}

static void comparison() {
  CHECK(same(typeid(int), as_type_info(__TI_i)));
  CHECK(same(typeid(unsigned long long), as_type_info(__TI_y)));
  CHECK(same(typeid(void), as_type_info(__TI_v)));
  CHECK(same(typeid(std::exception), as_type_info(__TI_St9exception)));
  CHECK(same(typeid(std::out_of_range), as_type_info(__TI_St12out_of_range)));
  CHECK(same(typeid(std::bad_alloc), as_type_info(__TI_St9bad_alloc)));
  CHECK(same(typeid(cpp_type), as_type_info(c_view_of_cpp_type)));
  CHECK(different(typeid(long), as_type_info(__TI_i)));
  CHECK(different(typeid(std::exception), as_type_info(__TI_St9bad_alloc)));
  CHECK(different(typeid(cpp_derived), as_type_info(c_view_of_cpp_type)));
  CHECK(different(typeid(int *), as_type_info(__TI_i)));
  CHECK(different(typeid(cpp_type), as_type_info(*c_typeid(0))));
  cpp_derived object;
  cpp_type *volatile p = &object;
  CHECK(different(typeid(*p), as_type_info(c_view_of_cpp_type)));
  CHECK_TEXT(as_type_info(*c_typeid(0)).name(), "c_world::whole");
}

// What the library throws has its dynamic type in C++, too.
static void failing_cpp_cast() {
  cpp_type object;
  cpp_type *volatile p = &object;
  trace("%p", (void *)&dynamic_cast<cpp_derived &>(*p));
}
static void failing_typeid() {
  cpp_type *volatile p = 0;
  trace("%s", typeid(*p).name());
}
static void nothing() {}
static void casts() {
  CHECK_INT(c_casts(), 8);
  cpp_derived object;
  cpp_type *volatile p = &object;
  CHECK(dynamic_cast<cpp_derived *>(p) == &object);
  CHECK(dynamic_cast<cpp_other *>(p) == 0);
  cpp_other other;
  cpp_type *volatile q = &other;
  CHECK(dynamic_cast<cpp_other *>(q) == &other);
  try {
    c_failing_cast();
    CHECK(!"must throw");
  } catch (std::exception &e) {
    CHECK(typeid(e) == typeid(std::bad_cast));
    CHECK_TEXT(e.what(), "Bad Cast Exception");
  }
  try {
    c_typeid(1);
    CHECK(!"must throw");
  } catch (std::bad_typeid &e) {
    CHECK_TEXT(e.what(), "");
  }
  CHECK_INT(c_catches_bad_cast(failing_cpp_cast), 2);
  CHECK_INT(c_catches_bad_cast(failing_typeid), 1);
  CHECK_INT(c_catches_bad_cast(nothing), 0);
}

int main() {
  comparison();
  casts();
  return TEST_RESULT();
}
