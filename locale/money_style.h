// What money_get and money_put ask a moneypunct for, at once. Strings are made by the calls that return them, each
// before the next facet operation: always as eh_local, one by one.
#pragma once

#include <limits.h>

#include <plx/facets/moneypunct.h>

#include "../libC/eh_tools.h"

namespace __zor {

// Both forms of moneypunct as one: their operations differ in the object alone.
class money_facet {
public:
  money_facet(const std::locale &loc, bool intl)
      : local_(intl ? nullptr : &std::use_facet<std::moneypunct<char, false>>(loc)),
        international_(intl ? &std::use_facet<std::moneypunct<char, true>>(loc) : nullptr) {}

  char decimal_point() const { return local_ ? local_->decimal_point() : international_->decimal_point(); }
  char thousands_sep() const { return local_ ? local_->thousands_sep() : international_->thousands_sep(); }
  std::string grouping() const { return local_ ? local_->grouping() : international_->grouping(); }
  std::string curr_symbol() const { return local_ ? local_->curr_symbol() : international_->curr_symbol(); }
  std::string positive_sign() const { return local_ ? local_->positive_sign() : international_->positive_sign(); }
  std::string negative_sign() const { return local_ ? local_->negative_sign() : international_->negative_sign(); }
  std::money_base::pattern pos_format() const { return local_ ? local_->pos_format() : international_->pos_format(); }
  std::money_base::pattern neg_format() const { return local_ ? local_->neg_format() : international_->neg_format(); }

  // As the layout uses them: what no locale means, among it the C library's 127 for "not available", is none.
  unsigned decimals() const {
    const int digits = local_ ? local_->frac_digits() : international_->frac_digits();
    return digits < 0 || digits >= CHAR_MAX ? 0 : static_cast<unsigned>(digits);
  }

private:
  const std::moneypunct<char, false> *local_;
  const std::moneypunct<char, true> *international_;
};

// A string that a facet's operation returns, for eh_local: made by the call itself.
template <std::string (money_facet::*operation)() const> struct money_string {
  explicit money_string(const money_facet &facet) : text((facet.*operation)()) {}
  const std::string text;
};

}  // namespace __zor
