// num_get's scanner of floating numbers.
#include <plx/ctype.h>
#include <plx/num_get.h>

#include "../libC/eh_tools.h"
#include "character_cursor.h"
#include "digit_groups.h"
#include "digits.h"
#include "ios_base_access.h"
#include "number_value.h"

using namespace std;

namespace __zor {
namespace {

// False when the digits are grouped wrongly. What is read need not be a number: that shows in `text`.
bool scan(character_cursor &in, ios_base &str, decimal_text &text) {
  const locale &loc = ios_base_access::loc(str);
  const numpunct<char> &punct = use_facet<numpunct<char>>(loc);
  eh_local<digit_groups> groups(punct);
  const char separator = punct.thousands_sep();
  const char point = punct.decimal_point();
  const ctype<char> &classes = use_facet<ctype<char>>(loc);

  // The sign comes before white space.
  if (in.pass('-'))
    text.negate();
  else
    in.pass('+');
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
  if (in.pass(point))
    for (; !in.at_end() && digit_of(*in) <= 9; in.pass()) text.fraction_digit(digit_of(*in));
  if (in.pass('e') || in.pass('E')) {
    if (in.pass('-'))
      text.negate_exponent();
    else
      in.pass('+');
    for (; !in.at_end() && digit_of(*in) <= 9; in.pass()) text.exponent_digit(digit_of(*in));
  }
  return groups->hold();
}

template <class Real> bool read(character_source &from, ios_base &str, Real &v) {
  decimal_text text;
  character_cursor in(from);
  const bool grouped = scan(in, str, text);
  in.done();
  if (!grouped || !text.any_digit()) return false;
  text.get(v);
  return true;
}

}  // namespace

bool scan_real(character_source &from, ios_base &str, float &v) { return read(from, str, v); }
bool scan_real(character_source &from, ios_base &str, double &v) { return read(from, str, v); }
bool scan_real(character_source &from, ios_base &str, long double &v) { return read(from, str, v); }

}  // namespace __zor
