// moneypunct: the C library's punctuation of money, copied when the facet is built.

#include <plx/facets/moneypunct.h>

#include "../libC/eh_tools.h"
#include "c_locale.h"
#include "standard_facets.h"

using namespace __zor;

namespace std {

money_base::pattern money_base::get_pat() PLX_NOTHROW { return {{symbol, sign, none, value}}; }

money_base::pattern money_base::get_pat(int cs_precedes, int sep_by_space, int sign_posn, bool &paren) PLX_NOTHROW {
  // Four for each way of placing and separating the symbol: the sign before everything, behind everything, directly
  // before the symbol, directly behind it.
  static const pattern patterns[16] = {
      {{'-', 'v', '0', '?'}}, {{'v', '0', '?', '-'}}, {{'v', '0', '-', '?'}}, {{'v', '0', '?', '-'}},
      {{'-', 'v', ' ', '?'}}, {{'v', ' ', '?', '-'}}, {{'v', ' ', '-', '?'}}, {{'v', ' ', '?', '-'}},
      {{'-', '?', '0', 'v'}}, {{'?', '0', 'v', '-'}}, {{'-', '?', '0', 'v'}}, {{'?', '-', '0', 'v'}},
      {{'-', '?', ' ', 'v'}}, {{'?', ' ', 'v', '-'}}, {{'-', '?', ' ', 'v'}}, {{'?', '-', ' ', 'v'}}};
  paren = sign_posn == 0;
  const unsigned position = paren ? 0 : static_cast<unsigned>(sign_posn - 1) & 3;
  // Only bits of the table's range, whatever a program passes.
  return patterns[((cs_precedes & 1) * 8 + (sep_by_space & 1) * 4) | position];
}

namespace {

// The C library says 127 for what a locale leaves open, and 2 for a space on the sign's other side.
money_base::pattern local_pattern(char cs_precedes, char sep_by_space, char sign_posn, bool &paren) {
  return money_base::get_pat(cs_precedes > 1 ? 1 : cs_precedes, sep_by_space > 1 ? 0 : sep_by_space,
                             sign_posn > 7 ? 4 : sign_posn, paren);
}

struct sign_text {
  sign_text(const char *sign, bool paren) : text(paren ? in_parentheses(sign) : string(sign)) {}
  static string in_parentheses(const char *sign) {
    eh_local<string> made(sign);
    made->append("()", 2);
    return *made;
  }
  const string text;
};

}  // namespace

template <class Ct, bool Intl> void moneypunct<Ct, Intl>::_set_default() PLX_NOTHROW {
  _decimal_point_ = '.';
  _thousands_sep_ = ',';
  _frac_digits_ = 0;
  _pos_format_ = _neg_format_ = get_pat();
}

template <class Ct, bool Intl> moneypunct<Ct, Intl>::moneypunct(size_t refs) PLX_NOTHROW : facet(refs) {
  _set_default();
}
template <class Ct, bool Intl> moneypunct<Ct, Intl>::moneypunct(int refs) PLX_NOTHROW
    : facet(static_cast<size_t>(refs)) {
  _set_default();
}

// Nothing to undo when init throws: it changes the members last, and empty strings own nothing.
template <class Ct, bool Intl> moneypunct<Ct, Intl>::moneypunct(const char *name, size_t refs) : facet(refs) {
  init(name);
}

// Everything that may throw is made beside the members, and sharing a string cannot fail.
template <class Ct, bool Intl> void moneypunct<Ct, Intl>::init(const char *name) {
  eh_local<c_locale_switch> c_library;
  if (name && !c_library->to(name, LC_MONETARY)) invalid_locale_name();
  const lconv &c = *localeconv();
  pattern positive = get_pat(), negative = positive;
  bool positive_paren = false, negative_paren = false;
  if (!Intl) {
    positive = local_pattern(c.p_cs_precedes, c.p_sep_by_space, c.p_sign_posn, positive_paren);
    negative = local_pattern(c.n_cs_precedes, c.n_sep_by_space, c.n_sign_posn, negative_paren);
  }
  eh_local<string> symbol(Intl ? c.int_curr_symbol : c.currency_symbol);
  eh_local<string> sizes(c.mon_grouping);
  eh_local<sign_text> plus(c.positive_sign, positive_paren);
  eh_local<sign_text> minus(c.negative_sign, negative_paren);
  _decimal_point_ = c.mon_decimal_point[0];
  _thousands_sep_ = c.mon_thousands_sep[0];
  _curr_symbol_ = *symbol;
  _positive_sign_ = plus->text;
  _negative_sign_ = minus->text;
  _grouping_ = *sizes;
  _frac_digits_ = Intl ? c.int_frac_digits : c.frac_digits;
  _pos_format_ = positive;
  _neg_format_ = negative;
}

template <class Ct, bool Intl> moneypunct<Ct, Intl>::~moneypunct() {}

template <class Ct, bool Intl> Ct moneypunct<Ct, Intl>::do_decimal_point() const { return _decimal_point_; }
template <class Ct, bool Intl> Ct moneypunct<Ct, Intl>::do_thousands_sep() const { return _thousands_sep_; }
template <class Ct, bool Intl> auto moneypunct<Ct, Intl>::do_grouping() const -> string_type { return _grouping_; }
template <class Ct, bool Intl> auto moneypunct<Ct, Intl>::do_curr_symbol() const -> string_type {
  return _curr_symbol_;
}
template <class Ct, bool Intl> auto moneypunct<Ct, Intl>::do_positive_sign() const -> string_type {
  return _positive_sign_;
}
template <class Ct, bool Intl> auto moneypunct<Ct, Intl>::do_negative_sign() const -> string_type {
  return _negative_sign_;
}
template <class Ct, bool Intl> int moneypunct<Ct, Intl>::do_frac_digits() const { return _frac_digits_; }
template <class Ct, bool Intl> money_base::pattern moneypunct<Ct, Intl>::do_pos_format() const { return _pos_format_; }
template <class Ct, bool Intl> money_base::pattern moneypunct<Ct, Intl>::do_neg_format() const { return _neg_format_; }

template <class Ct, bool Intl> locale::id moneypunct<Ct, Intl>::id;

template class moneypunct<char, false>;
template class moneypunct<char, true>;
template class moneypunct_byname<char, false>;
template class moneypunct_byname<char, true>;

}  // namespace std

const __zor::standard_facet __zor::moneypunct_intl_facet = {made_by_name<std::moneypunct_byname<char, true>>,
                                                            &std::moneypunct<char, true>::id};
const __zor::standard_facet __zor::moneypunct_facet = {made_by_name<std::moneypunct_byname<char, false>>,
                                                       &std::moneypunct<char, false>::id};
