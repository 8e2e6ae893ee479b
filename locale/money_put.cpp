// The text of an amount of money, for money_put.
//
//     $  -  1,234.56  )      the parts in the pattern's order, then the rest of the sign
//     |  |  |         |
//     symbol, first of the sign, value, rest of the sign "-)"; fill at one place, if the text is narrower than the
//     width

#include "../containers/cleanup_by_hand.h"

#include <plx/facets/money_put.h>

#include <stdio.h>

#include "../numbers/grouping.h"
#include "money_style.h"
#include "standard_facets.h"

using namespace std;

namespace __zor {

namespace {

using sign_string = money_string<&money_facet::positive_sign>;
using minus_string = money_string<&money_facet::negative_sign>;

// Digits with separators, without decimals. A locale whose separator is an empty text has none.
void append_grouped(string &text, const char *digits, size_t n, const string &grouping, char separator) {
  const group_sizes sizes(group_sizes::of_money, grouping.data(), separator != 0 ? grouping.size() : 0);
  const digit_groups groups(sizes, n);
  text.append(digits, groups.head);
  digits += groups.head;
  for (unsigned group = groups.separators; group-- != 0; digits += sizes[group]) {
    text.append(1, separator);
    text.append(digits, sizes[group]);
  }
}

void append_value(string &text, const money_facet &facet, const char *digits, size_t n, char zero) {
  const size_t decimals = facet.decimals();
  eh_local<money_string<&money_facet::grouping>> grouping(facet);
  if (n > decimals)
    append_grouped(text, digits, n - decimals, grouping->text, facet.thousands_sep());
  else
    text.append(1, zero);
  if (decimals == 0) return;
  text.append(1, facet.decimal_point());
  if (n < decimals) text.append(decimals - n, zero);
  const size_t from_digits = n < decimals ? n : decimals;
  text.append(digits + n - from_digits, from_digits);
}

// The parts, and where the pattern has room for fill.
size_t append_parts(string &text, const money_facet &facet, bool with_symbol, bool negative, const char *digits,
                    size_t n, const ctype<char> &classes) {
  const money_base::pattern pattern = negative ? facet.neg_format() : facet.pos_format();
  eh_local<string> sign;
  if (negative)
    *sign = eh_local<minus_string>(facet)->text;
  else
    *sign = eh_local<sign_string>(facet)->text;
  size_t gap = string::npos;
  for (int i = 0; i < 4; ++i) switch (pattern.field[i]) {
      case money_base::symbol:
        if (with_symbol) text += eh_local<money_string<&money_facet::curr_symbol>>(facet)->text;
        break;
      case money_base::sign:
        if (!sign->empty()) text.append(*sign, 0, 1);
        break;
      case money_base::value: append_value(text, facet, digits, n, classes.widen('0')); break;
      case money_base::space: text.append(1, classes.widen(' ')); [[fallthrough]];
      case money_base::none:
        if (gap == string::npos) gap = text.size();
        break;
    }
  if (sign->size() > 1) text.append(*sign, 1, string::npos);
  return gap == string::npos ? 0 : gap;
}

}  // namespace

void make_money_text(string &text, ios_base &str, bool intl, char fill, const char *digits, size_t n) {
  eh_local<locale> loc(str.getloc());
  const ctype<char> &classes = use_facet<ctype<char>>(*loc);
  const money_facet facet(*loc, intl);
  const bool negative = n != 0 && *digits == classes.widen('-');
  if (negative) ++digits, --n;
  n = static_cast<size_t>(classes.scan_not(ctype_base::digit, digits, digits + n) - digits);
  if (n != 0) {
    const size_t gap = append_parts(text, facet, (str.flags() & ios_base::showbase) != 0, negative, digits, n, classes);
    if (str.width() > 0 && static_cast<size_t>(str.width()) > text.size()) {
      const int adjust = str.flags() & ios_base::adjustfield;
      const size_t at = adjust == ios_base::internal ? gap : adjust == ios_base::left ? text.size() : 0;
      text.insert(at, static_cast<size_t>(str.width()) - text.size(), fill);
    }
  }
  str.width(0);
}

void make_money_text(string &text, ios_base &str, bool intl, char fill, long double units) {
  // The greatest has 4933 digits.
  char digits[4960];
  const size_t n = static_cast<size_t>(snprintf(digits, sizeof digits, "%.0Lf", units));
  {
    eh_local<locale> loc(str.getloc());
    use_facet<ctype<char>>(*loc).widen(digits, digits + n, digits);
  }
  make_money_text(text, str, intl, fill, digits, n);
}

}  // namespace __zor

namespace std {

template class money_put<char, ostreambuf_iterator<char>>;
template class money_put<char, char *>;

}  // namespace std

const __zor::standard_facet __zor::money_put_facet = {made_alike<std::money_put<char>>, &std::money_put<char>::id};
