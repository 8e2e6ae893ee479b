// The extractors of long long, which num_get does not know. They read what it reads for a long: sign, white space if
// skipws is set, prefix, digits; beyond the range the limit is stored, and without digits 0.

#include "../numbers/digits.h"
#include "input_operation.h"

namespace __zor {

namespace {

typedef unsigned long long wide;

class long_long_scanner {
public:
  long_long_scanner(const std::ctype<char> &classes, ios_base::fmtflags flags, bool is_signed)
      : classes_(classes), skips_(flags & ios_base::skipws), is_signed_(is_signed) {
    const ios_base::fmtflags base = flags & ios_base::basefield;
    base_ = base == ios_base::dec ? 10 : base == ios_base::hex ? 16 : base == ios_base::oct ? 8 : 0;
  }

  bool operator()(const char *&at, const char *end) {
    for (; at != end; ++at)
      if (!take(*at)) return false;
    return true;
  }

  bool failed() const { return overflow_ || !any_ || value_ > most(); }
  wide value() const {
    if (overflow_ || value_ > most()) return is_signed_ ? most() : ~0ull;
    return negative_ ? 0 - value_ : value_;
  }

private:
  enum where { at_sign, at_space, at_zero, at_x, at_digits };

  // The largest magnitude. Unsigned types take negative numbers down to minus half their range.
  wide most() const {
    const wide half = 1ull << 63;
    return negative_ ? half : is_signed_ ? half - 1 : ~0ull;
  }

  bool take(char c) {
    switch (where_) {
      case at_sign:
        where_ = at_space;
        if (c == '-' || c == '+') {
          negative_ = c == '-';
          return true;
        }
        [[fallthrough]];
      case at_space:
        if (skips_ && classes_.is(std::ctype_base::space, c)) return true;
        where_ = at_digits;
        if (c == '0') {
          any_ = true;
          where_ = at_x;
          return true;
        }
        return digit(c);
      case at_x:
        where_ = at_digits;
        if ((c == 'x' || c == 'X') && (base_ == 16 || base_ == 0)) {
          base_ = 16;
          any_ = false;
          return true;
        }
        if (base_ == 0) base_ = 8;
        return digit(c);
      default: return digit(c);
    }
  }

  bool digit(char c) {
    const unsigned int d = hex_digit_of(c);
    if (d >= base_) return false;
    any_ = true;
    if (overflow_ || value_ > (~0ull - d) / base_) {
      overflow_ = true;
      return base_ == 10;  // decimal digits are read to their end
    }
    value_ = value_ * base_ + d;
    return true;
  }

  const std::ctype<char> &classes_;
  const bool skips_, is_signed_;
  bool negative_ = false, any_ = false, overflow_ = false;
  where where_ = at_sign;
  unsigned int base_;
  wide value_ = 0;
};

template <class T> std::istream &extract_long_long(std::istream &in, T &value, bool is_signed) {
  input_operation(in, false, [&](iostate &error) {
    long_long_scanner scan(std::use_facet<std::ctype<char>>(stream_access::loc(in)), stream_access::flags(in),
                           is_signed);
    // The scanner itself, not a copy.
    if (!read_blocks(stream_access::buffer(in), [&](const char *&at, const char *end) { return scan(at, end); }))
      error |= ios_base::eofbit;
    if (scan.failed()) error |= ios_base::failbit;
    value = static_cast<T>(scan.value());
  });
  return in;
}

}  // namespace

}  // namespace __zor

namespace std {

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(long long &value) {
  return __zor::extract_long_long(*this, value, true);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(unsigned long long &value) {
  return __zor::extract_long_long(*this, value, false);
}

template class basic_istream<char, char_traits<char>>;

}  // namespace std
