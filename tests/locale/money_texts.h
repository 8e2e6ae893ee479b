// For tests of money: a moneypunct whose every value is chosen, and amounts written to and read from strings. It runs
// with every C++ library.
#ifndef TESTS_MONEY_TEXTS_H
#define TESTS_MONEY_TEXTS_H

#include <iterator>
#include <locale>
#include <ostream>
#include <string>

struct money_rules {
  const char *pattern;  // "$-v " and the like: '$' symbol, '-' sign, 'v' value, ' ' space, '0' none
  const char *symbol, *plus, *minus, *grouping;
  int decimals;
};

template <bool Intl> struct chosen_money : std::moneypunct<char, Intl> {
  typedef std::money_base::pattern pattern;
  const money_rules rules;
  explicit chosen_money(const money_rules &by) : rules(by) {}

protected:
  char do_decimal_point() const { return '.'; }
  char do_thousands_sep() const { return ','; }
  std::string do_grouping() const { return rules.grouping; }
  std::string do_curr_symbol() const { return rules.symbol; }
  std::string do_positive_sign() const { return rules.plus; }
  std::string do_negative_sign() const { return rules.minus; }
  int do_frac_digits() const { return rules.decimals; }
  pattern do_pos_format() const {
    pattern made;
    for (int i = 0; i < 4; ++i)
      switch (rules.pattern[i]) {
        case '$': made.field[i] = std::money_base::symbol; break;
        case '-': made.field[i] = std::money_base::sign; break;
        case 'v': made.field[i] = std::money_base::value; break;
        case ' ': made.field[i] = std::money_base::space; break;
        default: made.field[i] = std::money_base::none; break;
      }
    return made;
  }
  pattern do_neg_format() const { return do_pos_format(); }
};

// Iterators of the test's own, over strings.
typedef std::back_insert_iterator<std::string> money_out;
struct money_writer : std::money_put<char, money_out> {
  money_writer() : std::money_put<char, money_out>(1) {}
  ~money_writer() {}
};
struct money_reader : std::money_get<char, const char *> {
  money_reader() : std::money_get<char, const char *>(1) {}
  ~money_reader() {}
};

struct money_stream : std::ios {
  explicit money_stream(const std::locale &loc, int flags = 0) : std::ios(0) {
    imbue(loc);
    this->flags(std::ios_base::fmtflags(flags));
  }
};

template <class Amount>
std::string money_text(std::ios &stream, bool intl, const Amount &amount, int width = 0, char fill = '*') {
  std::string text;
  stream.width(width);
  money_writer().put(money_out(text), intl, stream, fill, amount);
  return text;
}

// "digits" or "!" for failure, then '.' when the input ended, then what was left.
inline std::string money_read(std::ios &stream, bool intl, const std::string &text) {
  std::string digits = "?";
  std::ios_base::iostate err = std::ios_base::goodbit;
  const char *const end = text.data() + text.size();
  const char *const stop = money_reader().get(text.data(), end, intl, stream, err, digits);
  std::string result = (err & std::ios_base::failbit) ? digits + "!" : digits;
  if (err & std::ios_base::eofbit) result += ".";
  return result + std::string(stop, end);
}

#endif
