// typeid and std::type_info: of types, of objects with and without virtual functions, of objects under construction, of
// dereferenced null pointers; equality, order and names.
// test-variants: -O0 | -O2 | -O1 -std=gnu++20 | -O1 -static
#include <typeinfo>

#include "../harness.h"

#pragma clang diagnostic ignored "-Wpotentially-evaluated-expression"  // that it is evaluated is tested

struct plain {
  int n;
};
struct plain_derived : plain {};
struct base {
  virtual ~base() {}
};
struct derived : base {};
struct other {
  virtual ~other() {}
};
struct both : base, other {};
struct virtually : virtual base {};
template <class T> struct box {
  virtual ~box() {}
};
namespace {
struct hidden : base {};
}  // namespace

static int evaluated;
template <class T> static T &evaluate(T &object) {
  ++evaluated;
  return object;
}

static void of_types() {
  CHECK(typeid(int) == typeid(int));
  CHECK(typeid(int) != typeid(unsigned));
  CHECK(typeid(const int) == typeid(int));
  CHECK(typeid(int &) == typeid(int));
  CHECK(typeid(const volatile int &) == typeid(int));
  CHECK(typeid(int *) != typeid(const int *));
  CHECK(typeid(int *const) == typeid(int *));
  CHECK(typeid(char) != typeid(signed char));
  CHECK(typeid(long) != typeid(int));
  CHECK(typeid(int[3]) != typeid(int[4]));
  CHECK(typeid(int[3]) != typeid(int *));
  CHECK(typeid(void) == typeid(void));
  CHECK(typeid(void (*)(int)) == typeid(void (*)(int)));
  CHECK(typeid(void (*)(int)) != typeid(void (*)(char)));
  CHECK(typeid(void(int)) != typeid(void (*)(int)));
  CHECK(typeid(int plain::*) == typeid(int plain::*));
  CHECK(typeid(int plain::*) != typeid(int base::*));
  CHECK(typeid(void (plain::*)()) != typeid(void (plain::*)() const));
  CHECK(typeid(box<int>) == typeid(box<int>));
  CHECK(typeid(box<int>) != typeid(box<long>));
  CHECK(typeid(wchar_t) != typeid(int));
  CHECK(typeid(hidden) == typeid(hidden));
  CHECK(typeid(base *) != typeid(derived *));
}

static void of_objects() {
  derived d;
  base &as_base = d;
  base *pointer = &d;
  CHECK(typeid(as_base) == typeid(derived));
  CHECK(typeid(*pointer) == typeid(derived));
  CHECK(typeid(pointer) == typeid(base *));
  CHECK(typeid((base())) == typeid(base));
  both b;
  CHECK(typeid(static_cast<other &>(b)) == typeid(both));
  virtually v;
  CHECK(typeid(static_cast<base &>(v)) == typeid(virtually));
  plain_derived p;
  CHECK(typeid(static_cast<plain &>(p)) == typeid(plain));
  box<char> c;
  CHECK(typeid(c) == typeid(box<char>));

  evaluated = 0;
  (void)typeid(evaluate(p));  // no virtual functions: not evaluated
  CHECK_INT(evaluated, 0);
  CHECK(typeid(evaluate(as_base)) == typeid(derived));
  CHECK_INT(evaluated, 1);
}

// During construction and destruction an object is of the class whose constructor or destructor runs.
struct stage1 {
  const std::type_info *in_constructor, **in_destructor;
  explicit stage1(const std::type_info **report) : in_constructor(&typeid(*this)), in_destructor(report) {}
  virtual ~stage1() { *in_destructor = &typeid(*this); }
};
struct stage2 : stage1 {
  explicit stage2(const std::type_info **report) : stage1(report) {}
};
static void under_construction() {
  const std::type_info *at_end = 0;
  {
    stage2 s(&at_end);
    CHECK(*s.in_constructor == typeid(stage1));
    stage1 *volatile p = &s;
    CHECK(typeid(*p) == typeid(stage2));
  }
  CHECK(*at_end == typeid(stage1));
}

static void of_null() {
  base *volatile null = 0;
  int caught = 0;
  try {
    trace(typeid(*null).name());
  } catch (std::bad_typeid &e) {
    ++caught;
    CHECK(e.what() != 0);
  }
  try {
    trace(typeid(*null).name());
  } catch (std::exception &) {
    ++caught;
  }
  CHECK_INT(caught, 2);
  CHECK(typeid(null) == typeid(base *));
  plain *volatile no_virtuals = 0;
  CHECK(typeid(*no_virtuals) == typeid(plain));
  CHECK_TRACE("");
}

// before() is a strict total order of the types of the program.
static void order() {
  const std::type_info *types[] = {&typeid(int),    &typeid(base), &typeid(derived), &typeid(const char *),
                                   &typeid(hidden), &typeid(both), &typeid(void),    &typeid(std::exception),
                                   &typeid(box<int>)};
  const int count = sizeof types / sizeof types[0];
  int smaller[count];
  for (int i = 0; i < count; ++i) {
    smaller[i] = 0;
    for (int k = 0; k < count; ++k) {
      CHECK((*types[i] == *types[k]) == (i == k));
      CHECK(types[i]->before(*types[k]) + types[k]->before(*types[i]) == (i == k ? 0 : 1));
      smaller[i] += types[k]->before(*types[i]);
    }
  }
  // in a total order each has another number of smaller ones
  for (int i = 0; i < count; ++i)
    for (int k = 0; k < i; ++k) CHECK(smaller[i] != smaller[k]);
}

static void names() {
  CHECK_TEXT(typeid(int).name(), "i");
  CHECK_TEXT(typeid(const char *).name(), "PKc");
  CHECK_TEXT(typeid(derived).name(), "7derived");
  CHECK_TEXT(typeid(box<int>).name(), "3boxIiE");
  derived d;
  base &b = d;
  CHECK(typeid(b).name() == typeid(derived).name());
}

// The standard exceptions, thrown by the library, have their dynamic type here too.
static void library_classes() {
  base *volatile null = 0;
  try {
    trace(typeid(*null).name());
  } catch (std::exception &e) {
    CHECK(typeid(e) == typeid(std::bad_typeid));
    CHECK(typeid(e) != typeid(std::exception));
    CHECK(dynamic_cast<std::bad_typeid *>(&e) != 0);
    CHECK(dynamic_cast<std::bad_cast *>(&e) == 0);
  }
  CHECK_TRACE("");
}

int main() {
  of_types();
  of_objects();
  under_construction();
  of_null();
  order();
  names();
  library_classes();
  return TEST_RESULT();
}
