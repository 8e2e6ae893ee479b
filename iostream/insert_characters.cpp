// What is written without padding: single characters, blocks, and the manipulators that write a character.

#include "output_window.h"

using namespace __zor;

namespace std {

namespace {

PLX_LONG_WAY ostream &put_guarded(ostream &out, char c) {
  output_operation(out, ios_base::badbit, [&](iostate &error) {
    if (out.rdbuf()->sputc(c) == -1) error |= ios_base::badbit;
  });
  return out;
}

// What the buffer does not take is not noticed.
PLX_LONG_WAY ostream &insert_guarded(ostream &out, char c) {
  output_operation(
      out, ios_base::goodbit, [&](iostate &) { out.rdbuf()->sputc(c); }, [&](bool) { out.width(0); });
  return out;
}

PLX_LONG_WAY ostream &write_guarded(ostream &out, const char *text, streamsize n) {
  output_operation(out, ios_base::goodbit, [&](iostate &error) {
    if (out.rdbuf()->sputn(text, n) != n) error |= ios_base::badbit;
  });
  return out;
}

PLX_LONG_WAY ostream &put_failed(ostream &out) {
  update_state(out, ios_base::badbit);
  return out;
}

}  // namespace
}  // namespace std

namespace __zor {

// Characters that are not put at once. `is_put` says that a refusal is noticed.
template <bool is_put> PLX_STEP std::ostream &put_elsewhere(std::ostream &out, char c) {
  FILE *const file = is_quiet(out) ? plain_file(stream_access::buffer(out)) : nullptr;
  if (!file) return is_put ? std::put_guarded(out, c) : std::insert_guarded(out, c);
  return putc_unlocked(c, file) == EOF && is_put ? std::put_failed(out) : out;
}

template <bool is_put> inline std::ostream &put_at_once(std::ostream &out, char c) {
  std::ios &stream = base_of(out);
  if (!is_quiet(stream)) return put_elsewhere<is_put>(out, c);
  std::streambuf *const buffer = stream_access::buffer(stream);
  char **next = &buffer_access::pptr(*buffer);
  if (*next >= buffer_access::epptr(*buffer)) {
    FILE *const file = plain_file(buffer);
    if (!file || file->_IO_write_ptr >= file->_IO_write_end) return put_elsewhere<is_put>(out, c);
    next = &file->_IO_write_ptr;
  }
  *(*next)++ = c;
  if (!is_put) stream_access::width(stream) = 0;
  return out;
}

}  // namespace __zor

namespace std {

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::put(C c) { return put_at_once<true>(*this, c); }

ostream &__zor_insert_char(ostream &out, char c) { return put_at_once<false>(out, c); }

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::write(const C *text, streamsize n) {
  ios &stream = base_of(*this);
  if (!is_quiet(stream) || n < 0) return write_guarded(*this, text, n);
  streambuf *const buffer = stream_access::buffer(stream);
  if (is_plain_stringbuf(buffer)) {
    char *&next = buffer_access::pptr(*buffer);
    if (buffer_access::epptr(*buffer) - next < n) return write_guarded(*this, text, n);
    memcpy(next, text, n);
    next += n;
    return *this;
  }
  FILE *const file = plain_file(buffer);
  if (!file) return write_guarded(*this, text, n);
  if (n <= room_in(file)) {
    copy_text(file->_IO_write_ptr, text, n);
    file->_IO_write_ptr += n;
    return *this;
  }
  return fwrite_unlocked(text, 1, n, file) == static_cast<size_t>(n) ? *this : put_failed(*this);
}

template <> ostream &endl(ostream &out) {
  ios &stream = out;
  const locale &loc = stream_access::loc(stream);
  return out.put(has_quick(loc, locale::imp::_quick_ctype) ? '\n' : use_facet<ctype<char>>(loc).widen('\n')).flush();
}

template <> ostream &ends(ostream &out) { return out.put('\0'); }
template <> ostream &flush(ostream &out) { return out.flush(); }

template ostream &ostream::put(char);
template ostream &ostream::write(const char *, streamsize);

}  // namespace std
