// One random hierarchy of classes (classes.h, by hierarchies.sh): makes an object of each class, tries dynamic_cast from
// each of its subobjects to each class, and compares with a model: the constructors record which subobject is a base of
// which, and the rules of 5.2.7 are applied to that graph. Throws each class and compares each handler with the compiler's
// own answer to whether, and to where, a pointer converts. Prints what is wrong.
#include <cstdio>
#include <typeinfo>

// The subobjects of one object, in order of construction, and which is a direct base of which.
static struct an_entry {
  int number;
  void *place;
} entries[4000];
static struct an_edge {
  int derived, base;
  bool is_public;
} edges[8000];
static int count, edge_count;

static void enter(int number, void *place) {
  const an_entry entered = {number, place};
  entries[count++] = entered;
}
static int find(int number, void *place) {
  int i = 0;
  while (entries[i].number != number || entries[i].place != place) ++i;
  return i;
}
static void has(int number, void *place, int base, void *base_place, bool is_public) {
  const an_edge edge = {find(number, place), find(base, base_place), is_public};
  edges[edge_count++] = edge;
}
static bool leads(int from, int to, bool publicly) {
  if (from == to) return true;
  for (int i = 0; i < edge_count; ++i)
    if (edges[i].derived == from && (edges[i].is_public || !publicly) && leads(edges[i].base, to, publicly)) return true;
  return false;
}
// Where a cast from a subobject to a class must lead; null: nowhere.
static void *model(int source, int target) {
  const int whole = count - 1;
  int containing = 0, containing_count = 0, found = 0, found_count = 0;
  for (int i = 0; i < count; ++i) {
    if (entries[i].number != target) continue;
    found = i;
    ++found_count;
    if (!leads(i, source, false)) continue;
    containing = i;
    ++containing_count;
  }
  if (containing_count == 1 && leads(containing, source, true)) return entries[containing].place;
  if (leads(whole, source, true) && found_count == 1 && leads(whole, found, true)) return entries[found].place;
  return 0;
}

template <int n> struct numbered;
#include "classes.h"

static int compared;
template <class From, class To, bool up> struct caster {
  static void *cast(void *p) { return dynamic_cast<To *>(static_cast<From *>(p)); }
};
// Upwards a cast is the compiler's affair, and may be ill-formed.
template <class From, class To> struct caster<From, To, true> {
  static void *cast(void *p) { return p; }
};

template <class From, class To, bool converts> struct converter {
  static int offset(From *p) { return (int)((char *)static_cast<To *>(p) - (char *)p); }
};
template <class From, class To> struct converter<From, To, false> {
  static int offset(From *) { return -1; }
};
template <class From, class To> static void check_handler() {
#ifdef __clang__  // the only one to answer
  static From object;
  const int expected = converter<From, To, __is_convertible_to(From *, To *)>::offset(&object);
  int got = -1, by_pointer = -1;
  count = edge_count = 0;
  try { throw From(); } catch (To &part) { got = (int)((char *)&part - (char *)entries[count - 1].place); } catch (...) {}
  try { throw &object; } catch (To *part) { by_pointer = (int)((char *)part - (char *)&object); } catch (...) {}
  ++compared;
  if (got != expected || by_pointer != expected)
    std::printf("WRONG: %s by %s: caught at %d, as pointer at %d, converts to %d\n", typeid(From).name(), typeid(To).name(),
                got, by_pointer, expected);
#endif
}

static void *(*casts[classes][classes])(void *);  // null: upwards
static void (*makers[classes])();
template <class T> static void check_casts() {
  count = edge_count = 0;
  T object;
  for (int i = 0; i < count; ++i)
    for (int to = 0; to < classes; ++to) {
      if (!casts[entries[i].number][to]) continue;
      ++compared;
      void *const result = casts[entries[i].number][to](entries[i].place);
      if (result == model(i, to)) continue;
      std::printf("WRONG: %s: from %d at %d to %d: %p\n", typeid(T).name(), entries[i].number,
                  (int)((char *)entries[i].place - (char *)&object), to, result);
    }
}
template <int from, int to> struct pairs {
  static void fill() {
    typedef typename numbered<from>::type From;
    typedef typename numbered<to>::type To;
    if (!__is_base_of(To, From)) casts[from][to] = caster<From, To, __is_base_of(To, From)>::cast;
    check_handler<From, To>();
    pairs<from, to - 1>::fill();
  }
};
template <int from> struct pairs<from, -1> {
  static void fill() {
    makers[from] = check_casts<typename numbered<from>::type>;
    pairs<from - 1, classes - 1>::fill();
  }
};
template <> struct pairs<-1, classes - 1> {
  static void fill() {}
};

int main() {
  pairs<classes - 1, classes - 1>::fill();
  for (int i = 0; i < classes; ++i) makers[i]();
  std::printf("%d compared\n", compared);
  return 0;
}
