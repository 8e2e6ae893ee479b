// Inserters of C strings and strings. The two differ in where an unadjusted text is padded, in how its characters reach
// the buffer, and in whether a refusal is noticed.

#include "output_window.h"
#include "stdio_file.h"

using namespace __zor;

namespace std {

namespace {

// Writes a text that needs no fill, where that needs no frame. A put area is used without asking its buffer only where
// `any_area` says that the program expects no block, or is the library's own; where it expects one, a refusal counts.
template <bool any_area> inline PLX_INLINE bool insert_at_once(ios &stream, const char *text, unsigned n) {
  if (!is_quiet(stream) || stream_access::width(stream) > static_cast<streamsize>(n)) return false;
  streambuf *const buffer = stream_access::buffer(stream);
  char **next = &buffer_access::pptr(*buffer);
  if (static_cast<unsigned>(buffer_access::epptr(*buffer) - *next) < n || !(any_area || is_plain_stringbuf(buffer))) {
    FILE *const file = plain_file(buffer);
    if (!file) return false;
    if (static_cast<unsigned>(room_in(file)) < n) {
      const bool taken = write_after_flush(file, text, n) == static_cast<long>(n);
      stream_access::width(stream) = 0;
      if (!any_area && !taken) update_state(stream, ios_base::failbit);
      return true;
    }
    next = &file->_IO_write_ptr;
  }
  stream_access::width(stream) = 0;
  char *const at = *next;
  *next = at + n;
  copy_text(at, text, n);
  return true;
}

// The same with fill, into a put area or stdio's buffer that has room for all.
bool insert_filled(ios &stream, const char *text, unsigned n, bool any_area, bool fill_first) {
  const unsigned width = stream_access::width(stream);
  if (!is_quiet(stream) || static_cast<int>(width) <= static_cast<int>(n)) return false;
  streambuf *const buffer = stream_access::buffer(stream);
  FILE *const file = plain_file(buffer);
  if (!file && !any_area && !is_plain_stringbuf(buffer)) return false;
  char *&next = file ? file->_IO_write_ptr : buffer_access::pptr(*buffer);
  const char *const end = file ? file->_IO_write_end : buffer_access::epptr(*buffer);
  if (static_cast<unsigned>(end - next) < width) return false;
  memset(fill_first ? next : next + n, stream_access::fill(stream), width - n);
  copy_text(fill_first ? next + (width - n) : next, text, n);
  next += width;
  stream_access::width(stream) = 0;
  return true;
}

bool put_fill(streambuf &buffer, char fill, streamsize count) {
  for (; count > 0; --count)
    if (buffer.sputc(fill) == -1) return false;
  return true;
}

PLX_LONG_WAY ostream &insert_c_string_elsewhere(ostream &out, const char *text) {
  const unsigned n = text ? strlen(text) : 0;
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

PLX_LONG_WAY ostream &insert_string_elsewhere(ostream &out, const char *text, streamsize n) {
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

}  // namespace

ostream &__zor_insert_c_string(ostream &out, const char *text) {
  const bool done = insert_at_once<true>(base_of(out), text, text ? strlen(text) : 0);
  return done ? out : insert_c_string_elsewhere(out, text);
}

ostream &__zor_insert_string(ostream &out, const char *text, streamsize n) {
  return insert_at_once<false>(base_of(out), text, n) ? out : insert_string_elsewhere(out, text, n);
}

}  // namespace std
