// The extractors of numbers. Where the stream's facets are the library's own, a number that lies whole in the buffer's
// get window is read there. num_get is asked in all other cases, and wherever anything is wrong with the text.

#include <plx/facets/num_get.h>

#include "../numbers/read.h"
#include "input_operation.h"

namespace __zor {

namespace {

typedef std::istreambuf_iterator<char> iterator;

template <class T> void ask_num_get(std::istream &in, iostate &error, T &value) {
  const std::num_get<char> &facet = std::use_facet<std::num_get<char>>(stream_access::loc(in));
  facet.get(iterator(stream_access::buffer(in)), iterator(), in, error, value);
}

// Read by num_get as a Wide: long for the types that it does not know.
template <class Wide, class T> [[gnu::noinline]] std::istream &extract_by_facet(std::istream &in, T &value) {
  input_operation(in, false, [&](iostate &error) {
    Wide wide = Wide();
    ask_num_get(in, error, wide);
    value = static_cast<T>(wide);
    if (static_cast<Wide>(value) != wide) error |= ios_base::failbit;
  });
  return in;
}
// Left alone where there is no value.
template <class T> [[gnu::noinline]] std::istream &extract_same_by_facet(std::istream &in, T &value) {
  input_operation(in, false, [&](iostate &error) { ask_num_get(in, error, value); });
  return in;
}

// The window in which a number begins, without the white space before it; false when there is none.
[[gnu::noinline]] bool open_number_window_beyond_space(std::streambuf *buffer, get_window &window) {
  return is_plain_buffer(buffer) && skip_plain_space(buffer) && window.open(buffer);
}
[[gnu::always_inline]] inline bool open_number_window(std::istream &in, get_window &window) {
  if (!starts_fast(in) || !has_plain_num_get(stream_access::loc(in))) return false;
  if (__builtin_expect(open_window_beyond_space(in, window), true)) return true;
  return (stream_access::flags(in) & ios_base::skipws) &&
         open_number_window_beyond_space(stream_access::buffer(in), window);
}

// A number that reaches to the end of the window counts if the input ends there, which only a plain string buffer tells
// without further ado. It is taken then, and the stream is at its end.
[[gnu::noinline]] bool ends_input(std::istream &in, const get_window &window) {
  std::streambuf *const buffer = stream_access::buffer(in);
  if (!is_plain_stringbuf(buffer)) return false;
  const int before = window.end - window.cursor();
  window.take_up_to(window.end);
  if (buffer->sgetc() == EOF) return true;
  buffer_access::gptr(*buffer) -= before;
  return false;
}

// Ends an extraction that read up to `stop`; false when the facet must decide.
inline bool accept_number(std::istream &in, const get_window &window, const char *stop, bool &ended) {
  if (__builtin_expect(!stop, false)) return false;
  ended = stop == window.end;
  if (__builtin_expect(ended, false)) {
    if (!ends_input(in, window)) return false;
  } else {
    window.take_up_to(stop);
  }
  start_count(in);
  return true;
}

template <bool Signed, unsigned long Max, class T> inline bool extract_fast(std::istream &in, T &value) {
  get_window window;
  unsigned long bits;
  bool ended;
  if (!open_number_window(in, window)) return false;
  const char *const stop = fast_integer<Signed, Max>(window.at, window.end, stream_access::flags(in), bits);
  if (!stop || static_cast<unsigned long>(static_cast<T>(bits)) != bits) return false;
  if (!accept_number(in, window, stop, ended)) return false;
  value = static_cast<T>(bits);
  if (__builtin_expect(ended, false)) update_state(in, ios_base::eofbit);
  return true;
}

template <class Real> inline std::istream &extract_real(std::istream &in, Real &value) {
  get_window window;
  Real read;
  bool ended;
  if (!open_number_window(in, window) || !accept_number(in, window, fast_real(window.at, window.end, read), ended))
    return extract_same_by_facet(in, value);
  value = read;
  if (__builtin_expect(ended, false)) update_state(in, ios_base::eofbit);
  return in;
}

}  // namespace

}  // namespace __zor

namespace std {

using namespace __zor;

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(bool &value) {
  if (!(this->_flags_ & ios_base::boolalpha) && extract_fast<true, 0xFFFFFFFFul>(*this, value)) return *this;
  return extract_same_by_facet(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(short &value) {
  if (extract_fast<true, 0xFFFFFFFFul>(*this, value)) return *this;
  return extract_by_facet<long>(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(unsigned short &value) {
  if (extract_fast<false, 0xFFFFul>(*this, value)) return *this;
  return extract_same_by_facet(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(int &value) {
  if (extract_fast<true, 0xFFFFFFFFul>(*this, value)) return *this;
  return extract_by_facet<long>(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(unsigned int &value) {
  if (extract_fast<false, 0xFFFFFFFFul>(*this, value)) return *this;
  return extract_same_by_facet(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(long &value) {
  if (extract_fast<true, 0xFFFFFFFFul>(*this, value)) return *this;
  return extract_same_by_facet(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(unsigned long &value) {
  if (extract_fast<false, 0xFFFFFFFFul>(*this, value)) return *this;
  return extract_same_by_facet(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(float &value) {
  return extract_real(*this, value);
}
template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(double &value) {
  return extract_real(*this, value);
}
template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(long double &value) {
  return extract_real(*this, value);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(void *&value) {
  return extract_same_by_facet(*this, value);
}

template class basic_istream<char, char_traits<char>>;

}  // namespace std
