// The scanner of money_get. Input cannot be put back, so each part of the pattern is decided by the next character:
// what was read and then does not fit is an error.

#include <plx/facets/ctype.h>
#include <plx/facets/money_get.h>

#include <stdlib.h>
#include <string.h>

#include "../numbers/grouping.h"
#include "character_cursor.h"
#include "money_style.h"
#include "standard_facets.h"

using namespace std;

namespace __zor {

namespace {

// A plain local: what must be destroyed when an exception passes are its members.
class money_scanner {
public:
  // Asks the facets for everything, before anything is read.
  money_scanner(character_source &from, ios_base &str, bool intl)
      : in_(from),
        loc_(str.getloc()),
        classes_(use_facet<ctype<char>>(*loc_)),
        facet_(*loc_, intl),
        symbol_(facet_),
        plus_(facet_),
        minus_(facet_),
        groups_(group_sizes::of_money, facet_),
        pattern_(facet_.neg_format()),
        decimals_(facet_.decimals()),
        point_(facet_.decimal_point()),
        separator_(facet_.thousands_sep()),
        symbol_required_((str.flags() & ios_base::showbase) != 0) {
    classes_.widen(plain_digits, plain_digits + 10, digits_);
  }
  ~money_scanner() { in_.done(); }

  // The amount's digits in ASCII, with '-' in front if need be.
  bool scan(string &digits);

  void widen(string &digits) const {
    char *const text = &digits[0];
    classes_.widen(text, text + digits.size(), text);
  }

private:
  static constexpr const char *plain_digits = "0123456789";

  bool scan_part(int i, string &digits);
  bool scan_symbol(int i);
  bool scan_sign();
  bool scan_value(string &digits);
  bool more_is_needed(int i);
  bool scan_text(const string &text, size_t from);
  bool sign_is_required() { return !plus_->text.empty() && !minus_->text.empty(); }
  bool at(ctype_base::mask mask) { return !in_.at_end() && classes_.is(mask, *in_); }
  char digit_of(char c) const {
    const void *const found = memchr(digits_, c, sizeof digits_);
    return found ? plain_digits[static_cast<const char *>(found) - digits_] : '\0';
  }
  void skip_space() {
    while (at(ctype_base::space)) in_.pass();
  }

  character_cursor in_;
  eh_local<locale> loc_;
  const ctype<char> &classes_;
  const money_facet facet_;
  eh_local<money_string<&money_facet::curr_symbol>> symbol_;
  eh_local<money_string<&money_facet::positive_sign>> plus_;
  eh_local<money_string<&money_facet::negative_sign>> minus_;
  eh_local<group_check> groups_;
  const money_base::pattern pattern_;
  const unsigned decimals_;
  const char point_;
  const char separator_;
  const bool symbol_required_;
  char digits_[10];
  const string *sign_ = nullptr;  // the one that was recognized
};

bool money_scanner::scan(string &digits) {
  for (int i = 0; i < 4; ++i)
    if (!scan_part(i, digits)) return false;
  if (sign_ && !scan_text(*sign_, 1)) return false;
  if (digits.empty() || !groups_->hold()) return false;
  // Where nothing was recognized, the sign is the one that is written as nothing; positive, if both are.
  const bool negative = sign_ ? sign_ == &minus_->text : minus_->text.empty() && !plus_->text.empty();
  size_t zeros = 0;
  while (zeros + 1 < digits.size() && digits.data()[zeros] == '0') ++zeros;
  digits.erase(0, zeros);
  if (negative && digits.data()[0] != '0') digits.insert(0, 1, '-');
  return true;
}

bool money_scanner::scan_part(int i, string &digits) {
  switch (pattern_.field[i]) {
    case money_base::symbol: return scan_symbol(i);
    case money_base::sign: return scan_sign();
    case money_base::value: return scan_value(digits);
    case money_base::space:
      if (!at(ctype_base::space)) return false;
      in_.pass();
      [[fallthrough]];
    case money_base::none:
      if (i != 3) skip_space();
      return true;
    default: return true;
  }
}

// Whether the format cannot be complete without characters behind part i.
bool money_scanner::more_is_needed(int i) {
  if (sign_ && sign_->size() > 1) return true;
  for (++i; i < 4; ++i) {
    const char part = pattern_.field[i];
    if (part == money_base::value || part == money_base::space) return true;
    if (part == money_base::sign && sign_is_required()) return true;
  }
  return false;
}

bool money_scanner::scan_symbol(int i) {
  if (!symbol_required_) {
    if (!more_is_needed(i)) return true;
    if (symbol_->text.empty() || in_.at_end() || *in_ != symbol_->text.data()[0]) return true;
  }
  return scan_text(symbol_->text, 0);
}

bool money_scanner::scan_sign() {
  if (!plus_->text.empty() && in_.pass(plus_->text.data()[0]))
    sign_ = &plus_->text;
  else if (!minus_->text.empty() && in_.pass(minus_->text.data()[0]))
    sign_ = &minus_->text;
  else
    return !sign_is_required();
  return true;
}

bool money_scanner::scan_text(const string &text, size_t from) {
  for (; from < text.size(); ++from)
    if (!in_.pass(text.data()[from])) return false;
  return true;
}

// Digits, groups of them, and decimals: all that can belong to the value.
bool money_scanner::scan_value(string &digits) {
  const bool grouped = separator_ != 0 && groups_->sizes()[0] != group_sizes::unlimited;
  unsigned decimals = 0;
  bool with_decimals = false;
  for (; !in_.at_end(); in_.pass()) {
    if (const char digit = digit_of(*in_)) {
      digits.append(1, digit);
      if (with_decimals)
        ++decimals;
      else
        groups_->digit();
    } else if (*in_ == point_ && decimals_ != 0 && !with_decimals) {
      with_decimals = true;
    } else if (*in_ == separator_ && grouped && !with_decimals) {
      if (groups_->at_group_start()) return false;
      groups_->separator();
    } else {
      break;
    }
  }
  return !digits.empty() && (!with_decimals || decimals == decimals_);
}

}  // namespace

bool scan_money(character_source &from, ios_base &str, bool intl, string &digits) {
  money_scanner scanner(from, str, intl);
  eh_local<string> found;
  if (!scanner.scan(*found)) return false;
  scanner.widen(*found);
  digits = *found;
  return true;
}

bool scan_money(character_source &from, ios_base &str, bool intl, long double &units) {
  money_scanner scanner(from, str, intl);
  eh_local<string> found;
  if (!scanner.scan(*found)) return false;
  units = strtold(found->c_str(), nullptr);
  return true;
}

}  // namespace __zor

namespace std {

template class money_get<char, istreambuf_iterator<char>>;
template class money_get<char, char *>;

}  // namespace std

const __zor::standard_facet __zor::money_get_facet = {made_alike<std::money_get<char>>, &std::money_get<char>::id};
