// Every kind of type can be thrown, and is caught by exactly its own type: fundamental types, enumerations, unions,
// classes of all sizes, local and unnamed-namespace classes, functions, member pointers. A clause of another type,
// however close, must be passed over. Also where a throw expression may stand.
// test-variants: -O0 | -O2 | -O3 -fomit-frame-pointer | -O1 -std=gnu++17
#include "../harness.h"

#pragma clang diagnostic ignored "-Wexceptions"  // a clause that must be passed over

// Names the clause that caught `value`.
template <class T> static const char *clause_of(T value) {
  try {
    throw value;
  } catch (bool) {
    return "bool";
  } catch (char) {
    return "char";
  } catch (signed char) {
    return "signed char";
  } catch (unsigned char) {
    return "unsigned char";
  } catch (wchar_t) {
    return "wchar_t";
  } catch (short) {
    return "short";
  } catch (unsigned short) {
    return "unsigned short";
  } catch (int) {
    return "int";
  } catch (unsigned) {
    return "unsigned";
  } catch (long) {
    return "long";
  } catch (unsigned long) {
    return "unsigned long";
  } catch (long long) {
    return "long long";
  } catch (unsigned long long) {
    return "unsigned long long";
  } catch (float) {
    return "float";
  } catch (double) {
    return "double";
  } catch (long double) {
    return "long double";
  } catch (...) {
    return "other";
  }
}

// The value must arrive, by value and by reference, and be the same object for a second handler.
template <class T> static void carry(const T &value, const T &second) {
  int reached = 0;
  try {
    throw value;
  } catch (T got) {
    CHECK(got == value);
    ++reached;
  }
  try {
    const volatile T qualified = T(value);
    throw const_cast<const T &>(qualified);
  } catch (const T &got) {
    CHECK(got == value);
    ++reached;
  }
  try {
    try {
      throw value;
    } catch (T &got) {
      got = second;
      ++reached;
      throw;
    }
  } catch (T &got) {
    CHECK(got == second);
    ++reached;
  }
  CHECK_INT(reached, 4);
}

static void fundamental_types() {
  CHECK_TEXT(clause_of(true), "bool");
  CHECK_TEXT(clause_of('a'), "char");
  CHECK_TEXT(clause_of((signed char)1), "signed char");
  CHECK_TEXT(clause_of((unsigned char)1), "unsigned char");
  CHECK_TEXT(clause_of(L'a'), "wchar_t");
  CHECK_TEXT(clause_of((short)1), "short");
  CHECK_TEXT(clause_of((unsigned short)1), "unsigned short");
  CHECK_TEXT(clause_of(1), "int");
  CHECK_TEXT(clause_of(1u), "unsigned");
  CHECK_TEXT(clause_of(1l), "long");
  CHECK_TEXT(clause_of(1ul), "unsigned long");
  CHECK_TEXT(clause_of(1ll), "long long");
  CHECK_TEXT(clause_of(1ull), "unsigned long long");
  CHECK_TEXT(clause_of(1.0f), "float");
  CHECK_TEXT(clause_of(1.0), "double");
  CHECK_TEXT(clause_of(1.0l), "long double");
  CHECK_TEXT(clause_of("text"), "other");

  carry<bool>(true, false);
  carry<char>('x', 'y');
  carry<unsigned short>(65535, 7);
  carry<int>(-2147483647 - 1, 5);
  carry<unsigned long long>(0xFEDCBA9876543210ull, 1);
  carry<float>(1.25f, -0.5f);
  carry<double>(1e300, -1e-300);
  carry<long double>(1.0l / 3, 1e4000l);
}

// Compilers expect the library to hold the records of every fundamental type, and of pointers to it and to const.
template <class T> static void pointers_to(int *reached) {
  static T object = T();
  try {
    throw &object;
  } catch (T *p) {
    *reached += p == &object;
  }
  try {
    throw static_cast<const T *>(&object);
  } catch (T *) {
    *reached = -1000;
  } catch (const T *p) {
    *reached += p == &object;
  }
}
static void pointers_to_fundamental_types() {
  int reached = 0;
  pointers_to<bool>(&reached);
  pointers_to<char>(&reached);
  pointers_to<signed char>(&reached);
  pointers_to<unsigned char>(&reached);
  pointers_to<wchar_t>(&reached);
  pointers_to<short>(&reached);
  pointers_to<unsigned short>(&reached);
  pointers_to<int>(&reached);
  pointers_to<unsigned>(&reached);
  pointers_to<long>(&reached);
  pointers_to<unsigned long>(&reached);
  pointers_to<long long>(&reached);
  pointers_to<unsigned long long>(&reached);
  pointers_to<float>(&reached);
  pointers_to<double>(&reached);
  pointers_to<long double>(&reached);
  CHECK_INT(reached, 32);
#if __cplusplus >= 201103L
  reached = 0;
  pointers_to<char16_t>(&reached);
  pointers_to<char32_t>(&reached);
  pointers_to<decltype(nullptr)>(&reached);
  CHECK_INT(reached, 6);
#endif
}

