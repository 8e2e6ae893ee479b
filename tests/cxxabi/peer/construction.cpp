// Constructions that fail at each element in turn: arrays of every kind, members, aggregates, copies. How many were
// made, how many destroyed, and that this went in reverse order.
// prints: 161 lines
// test-variants: -O0 | -O2
#include <new>
#include <stdio.h>
#include <stdlib.h>

static int made, destroyed, in_order, fails_at, alive[200], living;
struct element {
  int number;
  char filler[9];
  element() { construct(); }
  element(const element &) { construct(); }
  ~element() { ++destroyed, in_order &= living > 0 && alive[--living] == number; }
  void construct() {
    if (made == fails_at) throw made;
    number = alive[living++] = made++;
  }
};
struct aggregate { element first, line[3], matrix[2][2], last; };
struct derived : aggregate { element own[2]; derived() {} };
struct holds_pointer {
  element before;
  element *array;
  holds_pointer() : array(new element[2]) {
    try { delete[] new element[3]; } catch (...) { delete[] array; array = 0; throw; }
    delete[] array;
  }
};
static volatile int five = 5, none = 0;
static char room[sizeof(element) * 8 + 64];

static void local_array() { element a[5]; }
static void local_matrix() { element a[3][4]; }
static void heap_array() { delete[] new element[five]; }
static void heap_constant() { delete[] new element[7]; }
static void heap_matrix() { delete[] new element[five][3]; }
static void heap_single() { delete new element; }
static void heap_nothrow() { delete[] new (std::nothrow) element[five]; }
static void heap_none() { delete[] new element[none]; delete[](element *)0; }
static void members() { aggregate h; }
static void aggregates() { aggregate h[2]; }
static void heap_aggregates() { delete[] new aggregate[2]; }
static void bases() { derived b; }
static void initialised() { element a[4] = {element(), element()}; }
static void several() { element a; element b[2]; { element c[2]; } element d; }
static void placed() {
  element *p = new (room) element;
  try { new (p + 1) element[3]; } catch (...) { p->~element(); throw; }
  for (int i = 3; i >= 0; --i) p[i].~element();
}
static void copied() { aggregate h; aggregate copy(h); }
static void pointer() { holds_pointer p; }
static void (*const bodies[])() = {local_array, local_matrix, heap_array, heap_constant, heap_matrix, heap_single,
                                   heap_nothrow, heap_none, members, aggregates, heap_aggregates, bases, initialised,
                                   several, placed, copied, pointer};

int main() {
  for (unsigned i = 0; i < sizeof bodies / sizeof bodies[0]; ++i) {
    bool failed = true;
    for (fails_at = 0; failed; ++fails_at) {
      made = destroyed = living = 0, in_order = 1, failed = false;
      try { bodies[i](); } catch (int n) { failed = n == fails_at; printf("%u %d: ", i, n); }
      printf("%d made, %d destroyed, %d\n", made, destroyed, in_order);
    }
  }
  return 0;
}
