// bitset of sizes around words, in one word, in few that are inline and in many that have functions of their own:
// random runs against arrays of bool, with words before and behind that nobody may touch; texts, numbers and errors at
// every edge.
// test-variants: -O1 | -O2 -std=gnu++20
#include <bitset>
#include <stdexcept>
#include <string>

#include "harness.h"
#include "random.h"

template <unsigned N> struct model {
  bool bits[N];
  model() { memset(bits, 0, sizeof bits); }
  unsigned count() const {
    unsigned sum = 0;
    for (unsigned i = 0; i < N; ++i) sum += bits[i];
    return sum;
  }
  std::string text() const {
    std::string result(N, '0');
    for (unsigned i = 0; i < N; ++i)
      if (bits[i]) result[N - 1 - i] = '1';
    return result;
  }
  model left(unsigned shift) const {
    model result;
    for (unsigned i = shift; i < N; ++i) result.bits[i] = bits[i - shift];
    return result;
  }
  // Bits do not move over a word boundary but by whole words; a word gets its neighbour's top bits at its low end
  // instead.
  model right(unsigned shift) const {
    model result;
    const unsigned words = shift / 32 * 32, rest = shift % 32;
    for (unsigned i = 0; shift < N && i < N; ++i) {
      const unsigned from = i / 32 * 32 + words, place = i % 32, next = from + 32 + place + (32 - rest);
      if (place + rest < 32 && from + place + rest < N) result.bits[i] = bits[from + place + rest];
      if (rest != 0 && place < rest && next < N) result.bits[i] = result.bits[i] || bits[next];
    }
    return result;
  }
};

// The object is its words and nothing else, and those hold no bit at or above N.
template <unsigned N> struct guarded {
  enum { words = (N + 31) / 32 };
  unsigned long before[4];
  std::bitset<N> set;
  unsigned long behind[4];
  guarded() { memset(before, 0xA5, sizeof before), memset(behind, 0xA5, sizeof behind); }
  bool good() const {
    unsigned long inside[words];
    if (sizeof set != sizeof inside) return false;
    memcpy(inside, &set, sizeof inside);
    for (int i = 0; i < 4; ++i)
      if (before[i] != 0xA5A5A5A5ul || behind[i] != 0xA5A5A5A5ul) return false;
    return N % 32 == 0 || inside[words - 1] >> N % 32 == 0;
  }
};

template <unsigned N> static bool same(const guarded<N> &g, const model<N> &want) {
  const std::bitset<N> &set = g.set;
  if (!g.good() || set.count() != want.count() || set.any() != (want.count() != 0) || set.none() == set.any())
    return false;
  for (unsigned i = 0; i < N; ++i)
    if (set[i] != want.bits[i] || set.test(i) != want.bits[i]) return false;
  return true;
}

#define FOR_ALL(statement) \
  for (unsigned i = 0; i < N; ++i) want.bits[i] = (statement)

template <unsigned N> static void random_run(unsigned steps) {
  guarded<N> g, o;
  std::bitset<N> &set = g.set, &other = o.set;
  model<N> want, other_want;
  bool good = same(g, want);
  for (unsigned step = 0; step < steps && good; ++step) {
    const unsigned pos = random_below(N), from = random_below(N), shift = random_below(N + N / 4 + 2),
                   chosen = random_below(26);
    const std::bitset<N> before(set);
    switch (chosen) {
      case 0: set.set(), memset(want.bits, 1, N); break;
      case 1: set.reset(), memset(want.bits, 0, N); break;
      case 2: set.set(pos), want.bits[pos] = true; break;
      case 3: set.set(pos, false), want.bits[pos] = false; break;
      case 4: set.reset(pos), want.bits[pos] = false; break;
      case 5: set.flip(pos), want.bits[pos] = !want.bits[pos]; break;
      case 6:
        set.flip();
        FOR_ALL(!want.bits[i]);
        break;
      case 7:
        set = ~set;
        FOR_ALL(!want.bits[i]);
        break;
      case 8: set <<= shift, want = want.left(shift); break;
      case 9: set = set << shift, want = want.left(shift); break;
      case 10: set >>= shift, want = want.right(shift); break;
      case 11: set = set >> shift, want = want.right(shift); break;
      case 12: set >>= shift / 32 * 32, want = want.right(shift / 32 * 32); break;
      case 13: set <<= shift / 32 * 32, want = want.left(shift / 32 * 32); break;
      case 14:
        set &= other;
        FOR_ALL(want.bits[i] && other_want.bits[i]);
        break;
      case 15:
        set = set | other;
        FOR_ALL(want.bits[i] || other_want.bits[i]);
        break;
      case 16:
        set ^= other;
        FOR_ALL(want.bits[i] != other_want.bits[i]);
        break;
      case 17:
        set = set & other;
        FOR_ALL(want.bits[i] && other_want.bits[i]);
        break;
      case 18:
        set = set ^ other;
        FOR_ALL(want.bits[i] != other_want.bits[i]);
        break;
      case 19:
        set |= other;
        FOR_ALL(want.bits[i] || other_want.bits[i]);
        break;
      case 20: {
        typename std::bitset<N>::reference bit = set[pos];
        bit = set[from];
        bit.flip();
        bit = ~set[from] || bit;
        want.bits[pos] = want.bits[from];
        want.bits[pos] = !want.bits[pos];
        want.bits[pos] = !want.bits[from] || want.bits[pos];
        break;
      }
      case 21: {
        const std::string text = set.template to_string<char, std::char_traits<char>, std::allocator<char> >();
        good =
            good && text == want.text() && std::bitset<N>(text) == set && std::bitset<N>("1" + text + "x", 1, N) == set;
        break;
      }
      case 22: set = std::bitset<N>().set(pos), want = model<N>(), want.bits[pos] = true; break;
      default:
        other = set, other_want = want;
        for (unsigned i = 0; i < N; ++i) set[i] = want.bits[i] = random_below(2) != 0;
        break;
    }
    good = good && same(g, want) && same(o, other_want) && (set == before) == !(set != before);
    bool equal = true;
    for (unsigned i = 0; i < N; ++i) equal = equal && set[i] == before[i];
    good = good && (set == before) == equal;
    if (!good) fprintf(stderr, "  operation %u at N = %u\n", chosen, N);
  }
  CHECK(good);
}

