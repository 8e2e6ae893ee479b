// What plx and the 1998 standard agree on: random operations on strings that share with each other, through every
// overload, often with parts of themselves; every result printed. Built against plx and against the host's library; the
// lines must be the same. With plx each step also looks into the representations: who shares, and how large they are.
// With operator new replaced every block comes from it: each of a step's may fail, which changes nothing.
// prints: 61285 lines
// test-variants: -O1 | -O2 -DREPLACED=1
#include <ctype.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

#if REPLACED
#include "fail_allocation.h"
#else
#define REPLACED 0
static long allocation_calls, allocation_to_fail;
#endif
#include "harness.h"
#include "random.h"

typedef std::string string;

static string text[6];
static bool exposed[6];  // a reference may be in use

// How a modifier changes the capacity: not at all, when the text no longer fits (resize has a place more), or to what
// all that was there needs.
enum a_rule { kept, grown, resized, sum };
#ifdef PLX_CONFIG_H
#include "../string_check.h"

static const bool fails = REPLACED;

struct a_look {
  const __zor::b_str_ref *rep;
  unsigned count, capacity;
  string content;
  bool owned;
  explicit a_look(const string &s)
      : rep(rep_of(s)),
        count(rep->count),
        capacity(s.capacity()),
        content(s.data(), s.size()),
        owned(__zor::_string_is_private(rep)) {
    allocation_calls = 0;
  }
  bool changed(const string &s, a_rule by, unsigned n) const {
    const bool fits = owned && n < capacity + (by == resized);
    if (rep_of(s) == null_rep()) return true;
    if (owned && s.capacity() <= capacity && allocation_calls != 0) return false;
    return allocation_calls <= 1 && s.capacity() == (by == kept || (fits && by != sum) ? capacity : n / 32 * 32 + 32);
  }
  bool unchanged(const string &s) const {
    return rep_of(s) == rep && count_of(s) == count && s.capacity() == capacity && s == content && !broken_invariant(s);
  }
};
static bool shared_rightly() {
  for (int i = 0; i < 6; ++i) {
    unsigned owners = 0;
    for (int k = 0; k < 6; ++k) owners += rep_of(text[k]) == rep_of(text[i]);
    if (broken_invariant(text[i]) != 0) return false;
    if (rep_of(text[i]) != null_rep() && count_of(text[i]) != (exposed[i] ? unshareable : owners)) return false;
  }
  return true;
}
static bool same_rep(int i, int j) { return rep_of(text[i]) == rep_of(text[j]); }
#else
static const bool fails = false;
struct a_look {
  explicit a_look(const string &) {}
  bool changed(const string &, a_rule, unsigned) const { return true; }
  bool unchanged(const string &) const { return true; }
};
static bool shared_rightly() { return true; }
static bool same_rep(int, int) { return true; }
#endif

static string random_text(unsigned most) {
  string made;
  for (unsigned n = random_below(most); n != 0; --n) made += static_cast<char>("abc\xE9"[random_below(4)]);
  return made;
}

static unsigned long place_in(string &s, string::iterator at) { return at - s.begin(); }

static int sign(int order) { return order < 0 ? -1 : order > 0; }

// Letters of either case are equal.
struct caseless : std::char_traits<char> {
  static bool eq(char a, char b) { return toupper(a) == toupper(b); }
  static bool lt(char a, char b) { return toupper(a) < toupper(b); }
  static int compare(const char *a, const char *b, size_t n) {
    for (; n != 0; ++a, ++b, --n)
      if (!eq(*a, *b)) return lt(*a, *b) ? -1 : 1;
    return 0;
  }
  static const char *find(const char *s, size_t n, char c) {
    for (; n != 0; ++s, --n)
      if (eq(*s, c)) return s;
    return 0;
  }
};
typedef std::basic_string<char, caseless> other_string;
template class std::basic_string<char, caseless>;

// Digits of input category, one of which throws.
struct digits : std::iterator<std::input_iterator_tag, char> {
  int at;
  explicit digits(int a) : at(a) {}
  char operator*() const { return at == 7 ? throw std::range_error("7") : static_cast<char>('0' + at); }
  digits &operator++() { return ++at, *this; }
  digits operator++(int) { return digits(at++); }
  bool operator==(const digits &other) const { return at == other.at; }
  bool operator!=(const digits &other) const { return at != other.at; }
};

