// vector, also of bits: random runs of every operation, printed and compared with the host's library.
// prints: 24000 lines
// test-variants: -O1 | -O2 -std=gnu++20
#include "../sequence_operations.h"

#include <algorithm>

// Bits by iterators, in steps over words, and by references.
static void bits() {
  for (int i = 0; i < 2000; ++i) {
    std::vector<bool> b(random_below(150) + 1), copy(b);
    const int n = size_of(b), k = static_cast<int>(random_below(b.size())),
              m = static_cast<int>(random_below(b.size()));
    for (int j = 0; j < n; ++j) b[static_cast<unsigned int>(j)] = random_below(3) == 0;
    std::vector<bool>::iterator at = b.begin() + k;
    const bool ordered =
        (at < b.begin() + m) == (k < m) && (at += m - k) - b.begin() == m && at - (m - k) - k == b.begin();
    *at = b[static_cast<unsigned int>(k)];
    b[static_cast<unsigned int>(k)].flip();
    std::vector<bool>::swap(b[0], b[static_cast<unsigned int>(m)]);
    printf("bits %d: %d, %d, %d %d %u\n", i, ordered, int(std::count(b.begin(), b.end(), true)),
           int(std::find(b.begin() + k, b.end(), true) - b.begin()),
           int(std::find(b.rbegin(), b.rend(), false).base() - b.begin()), hash_of(b));
    if (i % 2) b.flip();
    std::copy(b.begin() + k, b.end(), copy.begin());
    std::copy_backward(b.begin(), b.begin() + m, copy.end());
    std::fill(b.begin() + k / 2, b.begin() + k, true);
    printf("bits %d: %u %u %d\n", i, hash_of(b), hash_of(copy), b < copy);
  }
}

int main() {
  random_run<std::vector<int> >("numbers", 4000);
  random_run<std::vector<std::string> >("texts", 3000);
  random_run<std::vector<tracked> >("elements", 5000);
  random_run<std::vector<bool> >("bits", 8000);
  bits();
  return test_failures != 0;
}
