// Inserters of C strings and strings. The two differ in where an unadjusted text is padded, in how its characters reach
// the buffer, and in whether a refusal is noticed.

#include "output_window.h"

using namespace __zor;

namespace std {

namespace {

// Writes the text, with fill before or behind it, where that needs no frame. A buffer that is not the library's is
// served through its put area only when all fits there: `by_characters` says that its owner expects no block.
inline bool insert_at_once(ios &stream, const char *text, unsigned n, bool by_characters, bool fill_first) {
  if (!is_quiet(stream)) return false;
  streambuf *const buffer = stream_access::buffer(stream);
  streamsize &width = stream_access::width(stream);
  FILE *const file = plain_file(buffer);
  char **next;
  unsigned room;
  if (file) {
    next = &file->_IO_write_ptr;
    room = room_in(file);
  } else {
    if (!by_characters && !is_plain_stringbuf(buffer)) return false;
    next = &buffer_access::pptr(*buffer);
    room = buffer_access::epptr(*buffer) - *next;
  }
  char *at = *next;
  if (width <= static_cast<streamsize>(n)) {
    if (n > room) {
      if (!file) return false;
      fwrite_unlocked(text, 1, n, file);
    } else {
      copy_text(at, text, n);
      *next = at + n;
    }
  } else {
    const unsigned whole = width;
    if (whole > room) return false;
    memset(fill_first ? at : at + n, stream_access::fill(stream), whole - n);
    memcpy(fill_first ? at + (whole - n) : at, text, n);
    *next = at + whole;
  }
  width = 0;
  return true;
}

bool put_fill(streambuf &buffer, char fill, streamsize count) {
  for (; count > 0; --count)
    if (buffer.sputc(fill) == -1) return false;
  return true;
}

PLX_LONG_WAY ostream &insert_c_string_guarded(ostream &out, const char *text, unsigned n) {
  output_operation(
      out, ios_base::goodbit,
      [&](iostate &) {
        streambuf &buffer = *out.rdbuf();
        const streamsize padding = out.width() - static_cast<streamsize>(n);
        const bool right = (out.flags() & ios_base::adjustfield) == ios_base::right;
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

PLX_LONG_WAY ostream &insert_string_guarded(ostream &out, const char *text, streamsize n) {
  output_operation(
      out, ios_base::goodbit,
      [&](iostate &error) {
        streambuf &buffer = *out.rdbuf();
        const streamsize padding = out.width() - n;
        const bool left = (out.flags() & ios_base::adjustfield) == ios_base::left;
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
  ios &stream = out;
  const unsigned n = text ? strlen(text) : 0;
  const bool right = (stream_access::flags(stream) & ios_base::adjustfield) == ios_base::right;
  return insert_at_once(stream, text, n, true, right) ? out : insert_c_string_guarded(out, text, n);
}

ostream &__zor_insert_string(ostream &out, const char *text, streamsize n) {
  ios &stream = out;
  const bool left = (stream_access::flags(stream) & ios_base::adjustfield) == ios_base::left;
  return insert_at_once(stream, text, n, false, !left) ? out : insert_string_guarded(out, text, n);
}

}  // namespace std
