// bitset of sizes around words, in one word, in few that are inline and in many that have functions of their own: every
// operation, printed and compared with the host's library; with words before and behind that nobody may touch. Beside
// that what is plx's own: the shift to the right, texts of which the end has no place, and what errors say.
// prints: 15273 lines
// test-variants: -O1 | -O2 -std=gnu++20
#include <bitset>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "harness.h"
#include "random.h"

// The object is its words and nothing else, and those hold no bit at or above N.
template <unsigned N> struct guarded {
  unsigned long before[4];
  std::bitset<N> set;
  unsigned long behind[4], inside[(N + 31) / 32];
  guarded() { memset(before, 0xA5, sizeof before), memset(behind, 0xA5, sizeof behind); }
  unsigned hash() {
    memcpy(inside, &set, sizeof inside);
    bool good = sizeof set == sizeof inside && (N % 32 == 0 || inside[(N - 1) / 32] >> N % 32 == 0);
    for (int i = 0; i < 4; ++i) good = good && before[i] == 0xA5A5A5A5ul && behind[i] == 0xA5A5A5A5ul;
    unsigned sum = 5381, other = 5381;
    for (unsigned i = 0; i < N; ++i) sum = sum * 33 + set[i], other = other * 33 + set.test(i);
    CHECK(good && sum == other && set.any() == (set.count() != 0) && set.none() == (set.count() == 0));
    return sum + static_cast<unsigned>(set.count());
  }
};

template <unsigned N> static void random_run(unsigned steps) {
  guarded<N> g, o;
  std::bitset<N> &set = g.set, &other = o.set;
  for (unsigned step = 0; step < steps; ++step) {
    const unsigned pos = random_below(N), from = random_below(N), shift = random_below(N + N / 4 + 2);
    const std::bitset<N> before(set);
    const unsigned chosen = random_below(21);
    int result = 0;
    switch (chosen) {
      case 0: set.set(); break;
      case 1: set.reset(); break;
      case 2: set.set(pos); break;
      case 3: set.set(pos, false); break;
      case 4: set.reset(pos); break;
      case 5: set.flip(pos); break;
      case 6: set.flip(); break;
      case 7: set = ~set; break;
      case 8: set <<= shift; break;
      case 9: set = set << shift; break;
      case 10: set <<= shift / 32 * 32; break;
      case 11: set &= other; break;
      case 12: set |= other; break;
      case 13: set ^= other; break;
      case 14: {
        typename std::bitset<N>::reference bit = set[pos];
        (bit = set[from]).flip();
        bit = ~set[from] || bit;
        break;
      }
      case 15: {
        const std::string text = set.template to_string<char, std::char_traits<char>, std::allocator<char> >();
        result = (std::bitset<N>(text) == set) + 2 * (std::bitset<N>("1" + text + "x", 1, N) == set) +
                 4 * (text[N - 1] == '1') + 8 * (std::bitset<N>(text + "0101") == set) +
                 16 * int(std::bitset<N>(text, N / 2).count()) + int(std::bitset<N>(text, 0, N / 3).count()) * 8192;
        break;
      }
      case 16: set = std::bitset<N>().set(pos); break;
      case 17: set = std::bitset<N>(random_below(1 << 20) * 7919ul); break;
      case 18: try { result = static_cast<int>(set.to_ulong());
        } catch (const std::overflow_error &) { result = -7; }
        break;
      default:
        other = set;
        for (unsigned i = 0; i < N; ++i) set[i] = random_below(2) != 0;
    }
    bool equal = true;
    for (unsigned i = 0; i < N; ++i) equal = equal && set[i] == before[i];
    CHECK((set == before) == equal && (set != before) == !equal && ((set & other) | (set ^ other)) == (set | other));
    printf("%u: %u, %u: %d, %u %u\n", N, step, chosen, result, g.hash(), o.hash());
  }
}

static std::string text_of_error;
template <unsigned N> static const char *error_of(int which, size_t pos, const std::string &text = "") {
  try {
    std::bitset<N> set;
    switch (which) {
      case 0: set.test(pos); break;
      case 1: set.set(pos); break;
      case 2: set.set(pos, 0); break;
      case 3: set.reset(pos); break;
      case 4: set.flip(pos); break;
      case 5: set.set(pos).to_ulong(); break;
      case 6: std::bitset<N>(text, pos); break;
    }
  } catch (const std::exception &error) {
    text_of_error = error.what();
    return typeid(error).name();
  }
  return "none";
}

#ifdef PLX_CONFIG_H
// Bits do not move over a word boundary but by whole words; a word gets its neighbour's top bits at its low end
// instead. Characters beyond the last that has a place count too.
template <unsigned N> static void own() {
  enum { words = (N + 31) / 32 };
  for (unsigned shift = 0; shift < N + 40; shift += 1 + N / 60) {
    std::bitset<N> set;
    for (unsigned i = 0; i < N; ++i) set[i] = random_below(2) != 0;
    unsigned long had[2 * words + 4] = {0}, want[words];
    memcpy(had, &set, sizeof set);
    for (unsigned i = 0, rest = shift % 32; i < words; ++i) {
      const unsigned long *const from = had + (shift < N ? i + shift / 32 : words);
      want[i] = from[0] >> rest | (rest == 0 ? 0 : from[1] >> (32 - rest));
    }
    const std::bitset<N> shifted = set >> shift;
    CHECK(memcmp(&shifted, want, sizeof want) == 0 && (set >>= shift) == shifted);
  }
  for (unsigned i = 0; i < N + 2; ++i)
    CHECK_TEXT(error_of<N>(6, 0, std::string(i, '1') + "2/ \xB0"[i % 4] + std::string(N + 1 - i, '0')),
               "St16invalid_argument");
  CHECK_TEXT(text_of_error.c_str(), "Invalid value in the string");
  CHECK(error_of<N>(2, N) && text_of_error == "Out of range exception occured.");
  CHECK(N < 33 || (error_of<N>(5, 32) && text_of_error == "Bitset can not be converted"));
}
#else
template <unsigned N> static void own() {}
#endif

template <unsigned N> static void size(unsigned steps) {
  random_run<N>(steps);
  for (int which = 0; which < 6; ++which)
    printf("%u %s %s %s\n", unsigned(std::bitset<N>().size()), error_of<N>(which, N - 1), error_of<N>(which, N),
           error_of<N>(which, ~0u));
  for (unsigned i = 0; i < 15; ++i) printf("%s %s\n", error_of<N>(6, i, "x101"), error_of<N>(5, i * 16 % N));
  const unsigned seed = random_state;
  own<N>();
  random_state = seed;
}

int main() {
  size<1>(500), size<31>(1000), size<32>(1500), size<33>(1500), size<64>(1000), size<65>(1500), size<129>(1500);
  size<256>(1500), size<257>(1000), size<300>(1000), size<641>(1500), size<1120>(1000), size<2240>(500);
#if __cplusplus >= 201103L
  const std::bitset<33> wide(0x3FFFFFFFFull);
  CHECK(wide.all() && wide.to_ullong() == 0x1FFFFFFFFull && std::bitset<8>(0x1FFull).to_string() == "11111111");
  CHECK(std::bitset<8>("101").to_ullong() == 5 && std::bitset<8>("1012", 3).to_ulong() == 5);
#endif
  return test_failures != 0;
}
