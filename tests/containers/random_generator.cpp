// The random generator: its sequence against a slow model of the recurrence, seeding, the global one before main, and
// draws that are in range and even.

#include <plx/random_generator.h>

#include "harness.h"

// The first draw of the program, made before main.
static const unsigned long drawn_first = std::__vexil_rd.next();

// The table as it is seeded, and then x[n] = x[n - 55] - x[n - 24].
static unsigned int numbers[55 + 1000];
static void make_numbers(unsigned int seed) {
  unsigned int *const t = numbers;
  unsigned int k = 1, j = seed;
  t[54] = seed;
  for (int i = 0; i < 55; ++i) {
    t[21 * i % 55] = k;
    k = j - k;
    j = t[21 * i % 55];
  }
  for (int pass = 0; pass < 4; ++pass)
    for (int i = 0; i < 55; ++i) t[i] -= t[(i + 31) % 55];
  for (int n = 55; n < 1055; ++n) t[n] = t[n - 55] - t[n - 24];
}

static void sequence() {
  make_numbers(161803398);
  CHECK(drawn_first == numbers[55]);
  for (int i = 1; i < 1000; ++i) CHECK(std::__vexil_rd.next() == numbers[55 + i]);
  std::__random_generator one(5), other(7);
  other.seed(5);
  make_numbers(5);
  for (int i = 0; i < 300; ++i) {
    const unsigned long drawn = one.next();
    CHECK(drawn == numbers[55 + i] && drawn == other.next());
  }
  other.seed(6);
  CHECK(one.next() != other.next());
}

static void draws() {
  std::__random_generator one(42);
  CHECK_INT(one(1), 0);
  int counts[6] = {0, 0, 0, 0, 0, 0};
  for (int i = 0; i < 60000; ++i) {
    const unsigned long drawn = one(6);
    if (drawn >= 6) CHECK(drawn < 6);
    else ++counts[drawn];
  }
  for (int i = 0; i < 6; ++i) CHECK(counts[i] > 9600 && counts[i] < 10400);
  // A limit that does not divide 2^32: the lower half must not come more often.
  int low = 0;
  for (int i = 0; i < 30000; ++i) {
    const unsigned long drawn = one(0xC0000000u);
    if (drawn >= 0xC0000000u) CHECK(drawn < 0xC0000000u);
    low += drawn < 0x40000000u;
  }
  CHECK(low > 9600 && low < 10400);
}

int main() {
  sequence();
  draws();
  return TEST_RESULT();
}
