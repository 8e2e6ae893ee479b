// test-variants: -O0 | -O2 | -O2 -std=gnu++20
// vector<bool>: random runs against an array, with sizes around the ends of words; references and iterators over bits;
// algorithms over them; limits.
// test-peer: gnu++98

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "harness.h"

template class std::vector<bool>;
typedef std::vector<bool> bits;

static unsigned int state = 3;
static unsigned int random_below(unsigned int limit) {
  state = state * 1664525u + 1013904223u;
  return (state >> 8) % limit;
}

enum { room = 4000 };
struct model {
  bool at[room];
  unsigned int n;
};

static bool same(const bits &b, const model &m) {
  if (b.size() != m.n || b.empty() != (m.n == 0) || b.capacity() < m.n) return false;
  unsigned int i = 0;
  for (bits::const_iterator at = b.begin(); at != b.end(); ++at, ++i)
    if (i == m.n || *at != m.at[i] || b[i] != m.at[i]) return false;
  if (i != m.n || b.end() - b.begin() != static_cast<int>(m.n)) return false;
  for (bits::const_reverse_iterator at = b.rbegin(); at != b.rend(); ++at)
    if (*at != m.at[--i]) return false;
#if defined(PLX_CONFIG_H)
  // The bits behind the last are zero: that is what comparing by words stands on.
  const bits::const_iterator end = b.end();
  if (m.n % 32 != 0 && *end._word >> m.n % 32 != 0) return false;
#endif
  return i == 0;
}

static void insert(model &m, unsigned int place, unsigned int count, bool value) {
  memmove(m.at + place + count, m.at + place, m.n - place);
  for (unsigned int i = 0; i < count; ++i) m.at[place + i] = value;
  m.n += count;
}

static void random_run(int steps) {
  bits b;
  model m;
  m.n = 0;
  for (int i = 0; i < steps && test_failures < 10; ++i) {
    const unsigned int kind = m.n > 1500 ? 6 : random_below(14), p = random_below(m.n + 1), n = random_below(100);
    const bool value = random_below(2) != 0;
    switch (kind) {
      case 0:
      case 1: b.push_back(value); insert(m, m.n, 1, value); break;
      case 2:
        if (m.n != 0) b.pop_back(), --m.n;
        break;
      case 3: CHECK(b.insert(b.begin() + static_cast<int>(p), value) - b.begin() == static_cast<int>(p)); insert(m, p, 1, value); break;
      case 4: b.insert(b.begin() + static_cast<int>(p), n, value); insert(m, p, n, value); break;
      case 5: {
        bool values[100];
        for (unsigned int k = 0; k < n; ++k) values[k] = random_below(2) != 0, insert(m, p + k, 1, values[k]);
        b.insert(b.begin() + static_cast<int>(p), values, values + n);
        break;
      }
      case 6: {
        const unsigned int end = p + (m.n - p) * n / 100;
        b.erase(b.begin() + static_cast<int>(p), b.begin() + static_cast<int>(end));
        memmove(m.at + p, m.at + end, m.n - end);
        m.n -= end - p;
        break;
      }
      case 7:
        b.flip();
        for (unsigned int k = 0; k < m.n; ++k) m.at[k] = !m.at[k];
        break;
      case 8:
        b.resize(p + n, value);
        if (p + n > m.n)
          insert(m, m.n, p + n - m.n, value);
        else
          m.n = p + n;
        break;
      case 9: {
        bits copy(b);
        CHECK(copy == b && !(copy < b));
        copy.push_back(value);
        CHECK(copy != b && b < copy);
        b = copy;
        insert(m, m.n, 1, value);
        break;
      }
      case 10:
        if (p == m.n) break;
        b[p].flip();
        m.at[p] = !m.at[p];
        b[p] = b[n % m.n] = value;
        m.at[p] = m.at[n % m.n] = value;
        break;
      case 11:
        b.assign(n, value);
        m.n = 0;
        insert(m, 0, n, value);
        break;
      case 12: {
        const bits part(b.begin() + static_cast<int>(p), b.end());
        b.swap(b);
        b.insert(b.begin(), part.begin(), part.end());
        bool kept[room];
        const unsigned int length = m.n - p;
        memcpy(kept, m.at + p, length);
        insert(m, 0, length, false);
        memcpy(m.at, kept, length);
        break;
      }
      case 13:
        if (m.n == 0) break;
        b.insert(b.begin() + static_cast<int>(p), b[n % m.n]);
        insert(m, p, 1, m.at[n % m.n]);
        break;
    }
    const bool good = same(b, m);
    if (!good) fprintf(stderr, "step %d, kind %u at %u, %u\n", i, kind, p, n);
    CHECK(good);
  }
}

static void iterators() {
  bits b(100);
  std::fill(b.begin() + 30, b.begin() + 70, true);
  CHECK_INT(std::count(b.begin(), b.end(), true), 40);
  CHECK_INT(std::find(b.begin(), b.end(), true) - b.begin(), 30);
  std::copy(b.begin() + 60, b.begin() + 80, b.begin());
  CHECK(b[9] && !b[10]);
  std::reverse(b.begin(), b.end());
  CHECK(b[99] && b[90] && !b[89]);
  bits::iterator at = b.begin() + 64;
  at -= 33;
  CHECK_INT(at - b.begin(), 31);
  CHECK_INT((at + 1) - b.begin(), 32);
  CHECK_INT((at - 31) - b.begin(), 0);
  CHECK(at < at + 1 && at + 1 > at && at <= at && !(at >= at + 1));
  const bits::const_iterator constant = at;
  CHECK(constant == at && constant - b.begin() == 31 && constant[59]);
  bits::swap(b[0], b[99]);
  CHECK(b[0] && !b[99]);
  const bits c(b), shorter(3, true);
  CHECK(std::lexicographical_compare(c.begin(), c.end(), shorter.begin(), shorter.end()));
  CHECK(std::equal(c.begin(), c.end(), b.begin()));
}

static void limits() {
  bits b(33, true);
  int caught = 0;
  try {
    b.at(33) = true;
  } catch (const std::out_of_range &) {
    ++caught;
  }
  try {
    b.insert(b.begin(), 0xFFFFFFF0u, true);
  } catch (const std::length_error &) {
    ++caught;
  }
  try {
    b.reserve(0xFFFFFFF0u);
  } catch (const std::length_error &) {
    ++caught;
  }
  try {
    bits all(0xFFFFFFFFu, true);
  } catch (const std::length_error &) {
    ++caught;
  }
#if defined(PLX_CONFIG_H)
  CHECK_INT(caught, 4);
#endif
  CHECK(caught >= 3 && b.size() == 33 && b.at(32));
}

int main() {
  random_run(20000);
  iterators();
  limits();
#if __cplusplus >= 201103L
  bits list{true, false, true};
  int set = 0;
  for (bool each : list) set += each;
  CHECK_INT(set, 2);
#endif
  return TEST_RESULT();
}
