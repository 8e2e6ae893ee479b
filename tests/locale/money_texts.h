// For tests of money: a moneypunct whose every value is chosen, and amounts written to and read from strings. It runs
// with every C++ library.
#ifndef TESTS_MONEY_TEXTS_H
#define TESTS_MONEY_TEXTS_H

#include "reading.h"

struct money_rules {
  const char *pattern;  // "$-v " and the like: '$' symbol, '-' sign, 'v' value, ' ' space, '0' none
  const char *symbol, *plus, *minus, *grouping;
  int decimals;
  void (*asked)();  // at the begin of each operation, if not null
};

template <bool Intl> struct chosen_money : std::moneypunct<char, Intl> {
  explicit chosen_money(const money_rules &by) : rules_(by) {}

protected:
  char do_decimal_point() const { return asked(), '.'; }
  char do_thousands_sep() const { return asked(), ','; }
  std::string do_grouping() const { return asked().grouping; }
  std::string do_curr_symbol() const { return asked().symbol; }
  std::string do_positive_sign() const { return asked().plus; }
  std::string do_negative_sign() const { return asked().minus; }
  int do_frac_digits() const { return asked().decimals; }
  std::money_base::pattern do_pos_format() const {
    static const char letters[] = "0 $-v";
    static const char parts[] = {std::money_base::none, std::money_base::space, std::money_base::symbol,
                                 std::money_base::sign, std::money_base::value};
    std::money_base::pattern made;
    for (int i = 0; i < 4; ++i) made.field[i] = parts[strchr(letters, asked().pattern[i]) - letters];
    return made;
  }
  std::money_base::pattern do_neg_format() const { return do_pos_format(); }

private:
  const money_rules &asked() const { return rules_.asked ? rules_.asked() : void(), rules_; }
  const money_rules rules_;
};
inline std::locale with_money(const money_rules &rules) {
  const std::locale local(std::locale::classic(), new chosen_money<false>(rules));
  return std::locale(local, new chosen_money<true>(rules));
}

// Over strings.
typedef std::back_insert_iterator<std::string> money_out;
typedef own_facet<std::money_put<char, money_out> > money_writer;

struct money_stream : std::ios {
  explicit money_stream(const std::locale &loc, int wanted = 0) : std::ios(0) {
    imbue(loc), flags(std::ios_base::fmtflags(wanted));
  }
};

template <class Amount>
std::string money_text(std::ios &stream, bool intl, const Amount &amount, int width = 0, char fill = '*') {
  std::string text;
  stream.width(width);
  money_writer().put(money_out(text), intl, stream, fill, amount);
  return text;
}

struct amount_reading {
  std::ios *stream;
  bool intl;
  std::string digits;
  template <class Iterator> Iterator read(Iterator in, Iterator end, std::ios_base::iostate &err) {
    return own_facet<std::money_get<char, Iterator> >().get(in, end, intl, *stream, err, digits);
  }
  bool same(const amount_reading &other) const { return digits == other.digits; }
};

// "digits" or "!" for failure, then '.' when the input ended, then what was left.
inline std::string money_read(std::ios &stream, bool intl, const std::string &text, size_t step = 5) {
  amount_reading got = {&stream, intl, "?"};
  int err;
  const std::string left = read_all_ways(text, step, got, err);
  must(left.empty() == bool(err & std::ios_base::eofbit), "eofbit", text);
  return got.digits + (err & std::ios_base::failbit ? "!" : "") + (left.empty() ? "." : "") + left;
}

#endif
