// What is plx's own of bitset: the shift to the right, texts of which the end has no place, and what errors say.
// test-variants: -O1 | -O2 -std=gnu++20
#include <bitset>
#include <stdexcept>
#include <string>

#include "harness.h"
#include "random.h"

// Bits do not move over a word boundary but by whole words; a word gets its neighbour's top bits at its low end
// instead.
template <unsigned N> static void size() {
  for (unsigned shift = 0; shift < N + 40; shift += 1 + N / 60) {
    std::bitset<N> set, want;
    for (unsigned i = 0; i < N; ++i) set[i] = random_below(2) != 0;
    const unsigned words = shift / 32 * 32, rest = shift % 32;
    for (unsigned i = 0; shift < N && i < N; ++i) {
      const unsigned from = i / 32 * 32 + words, place = i % 32, next = from + 32 + place + (32 - rest);
      if (place + rest < 32 && from + place + rest < N) want[i] = set[from + place + rest];
      if (rest != 0 && place < rest && next < N) want[i] = want[i] || set[next];
    }
    std::bitset<N> shifted(set);
    CHECK(set >> shift == want && (shifted >>= shift) == want);
  }
  // Characters beyond the last that has a place count too.
  for (unsigned i = 0; i < N + 2; ++i) {
    std::string wrong(N + 2, '1');
    wrong[i] = "2/ \xB0"[i % 4];
    bool refused = false;
    try {
      std::bitset<N> made(wrong);
    } catch (const std::invalid_argument &error) {
      refused = strcmp(error.what(), "Invalid value in the string") == 0;
    }
    CHECK(refused);
  }
  try {
    std::bitset<N>().set(N);
    CHECK(!"in range");
  } catch (const std::out_of_range &error) {
    CHECK_TEXT(error.what(), "Out of range exception occured.");
  }
  try {
    if (N > 32) std::bitset<N>().set(N - 1).to_ulong(), CHECK(!"it fits");
  } catch (const std::overflow_error &error) {
    CHECK_TEXT(error.what(), "Bitset can not be converted");
  }
}

int main() {
  size<1>(), size<31>(), size<32>(), size<33>(), size<64>(), size<65>(), size<129>(), size<256>(), size<257>();
  size<300>(), size<641>(), size<1120>(), size<2240>();
#if __cplusplus >= 201103L
  const std::bitset<33> wide(0x3FFFFFFFFull);
  CHECK(wide.all() && wide.to_ullong() == 0x1FFFFFFFFull && std::bitset<8>(0x1FFull).to_string() == "11111111");
  CHECK(std::bitset<8>("101").to_ullong() == 5 && std::bitset<8>("1012", 3).to_ulong() == 5);
#endif
  return TEST_RESULT();
}
