// num_get's scanner of floating numbers: into a value, or into a text for sscanf.
#include <stdio.h>

#include <plx/facets/ctype.h>
#include <plx/facets/num_get.h>
#include <plx/facets/num_put.h>
#include <plx/facets/numpunct.h>

#include "../libC/eh_tools.h"
#include "../numbers/grouping.h"
#include "../numbers/read.h"
#include "character_cursor.h"
#include "ios_base_access.h"

using namespace std;

namespace __zor {
namespace {

// What the scanner tells a decimal_text. A text wants to know of more, the characters themselves.
struct value_of_text : decimal_text {
  void sign(char c) noexcept {
    if (c == '-') negate();
  }
  void point() noexcept {}
  void exponent(char) noexcept {}
  void exponent_sign(char c) noexcept {
    if (c == '-') negate_exponent();
  }
};

// The characters as they come, as many as there is room for; and from what is counted besides, a shorter text of about
// the same value where they are more.
class copied_text {
public:
  explicit copied_text(char *text) noexcept : text_(text) {}

  void sign(char c) noexcept { add(c); }
  void digit(unsigned int digit) noexcept {
    if (another_leading_zero(digit)) return;
    if (length_ >= mantissa_room) ++scale_;
    add_digit(digit);
  }
  void point() noexcept { add(local_decimal_point()); }
  void fraction_digit(unsigned int digit) noexcept {
    if (another_leading_zero(digit)) {
      --scale_;
      shortened_ = true;
      return;
    }
    add_digit(digit);
  }
  void exponent(char c) noexcept {
    mantissa_ = length_;
    add(c);
  }
  void exponent_sign(char c) noexcept {
    negative_ = c == '-';
    add(c);
  }
  void exponent_digit(unsigned int digit) noexcept {
    if (exponent_ < 100000000) exponent_ = exponent_ * 10 + static_cast<int>(digit);
    add_digit(digit);
  }

  void end() noexcept {
    text_[length_ < room ? length_ : room - 1] = 0;
    if (length_ < room && !shortened_) return;
    unsigned int n = mantissa_ < length_ ? mantissa_ : length_;
    if (n > mantissa_room) n = mantissa_room;
    const long long exponent = scale_ + (negative_ ? -exponent_ : exponent_);
    snprintf(text_ + n, room - n, "e%lld", exponent);
  }

private:
  enum : unsigned int { room = 200, mantissa_room = 170, zeros_room = 40 };

  bool another_leading_zero(unsigned int digit) noexcept {
    if (digit != 0) only_zeros_ = false;
    return only_zeros_ && length_ >= zeros_room;
  }

  void add(char c) noexcept {
    if (length_ < room - 1) text_[length_] = c;
    if (length_ < room) ++length_;
  }
  void add_digit(unsigned int digit) noexcept { add(static_cast<char>('0' + digit)); }

  char *text_;
  unsigned int length_ = 0;
  unsigned int mantissa_ = room;  // its length, once an exponent has begun
  long long scale_ = 0;           // what the short form's exponent has to add, for digits that are not in it
  int exponent_ = 0;
  bool negative_ = false;
  bool only_zeros_ = true;
  bool shortened_ = false;
};

// False when the digits are grouped wrongly. What is read need not be a number: that shows in `text`.
template <class Text> [[gnu::always_inline]] inline bool scan(character_cursor &in, ios_base &str, Text &text) {
  const locale &loc = ios_base_access::loc(str);
  const numpunct<char> &punct = use_facet<numpunct<char>>(loc);
  eh_local<group_check> groups(group_sizes::of_read, punct);
  const char separator = punct.thousands_sep();
  const char point = punct.decimal_point();
  const ctype<char> &classes = use_facet<ctype<char>>(loc);

  // The sign comes before white space.
  if (in.pass('-'))
    text.sign('-');
  else if (in.pass('+'))
    text.sign('+');
  if (str.flags() & ios_base::skipws)
    while (!in.at_end() && classes.is(ctype_base::space, *in)) in.pass();

  for (; !in.at_end(); in.pass()) {
    const unsigned int digit = digit_of(*in);
    if (digit <= 9) {
      text.digit(digit);
      groups->digit();
    } else if (groups->allowed() && *in == separator) {
      groups->separator();
    } else {
      break;
    }
  }
  if (in.pass(point)) {
    text.point();
    for (; !in.at_end() && digit_of(*in) <= 9; in.pass()) text.fraction_digit(digit_of(*in));
  }
  const bool lower = in.pass('e');
  if (lower || in.pass('E')) {
    text.exponent(lower ? 'e' : 'E');
    if (in.pass('-'))
      text.exponent_sign('-');
    else if (in.pass('+'))
      text.exponent_sign('+');
    for (; !in.at_end() && digit_of(*in) <= 9; in.pass()) text.exponent_digit(digit_of(*in));
  }
  return groups->hold();
}

template <class Real> bool read(character_source &from, ios_base &str, Real &v) {
  value_of_text text;
  character_cursor in(from);
  const bool grouped = scan(in, str, text);
  in.done();
  if (!grouped || !text.any_digit()) return false;
  text.get(v);
  return true;
}

}  // namespace

bool scan_real_text(character_source &from, ios_base &str, char *text) {
  copied_text copy(text);
  character_cursor in(from);
  const bool grouped = scan(in, str, copy);
  in.done();
  copy.end();
  return grouped;
}

bool scan_real(character_source &from, ios_base &str, float &v) { return read(from, str, v); }
bool scan_real(character_source &from, ios_base &str, double &v) { return read(from, str, v); }
bool scan_real(character_source &from, ios_base &str, long double &v) { return read(from, str, v); }

}  // namespace __zor