// The exception object of every fundamental type must be usable as the type: aligned, and not shared with another.
static void two_live_objects() {
  try {
    throw 1.5l;
  } catch (long double &outer) {
    try {
      throw 2.5l;
    } catch (long double &inner) {
      CHECK(&inner != &outer);
      inner = 9;
    }
    CHECK(outer == 1.5l);
  }
}

enum colour { red, green };
enum shade { dark, light };
union word {
  int number;
  char bytes[4];
};
struct empty {};
struct one_byte {
  char c;
};
struct three_bytes {
  char c[3];
};
template <class T> struct holder {
  T value;
};
namespace outer_space {
struct thing {
  int n;
};
}  // namespace outer_space
struct thing {
  int n;
};
namespace {
struct hidden {
  int n;
};
}  // namespace

template <class T> static const char *class_clause_of(const T &value) {
  try {
    throw value;
  } catch (int) {
    return "int";
  } catch (colour c) {
    return c == green ? "green" : "red";
  } catch (shade) {
    return "shade";
  } catch (word w) {
    return w.bytes[0] == 'w' ? "word" : "damaged word";
  } catch (empty) {
    return "empty";
  } catch (one_byte &b) {
    return b.c == '1' ? "one_byte" : "damaged one_byte";
  } catch (const three_bytes &b) {
    return memcmp(b.c, "abc", 3) == 0 ? "three_bytes" : "damaged three_bytes";
  } catch (holder<int> h) {
    return h.value == 3 ? "holder<int>" : "damaged holder<int>";
  } catch (holder<unsigned> &) {
    return "holder<unsigned>";
  } catch (outer_space::thing &) {
    return "outer_space::thing";
  } catch (thing &) {
    return "thing";
  } catch (hidden &) {
    return "hidden";
  } catch (...) {
    return "other";
  }
}

static void user_types() {
  word w;
  w.number = 0;
  w.bytes[0] = 'w';
  one_byte one = {'1'};
  three_bytes three = {{'a', 'b', 'c'}};
  holder<int> of_int = {3};
  holder<unsigned> of_unsigned = {3};
  holder<long> of_long = {3};
  outer_space::thing far = {1};
  thing near_thing = {1};
  hidden h = {1};
  CHECK_TEXT(class_clause_of(green), "green");
  CHECK_TEXT(class_clause_of(light), "shade");
  CHECK_TEXT(class_clause_of(w), "word");
  CHECK_TEXT(class_clause_of(empty()), "empty");
  CHECK_TEXT(class_clause_of(one), "one_byte");
  CHECK_TEXT(class_clause_of(three), "three_bytes");
  CHECK_TEXT(class_clause_of(of_int), "holder<int>");
  CHECK_TEXT(class_clause_of(of_unsigned), "holder<unsigned>");
  CHECK_TEXT(class_clause_of(of_long), "other");
  CHECK_TEXT(class_clause_of(far), "outer_space::thing");
  CHECK_TEXT(class_clause_of(near_thing), "thing");
  CHECK_TEXT(class_clause_of(h), "hidden");
  CHECK_TEXT(class_clause_of(2), "int");
}

// Local classes of the same name in two functions are two types.
static const char *throw_local_a() {
  struct local {
    int n;
  } value = {1};
  try {
    throw value;
  } catch (local &got) {
    return got.n == 1 ? "local of a" : "damaged";
  } catch (...) {
    return "other";
  }
}
static void throw_local_b() {
  struct local {
    int n;
  } value = {2};
  throw value;
}
static const char *catch_other_local() {
  struct local {
    int n;
  };
  try {
    throw_local_b();
  } catch (local &) {
    return "mistaken for another function's class";
  } catch (...) {
    return "other";
  }
  return "none";
}
static void local_classes() {
  CHECK_TEXT(throw_local_a(), "local of a");
  CHECK_TEXT(catch_other_local(), "other");
}

// Arrays and functions decay; a reference throws its static type; top-level qualifiers do not count.
struct base {
  virtual ~base() {}
  virtual int id() const { return 1; }
};
struct derived : base {
  virtual int id() const { return 2; }
};
static int twice(int n) { return 2 * n; }
static int (*volatile twice_pointer)(int) = twice;

