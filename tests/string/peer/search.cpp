// The six searches against the host's library: small alphabets so that near misses are frequent, texts long enough for
// every wide path and at every alignment, and one match or near miss at every place. The empty pattern, where the two
// differ, and patterns that make clumsy searches quadratic are in string/search.
// prints: 6200 lines
#include <stdio.h>

#include <string>

#include "../../random.h"

typedef std::string string;

static string random_text(unsigned int n, unsigned int alphabet, int base) {
  string made;
  for (; n != 0; --n) made += static_cast<char>(base + static_cast<int>(random_below(alphabet)));
  return made;
}

static void searches(const string &text, const string &what, string::size_type pos) {
  printf(" %d,%d,%d,%d,%d,%d", int(text.find(what, pos)), int(text.rfind(what, pos)),
         int(text.find_first_of(what, pos)), int(text.find_last_of(what, pos)), int(text.find_first_not_of(what, pos)),
         int(text.find_last_not_of(what, pos)));
}

int main() {
  for (int run = 0; run < 6000; ++run) {
    const unsigned int alphabet = run % 3 == 0   ? 2
                                  : run % 3 == 1 ? 4
                                                 : 200,
                       length = random_below(run % 8 == 0 ? 600 : 70);
    const int base = run % 2 ? 'a' : 0xC0;
    const string whole = random_text(length, alphabet, base);
    const string text(whole, random_below(length + 1));
    const unsigned int size = static_cast<unsigned int>(text.size());
    const unsigned int n = 1 + random_below(run % 5 == 0 ? 40 : 6);
    string what = random_text(n, alphabet, base);
    if (random_below(2) && size != 0) what = text.substr(random_below(size), n * 5);
    if (random_below(2)) what[random_below(static_cast<unsigned int>(what.size()))] = static_cast<char>(base);
    searches(text, what, random_below(4) ? random_below(size + 3) : string::npos);
    searches(text, what, 0);
    printf("\n");
  }
  // One match at every place, with every length of pattern: where wide steps begin and end; and the same as a near
  // miss.
  for (unsigned int length = 1; length < 140; ++length) {
    for (unsigned int n = 1; n <= length && n < 40; n += n < 6 ? 1 : 7) {
      unsigned int sum = 0;
      for (unsigned int at = 0; at + n <= length; ++at) {
        string text(length, '.'), what(n, '#');
        text.replace(at, n, what);
        sum = sum * 31 + unsigned(text.find(what) * 3 + text.rfind(what) * 5 + text.find_first_of("?#!*+") * 7 +
                                  text.find_last_of("?#!*+") * 11 + text.find_first_not_of(".,;:-") * 13 +
                                  text.find_last_not_of(".,;:-") * 17);
        what[n / 2] = '%';
        sum = sum * 31 + unsigned(text.find(what) + text.rfind(what));
      }
      printf(" %u", sum);
    }
    printf("\n");
  }
  // Sets of all characters but one, and of characters that differ in one bit.
  for (int c = 0; c < 61; ++c) {
    const char one = static_cast<char>(c < 31 ? c * 9 : c * 3 + 70);
    const string text = string(20, one) + static_cast<char>(one ^ 128) + string(16, one);
    string others, bits;
    for (int o = 0; o < 256; ++o)
      if (static_cast<char>(o) != one) others += static_cast<char>(o);
    for (int bit = 1; bit < 256; bit *= 2) bits += static_cast<char>(one ^ bit);
    searches(text, others, 3);
    searches(text, bits, 30);
    searches(text, string(1, one), 36);
    printf(" %d %d\n", int(text.find(one, 5)), int(text.rfind(one, 5)));
  }
  return 0;
}
