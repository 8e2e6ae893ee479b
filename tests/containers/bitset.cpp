// test-variants: -O0 | -O2 | -O2 -std=gnu++11 | -O2 -std=gnu++20
// bitset<N> against an array of bool, at sizes around the word boundaries: every operation in long random runs, the
// bits above N zero after each.
// test-peer: gnu++98 gnu++20
#include <bitset>
#include <stdexcept>
#include <string>

#include "harness.h"

namespace {

#ifdef PLX_CONFIG_H
const bool is_plx = true;
#else
const bool is_plx = false;
#endif

typedef std::string text;

unsigned random_state = 12345;
unsigned random_below(unsigned n) {
  random_state = random_state * 1664525u + 1013904223u;
  return (random_state >> 8) % n;
}

template <unsigned N> struct model {
  bool bits[N];

  model() { memset(bits, 0, sizeof bits); }

  unsigned count() const {
    unsigned sum = 0;
    for (unsigned i = 0; i < N; ++i) sum += bits[i];
    return sum;
  }
  text as_text() const {
    text result(N, '0');
    for (unsigned i = 0; i < N; ++i)
      if (bits[i]) result[N - 1 - i] = '1';
    return result;
  }
  model left(unsigned shift) const {
    model result;
    for (unsigned i = shift; i < N; ++i) result.bits[i] = bits[i - shift];
    return result;
  }
  // In plx, bits do not move over a word boundary but by whole words; a word gets its neighbour's top bits at its low
  // end instead.
  model right(unsigned shift) const {
    model result;
    const unsigned words = shift / 32 * 32, rest = shift % 32;
    for (unsigned i = 0; shift < N && i < N; ++i) {
      if (!is_plx || rest == 0) {
        result.bits[i] = i + shift < N && bits[i + shift];
      } else {
        const unsigned from = i / 32 * 32 + words, place = i % 32;
        if (place + rest < 32 && from + place + rest < N) result.bits[i] = bits[from + place + rest];
        const unsigned next = from + 32 + place + (32 - rest);
        if (place < rest && next < N) result.bits[i] = result.bits[i] || bits[next];
      }
    }
    return result;
  }
};

// The object is its words and nothing else, and those hold no bit at or above N.
template <unsigned N> bool is_valid(const std::bitset<N> &set) {
  const unsigned n = (N + 31) / 32;
  unsigned long words[n];
  if (sizeof set != sizeof words) return false;
  memcpy(words, &set, sizeof words);
  return N % 32 == 0 || words[n - 1] >> (N % 32) == 0;
}

template <unsigned N> bool same(const std::bitset<N> &set, const model<N> &want) {
  if (!is_valid(set) || set.count() != want.count() || set.any() != (want.count() != 0) || set.none() == set.any())
    return false;
  for (unsigned i = 0; i < N; ++i)
    if (set[i] != want.bits[i] || set.test(i) != want.bits[i]) return false;
  return true;
}

template <unsigned N> void random_run(unsigned steps) {
  std::bitset<N> set, other;
  model<N> want, other_want;
  bool all_same = same(set, want);
  for (unsigned step = 0; step < steps && all_same; ++step) {
    const unsigned pos = random_below(N), shift = random_below(N + N / 4 + 2);
    const std::bitset<N> before(set);
    switch (random_below(22)) {
      case 0: set.set(), memset(want.bits, 1, N); break;
      case 1: set.reset(), memset(want.bits, 0, N); break;
      case 2: set.set(pos), want.bits[pos] = true; break;
      case 3: set.set(pos, false), want.bits[pos] = false; break;
      case 4: set.reset(pos), want.bits[pos] = false; break;
      case 5: set.flip(pos), want.bits[pos] = !want.bits[pos]; break;
      case 6:
        set.flip();
        for (unsigned i = 0; i < N; ++i) want.bits[i] = !want.bits[i];
        break;
      case 7:
        set = ~set;
        for (unsigned i = 0; i < N; ++i) want.bits[i] = !want.bits[i];
        break;
      case 8: set <<= shift, want = want.left(shift); break;
      case 9: set = set << shift, want = want.left(shift); break;
      case 10: set >>= shift, want = want.right(shift); break;
      case 11: set = set >> shift, want = want.right(shift); break;
      case 12: set >>= shift / 32 * 32, want = want.right(shift / 32 * 32); break;
      case 13: set &= other; for (unsigned i = 0; i < N; ++i) want.bits[i] &= other_want.bits[i]; break;
      case 14: set = set | other; for (unsigned i = 0; i < N; ++i) want.bits[i] |= other_want.bits[i]; break;
      case 15: set ^= other; for (unsigned i = 0; i < N; ++i) want.bits[i] ^= other_want.bits[i]; break;
      case 16: set = set & other; for (unsigned i = 0; i < N; ++i) want.bits[i] &= other_want.bits[i]; break;
      case 17: set = set ^ other; for (unsigned i = 0; i < N; ++i) want.bits[i] ^= other_want.bits[i]; break;
      case 18: set |= other; for (unsigned i = 0; i < N; ++i) want.bits[i] |= other_want.bits[i]; break;
      case 19: {
        const unsigned from = random_below(N);
        want.bits[pos] = !want.bits[from] || want.bits[pos];
        set[pos] = ~set[from] || set[pos];
        break;
      }
      case 20: {
        const text written = set.template to_string<char, std::char_traits<char>, std::allocator<char> >();
        all_same = all_same && written == want.as_text() && std::bitset<N>(written) == set;
        break;
      }
      default:  // a new random set to work with, and exchanged for the one at hand
        other = set, other_want = want;
        for (unsigned i = 0; i < N; ++i) set[i] = want.bits[i] = random_below(2) != 0;
        break;
    }
    all_same = all_same && same(set, want) && (set == before) == !(set != before);
    bool equal = true;
    for (unsigned i = 0; i < N; ++i) equal = equal && set[i] == before[i];
    all_same = all_same && (set == before) == equal;
  }
  CHECK(all_same);
  if (!all_same) fprintf(stderr, "  at N = %u\n", N);
}

template <unsigned N> void constructors() {
  const unsigned long values[] = {0, 1, 0x80000001ul, 0xFFFFFFFFul, 0x12345678ul};
  for (unsigned v = 0; v < 5; ++v) {
    const std::bitset<N> set(values[v]);
    model<N> want;
    for (unsigned i = 0; i < N && i < 32; ++i) want.bits[i] = (values[v] >> i) & 1;
    CHECK(same(set, want));
    CHECK(set.to_ulong() == (N < 32 ? values[v] & ((1ul << (N % 32)) - 1) : values[v]));
  }
  // Shorter and longer texts, and parts of texts: the first character named is the highest bit.
  const text source = "1101";
  model<N> want;
  if (N >= 4) want.bits[3] = want.bits[2] = true;
  want.bits[0] = true;
  CHECK(same(std::bitset<N>(source), want));
  CHECK(std::bitset<N>(source, 2).to_ulong() == (N == 1 ? 0u : 1u));
  CHECK(std::bitset<N>(source, 0, 2).to_ulong() == (N == 1 ? 1u : 3u));
  CHECK(std::bitset<N>(source, 4).none() && std::bitset<N>(text()).none());
  const std::bitset<N> longer(text(N, '1') + "0");
  CHECK(longer.count() == N && is_valid(longer));
}

enum failure { none, out_of_range, invalid_argument, overflow_error };

template <class Action> failure failure_of(Action action, const char *want_text) {
  try {
    action();
  } catch (const std::out_of_range &error) {
    if (is_plx) CHECK_TEXT(error.what(), want_text);
    return out_of_range;
  } catch (const std::invalid_argument &error) {
    if (is_plx) CHECK_TEXT(error.what(), want_text);
    return invalid_argument;
  } catch (const std::overflow_error &error) {
    if (is_plx) CHECK_TEXT(error.what(), want_text);
    return overflow_error;
  }
  return none;
}

template <unsigned N> struct positions {
  void operator()() {
    std::bitset<N> set;
    switch (which) {
      case 0: set.test(pos); break;
      case 1: set.set(pos); break;
      case 2: set.set(pos, 0); break;
      case 3: set.reset(pos); break;
      case 4: set.flip(pos); break;
    }
  }
  int which;
  size_t pos;
};
template <unsigned N> struct from_text {
  void operator()() { std::bitset<N> set(source, pos, n); }
  text source;
  size_t pos, n;
};
template <unsigned N> struct to_integer {
  void operator()() {
    std::bitset<N> set;
    set.set(pos).to_ulong();
  }
  size_t pos;
};

template <unsigned N> void errors() {
  const char *const range = "Out of range exception occured.";
  const char *const value = "Invalid value in the string";
  for (int which = 0; which < 5; ++which) {
    const positions<N> last = {which, N - 1}, after = {which, N}, far = {which, static_cast<size_t>(-1)};
    CHECK(failure_of(last, "") == none);
    CHECK(failure_of(after, range) == out_of_range);
    CHECK(failure_of(far, range) == out_of_range);
  }
  const from_text<N> beyond = {"0101", 5, 1}, bad = {"x101", 0, text::npos}, bad_outside = {"x101", 3, 1};
  CHECK(failure_of(beyond, range) == out_of_range);
  CHECK(failure_of(bad, value) == invalid_argument);
  CHECK(failure_of(bad_outside, "") == none);
  if (is_plx) {
    // Characters beyond the last that has a place count too; the host's library does not look at them.
    for (unsigned i = 0; i < N; ++i) {
      text wrong(N, '1');
      wrong[i] = "2/ \xB0"[i % 4];
      const from_text<N> bad_there = {wrong, 0, text::npos};
      CHECK(failure_of(bad_there, value) == invalid_argument);
    }
    const from_text<N> bad_tail = {text(N, '0') + "2", 0, text::npos};
    CHECK(failure_of(bad_tail, value) == invalid_argument);
  }
  for (unsigned pos = 0; pos < N; pos += 16) {
    const to_integer<N> one = {pos};
    CHECK(failure_of(one, "Bitset can not be converted") == (pos < 32 ? none : overflow_error));
  }
}

template <unsigned N> void size(unsigned steps) {
  CHECK_INT(std::bitset<N>().size(), N);
  random_run<N>(steps);
  constructors<N>();
  errors<N>();
}

void references() {
  std::bitset<40> set;
  set[33] = true;
  set[0] = set[33];
  std::bitset<40>::reference bit = set[39];
  bit = set[0];
  CHECK(bit && !~bit && set.count() == 3);
  bit.flip() = false;
  CHECK(!set[39]);
  set[0].flip();
  CHECK_INT(set.count(), 1);
}

#if __cplusplus >= 201103L
void later_members() {
  const std::bitset<33> wide(0x3FFFFFFFFull);
  CHECK(wide.all() && wide.to_ullong() == 0x1FFFFFFFFull);
  CHECK(std::bitset<8>("101").to_ullong() == 5 && std::bitset<8>("1012", 3).to_ulong() == 5);
  CHECK(std::bitset<8>(0x1FFull).to_string() == "11111111");
  bool overflowed = false;
  try {
    std::bitset<65>().set(64).to_ullong();
  } catch (const std::overflow_error &) {
    overflowed = true;
  }
  CHECK(overflowed);
}
#endif

}  // namespace

int main() {
  size<1>(2000);
  size<31>(5000);
  size<32>(5000);
  size<33>(5000);
  size<64>(5000);
  size<65>(5000);
  size<129>(5000);
  size<300>(3000);
  size<4096>(400);
  references();
#if __cplusplus >= 201103L
  later_members();
#endif
  return TEST_RESULT();
}
