// The six searches against the host's library: small alphabets so that near misses are frequent, texts long enough for
// every wide path and at every alignment, and one match or near miss at every place. Where the two differ is in
// string/rules.
// prints: 6139 lines
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
    static const unsigned int alphabets[] = {2, 4, 200};
    const unsigned int alphabet = alphabets[run % 3], length = random_below(run % 8 == 0 ? 600 : 70);
    const int base = run % 2 ? 'a' : 0xC0;
    const string whole = random_text(length, alphabet, base), text(whole, random_below(length + 1));
    const unsigned int size = static_cast<unsigned int>(text.size()), n = 1 + random_below(run % 5 == 0 ? 40 : 6);
    string what = random_text(n, alphabet, base);
    if (random_below(2) && size != 0) what = text.substr(random_below(size), n * 5);
    if (random_below(2)) what[random_below(static_cast<unsigned int>(what.size()))] = static_cast<char>(base);
    searches(text, what, random_below(4) ? random_below(size + 3) : string::npos);
    searches(text, what, 0);
    printf("\n");
  }
  // One match or near miss at every place, with every length of pattern: where wide steps begin and end. What follows
  // a text in its block is no part of it.
  for (unsigned int length = 1; length < 140; ++length) {
    for (unsigned int n = 1; n <= length && n < 40; n += n < 6 ? 1 : 7)
      for (unsigned int at = 0; at + n <= length; ++at) {
        string text(length + 9, '.'), what(n, '#');
        text.replace(at, n, what).replace(length, 9, what).erase(length);
        searches(text, what, at % 7 ? 0 : string::npos);
        what[n / 2] = '%';
        searches(text, what, 3);
        if (at % 8 == 0) searches(text, string(".\0", 2), 0);
      }
    printf("\n");
  }
  return 0;
}
