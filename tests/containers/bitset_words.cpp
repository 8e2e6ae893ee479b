// The word functions under bitset, called directly: short and long arrays, in place and not, against loops over single
// words. The functions must not touch a word outside of what they were given.
#include <bitset>

#include "harness.h"

namespace {

typedef unsigned long word;

unsigned random_state = 99;
word random_word() {
  random_state = random_state * 1664525u + 1013904223u;
  const word high = random_state & 0xFFFF0000ul;
  random_state = random_state * 1664525u + 1013904223u;
  return high | random_state >> 16;
}

const unsigned most = 70;
const word untouched = 0xA5A5A5A5ul;

// n words between two that nobody may write, at every alignment that words can have.
struct words {
  words(unsigned n, unsigned offset) : n_(n), data(room + 1 + offset) {
    for (unsigned i = 0; i < sizeof room / sizeof *room; ++i) room[i] = untouched;
    for (unsigned i = 0; i < n; ++i) data[i] = random_word();
  }
  bool intact() const {
    const word *at = room;
    for (; at < data; ++at)
      if (*at != untouched) return false;
    for (at = data + n_; at < room + sizeof room / sizeof *room; ++at)
      if (*at != untouched) return false;
    return true;
  }
  unsigned n_;
  word room[most + 8];
  word *data;
};

// Bit by bit where plx agrees with everyone; the right shift by its own rule, word by word.
void want_left(word *dst, const word *src, unsigned shift, unsigned n, word mask) {
  memset(dst, 0, n * sizeof(word));
  for (unsigned i = shift; i < 32 * n; ++i)
    if (src[(i - shift) / 32] >> ((i - shift) % 32) & 1) dst[i / 32] |= 1ul << (i % 32);
  dst[n - 1] &= mask;
}
void want_right(word *dst, const word *src, unsigned shift, unsigned n) {
  const unsigned b = shift % 32;
  for (unsigned i = 0; i < n; ++i) {
    const unsigned from = i + shift / 32;
    dst[i] = from < n ? src[from] >> b : 0;
    if (b != 0 && from + 1 < n) dst[i] |= src[from + 1] >> (32 - b);
  }
}

bool same(const word *got, const word *want, unsigned n) { return memcmp(got, want, n * sizeof(word)) == 0; }

void random_arrays(unsigned n, unsigned round) {
  words a(n, round % 4), b(n, round / 4 % 4), to(n, round / 16 % 4);
  word want[most];
  const word mask = round % 3 == 0 ? ~0ul : (1ul << (1 + round % 31)) - 1;
  const unsigned shift = static_cast<unsigned>(random_word()) % (32 * n);
  const bool in_place = round % 2 != 0;

  for (int op = 0; op < 7; ++op) {
    words source(a);
    source.data = source.room + (a.data - a.room);
    word *dst = in_place ? source.data : to.data;
    unsigned i = 0;
    switch (op) {
      case 0: for (; i < n; ++i) want[i] = a.data[i] & b.data[i]; __zor::vector_and(dst, source.data, b.data, n); break;
      case 1: for (; i < n; ++i) want[i] = a.data[i] | b.data[i]; __zor::vector_or(dst, source.data, b.data, n); break;
      case 2: for (; i < n; ++i) want[i] = a.data[i] ^ b.data[i]; __zor::vector_xor(dst, source.data, b.data, n); break;
      case 3:
        for (; i < n; ++i) want[i] = i + 1 < n ? ~a.data[i] : ~a.data[i] & mask;
        __zor::vector_not(dst, source.data, n, mask);
        break;
      case 4: want_left(want, a.data, shift, n, mask); __zor::shift_left(dst, source.data, shift, n, mask); break;
      case 5: want_right(want, a.data, shift, n); __zor::shift_right(dst, source.data, shift, n); break;
      case 6:
        want_left(want, a.data, shift / 32 * 32, n, mask);
        __zor::shift_left(dst, source.data, shift / 32 * 32, n, mask);
        break;
    }
    if (!same(dst, want, n) || !source.intact() || !to.intact()) {
      CHECK(false);
      fprintf(stderr, "  operation %d, %u words, shift %u\n", op, n, shift);
    }
  }

  unsigned bits = 0;
  for (unsigned i = 0; i < 32 * n; ++i) bits += a.data[i / 32] >> (i % 32) & 1;
  CHECK_INT(__zor::count(a.data, n), bits);
  CHECK(__zor::any(a.data, n));
  memcpy(b.data, a.data, n * sizeof(word));
  CHECK(__zor::equal(a.data, b.data, n));
  b.data[random_word() % n] ^= 1ul << (random_word() % 32);
  CHECK(!__zor::equal(a.data, b.data, n));
  __zor::set(a.data, n, mask);
  for (unsigned i = 0; i < n; ++i) want[i] = i + 1 < n ? ~0ul : mask;
  CHECK(same(a.data, want, n) && a.intact());
  __zor::reset(a.data, n);
  CHECK(!__zor::any(a.data, n) && a.intact());
  a.data[random_word() % n] = 1ul << (random_word() % 32);
  CHECK(__zor::any(a.data, n) && __zor::count(a.data, n) == 1);
}

void fixed_values() {
  word one[1] = {0xFFFFFFFFul};
  CHECK_INT(__zor::count(one, 1), 32);
  one[0] = 0x80000001ul;
  CHECK_INT(__zor::count(one, 1), 2);
  one[0] = 0;
  __zor::set(one, 1, 7);
  CHECK_INT(one[0], 7);
  __zor::set(one, 0, 3);
  CHECK_INT(one[0], 3);

  word two[2] = {0x89ABCDEFul, 0xFFFFFFFFul};
  __zor::shift_left(two, two, 32, 2, 0xFFFFul);
  CHECK(two[0] == 0 && two[1] == 0xCDEFul);
  two[0] = 0;
  two[1] = 0x1F;
  __zor::shift_right(two, two, 4, 2);
  CHECK(two[0] == 0 && two[1] == 1);
  two[1] = 0xF0000000ul;
  __zor::shift_right(two, two, 4, 2);
  CHECK(two[0] == 0xFul && two[1] == 0x0F000000ul);

  CHECK(__zor::equal(0, 0, 0) && !__zor::any(0, 0) && __zor::count(0, 0) == 0);
}

}  // namespace

int main() {
  fixed_values();
  for (unsigned n = 1; n <= most; ++n)
    for (unsigned round = 0; round < 128; ++round) random_arrays(n, round);
  return TEST_RESULT();
}
