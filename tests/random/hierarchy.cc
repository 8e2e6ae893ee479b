// One random hierarchy of classes (classes.h, made by hierarchies.sh): makes an object of each class and prints where
// dynamic_cast leads from each of its subobjects to each class, by pointer and by reference, and what typeid says, also
// while constructors and destructors run; throws each class, and a pointer to it, at a handler of each.
#include <cstdio>
#include <typeinfo>

// The subobjects of one object, in order of construction: the whole comes last.
static struct {
  int number;
  char *place;
} entries[4000];
static int count;
static void print(const void *part) {
  std::printf("%d ", part ? (int)((const char *)part - entries[count - 1].place) : -1);
}
static void ask(int number, void *part);
static void enter(int number, void *place) {
  entries[count].number = number;
  entries[count++].place = static_cast<char *>(place);
  ask(number, place);
}

template <int n> struct numbered;
#include "classes.h"

template <class From, class To, bool up> struct caster {
  static void *cast(void *p) {
    From *const from = static_cast<From *>(p);
    void *const to = dynamic_cast<To *>(from);
    try {
      if (from && &dynamic_cast<To &>(*from) != to) std::printf("! ");
    } catch (std::bad_cast &e) { std::printf(to || typeid(e) != typeid(std::bad_cast) ? "! " : ""); }
    return to;
  }
};
// Upwards a cast is the compiler's affair, and may be ill-formed; what the whole is may be asked instead.
template <class From, class To> struct caster<From, To, true> {
  static void *cast(void *p) {
    From *const from = static_cast<From *>(p);
    if (from) std::printf("%s ", typeid(*from).name());
    return dynamic_cast<void *>(from);
  }
};

static void *(*casts[classes][classes])(void *);
static bool asking;
static void ask(int number, void *part) {
  for (int to = 0; asking && to < classes; ++to) print(casts[number][to](part));
}
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
  asking = true;
  {
    T object;
    for (int i = 0; i < count; ++i) ask(entries[i].number, entries[i].place);
    ask(entries[count - 1].number, 0);
  }
  asking = false;
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
