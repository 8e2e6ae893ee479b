// Inserters of numbers. In the common case (a quiet stream, the library's own num_put and plain punctuation) the text
// is made right in the buffer's room, or next to it; otherwise num_put makes it, under the frame.
//
// A put area may be an array of the program's, so nothing beyond the text is ever written there. In stdio's buffer,
// which nobody sees beyond its end, the number engine may store more than it returns.

#include <plx/num_put.h>

#include "../locale/number_text.h"
#include "output_window.h"
#include "stdio_file.h"

using namespace __zor;

namespace std {

namespace {

typedef num_put<char, ostreambuf_iterator<char>> a_num_put;

constexpr int widest = 64;  // the quick paths fill up to here

// Where in the buffer a text goes, and how it is committed.
struct a_place {
  streambuf *buffer;
  FILE *file;
  char *local;
  bool direct;

  // The start of room for `most` characters, or null when the buffer is closed.
  char *begin(ios &stream, char *own, int most) {
    buffer = stream_access::buffer(stream);
    local = own;
    file = nullptr;
    direct = false;
    if (!is_plain_filebuf(buffer)) return own;
    file = plain_file(buffer);
    if (!file) return nullptr;
    direct = room_in(file) >= most;
    return direct ? file->_IO_write_ptr : own;
  }

  // What stdio does not take is not noticed, as num_put's iterator is not asked either.
  bool end(char *last) const {
    if (direct) {
      file->_IO_write_ptr = last;
      return true;
    }
    const int n = static_cast<int>(last - local);
    if (file) {
      write_after_flush(file, local, n);
      return true;
    }
    char *&next = buffer_access::pptr(*buffer);
    if (buffer_access::epptr(*buffer) - next < n) return false;
    copy_text(next, local, n);
    next += n;
    return true;
  }
};

inline bool is_quick(const ios &stream) {
  return is_quiet(stream) && has_quick(stream_access::loc(stream), locale::imp::_quick_num_put);
}

// write(at) makes the text and returns its end, or null; pad(first, last, width) fills it.
template <int room, class Write, class Pad> inline bool insert_at_once(ios &stream, Write write, Pad pad) {
  char local[room + widest];
  a_place place;
  char *const at = place.begin(stream, local, room + widest);
  if (!at) return false;
  char *last = write(at);
  if (!last) return false;
  streamsize &width = stream_access::width(stream);
  if (width > last - at) {
    if (width > widest) return false;
    last = pad(at, last, static_cast<int>(width));
  }
  if (!place.end(last)) return false;
  width = 0;
  return true;
}

template <class Value> PLX_LONG_WAY ostream &insert_by_facet(ostream &out, Value value) {
  output_operation(out, ios_base::goodbit,
                   [&](iostate &) { use_facet<a_num_put>(stream_access::loc(out)).put(out, out, out.fill(), value); });
  return out;
}

// Any flags and width, into any room.
template <class Value> PLX_LONG_WAY ostream &insert_integer(ostream &out, Value value) {
  ios &stream = out;
  if (is_quick(stream)) {
    const unsigned flags = stream_access::flags(stream);
    if (insert_at_once<integer_text_room>(
            stream, [=](char *at) { return integer_text(at, flags, value); },
            [&](char *first, char *last, int width) {
              return pad_integer(first, last, flags, width, stream_access::fill(stream));
            }))
      return out;
  }
  return insert_by_facet(out, value);
}

// Decimal, without width: what most programs write. One function for all types, with the digits inline.
template <class Value>
PLX_NUMBER_CALL __attribute__((__noinline__, __flatten__)) ostream &insert_decimal(ostream &out, Value value) {
  constexpr unsigned unusual = ios_base::unitbuf | ios_base::hex | ios_base::oct | ios_base::showpos;
  ios &stream = base_of(out);
  if ((stream_access::state(stream) | (stream_access::flags(stream) & unusual) | stream_access::width(stream)) ||
      stream_access::tie(stream) || !has_quick(stream_access::loc(stream), locale::imp::_quick_num_put))
    return insert_integer(out, value);
  streambuf *const buffer = stream_access::buffer(stream);
  if (is_plain_filebuf(buffer)) {
    FILE *const file = plain_file(buffer);
    if (!file || room_in(file) < static_cast<int>(integer_text_room)) return insert_integer(out, value);
    file->_IO_write_ptr = integer_text(file->_IO_write_ptr, 0, value);
    return out;
  }
  char text[2 * integer_text_room];  // g++ imagines longer texts
  char *&next = buffer_access::pptr(*buffer);
  const int n = static_cast<int>(integer_text(text, 0, value) - text);
  if (buffer_access::epptr(*buffer) - next < n) return insert_integer(out, value);
  copy_text(next, text, n);
  next += n;
  return out;
}

// Of the floating texts the exponent's case and unusual precisions are left to num_put.
template <class Value, class Text> inline ostream &insert_floating(ostream &out, Value value, Text text) {
  ios &stream = out;
  const unsigned flags = stream_access::flags(stream);
  if (is_quick(stream) && !(flags & ios_base::uppercase)) {
    unsigned precision = stream.precision();
    if (stream.precision() < 1 && !(flags & ios_base::fixed)) precision = 6;
    if (precision <= number_precision_limit && insert_at_once<quick_text_room>(
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
  return insert_floating(*this, value, quick_double_text);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(float value) {
  return *this << static_cast<double>(value);
}
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(long double value) {
  return insert_floating(*this, value, quick_long_double_text);
}

// Neither is filled when it is not told to be: a bool never, a pointer in a way of its own.
template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(bool value) {
  ios &stream = *this;
  if (!is_quick(stream) || (stream_access::flags(stream) & ios_base::boolalpha) || stream_access::width(stream) != 0)
    return insert_by_facet(*this, value);
  return __zor_insert_char(*this, value ? '1' : '0');
}

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(const void *value) {
  ios &stream = *this;
  if (is_quick(stream) && stream_access::width(stream) <= 0 &&
      insert_at_once<integer_text_room>(
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
