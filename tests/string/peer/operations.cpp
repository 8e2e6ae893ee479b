// What plx and the 1998 standard agree on: random operations on strings, every result printed as one line. Built
// against plx and against the host's library; the lines must be the same.
// prints: 40000 lines

#include <stdio.h>

#include <stdexcept>
#include <string>

static unsigned int state = 11;
static unsigned int random_below(unsigned int limit) {
  state = state * 1664525u + 1013904223u;
  return (state >> 8) % limit;
}

static std::string random_text(unsigned int most) {
  std::string made;
  for (unsigned int n = random_below(most); n != 0; --n) made += static_cast<char>('a' + random_below(4));
  return made;
}

static int sign(int order) { return order < 0 ? -1 : order > 0; }

int main() {
  std::string text[4];
  for (int i = 0; i < 40000; ++i) {
    std::string &s = text[random_below(4)];
    const std::string &other = text[random_below(4)];
    // Not empty, and positions that may lie beyond the end by a little.
    const std::string what = random_text(5) + 'a';
    const unsigned int pos = random_below(static_cast<unsigned int>(s.size()) + 3);
    const unsigned int n = random_below(12);
    const unsigned int chosen = random_below(30);
    long result = 0;
    try {
      switch (chosen) {
        case 0: s = other; break;
        case 1: s = what; break;
        case 2: s.assign(other, pos, n); break;
        case 3: s.append(other.substr(0, 60)); break;
        case 4: s.append(what, pos % 3, n); break;
        case 5: s += what[0]; break;
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
        case 18: result = static_cast<long>(s.find(what, pos)); break;
        case 19: result = static_cast<long>(s.rfind(what, pos)); break;
        case 20: result = static_cast<long>(s.find_first_of(what, pos)); break;
        case 21: result = static_cast<long>(s.find_last_of(what, pos)); break;
        case 22: result = static_cast<long>(s.find_first_not_of(what, pos)); break;
        case 23: result = static_cast<long>(s.find_last_not_of(what, pos)); break;
        case 24: result = sign(s.compare(other)); break;
        case 25: result = sign(s.compare(pos, n, other, n, pos)); break;
        case 26: result = (s < other) + 2 * (s == other) + 4 * (s >= what.c_str()) + 8 * (what.c_str() != s); break;
        case 27: result = static_cast<long>((s.substr(pos, n) + other + 'x').size()); break;
        case 28: s.at(pos) = 'e'; break;
        case 29:
          if (!s.empty()) s[s.size() / 2] = *s.begin();
          s.assign(s.rbegin(), s.rend());
          break;
      }
    } catch (const std::out_of_range &) {
      result = -1000;
    }
    if (s.size() > 300) s.erase(100);
    printf("step %d, operation %u at %u, %u: %ld, \"%s\"\n", i, chosen, pos, n, result, s.c_str());
  }
  return 0;
}
