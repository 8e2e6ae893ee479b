// Inserters of numbers that no long holds. num_put knows none, so the text is made here; the facet groups and fills it.

#include <plx/facets/num_put.h>

#include "../numbers/write.h"
#include "output_operation.h"

using namespace __zor;

namespace std {

namespace {

typedef num_put<char, ostreambuf_iterator<char>> a_num_put;

// 22 octal digits, a sign or a base.
constexpr int room = 24 + integer_text_room;

char *digits_in_base(char *at, unsigned flags, unsigned long long value, unsigned bits) {
  const char *const digits = flags & ios_base::uppercase ? "0123456789ABCDEF" : "0123456789abcdef";
  if (flags & ios_base::showbase) {
    *at++ = '0';
    if (bits == 4) *at++ = flags & ios_base::uppercase ? 'X' : 'x';
  }
  int shift = 63 / bits * bits;
  while (!(value >> shift)) shift -= bits;
  for (; shift >= 0; shift -= bits) *at++ = digits[value >> shift & ((1u << bits) - 1)];
  return at;
}

// The value is at least 2^31, whichever way it is read.
ostream &insert_text_of(ostream &out, bool negative, bool is_signed, unsigned long long value) {
  output_operation(out, ios_base::goodbit, [&](iostate &) {
    char text[room], *at = text;
    const unsigned flags = stream_access::flags(out), base = flags & ios_base::basefield;
    if (base == ios_base::hex || base == ios_base::oct) {
      at = digits_in_base(at, flags, value, base == ios_base::hex ? 4 : 3);
    } else {
      if (negative)
        *at++ = '-';
      else if (is_signed && (flags & ios_base::showpos))
        *at++ = '+';
      const unsigned long long size = negative ? 0 - value : value;
      at = long_digits(at, static_cast<unsigned>(size >> 32), static_cast<unsigned>(size));
    }
    use_facet<a_num_put>(stream_access::loc(out)).print_integral_type(out, out, out.fill(), text, at - text);
  });
  return out;
}

}  // namespace

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(long long value) {
  const unsigned base = this->flags() & ios_base::basefield;
  // In hexadecimal and octal a negative number shows all its bits.
  if (value == static_cast<long>(value) && (value >= 0 || (base != ios_base::hex && base != ios_base::oct)))
    return *this << static_cast<long>(value);
  return insert_text_of(*this, value < 0, true, static_cast<unsigned long long>(value));
}

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(unsigned long long value) {
  if (value == static_cast<unsigned long>(value)) return *this << static_cast<unsigned long>(value);
  return insert_text_of(*this, false, false, value);
}

template ostream &ostream::operator<<(long long);
template ostream &ostream::operator<<(unsigned long long);

}  // namespace std
