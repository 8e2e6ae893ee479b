// Prints what num_get makes of 60,000 texts, made from a grammar of numbers and mutated, in several bases and with
// grouping. Not among the texts, because plx and the peer differ on purpose or the 1998 standard leaves it open:
//   white space after a sign; integers without a prefix and without a base; negative numbers as unsigned ones
//   the value after a failure; how far an integer out of range is read in bases 8 and 16
//   floating numbers out of range, which 1998 lets scanf decide; exponents without digits
//   separators next to a leading zero, a point, the end, or each other
// prints: 58257 lines
#include <locale>
#include <ostream>

#include <stdio.h>
#include <string.h>

#include <string>

namespace {

unsigned long state = 7;
unsigned pick(unsigned n) {
  state = state * 1103515245u + 12345u;
  return static_cast<unsigned>(state >> 16 & 0x7FFF) % n;
}

struct punctuation : std::numpunct<char> {
  std::string sizes;
  explicit punctuation(const char *grouping) : sizes(grouping) {}

protected:
  virtual char do_thousands_sep() const { return '\''; }
  virtual char do_decimal_point() const { return ','; }
  virtual std::string do_grouping() const { return sizes; }
  virtual std::string do_truename() const { return "yes"; }
  virtual std::string do_falsename() const { return "never"; }
};

struct getter : std::num_get<char, const char *> {
  getter() : std::num_get<char, const char *>(1) {}
  ~getter() {}
};

std::string digits(const char *of, unsigned n) {
  std::string text;
  for (unsigned i = 0; i < n; ++i) text += of[pick(strlen(of))];
  return text;
}

template <class T> void show(const char *format, std::ios &stream, const std::string &text, T value) {
  std::ios_base::iostate err = std::ios_base::goodbit;
  const T before = value;
  const char *const begin = text.data(), *const end = begin + text.size();
  const char *const stop = getter().get(begin, end, stream, err, value);
  if (err & std::ios_base::failbit) value = before;
  printf("%s: %d%d %d ", text.c_str(), (err & std::ios_base::failbit) != 0, (err & std::ios_base::eofbit) != 0,
         int(stop - begin));
  printf(format, value);
  printf("\n");
}

}  // namespace

int main() {
  static const char *const groupings[] = {"\3", "\3\2", "\2\1\3"};
  static const char *const tails[] = {"", " ", "x", ";1", "+", "-2", "..", "g", "z0"};
  for (int i = 0; i < 60000; ++i) {
    std::ios stream(0);
    stream.flags(std::ios_base::skipws | std::ios_base::dec);
    // One pick in a statement: the order within one is the compiler's.
    std::string tail = tails[pick(9)];
    std::string text = pick(3) ? "" : pick(2) ? "-" : "+";
    switch (pick(8)) {
      case 0:  // decimal, also out of range
        text += digits("0123456789", 1 + pick(13));
        show("%ld", stream, text + tail, 77L);
        break;
      case 1:
        text = digits("0123456789", 1 + pick(12));
        show("%lu", stream, text + tail, 77ul);
        break;
      case 2:
        text = digits("0123456789", 1 + pick(6));
        show("%hu", stream, text + tail, (unsigned short)77);
        break;
      case 3:
        if (pick(2)) {
          stream.setf(std::ios_base::hex, std::ios_base::basefield);
          if (pick(2)) text += "0x";
          text += digits("0123456789abcdefABCDEF", 1 + pick(7));
        } else {
          stream.setf(std::ios_base::oct, std::ios_base::basefield);
          text += digits("01234567", 1 + pick(10));
        }
        show("%ld", stream, text + tail, 77L);
        break;
      case 4: {  // grouped, rightly or not
        stream.imbue(std::locale(std::locale::classic(), new punctuation(groupings[pick(3)])));
        text += digits("123456789", 1 + pick(3));
        for (int n = pick(4); n > 0; --n) text += '\'' + digits("0123456789", 1 + (pick(3) ? 2 : pick(3)));
        if (text.size() < 12) show("%ld", stream, text + tail + ';', 77L);
        break;
      }
      case 5:
        text += digits("0123456789", pick(22));
        if (pick(3)) text += '.';
        text += digits("0123456789", 1 + pick(30));
        if (pick(2)) {
          text += pick(2) ? 'e' : 'E';
          text += pick(2) ? "-" : pick(2) ? "+" : "";
          text += digits("12", 1 + pick(2));
        }
        show("%.17g", stream, text + ';' + tail, 77.0);
        break;
      case 6:
        stream.imbue(std::locale(std::locale::classic(), new punctuation("")));
        text += digits("0123456789", 1 + pick(9)) + ',';
        text += digits("0123456789", pick(9)) + ';';
        show("%.21Lg", stream, text, 77.0L);
        break;
      default: {
        stream.imbue(std::locale(std::locale::classic(), new punctuation("\3")));
        stream.setf(std::ios_base::boolalpha);
        static const char *const names[] = {"yes", "never", "ye", "nev", "yess", "neverless", "no", "x", ""};
        const char *const name = names[pick(9)];
        show("%d", stream, name, pick(2) != 0);
      }
    }
  }
}
