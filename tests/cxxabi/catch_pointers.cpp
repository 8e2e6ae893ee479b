// Pointers as exceptions: qualification at one and several levels, derived to base, void *, null pointers, and handlers
// that take the pointer by reference. A pointer to a base must be adjusted, and a null pointer stay null.
// test-variants: -O0 | -O2 | -O3 -fomit-frame-pointer | -O1 -std=gnu++17
#include "../harness.h"

// Whether a clause of type Clause catches a value of type Thrown.
template <class Clause, class Thrown> static bool catches(Thrown value) {
  try {
    throw value;
  } catch (Clause) {
    return true;
  } catch (...) {
    return false;
  }
}

static int number = 1;
static int *pointer = &number;
static int **pointer2 = &pointer;

static void qualification() {
  const int *to_const = &number;
  volatile int *to_volatile = &number;
  const volatile int *to_both = &number;
  CHECK(catches<int *>(pointer));
  CHECK(catches<const int *>(pointer));
  CHECK(catches<volatile int *>(pointer));
  CHECK(catches<const volatile int *>(pointer));
  CHECK(!catches<int *>(to_const));
  CHECK(!catches<volatile int *>(to_const));
  CHECK(catches<const int *>(to_const));
  CHECK(catches<const volatile int *>(to_const));
  CHECK(!catches<const int *>(to_volatile));
  CHECK(catches<const volatile int *>(to_volatile));
  CHECK(!catches<int *>(to_both));
  CHECK(catches<const volatile int *>(to_both));
  CHECK(!catches<unsigned *>(pointer));
  CHECK(!catches<const char *>(pointer));
  CHECK(!catches<int>(pointer));
  CHECK(!catches<int *>(0));  // an int that is zero is no null pointer
}

// T ** converts to T *const *, and const T *const *, but not to const T **: that would break const.
static void several_levels() {
  CHECK(catches<int **>(pointer2));
  CHECK(catches<int *const *>(pointer2));
  CHECK(catches<const int *const *>(pointer2));
  CHECK(!catches<const int **>(pointer2));
  CHECK(!catches<volatile int **>(pointer2));
  CHECK(catches<const volatile int *const volatile *>(pointer2));
  CHECK(!catches<int *>(pointer2));
  int ***pointer3 = &pointer2;
  CHECK(catches<int *const *const *>(pointer3));
  CHECK(catches<const int *const *const *>(pointer3));
  CHECK(!catches<int *const **>(pointer3));
  CHECK(!catches<const int **const *>(pointer3));
  CHECK(catches<int **const *>(pointer3));
  int *const *to_const_pointer = pointer2;
  CHECK(!catches<int **>(to_const_pointer));
  CHECK(catches<const int *const *>(to_const_pointer));
  CHECK(!catches<const int **>(to_const_pointer));
}

static void to_void() {
  const int *to_const = &number;
  CHECK(catches<void *>(pointer));
  CHECK(catches<const void *>(pointer));
  CHECK(!catches<void *>(to_const));
  CHECK(catches<const void *>(to_const));
  CHECK(catches<void *>(pointer2));
  CHECK(!catches<void **>(pointer2));
  CHECK(!catches<int *>((void *)pointer));
  CHECK(catches<void *>((void *)pointer));
  CHECK(!catches<void *>((const void *)pointer));
  CHECK(catches<const void *>((void *)pointer));
  CHECK(!catches<void *>(&qualification));
  CHECK(!catches<const void *>(number));
  CHECK(!catches<void *const *>(pointer2));
}

struct base {
  int tag;
  base() : tag(7) {}
};
struct first {
  int one;
  first() : one(1) {}
};
struct derived : first, base {};
struct virtually : first, virtual base {};
struct below : virtually {
  int more;
};
struct hidden : private base {};
struct left : base {};
struct right : base {};
struct twice : left, right {};
struct unrelated {};

// `tag` of the base a clause `base *` is given, 0 for null, -1 when the clause does not catch.
template <class T> static int tag_through(T *thrown) {
  try {
    throw thrown;
  } catch (unrelated *) {
    return -2;
  } catch (base *part) {
    return part ? part->tag : 0;
  } catch (...) {
    return -1;
  }
}

