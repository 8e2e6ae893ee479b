// num_get's scanner of integers, and of pointers.
#include <plx/facets/ctype.h>
#include <plx/facets/num_get.h>
#include <plx/facets/numpunct.h>

#include "../libC/eh_tools.h"
#include "../numbers/grouping.h"
#include "../numbers/read.h"
#include "character_cursor.h"
#include "ios_base_access.h"

using namespace std;

namespace __zor {
namespace {

inline bool append(unsigned long &value, unsigned int digit, int base) {
  if (base == 10) return integer_append(value, digit);
  const int shift = base == 16 ? 4 : 3;
  if (value >> (32 - shift)) return false;
  value = value << shift | digit;
  return true;
}

// Sets `base` to -1 for errors.
unsigned long scan(character_cursor &in, const locale &loc, int flags, int &base, bool is_signed, unsigned long max) {
  const numpunct<char> &punct = use_facet<numpunct<char>>(loc);
  eh_local<group_check> groups(group_sizes::of_read, punct);
  const char separator = punct.thousands_sep();
  const ctype<char> &classes = use_facet<ctype<char>>(loc);

  // The sign comes before white space.
  const bool negative = in.pass('-');
  if (!negative) in.pass('+');
  if (flags & ios_base::skipws)
    while (!in.at_end() && classes.is(ctype_base::space, *in)) in.pass();

  const int field = flags & ios_base::basefield;
  base = field == ios_base::dec ? 10 : field == ios_base::hex ? 16 : field == ios_base::oct ? 8 : 0;
  bool any = false;
  if (in.pass('0')) {
    if ((base == 16 || base == 0) && (in.pass('x') || in.pass('X'))) {
      base = 16;
    } else {
      any = true;
      if (base == 0) base = 8;
    }
  }
  if (base == 0) {
    base = -1;
    return 0;
  }

  const unsigned int end_of_digits = base;
  unsigned long value = 0;
  bool fits = true;
  for (; !in.at_end(); in.pass()) {
    const unsigned int digit = hex_digit_of(*in);
    if (digit < end_of_digits) {
      if (fits && !append(value, digit, base)) {
        fits = false;
        // Decimal digits are read to their end.
        if (base != 10) break;
      }
      any = true;
      groups->digit();
    } else if (groups->allowed() && *in == separator) {
      groups->separator();
    } else {
      break;
    }
  }
  if (!fits) {
    base = -1;
    return integer_limit(negative, is_signed, max);
  }
  if (!integer_fit(value, negative, is_signed, max) || !any || !groups->hold()) base = -1;
  return value;
}

}  // namespace

unsigned long scan_integer(character_source &from, ios_base &str, int &base, bool is_signed, unsigned long max) {
  character_cursor in(from);
  const unsigned long value = scan(in, ios_base_access::loc(str), str.flags(), base, is_signed, max);
  in.done();
  return value;
}

bool scan_pointer(character_source &from, ios_base &str, void *&v) {
  character_cursor in(from);
  int base = -1;
  unsigned long value = 0;
  if (in.pass('(')) {
    if (in.pass('n') && in.pass('i') && in.pass('l') && in.pass(')')) base = 16;
  } else {
    const int flags = (str.flags() & ~ios_base::basefield) | ios_base::hex;
    value = scan(in, ios_base_access::loc(str), flags, base, false, 0xFFFFFFFFul);
  }
  in.done();
  if (base == -1) return false;
  v = reinterpret_cast<void *>(value);
  return true;
}

}  // namespace __zor
