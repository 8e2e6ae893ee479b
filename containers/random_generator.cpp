// The generator's seeding and its draw, and the library's one generator.

#include <plx/random_generator.h>

namespace std {

// Ready before any static object of a program asks for it: the library's own are made when it is loaded.
__random_generator __vexil_rd(161803398);

void __random_generator::seed(unsigned long s) PLX_NOTHROW {
  _table_[size - 1] = static_cast<unsigned int>(s);
  unsigned int k = 1, j = static_cast<unsigned int>(s);
  for (unsigned int i = 0; i < size; ++i) {
    unsigned int &word = _table_[21 * i % size];
    word = k;
    k = j - k;
    j = word;
  }
  for (int pass = 0; pass < 4; ++pass)
    for (unsigned int i = 0; i < size; ++i) _table_[i] -= _table_[(i + 31) % size];
  _index1_ = 0;
  _index2_ = 31;
}

unsigned long __random_generator::operator()(unsigned long limit) PLX_NOTHROW {
  // The high word of the product is uniform once the few low words that come up too often are redrawn.
  const unsigned int bound = static_cast<unsigned int>(limit);
  unsigned long long product = static_cast<unsigned long long>(next()) * bound;
  if (static_cast<unsigned int>(product) < bound) {
    const unsigned int surplus = (0u - bound) % bound;
    while (static_cast<unsigned int>(product) < surplus) product = static_cast<unsigned long long>(next()) * bound;
  }
  return static_cast<unsigned long>(product >> 32);
}

}  // namespace std