enum failure { none, range, value, overflow };
template <unsigned N> static failure failing(int which, size_t pos, const std::string &text) {
  try {
    std::bitset<N> set;
    switch (which) {
      case 0: set.test(pos); break;
      case 1: set.set(pos); break;
      case 2: set.set(pos, 0); break;
      case 3: set.reset(pos); break;
      case 4: set.flip(pos); break;
      case 5: std::bitset<N>(text, pos); break;
      case 6: set.set(pos).to_ulong(); break;
    }
  } catch (const std::out_of_range &error) {
    CHECK_TEXT(error.what(), "Out of range exception occured.");
    return range;
  } catch (const std::invalid_argument &error) {
    CHECK_TEXT(error.what(), "Invalid value in the string");
    return value;
  } catch (const std::overflow_error &error) {
    CHECK_TEXT(error.what(), "Bitset can not be converted");
    return overflow;
  }
  return none;
}

template <unsigned N> static void size(unsigned steps) {
  CHECK_INT(std::bitset<N>().size(), N);
  random_run<N>(steps);
  const unsigned long values[] = {0, 1, 0x80000001ul, 0xFFFFFFFFul, 0x12345678ul};
  for (unsigned v = 0; v < 5; ++v) {
    const guarded<N> empty;
    guarded<N> set(empty);
    set.set = std::bitset<N>(values[v]);
    model<N> want;
    for (unsigned i = 0; i < N && i < 32; ++i) want.bits[i] = values[v] >> i & 1;
    CHECK(same(set, want) && set.set.to_ulong() == (N < 32 ? values[v] & ((1ul << N % 32) - 1) : values[v]));
  }
  // The first character named is the highest bit; those beyond the last that has a place count too.
  CHECK(std::bitset<N>(std::string("1101"), 2).to_ulong() == (N == 1 ? 0u : 1u) &&
        std::bitset<N>(std::string("1101"), 0, 2).to_ulong() == (N == 1 ? 1u : 3u));
  CHECK(std::bitset<N>(std::string()).none() && std::bitset<N>(std::string(N, '1') + "0").count() == N);
  for (int which = 0; which < 5; ++which) {
    CHECK(failing<N>(which, N - 1, "") == none && failing<N>(which, N, "") == range);
    CHECK_INT(failing<N>(which, static_cast<size_t>(-1), ""), range);
  }
  CHECK(failing<N>(5, 5, "0101") == range && failing<N>(5, 0, "x101") == value && failing<N>(5, 1, "x101") == none);
  for (unsigned i = 0; i < N + 2; ++i) {
    std::string wrong(N + 2, '1');
    wrong[i] = "2/ \xB0"[i % 4];
    CHECK_INT(failing<N>(5, 0, wrong), value);
  }
  for (unsigned pos = 0; pos < N; pos += 16) CHECK_INT(failing<N>(6, pos, ""), pos < 32 ? none : overflow);
}

int main() {
  size<1>(1000);
  size<31>(3000);
  size<32>(3000);
  size<33>(3000);
  size<64>(3000);
  size<65>(3000);
  size<129>(3000);
  size<256>(2000);
  size<257>(2000);
  size<300>(3000);
  size<641>(2000);
  size<1120>(2000);
  size<2240>(1000);
#if __cplusplus >= 201103L
  const std::bitset<33> wide(0x3FFFFFFFFull);
  CHECK(wide.all() && wide.to_ullong() == 0x1FFFFFFFFull && std::bitset<8>(0x1FFull).to_string() == "11111111");
  CHECK(std::bitset<8>("101").to_ullong() == 5 && std::bitset<8>("1012", 3).to_ulong() == 5);
#endif
  return TEST_RESULT();
}
