// One random hierarchy of classes (classes.h, by hierarchies.sh): makes an object of each class and prints where
// dynamic_cast leads from each of its subobjects to each class; throws each class, and a pointer to it, at a handler of
// each.
#include <cstdio>

// The subobjects of one object, in order of construction: the whole comes last.
static struct {
  int number;
  char *place;
} entries[4000];
static int count;
static void enter(int number, void *place) {
  entries[count].number = number;
  entries[count++].place = static_cast<char *>(place);
}
static void print(const void *part) {
  std::printf("%d ", part ? (int)((const char *)part - entries[count - 1].place) : -1);
}

template <int n> struct numbered;
#include "classes.h"

template <class From, class To, bool up> struct caster {
  static void *cast(void *p) { return dynamic_cast<To *>(static_cast<From *>(p)); }
};
// Upwards a cast is the compiler's affair, and may be ill-formed.
template <class From, class To> struct caster<From, To, true> {
  static void *cast(void *) { return 0; }
};

static void *(*casts[classes][classes])(void *);
template <class From, class To> static void handle() {
  From object;
  count = 0;
  try {
    throw From();
  } catch (To &part) { print(&part); } catch (...) {
    print(0);
  }
  entries[count - 1].place = reinterpret_cast<char *>(&object);
  try {
    throw &object;
  } catch (To *part) { print(part); } catch (...) {
    print(0);
  }
}
template <class T> static void cast_all() {
  count = 0;
  T object;
  for (int i = 0; i < count; ++i)
    for (int to = 0; to < classes; ++to) print(casts[entries[i].number][to](entries[i].place));
  std::printf("casts of %d\n", entries[count - 1].number);
}

// Each class with each, downwards from the last of both.
template <int from, int to> struct pairs {
  static void go_through() {
    typedef typename numbered<from>::type From;
    typedef typename numbered<to>::type To;
    casts[from][to] = caster<From, To, __is_base_of(To, From)>::cast;
    handle<From, To>();
    pairs<from, to - 1>::go_through();
  }
};
template <int from> struct pairs<from, -1> {
  static void go_through() {
    pairs<from - 1, classes - 1>::go_through();
    cast_all<typename numbered<from>::type>();
  }
};
template <> struct pairs<-1, classes - 1> {
  static void go_through() {}
};

int main() {
  pairs<classes - 1, classes - 1>::go_through();
  return 0;
}