// Each relation of strings and of texts as a bit.
template <class A, class B> static unsigned long relations(const A &a, const B &b) {
  return (a == b) + 2 * (a != b) + 4 * (a < b) + 8 * (a > b) + 16 * (a <= b) + 32 * (a >= b);
}

static unsigned long hash_of(const string &s) {
  unsigned hash = 5381;
  for (string::const_iterator at = s.begin(); at != s.end(); ++at) hash = hash * 33 + static_cast<unsigned char>(*at);
  for (string::const_reverse_iterator at = s.rbegin(); at != s.rend(); ++at) hash = hash * 31 + (*at & 0xFF);
  return hash;
}

#define ALL_OF(find) \
  s.find(what, pos) + 7 * s.find(w) + 49 * s.find(w, pos, 1) + 343 * s.find('a', pos) + 9 * s.find('b')

static void step(int number) {
  const int i = int(random_below(6)), j = int(random_below(6));
  string &s = text[i];
  const string &other = text[j], given = random_text(random_below(24) ? 60 : 900), what = random_text(5) + 'a';
  const char *const w = what.c_str();
  // `pos` may lie beyond the end by a little, `in` does not.
  const unsigned size = unsigned(s.size()), pos = random_below(size + 3), in = random_below(size + 1),
                 few = random_below(12);
  const unsigned to = in + random_below(size - in + 1), gone = random_below(size - in + 5), a = random_below(8),
                 b = random_below(3);
  // The source: a text, a part of the string itself, one of another, or one character many times.
  const unsigned own = random_below(4) ? random_below(size + 1) : 0, part = random_below(unsigned(other.size()) + 1);
  const unsigned kind = random_below(4), own_n = random_below(4) ? random_below(size - own + 1) : size - own;
  const unsigned part_n = random_below(unsigned(other.size()) - part + 1),
                 many = random_below(random_below(24) ? 60 : 900);
  const unsigned n = kind == 0 ? unsigned(given.size()) : kind == 1 ? own_n : kind == 2 ? part_n : many;
  const char *const from = kind == 0 ? given.data() : s.data() + own;
  const unsigned more = random_below(3) ? random_below(random_below(9) ? 400 : 2600) : size / 32 * 32 + 32,
                 reserved = random_below(4) ? 0 : random_below(random_below(2) ? 600 : 6000);
  const bool erases = gone != 0 && in != size;
  const unsigned chosen = random_below(2) ? random_below(13) : 13 + random_below(26);
  unsigned long result = 0;
  bool marked = false;
  char out[16] = "---------------";
  for (int failing = fails && chosen < 13 && chosen != 11;; ++failing) {
    const a_look was(s);
    allocation_to_fail = failing;
    try {
      switch (chosen) {
        case 0: s = other, marked = i == j && exposed[i]; break;
        case 1: std::swap(s, text[j]), std::swap(exposed[i], exposed[j]), marked = exposed[i]; break;
        case 2: string(other).swap(s); break;
        case 3: s[in] = s[in], marked = true; break;
        case 4: s.begin(), marked = true; break;
        case 5:
          kind == 3 ? s.assign(n, 'f') : kind == 2 ? s.assign(other, part, part_n) : s.assign(from, n);
          CHECK(was.changed(s, grown, n));
          break;
        case 6:
          kind == 3 ? s.append(n, 'f') : kind == 2 ? s.append(other, part, part_n) : s.append(from, n);
          CHECK(was.changed(s, grown, size + n));
          break;
        case 7:
          kind == 3 ? s.insert(in, n, 'f') : kind == 2 ? s.insert(in, other, part, part_n) : s.insert(in, from, n);
          marked = n == 0 && exposed[i];
          CHECK(was.changed(s, n ? sum : kept, size + n));
          break;
        case 8:
          s.erase(in, gone), marked = !erases && exposed[i];
          CHECK(was.changed(s, kept, 0));
          break;
        case 9:
          kind == 3   ? s.replace(in, gone, n, 'f')
          : kind == 2 ? s.replace(in, gone, other, part, part_n)
                      : s.replace(in, gone, from, n);
          marked = !erases && n == 0 && exposed[i];
          CHECK(was.changed(s, n ? sum : kept, size + n));
          break;
        case 10:
          s.resize(more, 'r'), marked = more == size && exposed[i];
          CHECK(was.changed(s, more == size ? kept : resized, more));
          break;
        case 11:
          for (unsigned k = 0; k < many; ++k) {
            s.push_back('p');
            if (k == 0) CHECK(was.changed(s, grown, size + 1));
          }
          marked = many == 0 && exposed[i];
          break;
        case 12:
          reserved ? s.reserve(reserved) : s.clear();
          marked = reserved != 0 && exposed[i];
          break;
        case 13: s.assign(what).assign(w, 1), (s = w) = 'x', s.push_back('y'), (s += what[0]) += w, s.append(w); break;
        case 14: s.assign(other, pos, few); break;
        case 15: s.append(other.substr(0, 60)).append(2, 66).append(what, pos % 3, few).append(w, 1); break;
        case 16:
          s.insert(pos, what).insert(in, s.substr(0, 30) + 'x').insert(pos, few + 1, 'b').insert(0, w, 1).insert(0, w);
          break;
        case 17: s.erase(pos, few + 1); break;
        case 18:
          s.replace(pos, few, what).replace(pos, few, few + 1, 'c').replace(pos, 1, w).replace(0, few, w, 1);
          break;
        case 19: s.replace(pos, few, what, 0, 2).insert(pos, what + what, in % 2, few + 1); break;
        case 20: result = ALL_OF(find) * 3 + ALL_OF(rfind) + ALL_OF(find_first_of) * 5 + ALL_OF(find_last_of); break;
        case 21: result = ALL_OF(find_first_not_of) * 11 + ALL_OF(find_last_not_of); break;
        case 22: result = 9 + sign(s.compare(other)) + 3 * sign(s.compare(w)) + 9 * sign(s.compare(pos, few, w)); break;
        case 23: result = 9 + sign(s.compare(pos, few, other, few, pos)) + 3 * sign(s.compare(pos, few, w, 1)); break;
        case 24:
          result = relations(s, other) + relations(what, w) * 3 + relations(w, what) * 5 + 64 * relations(s, w) +
                   4096 * relations(w, s) + sign(s.compare(pos, few, what));
          break;
        case 25: s.at(pos) = 'e', s.assign(s.rbegin(), s.rend()); break;
        case 26: result = hash_of(s + other + 'x' + w) + hash_of("<" + s) + hash_of('<' + s); break;
        case 27: s.append(s.begin() + in, s.begin() + to), s.assign(s.begin() + in, s.begin() + to); break;
        case 28: s.insert(s.begin() + in, given.rbegin(), given.rend()), s.insert(s.begin() + in, 3, 'j'); break;
        case 29: s.insert(s.begin() + in, digits(int(a)), digits(8)); break;
        case 30:
          result = place_in(s, s.insert(s.begin() + in, 'i')) * 7;
          result += place_in(s, s.erase(s.begin() + in / 2));
          break;
        case 31: result = place_in(s, s.erase(s.begin() + in, s.begin() + to)); break;
        case 32: s.replace(s.begin() + in, s.begin() + to, what).replace(s.begin(), s.begin() + in, few, 'r'); break;
        case 33: s.replace(s.begin() + in, s.begin() + to, w).replace(s.begin(), s.begin() + in, w, 1); break;
        case 34: s.replace(s.begin() + in, s.begin() + to, b ? s.rbegin() : s.rend(), s.rend()); break;
        case 35: s.replace(s.begin() + in, s.begin() + to, s.begin() + in / 2, s.begin() + to); break;
        case 36: s.replace(s.begin() + in, s.begin() + to, digits(1), digits(b ? 5 : 9)); break;
        case 37: s.append(digits(int(a) - 3), digits(6 + int(b))), s.assign(digits(2), digits(6 + int(b))); break;
        case 38: {
          const other_string x(s.substr(0, 40).c_str()), y(w);
          result = x.find(y, in) + 7 * x.rfind(y) + 49 * x.find('B', in) + 343 * x.find_first_of("BX") +
                   2401 * x.find_last_not_of("CB") + (x == "ABC") + (x < y) + (x + y).rfind("A", pos) +
                   x.find_first_not_of(y, in) + x.find_last_of(y, pos);
          s = string(digits(3), digits(6 + int(b))) + string(3, 65) + string(other, 0, 5) + string(w, 1);
          result += s.copy(out, few, pos) + hash_of(out) + hash_of(s.substr(pos)) + static_cast<const string &>(s)[b];
          s.resize(in), s.erase(pos), s.insert(s.end(), w, w + what.size()), s.erase();
        }
      }
    } catch (const std::out_of_range &) { result = 1000; } catch (const std::range_error &) {
      result = 2000;
    } catch (const std::bad_alloc &) {
      CHECK(failing && was.unchanged(s));
      continue;
    }
    break;
  }
  allocation_to_fail = 0;
  if (chosen == 0) CHECK(exposed[j] || same_rep(i, j));
  if (s.size() > 2600) s.erase(100);
  if (chosen >= 13 || size > 2600) s.assign(s.data(), s.size());  // no reference is in use
  exposed[i] = marked;
  CHECK(shared_rightly());
  printf("step %d, operation %u at %u, %u: %lu, %u of %lu\n", number, chosen, pos, n, result, unsigned(s.size()),
         hash_of(s));
  if (test_failures) fprintf(stderr, "step %d, operation %u\n", number, chosen), exit(1);
}

