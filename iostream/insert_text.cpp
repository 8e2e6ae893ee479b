// Inserters of C strings and strings. The two differ in where an unadjusted text is padded, in how its characters reach
// the buffer, and in whether a refusal is noticed.

#include "output_window.h"

using namespace __zor;

namespace std {

namespace {

// A width that needs no fill is dropped, and the text written at once, or through stdio when its buffer is full: false
// where that is not the way. `any_area` is of C strings; of strings a refusal counts.
inline bool insert_unfilled(ostream &out, const char *text, unsigned n, bool any_area) {
  ios &stream = out;
  if (!is_quiet(stream) || _stream_access::width(stream) > static_cast<streamsize>(n)) return false;
  if (static_cast<long>(n) < 0) return false;
  _stream_access::width(stream) = 0;
  if (_quick_output::_write(stream, text, static_cast<long>(n), any_area)) return true;
  FILE *const file = plain_file(_stream_access::buffer(stream));
  if (!file) return false;
  if (any_area)
    insert_into_file(*_stream_access::buffer(stream), file, text, static_cast<long>(n));
  else if (write_file(file, text, static_cast<long>(n)) != static_cast<long>(n))
    update_state(stream, ios_base::failbit);
  return true;
}

// The same with fill, into a put area or stdio's buffer that has room for all.
bool insert_filled(ios &stream, const char *text, unsigned n, bool any_area, bool fill_first) {
  const unsigned width = _stream_access::width(stream);
  if (!is_quiet(stream) || static_cast<int>(width) <= static_cast<int>(n)) return false;
  streambuf *const buffer = _stream_access::buffer(stream);
  FILE *const file = plain_file(buffer);
  if (!file && !any_area && !is_plain_stringbuf(buffer)) return false;
  char *&next = file ? file->_IO_write_ptr : _buffer_access::pptr(*buffer);
  const char *const end = file ? file->_IO_write_end : _buffer_access::epptr(*buffer);
  if (end - next < static_cast<int>(width)) return false;
  memset(fill_first ? next : next + n, _stream_access::fill(stream), width - n);
  _quick_output::_copy(fill_first ? next + (width - n) : next, text, n);
  next += width;
  _stream_access::width(stream) = 0;
  return true;
}

bool put_fill(streambuf &buffer, char fill, streamsize count) {
  for (; count > 0; --count)
    if (buffer.sputc(fill) == -1) return false;
  return true;
}

}  // namespace

PLX_STEP ostream &insert_c_string_elsewhere(ostream &out, const char *text) {
  const unsigned n = text ? strlen(text) : 0;
  if (insert_unfilled(out, text, n, true)) return out;
  const bool right = (out.flags() & ios_base::adjustfield) == ios_base::right;
  if (insert_filled(out, text, n, true, right)) return out;
  output_operation(
      out, ios_base::goodbit,
      [&](iostate &) {
        streambuf &buffer = *out.rdbuf();
        const streamsize padding = out.width() - static_cast<streamsize>(n);
        if (right && !put_fill(buffer, out.fill(), padding)) return;
        for (unsigned i = 0; i < n; ++i)
          if (buffer.sputc(text[i]) == -1) return;
        if (!right) put_fill(buffer, out.fill(), padding);
      },
      [&](bool allowed) {
        if (allowed) out.width(0);
      });
  return out;
}

PLX_STEP ostream &insert_string_elsewhere(ostream &out, const char *text, streamsize n) {
  if (insert_unfilled(out, text, n, false)) return out;
  const bool left = (out.flags() & ios_base::adjustfield) == ios_base::left;
  if (insert_filled(out, text, n, false, !left)) return out;
  output_operation(
      out, ios_base::goodbit,
      [&](iostate &error) {
        streambuf &buffer = *out.rdbuf();
        const streamsize padding = out.width() - n;
        if ((!left && !put_fill(buffer, out.fill(), padding)) || buffer.sputn(text, n) != n ||
            (left && !put_fill(buffer, out.fill(), padding)))
          error |= ios_base::failbit;
      },
      [&](bool allowed) {
        if (allowed) out.width(0);
      });
  return out;
}

ostream &__zor_insert_c_string(ostream &out, const char *text) {
  const long n = text ? static_cast<long>(strlen(text)) : -1;
  return n >= 0 && _quick_output::_write(base_of(out), text, n, true) ? out : insert_c_string_elsewhere(out, text);
}

ostream &__zor_insert_string(ostream &out, const char *text, streamsize n) {
  return _quick_output::_write(base_of(out), text, n, false) ? out : insert_string_elsewhere(out, text, n);
}

}  // namespace std
