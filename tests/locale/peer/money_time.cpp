// Random amounts of money in random layouts, written, mutated and read again; and random names, dates and times. Each
// line is one case, for comparison between C++ libraries. Left out is where plx means to differ: amounts below one
// unit, a 61st second, blanks before numbers, names that begin with a small letter.
// prints: 24000 lines

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>

#include "../money_texts.h"

static unsigned state = 12345;
static unsigned draw(unsigned n) {
  state = state * 1103515245u + 12345u;
  return (state >> 8) % n;
}

static std::string mutated(std::string text, const char *characters) {
  const unsigned n = unsigned(strlen(characters));
  for (unsigned changes = draw(3); changes != 0; --changes) {
    const size_t at = draw(unsigned(text.size()) + 1);
    switch (draw(3)) {
      case 0: text.insert(at, 1, characters[draw(n)]); break;
      case 1:
        if (at < text.size()) text.erase(at, 1);
        break;
      case 2:
        if (at < text.size()) text[at] = characters[draw(n)];
        break;
    }
  }
  return text;
}

static void money() {
  static const char *const signs[][2] = {{"", "-"}, {"+", "-"}, {"", "()"}, {"+", "(cr"}, {"p", ""}, {"(+)", "(-)"}};
  static const char *const groupings[] = {"", "\3", "\3\2", "\2\177"};
  for (int i = 0; i < 300; ++i) {
    std::string pattern = "$-v";
    for (unsigned turns = draw(6); turns != 0; --turns) std::next_permutation(pattern.begin(), pattern.end());
    const unsigned gap = 1 + draw(2);
    pattern.insert(gap, 1, draw(2) ? ' ' : '0');
    const unsigned sign = draw(6), grouping = draw(4), decimals = draw(4);
    const money_rules rules = {pattern.c_str(), gap == 1 ? "USD" : "$", signs[sign][0],
                               signs[sign][1],  groupings[grouping],    int(decimals)};
    const std::locale loc(std::locale(std::locale::classic(), new chosen_money<false>(rules)),
                          new chosen_money<true>(rules));
    for (int k = 0; k < 40; ++k) {
      static const std::ios_base::fmtflags adjusts[] = {std::ios_base::fmtflags(), std::ios_base::left,
                                                        std::ios_base::right, std::ios_base::internal};
      money_stream stream(loc);
      stream.flags(adjusts[draw(4)]);
      if (draw(2)) stream.setf(std::ios_base::showbase);
      std::string amount(draw(2), '-');
      amount += char('1' + draw(9));
      for (unsigned n = 4 + draw(draw(3) ? 6 : 60); n != 0; --n) amount += char('0' + draw(10));
      const std::string text = money_text(stream, k & 1, amount, int(draw(3) * 11), ' ');
      const std::string given = mutated(text, "0123456789.,$-+()USD p");
      stream.flags(draw(2) ? std::ios_base::showbase : std::ios_base::fmtflags());
      std::string got = money_read(stream, k & 1, given);
      // What is stored, and how far is read, of what is no amount is nobody's rule.
      if (got.find('!') != std::string::npos) got = "failed";
      printf("%s \"%s\" \"%s\" %s\n", pattern.c_str(), text.c_str(), given.c_str(), got.c_str());
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
    const int kind = int(draw(5));
    unsigned drawn[3];
    for (int k = 0; k < 3; ++k) drawn[k] = draw(k == 0 ? 14 : k == 1 ? 33 : 61);
    if (kind == 0) sprintf(text, "%02u:%02u:%02u", drawn[0] * 2, drawn[1] * 2, drawn[2]);
    if (kind == 1) sprintf(text, "%02u/%02u/%02u", drawn[0], drawn[1], drawn[2] + 20);
    if (kind == 2) sprintf(text, "%04u", 1000 + draw(3000));
    if (kind >= 3) sprintf(text, "%s", names[kind == 3 ? draw(6) : 6 + draw(8)]);
    std::string given = kind == 2 ? std::string(text) : mutated(text, kind < 3 ? ":/x" : "abcdenory, ");
    if (kind >= 3 && !given.empty() && given[0] >= 'a') given[0] = char(given[0] - 'a' + 'A');
    const char *const begin = given.data(), *const end = begin + given.size(), *stop = begin;
    tm t = tm();
    std::ios_base::iostate err = std::ios_base::goodbit;
    switch (kind) {
      case 0: stop = reader().get_time(begin, end, stream, err, &t); break;
      case 1: stop = reader().get_date(begin, end, stream, err, &t); break;
      case 2: stop = reader().get_year(begin, end, stream, err, &t); break;
      case 3: stop = reader().get_weekday(begin, end, stream, err, &t); break;
      case 4: stop = reader().get_monthname(begin, end, stream, err, &t); break;
    }
    printf("%d \"%s\"", kind, given.c_str());
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