// Blocks so large that the C library moves them whole, under a source in one; and so many that the pool is exhausted.
static void large_and_many() {
  static string crowd[3000];
  string large(300000, 'x');
  for (int i = 0; i < 4; ++i) {
    const string other(large.size() / 2, 'y');
    large.append(large.data(), large.size());
  }
  // And whose characters have left their first block.
  string moved(2000, 'a'), sharer(moved);
  sharer.reserve(30000);
  sharer = "";
  moved[5] = 'b';
  unsigned long sum = hash_of(large) + hash_of(moved.append(40000, 'z'));
  for (unsigned k = 0; k < 6000; ++k) crowd[k * 7 % 3000].assign(k * 37 % 990, static_cast<char>('a' + k % 26));
  for (unsigned k = 0; k < 3000; ++k) sum = sum * 31 + hash_of(crowd[k]), string().swap(crowd[k]);
  printf("%lu\n", sum);
}

// The six searches with one match or near miss at every place, and with every length of pattern: where wide steps begin
// and end, at every alignment. What follows a text in its block is no part of it.
static unsigned searches(const string &s, const string &w, unsigned pos) {
  return s.find(w, pos) * 3 + s.rfind(w, pos) * 5 + s.find_first_of(w, pos) * 7 + s.find_last_of(w, pos) * 11 +
         s.find_first_not_of(w, pos) * 13 + s.find_last_not_of(w, pos) * 17;
}
static void search_everywhere() {
  for (unsigned length = 1; length < 140; ++length)
    for (unsigned n = 1; n <= length && n < 40; n += n < 6 ? 1 : 7) {
      unsigned sum = 0;
      for (unsigned at = 0; at + n <= length; ++at) {
        string s(length + 9, '.'), w(n, n % 2 ? '#' : '\xC3');
        s.replace(at, n, w).replace(length, 9, w).erase(length);
        sum = sum * 31 + searches(s, w, at % 7 ? 0 : string::npos);
        w[n / 2] = '%';
        sum = sum * 31 + searches(s, w, 3) + searches(s, string(".\0", 2), 0);
      }
      printf("%u of %u: %u\n", n, length, sum);
    }
}

int main() {
  for (int i = 0; i < 59999; ++i) step(i);
  large_and_many();
  search_everywhere();
#if REPLACED && defined(PLX_CONFIG_H)
  for (int i = 0; i < 6; ++i) string().swap(text[i]);
  CHECK_INT(live_blocks, 0);
#endif
  return test_failures != 0;
}
