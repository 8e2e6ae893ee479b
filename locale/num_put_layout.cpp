// How num_put lays a number's text out: groups of digits, the locale's decimal point, width and fill.
//
//     -1234567.5e+10      sign or base, digits that are grouped, point, rest, extra zeros before the exponent
//     |`-----'|`---'
//
// Where a text has no point, all of it is digits as far as grouping goes, so that an exponent without a point before
// it, "1e+10", keeps its small letter, and infinity is grouped like a number.

#include <locale.h>

#include <plx/facets/num_put.h>

#include "../libC/eh_tools.h"
#include "../numbers/grouping.h"
#include "../numbers/write.h"
#include "ios_base_access.h"
#include "plain_facets.h"

using namespace std;

namespace __zor {

namespace {

// What the layout asks of the locale.
struct a_punctuation {
  const numpunct<char> *facet;  // null: as in "C"
  const ctype<char> *classes;   // null: digits and letters are what they are
  char separator;
  group_sizes sizes;

  char widened(char c) const { return classes ? classes->widen(c) : c; }
};

// Parts of the number's text; what the locale and the stream gave goes by _fill.
void put_widened(a_text_sink *sink, const char *first, const char *last, const ctype<char> &classes) {
  char block[64];
  while (first != last) {
    const size_t n = last - first < 64 ? static_cast<size_t>(last - first) : 64;
    classes.widen(first, first + n, block);
    sink->_put(sink, block, n);
    first += n;
  }
}
inline void put(a_text_sink *sink, const char *first, const char *last, const a_punctuation &punctuation) {
  if (punctuation.classes) return put_widened(sink, first, last, *punctuation.classes);
  if (first != last) sink->_put(sink, first, static_cast<unsigned>(last - first));
}

// Sign or base, fill and digits in their order. Returns the fill that is to come behind the number.
unsigned put_whole(a_text_sink *sink, const ios_base &str, char fill, const char *text, const char *whole_end,
                   unsigned prefix, unsigned behind, const a_punctuation &punctuation) {
  const digit_groups groups(punctuation.sizes, static_cast<unsigned>(whole_end - text) - prefix);
  const unsigned length = static_cast<unsigned>(whole_end - text) + groups.separators + behind;
  unsigned pad = str.width() > 0 && static_cast<unsigned>(str.width()) > length ? str.width() - length : 0;
  const int adjust = str.flags() & ios_base::adjustfield;
  const char *from = text;
  if (adjust == ios_base::internal) {
    put(sink, text, text + prefix, punctuation);
    from += prefix;
  }
  if (pad && adjust != ios_base::left) {
    sink->_fill(sink, fill, pad);
    pad = 0;
  }
  const char *to = text + prefix + groups.head;
  put(sink, from, to, punctuation);
  for (unsigned group = groups.separators; group-- != 0;) {
    sink->_fill(sink, punctuation.separator, 1);
    from = to;
    to += punctuation.sizes[group];
    put(sink, from, to, punctuation);
  }
  return pad;
}

void put_integer_with(a_text_sink *sink, ios_base &str, char fill, const char *text, unsigned n,
                      const a_punctuation &punctuation) {
  const unsigned pad = put_whole(sink, str, fill, text, text + n, integer_prefix(text, n), 0, punctuation);
  str.width(0);
  if (pad) sink->_fill(sink, fill, pad);
}

void put_float_with(a_text_sink *sink, ios_base &str, char fill, const char *text, unsigned n, unsigned extra_zeros,
                    char point, const a_punctuation &punctuation) {
  const char *const end = text + n;
  const char *at = static_cast<const char *>(memchr(text, point, n));
  if (!at) at = end;
  const unsigned behind = static_cast<unsigned>(end - at) + extra_zeros;
  const unsigned pad = put_whole(sink, str, fill, text, at, sign_prefix(text), behind, punctuation);
  if (at != end) {
    sink->_fill(sink, punctuation.facet ? punctuation.facet->decimal_point() : '.', 1);
    ++at;
  }
  const char *exponent = static_cast<const char *>(memchr(at, 'e', static_cast<size_t>(end - at)));
  if (exponent) {
    put(sink, at, exponent, punctuation);
    if (extra_zeros) sink->_fill(sink, punctuation.widened('0'), extra_zeros);
    sink->_fill(sink, punctuation.widened(str.flags() & ios_base::uppercase ? 'E' : 'e'), 1);
    at = exponent + 1;
  }
  put(sink, at, end, punctuation);
  if (!exponent && extra_zeros) sink->_fill(sink, punctuation.widened('0'), extra_zeros);
  str.width(0);
  if (pad) sink->_fill(sink, fill, pad);
}

struct a_grouping {
  explicit a_grouping(const numpunct<char> &facet) : text(facet.grouping()) {}
  group_sizes sizes() const { return group_sizes(group_sizes::of_written, text.data(), text.size()); }
  const string text;
};

// body(punctuation) with what the stream's locale says. The locale is held: what runs meanwhile may change the
// stream's.
template <class Body> inline void with_punctuation(const ios_base &str, Body body) {
  if (has_plain_num_put(ios_base_access::loc(str)))
    return body(a_punctuation{nullptr, nullptr, 0, group_sizes(group_sizes::of_written, nullptr, 0)});
  eh_local<locale> loc(str.getloc());
  const numpunct<char> &facet = use_facet<numpunct<char>>(*loc);
  const ctype<char> &classes = use_facet<ctype<char>>(*loc);
  const char separator = facet.thousands_sep();
  eh_local<a_grouping> grouping(facet);
  body(a_punctuation{&facet, has_plain_ctype(*loc) ? nullptr : &classes, separator, grouping->sizes()});
}

}  // namespace

void put_integer_text(a_text_sink *sink, ios_base &str, char fill, const char *text, unsigned n) {
  with_punctuation(str,
                   [&](const a_punctuation &punctuation) { put_integer_with(sink, str, fill, text, n, punctuation); });
}

void put_float_text(a_text_sink *sink, ios_base &str, char fill, const char *text, unsigned n, unsigned extra_zeros,
                    char point) {
  with_punctuation(str, [&](const a_punctuation &punctuation) {
    put_float_with(sink, str, fill, text, n, extra_zeros, point, punctuation);
  });
}

char local_decimal_point() noexcept { return localeconv()->decimal_point[0]; }

void make_integer_format(char *format, char conversion, int flags) noexcept {
  integer_format(format, conversion, static_cast<unsigned>(flags));
}
void make_float_format(char *format, char modifier, int flags) noexcept {
  float_format(format, modifier, static_cast<unsigned>(flags));
}

}  // namespace __zor
