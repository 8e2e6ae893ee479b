// What plx and the 1998 standard agree on: random operations on strings through every overload, every result printed.
// Built against plx and against the host's library; the lines must be the same.
// prints: 30000 lines
#include <ctype.h>
#include <stddef.h>
#include <stdio.h>

#include <iterator>
#include <stdexcept>
#include <string>

#include "../../random.h"

typedef std::string string;

static string random_text(unsigned int most) {
  string made;
  for (unsigned int n = random_below(most); n != 0; --n) made += static_cast<char>("abc\xE9"[random_below(4)]);
  return made;
}

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
struct digits {
  typedef std::input_iterator_tag iterator_category;
  typedef char value_type, reference;
  typedef ptrdiff_t difference_type;
  typedef const char *pointer;
  explicit digits(int a) : at(a) {}
  char operator*() const {
    if (at == 7) throw std::range_error("7");
    return static_cast<char>('0' + at);
  }
  digits &operator++() { return ++at, *this; }
  digits operator++(int) { return digits(at++); }
  bool operator==(const digits &other) const { return at == other.at; }
  bool operator!=(const digits &other) const { return at != other.at; }
  int at;
};

// Each relation of strings and of texts as a bit.
template <class A, class B> static unsigned long relations(const A &a, const B &b) {
  return (a == b) + 2 * (a != b) + 4 * (a < b) + 8 * (a > b) + 16 * (a <= b) + 32 * (a >= b);
}

static unsigned long hash_of(const string &s) {
  unsigned int hash = 5381;
  for (string::const_iterator at = s.begin(); at != s.end(); ++at) hash = hash * 33 + static_cast<unsigned char>(*at);
  for (string::const_reverse_iterator at = s.rbegin(); at != s.rend(); ++at)
    hash = hash * 31 + static_cast<unsigned char>(*at);
  return hash;
}

