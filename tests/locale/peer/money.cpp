// Random amounts of money in random layouts, written, mutated and read again. Each line is one case. Left out is where
// plx means to differ: amounts below one unit.
// prints: 12000 lines
#include <stdio.h>

#include <algorithm>

#include "../../random.h"
#include "../money_texts.h"

static std::string mutated(std::string text, const std::string &characters) {
  for (unsigned changes = random_below(3); changes != 0; --changes) {
    const unsigned at = random_below(unsigned(text.size()) + 1), how = random_below(3);
    if (how != 0 && at < text.size()) text.erase(at, 1);
    if (how != 1) text.insert(at, 1, characters[random_below(unsigned(characters.size()))]);
  }
  return text;
}

int main() {
  static const char *const signs[][2] = {{"", "-"}, {"+", "-"}, {"", "()"}, {"+", "(cr"}, {"p", ""}, {"(+)", "(-)"}};
  static const char *const groupings[] = {"", "\3", "\3\2", "\2\177", "\2\1\3", "\x7e", "\177", "\1"};
  static const int adjusts[] = {0, std::ios_base::left, std::ios_base::right, std::ios_base::internal};
  for (int i = 0; i < 300; ++i) {
    std::string pattern = "$-v";
    for (unsigned turns = random_below(6); turns != 0; --turns) std::next_permutation(pattern.begin(), pattern.end());
    const unsigned gap = 1 + random_below(2), sign = random_below(6);
    pattern.insert(gap, 1, random_below(2) ? ' ' : '0');
    const money_rules rules = {pattern.c_str(),
                               gap == 1 ? "USD" : "$",
                               signs[sign][0],
                               signs[sign][1],
                               groupings[random_below(8)],
                               int(random_below(4)),
                               0};
    money_stream stream(with_money(rules));
    for (int k = 0; k < 40; ++k) {
      std::string amount(random_below(2), '-');
      amount += char('1' + random_below(9));
      for (unsigned n = 4 + random_below(random_below(3) ? 6 : 60); n != 0; --n) amount += char('0' + random_below(10));
      stream.flags(std::ios_base::fmtflags(adjusts[random_below(4)]));
      if (random_below(2)) stream.setf(std::ios_base::showbase);
      const std::string text = money_text(stream, k & 1, amount, int(random_below(3) * 11), ' '),
                        given = mutated(text, "0123456789.,$-+()USD p");
      stream.flags(random_below(2) ? std::ios_base::showbase : std::ios_base::fmtflags());
      const std::string got = money_read(stream, k & 1, given, 1 + k % 16);
      // What is stored, and how far is read, of what is no amount is nobody's rule.
      printf("%s \"%s\" \"%s\" %s\n", pattern.c_str(), text.c_str(), given.c_str(),
             got.find('!') == std::string::npos ? got.c_str() : "failed");
    }
  }
  return 0;
}
