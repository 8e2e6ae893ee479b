// The steps of num_put: which text, and the two classes that the library instantiates. How a text is grouped and filled
// is in num_put_layout.cpp.

#include <plx/facets/num_put.h>

#include "../libC/eh_tools.h"
#include "../numbers/write.h"
#include "ios_base_access.h"
#include "plain_facets.h"
#include "standard_facets.h"

using namespace std;

namespace __zor {

static_assert(number_dec == ios_base::dec && number_fixed == ios_base::fixed && number_hex == ios_base::hex &&
                  number_internal == ios_base::internal && number_left == ios_base::left &&
                  number_oct == ios_base::oct && number_right == ios_base::right &&
                  number_scientific == ios_base::scientific && number_showbase == ios_base::showbase &&
                  number_showpoint == ios_base::showpoint && number_showpos == ios_base::showpos &&
                  number_uppercase == ios_base::uppercase,
              "flags of numbers and of streams");

namespace {

// The digits to ask for, and the zeros that follow them.
struct a_number_precision {
  a_number_precision(unsigned flags, int wanted) : digits(6), zeros(0) {
    const int least = flags & number_fixed ? 0 : 1;
    if (wanted < least) return;
    digits = static_cast<unsigned>(wanted);
    if (digits <= number_precision_limit) return;
    zeros = digits - number_precision_limit;
    digits = number_precision_limit;
  }
  unsigned digits, zeros;
};

struct truth_name {
  truth_name(const numpunct<char> &names, bool value) : text(name(names, value)) {}
  static string name(const numpunct<char> &names, bool value) { return value ? names.truename() : names.falsename(); }
  const string text;
};

template <class Integer> void put_integer(a_text_sink *sink, ios_base &str, char fill, Integer value) {
  char text[integer_text_room];
  const char *const end = integer_text(text, static_cast<unsigned>(str.flags()), value);
  put_integer_text(sink, str, fill, text, static_cast<unsigned>(end - text));
}

// As the stream's ctype has it, where there is one: neither a bool nor a pointer needs a facet.
void widen(const ios_base &str, char *first, char *last) {
  if (has_plain_num_put(ios_base_access::loc(str))) return;
  eh_local<locale> loc(str.getloc());
  if (!has_plain_ctype(*loc) && has_facet<ctype<char>>(*loc)) use_facet<ctype<char>>(*loc).widen(first, last, first);
}

}  // namespace

void put_bool(a_text_sink *sink, ios_base &str, bool value) {
  if (!(str.flags() & ios_base::boolalpha)) {
    char digit = value ? '1' : '0';
    widen(str, &digit, &digit + 1);
    return sink->_put(sink, &digit, 1);
  }
  if (has_plain_num_put(ios_base_access::loc(str)))
    return value ? sink->_put(sink, "true", 4) : sink->_put(sink, "false", 5);
  eh_local<locale> loc(str.getloc());
  eh_local<truth_name> name(use_facet<numpunct<char>>(*loc), value);
  sink->_put(sink, name->text.data(), name->text.size());
}

void put_long(a_text_sink *sink, ios_base &str, char fill, long value) { put_integer(sink, str, fill, value); }

void put_unsigned_long(a_text_sink *sink, ios_base &str, char fill, unsigned long value) {
  put_integer(sink, str, fill, value);
}

void put_double(a_text_sink *sink, ios_base &str, char fill, double value) {
  char text[double_text_room];
  const unsigned flags = static_cast<unsigned>(str.flags());
  const a_number_precision precision(flags, str.precision());
  const char *const end = double_text(text, flags, precision.digits, value);
  put_float_text(sink, str, fill, text, static_cast<unsigned>(end - text), precision.zeros, '.');
}

void put_long_double(a_text_sink *sink, ios_base &str, char fill, long double value) {
  char text[long_double_text_room];
  const unsigned flags = static_cast<unsigned>(str.flags());
  const a_number_precision precision(flags, str.precision());
  const char *const end = long_double_text(text, flags, precision.digits, value);
  put_float_text(sink, str, fill, text, static_cast<unsigned>(end - text), precision.zeros, '.');
}

void put_pointer(a_text_sink *sink, ios_base &str, char fill, const void *value) {
  char text[integer_text_room];
  const int length = static_cast<int>(pointer_text(text, value) - text);
  widen(str, text, text + length);
  const int pad = str.width() > length ? str.width() - length : 0;
  const int adjust = str.flags() & ios_base::adjustfield;
  if (pad && adjust == ios_base::left) sink->_fill(sink, fill, static_cast<unsigned>(pad));
  sink->_put(sink, text, static_cast<unsigned>(length));
  str.width(0);
  if (pad && adjust == ios_base::right) sink->_fill(sink, fill, static_cast<unsigned>(pad));
}

}  // namespace __zor

namespace std {

template class num_put<char, ostreambuf_iterator<char>>;
template class num_put<char, char *>;

}  // namespace std

const __zor::standard_facet __zor::num_put_facet = {made_alike<std::num_put<char>>, &std::num_put<char>::id};
