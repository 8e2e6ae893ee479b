// Inserters of numbers. In the common case (a quiet stream, the library's own num_put and plain punctuation) the text
// is made right in the buffer's room, or next to it; otherwise num_put makes it, under the frame.
//
// A put area may be an array of the program's, so nothing beyond the text is ever written there. In stdio's buffer,
// which nobody sees beyond its end, the number engine may store more than it returns.

#include <plx/facets/num_put.h>

#include "../numbers/write.h"
#include "output_operation.h"

using namespace __zor;

namespace std {

namespace {

typedef num_put<char, ostreambuf_iterator<char>> a_num_put;

constexpr int widest = 64;  // what the fast paths fill

inline bool is_fast(const ios &stream) { return is_quiet(stream) && has_plain_num_put(stream_access::loc(stream)); }

// A text that was made next to the buffer.
PLX_HIDDEN PLX_REGPARM bool insert_copy(streambuf *buffer, const char *text, int n) {
  const a_put_result result = put_fast<put_text>(buffer, text, n);
  if (result == put_refused) keep_refusal(buffer);
  return result != put_not_fast;
}

// write(at) makes the text and returns its end, or null; pad(first, last, width) fills it.
template <int room, class Write, class Pad> inline bool insert_fast(ios &stream, Write write, Pad pad) {
  constexpr int most = room + widest + pad_overrun;
  char local[most];
  streambuf *const buffer = stream_access::buffer(stream);
  put_window window;
  const bool is_open = window.open_ready<put_scratch>(buffer, most);
  char *const first = is_open ? window.at : local;
  char *last = write(first);
  if (!last) return false;
  const streamsize width = stream_access::width(stream);
  if (width > last - first) {
    if (width > widest) return false;
    last = pad(first, last, static_cast<int>(width));
  }
  if (is_open)
    window.commit(last);
  else if (!insert_copy(buffer, local, static_cast<int>(last - local)))
    return false;
  stream_access::width(stream) = 0;
  return true;
}

template <class Value> PLX_SLOW ostream &insert_by_facet(ostream &out, Value value) {
  output_operation(out, ios_base::goodbit,
                   [&](iostate &) { use_facet<a_num_put>(stream_access::loc(out)).put(out, out, out.fill(), value); });
  return out;
}

}  // namespace
}  // namespace std

namespace __zor {

// Any flags and width, into any room.
template <class Value> PLX_SLOW std::ostream &insert_integer(std::ostream &out, Value value) {
  std::ios &stream = base_of(out);
  if (std::is_fast(stream)) {
    const unsigned flags = stream_access::flags(stream);
    if (std::insert_fast<integer_text_room>(
            stream, [=](char *at) { return integer_text(at, flags, value); },
            [&](char *first, char *last, int width) {
              return pad_integer(first, last, flags, width, stream_access::fill(stream));
            }))
      return out;
  }
  return std::insert_by_facet(out, value);
}

// Decimal, without width: what most programs write.
template <class Value>
PLX_SLOW __attribute__((__flatten__)) std::ostream &insert_decimal(std::ostream &out, Value value) {
  constexpr unsigned unusual = ios_base::hex | ios_base::oct | ios_base::showpos;
  std::ios &stream = base_of(out);
  put_window window;
  if (is_quiet(stream, (stream_access::flags(stream) & unusual) | stream_access::width(stream)) &&
      has_plain_num_put(stream_access::loc(stream)) &&
      window.open_ready<put_scratch>(stream_access::buffer(stream), integer_text_room)) {
    char *at = window.at;
    unsigned digits = static_cast<unsigned>(value);
    if (Value(-1) < 0) {
      const unsigned sign = static_cast<unsigned>(static_cast<long>(value) >> 31);
      *at = '-';
      at -= static_cast<int>(sign);
      digits = (digits ^ sign) - sign;
    }
    window.commit(decimal_digits(at, digits));
    return out;
  }
  return insert_integer(out, value);
}

}  // namespace __zor

namespace std {

namespace {

// Of the floating texts the exponent's case and unusual precisions are left to num_put.
template <class Value, class Text> inline ostream &insert_floating(ostream &out, Value value, Text text) {
  ios &stream = out;
  const unsigned flags = stream_access::flags(stream);
  if (is_fast(stream) && !(flags & ios_base::uppercase)) {
    unsigned precision = stream.precision();
    if (stream.precision() < 1 && !(flags & ios_base::fixed)) precision = 6;
    if (precision <= number_precision_limit && insert_fast<fast_text_room>(
                                                   stream, [=](char *at) { return text(at, flags, precision, value); },
                                                   [&](char *first, char *last, int width) {
                                                     return pad_float(first, last, flags, width,
                                                                      stream_access::fill(stream));
                                                   }))
      return out;
  }
  return insert_by_facet(out, value);
}

inline bool shows_bits(const ostream &out) {
  const ios_base::fmtflags base = out.flags() & ios_base::basefield;
  return base == ios_base::oct || base == ios_base::hex;
}

}  // namespace

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(long value) {
  return insert_decimal<long>(*this, value);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(unsigned long value) {
  return insert_decimal<unsigned long>(*this, value);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(int value) {
  return insert_decimal<long>(*this, value);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(unsigned int value) {
  return insert_decimal<unsigned long>(*this, value);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(unsigned short value) {
  return insert_decimal<unsigned long>(*this, value);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(short value) {
  return insert_decimal<long>(*this, shows_bits(*this) ? static_cast<unsigned short>(value) : value);
}

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(double value) {
  return insert_floating(*this, value, fast_double_text);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(float value) {
  return *this << static_cast<double>(value);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(long double value) {
  return insert_floating(*this, value, fast_long_double_text);
}

// Neither is filled when it is not told to be: a bool never, a pointer in a way of its own.
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(bool value) {
  ios &stream = *this;
  if (!is_fast(stream) || (stream_access::flags(stream) & ios_base::boolalpha) || stream_access::width(stream) != 0)
    return insert_by_facet(*this, value);
  return __zor_insert_char(*this, value ? '1' : '0');
}

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(const void *value) {
  ios &stream = *this;
  if (is_fast(stream) && stream_access::width(stream) <= 0 &&
      insert_fast<integer_text_room>(
          stream, [=](char *at) { return pointer_text(at, value); }, [](char *, char *last, int) { return last; }))
    return *this;
  return insert_by_facet(*this, value);
}

template ostream &ostream::operator<<(long);
template ostream &ostream::operator<<(unsigned long);
template ostream &ostream::operator<<(int);
template ostream &ostream::operator<<(unsigned int);
template ostream &ostream::operator<<(unsigned short);
template ostream &ostream::operator<<(short);
template ostream &ostream::operator<<(double);
template ostream &ostream::operator<<(float);
template ostream &ostream::operator<<(long double);
template ostream &ostream::operator<<(bool);
template ostream &ostream::operator<<(const void *);

}  // namespace std
