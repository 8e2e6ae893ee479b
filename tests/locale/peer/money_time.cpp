// Random amounts of money in random layouts, written, mutated and read again; and random names, dates and times. Each
// line is one case, for comparison between C++ libraries. Left out is where plx means to differ: amounts below one
// unit, a 61st second, blanks before numbers, names that begin with a small letter.
// prints: 24000 lines
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

static void money() {
  static const char *const signs[][2] = {{"", "-"}, {"+", "-"}, {"", "()"}, {"+", "(cr"}, {"p", ""}, {"(+)", "(-)"}};
  static const char *const groupings[] = {"", "\3", "\3\2", "\2\177"};
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
                               groupings[random_below(4)],
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
      const std::string got = money_read(stream, k & 1, given);
      // What is stored, and how far is read, of what is no amount is nobody's rule.
      printf("%s \"%s\" \"%s\" %s\n", pattern.c_str(), text.c_str(), given.c_str(),
             got.find('!') == std::string::npos ? got.c_str() : "failed");
    }
  }
}

struct reader : std::time_get<char, const char *> {
  reader() : std::time_get<char, const char *>(1) {}
  ~reader() {}
};

static void times() {
  static const char *const names[] = {"Sun",      "Monday", "Tue",   "Wednesday", "Thu",    "Saturday", "Jan",
                                      "February", "Mar",    "April", "May",       "August", "Dec",      "December"};
  std::ios stream(0);
  for (int i = 0; i < 12000; ++i) {
    char text[40];
    const unsigned kind = random_below(5), a = random_below(14), b = random_below(33), c = random_below(61);
    if (kind == 0) sprintf(text, "%02u:%02u:%02u", a * 2, b * 2, c);
    if (kind == 1) sprintf(text, "%02u/%02u/%02u", a, b, c + 20);
    if (kind == 2) sprintf(text, "%04u", 1000 + a * b * 6);
    std::string given = kind == 2 ? text : kind < 2 ? mutated(text, ":/x") : mutated(names[a], "abcdenory, ");
    if (kind > 2 && !given.empty() && given[0] >= 'a') given[0] = char(given[0] - 'a' + 'A');
    const char *const begin = given.data(), *const end = begin + given.size(), *stop = begin;
    tm t = tm();
    std::ios_base::iostate err = std::ios_base::goodbit;
    switch (kind) {
      case 0: stop = reader().get_time(begin, end, stream, err, &t); break;
      case 1: stop = reader().get_date(begin, end, stream, err, &t); break;
      case 2: stop = reader().get_year(begin, end, stream, err, &t); break;
      case 3: stop = reader().get_weekday(begin, end, stream, err, &t); break;
      default: stop = reader().get_monthname(begin, end, stream, err, &t);
    }
    printf("%u \"%s\"", kind, given.c_str());
    if (err & std::ios_base::failbit)
      printf(" failed\n");
    else
      printf(" %d:%d:%d %d/%d/%d %d stop %d%s\n", t.tm_hour, t.tm_min, t.tm_sec, t.tm_mon, t.tm_mday, t.tm_year,
             kind == 3 ? t.tm_wday : 0, int(stop - begin), (err & std::ios_base::eofbit) ? " end" : "");
  }
}

int main() {
  money();
  times();
  return 0;
}