int main() {
  string text[4];
  for (int i = 0; i < 30000; ++i) {
    string &s = text[random_below(4)];
    const string &other = text[random_below(4)];
    // Not empty, and positions that may lie beyond the end by a little.
    const string what = random_text(5) + 'a';
    const char *const w = what.c_str();
    const unsigned int size = static_cast<unsigned int>(s.size()), pos = random_below(size + 3), n = random_below(12);
    const unsigned int in = random_below(size + 1);
    const unsigned int to = in + random_below(size - in + 1);
    const unsigned int chosen = random_below(64), a = random_below(8), b = random_below(3);
    unsigned long result = 0;
    char out[16] = "---------------";
    try {
      switch (chosen) {
        case 0: s = other; break;
        case 1: s = w; break;
        case 2: s.assign(other, pos, n); break;
        case 3: s.append(other.substr(0, 60)); break;
        case 4: s.append(what, pos % 3, n); break;
        case 5: (s += what[0]) += w; break;
        case 6: s.insert(pos, what); break;
        case 7: s.insert(pos, n + 1, 'b'); break;
        case 8: s.insert(pos, s.substr(0, 30) + 'x'); break;
        case 9:
        case 10:
        case 11: s.erase(pos, n); break;
        case 12: s.replace(pos, n, what); break;
        case 13: s.replace(pos, n, n + 1, 'c'); break;
        case 14: s.replace(pos, n, what, 0, 2); break;
        case 15: s.resize(pos, 'd'); break;
        case 16: s.reserve(pos); break;
        case 17: s.swap(text[n & 3]); break;
        case 18:
          result = s.find(what, pos) + 7 * s.find(w, pos) + 49 * s.find(w, pos, 1) + 343 * s.find('a', pos);
          break;
        case 19: result = s.rfind(what, pos) + 7 * s.rfind(w) + 49 * s.rfind(w, pos, 1) + 343 * s.rfind('b'); break;
        case 20:
          result = s.find_first_of(what, pos) + 7 * s.find_first_of(w) + 49 * s.find_first_of(w, pos, 1) +
                   343 * s.find_first_of('c');
          break;
        case 21:
          result = s.find_last_of(what, pos) + 7 * s.find_last_of(w) + 49 * s.find_last_of(w, pos, 1) +
                   343 * s.find_last_of('c', pos);
          break;
        case 22:
          result = s.find_first_not_of(what, pos) + 7 * s.find_first_not_of(w) + 49 * s.find_first_not_of(w, pos, 1) +
                   343 * s.find_first_not_of('a');
          break;
        case 23:
          result = s.find_last_not_of(what, pos) + 7 * s.find_last_not_of(w) + 49 * s.find_last_not_of(w, pos, 1) +
                   343 * s.find_last_not_of('a', pos);
          break;
        case 24: result = 9 + sign(s.compare(other)) + 3 * sign(s.compare(w)); break;
        case 25: result = 9 + sign(s.compare(pos, n, other, n, pos)) + 3 * sign(s.compare(pos, n, w)); break;
        case 26: result = 9 + sign(s.compare(pos, n, what)) + 3 * sign(s.compare(pos, n, w, 1)); break;
        case 27: result = relations(s, other) + 64 * relations(s, w) + 4096 * relations(w, s); break;
        case 28: s.at(pos) = 'e'; break;
        case 29:
          if (!s.empty()) s[s.size() / 2] = *s.begin();
          s.assign(s.rbegin(), s.rend());
          break;
        case 30: result = hash_of(s + other + 'x' + w) + hash_of("<" + s) + hash_of('<' + s); break;
        case 31: s.append(s.begin() + in, s.begin() + to); break;
        case 32: s.assign(s.begin() + in, s.begin() + to); break;
        case 33: s.insert(s.begin() + in, other.rbegin(), other.rend()); break;
        case 34: s.insert(s.begin() + in, digits(int(a)), digits(8)); break;
        case 35: result = s.insert(s.begin() + in, 'i') - s.begin(); break;
        case 36: s.insert(s.begin() + in, 3, 'j'); break;
        case 37: result = s.erase(s.begin() + in, s.begin() + to) - s.begin(); break;
        case 38:
          if (in != size) result = s.erase(s.begin() + in) - s.begin();
          break;
        case 39: s.replace(s.begin() + in, s.begin() + to, what); break;
        case 40: s.replace(s.begin() + in, s.begin() + to, w); break;
        case 41: s.replace(s.begin() + in, s.begin() + to, w, 1); break;
        case 42: s.replace(s.begin() + in, s.begin() + to, n, 'r'); break;
        case 43: s.replace(s.begin() + in, s.begin() + to, s.rbegin(), s.rend()); break;
        case 44: s.replace(s.begin() + in, s.begin() + to, s.begin() + in / 2, s.begin() + to); break;
        case 45: s.replace(s.begin() + in, s.begin() + to, digits(1), digits(b ? 5 : 9)); break;
        case 46: s.append(digits(int(a) - 3), digits(6 + int(b))); break;
        case 47: s.assign(digits(2), digits(6 + int(b))); break;
        case 48: s = string(digits(3), digits(6 + int(b))) + string(3, 65) + string(other, 0, 5) + string(w, 1); break;
        case 49: s.append(2, 66).assign(2, 67).append(what, 0, 1).append(w, 1).append(w); break;
        case 50: result = s.copy(out, n, pos) + hash_of(out); break;
        case 51:
          result = hash_of(s.substr(pos)) + hash_of(s.substr(0, n)) + static_cast<const string &>(s)[in] + s.at(pos);
          break;
        case 52: s.insert(pos, what + what, in % 2, n + 1).insert(0, w, 1).insert(0, w); break;
        case 53: s.replace(pos, n, w, 1).replace(0, 1, w); break;
        case 54: s = 'x', s.push_back('y'), s.assign(what).assign(w, 1); break;
        case 55: {
          const other_string x(s.c_str()), y(w);
          result = x.find(y, in) + 7 * x.rfind(y) + 49 * x.find('B', in) + 343 * x.find_first_of("BX") +
                   2401 * x.find_last_not_of("CB") + (x == "ABC") + (x < y) + (x + y).rfind("A", pos) +
                   x.find_first_not_of(y, in) + x.find_last_of(y, pos);
          break;
        }
        case 56: std::swap(s, text[n & 3]); break;
        case 57: s.erase(); break;
        case 58: s.erase(pos); break;
        case 59: s.resize(in); break;
        case 60: s.insert(s.end(), w, w + what.size()), s.clear(); break;
        default: s.append(other, 0, 40); break;
      }
    } catch (const std::out_of_range &) {
      result = 1000;
    } catch (const std::range_error &) {
      result = 2000;
    }
    if (s.size() > 300) s.erase(100);
    printf("step %d, operation %u at %u, %u: %lu, %u of %lu\n", i, chosen, pos, n, result, unsigned(s.size()),
           hash_of(s));
  }
  return 0;
}