static void decay_and_static_type() {
  int reached = 0;
  int numbers[3] = {4, 5, 6};
  try {
    throw numbers;
  } catch (const int *p) {
    CHECK(p == numbers && p[2] == 6);
    ++reached;
  }
  try {
    throw "literal";
  } catch (char *) {
    CHECK(!"a string literal is const");
  } catch (const char *text) {
    CHECK_TEXT(text, "literal");
    ++reached;
  }
  try {
    throw twice;
  } catch (void *) {
    CHECK(!"a function pointer is no void *");
  } catch (int (*f)(long)) {
    CHECK(!"another function type");
  } catch (int (*f)(int)) {
    CHECK_INT(f(21), 42);
    ++reached;
  }
  try {
    throw twice_pointer;
  } catch (int (&f)(int)) {  // a handler of function type is one of pointer to function
    CHECK(!"a reference to a function catches nothing");
  } catch (int f(int)) {
    CHECK_INT(f(4), 8);
    ++reached;
  }
  derived whole;
  base &part = whole;
  try {
    throw part;
  } catch (derived &) {
    CHECK(!"the dynamic type must not count");
  } catch (base &got) {
    CHECK_INT(got.id(), 1);
    ++reached;
  }
  const volatile int qualified = 12;
  try {
    throw qualified;
  } catch (volatile int &n) {
    CHECK_INT(n, 12);
    ++reached;
  }
  CHECK_INT(reached, 6);
}

struct record {
  int a, b;
  int get() { return a; }
  int get_const() const { return b; }
  virtual int get_virtual() { return a + b; }
  virtual ~record() {}
};
struct other_record {
  int a;
};

template <class T> static const char *member_clause_of(T member) {
  record r;
  r.a = 10;
  r.b = 20;
  static char text[40];
  try {
    throw member;
  } catch (void *) {
    return "void *";
  } catch (int other_record::*) {
    return "int other_record::*";
  } catch (long record::*) {
    return "long record::*";
  } catch (int record::*p) {
    if (p == 0) return "null data member";
    sprintf(text, "data %d", r.*p);
    return text;
  } catch (int (record::*f)() const) {
    sprintf(text, "const function %d", (r.*f)());
    return text;
  } catch (int (record::*f)()) {
    if (f == 0) return "null function member";
    sprintf(text, "function %d", (r.*f)());
    return text;
  } catch (...) {
    return "other";
  }
}

static void member_pointers() {
  CHECK_TEXT(member_clause_of(&record::a), "data 10");
  CHECK_TEXT(member_clause_of(&record::b), "data 20");
  CHECK_TEXT(member_clause_of((int record::*)0), "null data member");
  CHECK_TEXT(member_clause_of(&record::get), "function 10");
  CHECK_TEXT(member_clause_of(&record::get_const), "const function 20");
  CHECK_TEXT(member_clause_of(&record::get_virtual), "function 30");
  CHECK_TEXT(member_clause_of((int (record::*)())0), "null function member");
  CHECK_TEXT(member_clause_of(&other_record::a), "int other_record::*");
  CHECK_TEXT(member_clause_of((void (record::*)())0), "other");
}

// A throw is an expression.
static int fail_with(int n) { throw n; }
static int default_argument(int n = fail_with(31)) { return n; }
static int choose(int n) { return n > 0 ? n : throw - n; }
struct initialised {
  int n;
  explicit initialised(int k) : n(k > 0 ? k : throw 51) {}
};
static int positions(int which) {
  try {
    switch (which) {
      case 0: return default_argument();
      case 1: return choose(41) + choose(-42);
      case 2: return initialised(0).n;
      case 3: return (throw 61, 1);
      case 4:
        for (int i = 0;; i < 70 ? (void)++i : throw i) {
        }
      case 5: return default_argument(choose(-71));
      case 6: {
        int array[2] = {choose(1), choose(-81)};
        return array[0];
      }
      case 7: return new initialised(-1) != 0;
      default: return 0;
    }
  } catch (int n) {
    return 1000 + n;
  }
}

static void throw_positions() {
  CHECK_INT(positions(0), 1031);
  CHECK_INT(positions(1), 1042);
  CHECK_INT(positions(2), 1051);
  CHECK_INT(positions(3), 1061);
  CHECK_INT(positions(4), 1070);
  CHECK_INT(positions(5), 1071);
  CHECK_INT(positions(6), 1081);
  CHECK_INT(positions(7), 1051);
  CHECK_INT(positions(8), 0);
}

int main() {
  fundamental_types();
  pointers_to_fundamental_types();
  two_live_objects();
  user_types();
  local_classes();
  decay_and_static_type();
  member_pointers();
  throw_positions();
  return TEST_RESULT();
}
