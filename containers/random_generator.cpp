// The generator's seeding and its draw, and the library's one generator.

#include <plx/base/random_generator.h>

namespace {

constexpr unsigned int size = 55;

// A generator's data. `fill` works at compile time too, where it makes the library's own.
struct a_generator {
  unsigned int table[size], index1, index2;
};

constexpr void fill(unsigned int (&table)[size], unsigned int seed) {
  table[size - 1] = seed;
  unsigned int k = 1, j = seed;
  for (unsigned int i = 0; i < size; ++i) {
    unsigned int &word = table[21 * i % size];
    word = k;
    k = j - k;
    j = word;
  }
  for (int pass = 0; pass < 4; ++pass)
    for (unsigned int i = 0; i < size; ++i) table[i] -= table[(i + 31) % size];
}

constexpr a_generator seeded(unsigned int seed) {
  a_generator made = {{}, 0, 31};
  fill(made.table, seed);
  return made;
}

static_assert(sizeof(a_generator) == sizeof(std::__random_generator), "the same data");

}  // namespace

// std::__vexil_rd by its mangled name: ready before any code runs.
extern "C" PLX_API a_generator library_generator __asm__("_ZSt10__vexil_rd");
a_generator library_generator = seeded(161803398);

namespace std {

void __random_generator::seed(unsigned long s) PLX_NOTHROW {
  fill(_table_, static_cast<unsigned int>(s));
  _index1_ = 0;
  _index2_ = 31;
}

unsigned long __random_generator::operator()(unsigned long limit) PLX_NOTHROW {
  // The high word of the product is uniform once the few low words that come up too often are redrawn.
  const unsigned int bound = static_cast<unsigned int>(limit);
  unsigned long long product = static_cast<unsigned long long>(_next()) * bound;
  if (static_cast<unsigned int>(product) < bound) {
    const unsigned int surplus = (0u - bound) % bound;
    while (static_cast<unsigned int>(product) < surplus) product = static_cast<unsigned long long>(_next()) * bound;
  }
  return static_cast<unsigned long>(product >> 32);
}

}  // namespace std
