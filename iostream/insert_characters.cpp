// What is written without padding: blocks, and the manipulators that write a character.

#include "output_window.h"
#include "stdio_file.h"

using namespace __zor;

namespace std {

namespace {

PLX_LONG_WAY ostream &write_guarded(ostream &out, const char *text, streamsize n) {
  output_operation(out, ios_base::goodbit, [&](iostate &error) {
    if (out.rdbuf()->sputn(text, n) != n) error |= ios_base::badbit;
  });
  return out;
}

PLX_LONG_WAY ostream &write_failed(ostream &out) {
  update_state(out, ios_base::badbit);
  return out;
}

}  // namespace

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::write(const C *text, streamsize n) {
  ios &stream = base_of(*this);
  if (!is_quiet(stream) || n <= 0) return write_guarded(*this, text, n);
  streambuf *const buffer = _stream_access::buffer(stream);
  if (is_plain_stringbuf(buffer)) {
    char *&next = _buffer_access::pptr(*buffer);
    if (_buffer_access::epptr(*buffer) - next < n) return write_guarded(*this, text, n);
    memcpy(next, text, n);
    next += n;
    return *this;
  }
  FILE *const file = plain_file(buffer);
  if (!file) return write_guarded(*this, text, n);
  if (n < room_in(file)) {
    _quick_output::_copy(file->_IO_write_ptr, text, static_cast<unsigned>(n));
    file->_IO_write_ptr += n;
    return *this;
  }
  return write_after_flush(file, text, n) == n ? *this : write_failed(*this);
}

template <> ostream &endl(ostream &out) {
  ios &stream = out;
  const locale &loc = _stream_access::loc(stream);
  return out.put(has_quick(loc, locale::imp::_quick_ctype) ? '\n' : use_facet<ctype<char>>(loc).widen('\n')).flush();
}

template <> ostream &ends(ostream &out) { return out.put('\0'); }
template <> ostream &flush(ostream &out) { return out.flush(); }

template ostream &ostream::write(const char *, streamsize);

}  // namespace std