static void derived_to_base() {
  derived d;
  virtually v;
  below b;
  hidden h;
  twice t;
  CHECK_INT(tag_through(&d), 7);
  CHECK_INT(tag_through(&v), 7);
  CHECK_INT(tag_through(&b), 7);
  CHECK_INT(tag_through(&h), -1);
  CHECK_INT(tag_through(&t), -1);
  CHECK_INT(tag_through((derived *)0), 0);
  CHECK_INT(tag_through((virtually *)0), 0);
  CHECK_INT(tag_through((below *)0), 0);
  CHECK_INT(tag_through((base *)0), 0);
  CHECK_INT(tag_through((const derived *)&d), -1);
  CHECK(catches<const base *>(&d));
  CHECK(catches<const base *>((const derived *)&d));
  CHECK(!catches<base *>((first *)&d));
  CHECK(!catches<derived *>((base *)&d));
  derived *pd = &d;
  CHECK(!catches<base **>(&pd));
  CHECK(!catches<base *const *>(&pd));
  CHECK(catches<derived *const *>(&pd));
  CHECK(catches<const derived *const *>(&pd));
  CHECK(!catches<base>(&d));
  CHECK(!catches<base *>(d));
}

// void * is given the address of the object thrown, not of a part.
static void void_clause_value() {
  derived d;
  int reached = 0;
  try {
    throw &d;
  } catch (void *p) {
    CHECK(p == &d);
    ++reached;
  }
  try {
    throw (base *)&d;
  } catch (const void *p) {
    CHECK(p == (base *)&d && p != &d);
    ++reached;
  }
  try {
    throw (below *)0;
  } catch (void *p) {
    CHECK(p == 0);
    ++reached;
  }
  CHECK_INT(reached, 3);
}

// By reference: the handler sees a pointer that it may change. An exact match names the exception object, so a change
// is seen by the next handler.
static void pointers_by_reference() {
  static derived d;
  static int other;
  int reached = 0;
  try {
    try {
      throw pointer;
    } catch (int *&p) {
      CHECK(p == &number);
      p = &other;
      ++reached;
      throw;
    }
  } catch (int *p) {
    CHECK(p == &other);
    ++reached;
  }
  try {
    throw pointer2;
  } catch (int **&p) {
    CHECK(p == &pointer);
    ++reached;
  }
  // Both compilers give a handler for a pointer to a class a temporary, so there only the value can be looked at.
  try {
    throw &d;
  } catch (derived *&p) {
    CHECK(p == &d);
    ++reached;
  }
  try {
    throw &d;
  } catch (base *const &p) {
    CHECK(p == (base *)&d);
    CHECK_INT(p->tag, 7);
    ++reached;
  }
  try {
    try {
      throw &d;
    } catch (const base *const &p) {
      CHECK(p == (base *)&d);
      ++reached;
      throw;
    }
  } catch (derived *const &p) {  // the conversion of the handler before must not have touched the object
    CHECK(p == &d);
    ++reached;
  }
  try {
    throw pointer;
  } catch (void *const &p) {
    CHECK(p == &number);
    ++reached;
  }
  try {
    throw pointer;
  } catch (int *volatile &p) {
    CHECK(p == &number);
    ++reached;
  }
  try {
    throw (below *)0;
  } catch (base *const &p) {
    CHECK(p == 0);
    ++reached;
  }
  CHECK_INT(reached, 10);
}

// Several handlers that convert the same exception, inner to outer: each conversion starts from what was thrown.
static void converted_again_and_again() {
  derived d;
  try {
    try {
      try {
        try {
          throw &d;
        } catch (base *p) {
          trace("base:%d", p->tag);
          throw;
        }
      } catch (void *p) {
        trace(p == &d ? "void" : "wrong");
        throw;
      }
    } catch (first *p) {
      trace("first:%d", p->one);
      throw;
    }
  } catch (derived *p) {
    trace(p == &d ? "derived" : "wrong");
  }
  CHECK_TRACE("base:7 void first:1 derived");
}

// Pointers to arrays and to functions are types of their own.
static void other_pointees() {
  static int array[4];
  static void (*function)() = qualification;
  CHECK(catches<int(*)[4]>(&array));
  CHECK(!catches<int(*)[5]>(&array));
  CHECK(catches<void *>(&array));
  CHECK(catches<void (*)()>(function));
  CHECK(!catches<void (*)(int)>(function));
  CHECK(catches<void (**)()>(&function));
  CHECK(catches<void *>(&function));
  CHECK(catches<void (*const *)()>(&function));
}

int main() {
  qualification();
  several_levels();
  to_void();
  derived_to_base();
  void_clause_value();
  pointers_by_reference();
  converted_again_and_again();
  other_pointees();
  return TEST_RESULT();
}
