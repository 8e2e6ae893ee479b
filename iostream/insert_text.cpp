// Inserters of C strings and strings. The two differ in where an unadjusted text is padded, in how its characters reach
// the buffer, and in whether a refusal is noticed: of a string it is.

#include "output_operation.h"

using namespace __zor;

namespace std {

namespace {

// With what fill the width asks for, at once: false where the frame is needed.
template <a_put_use use> inline bool insert_fast(ostream &out, const char *text, streamsize n, bool fill_first) {
  ios &stream = base_of(out);
  if (!is_quiet(stream) || n < 0) return false;
  streambuf *const buffer = stream_access::buffer(stream);
  const streamsize width = stream_access::width(stream);
  if (width > n) {
    put_window window;
    if (!window.open<use>(buffer, width)) return false;
    const unsigned length = static_cast<unsigned>(n), fill = static_cast<unsigned>(width - n);
    memset(fill_first ? window.at : window.at + length, stream_access::fill(stream), fill);
    copy_characters(fill_first ? window.at + fill : window.at, text, length);
    window.commit(window.at + width);
    stream_access::width(stream) = 0;
    return true;
  }
  const a_put_result result = put_fast<use>(buffer, text, n);
  if (result == put_not_fast) return false;
  stream_access::width(stream) = 0;
  if (result == put_refused) {
    if (use == put_text)
      keep_refusal(buffer);
    else
      update_state(stream, ios_base::failbit);
  }
  return true;
}

// Without a width, into a window that is there: what most programs write.
template <a_put_use use> inline bool insert_ready(ios &stream, const char *text, streamsize n) {
  put_window window;
  if (!is_quiet(stream, stream_access::width(stream)) || !window.open_ready<use>(stream_access::buffer(stream), n))
    return false;
  copy_characters(window.at, text, static_cast<unsigned>(n));
  window.commit(window.at + n);
  return true;
}

bool put_fill(streambuf &buffer, char fill, streamsize count) {
  for (; count > 0; --count)
    if (buffer.sputc(fill) == -1) return false;
  return true;
}

}  // namespace

PLX_SLOW ostream &insert_c_string_slow(ostream &out, const char *text) {
  const unsigned n = text ? strlen(text) : 0;
  const bool right = (out.flags() & ios_base::adjustfield) == ios_base::right;
  if (insert_fast<put_text>(out, text, static_cast<streamsize>(n), right)) return out;
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

PLX_SLOW ostream &insert_string_slow(ostream &out, const char *text, streamsize n) {
  const bool left = (out.flags() & ios_base::adjustfield) == ios_base::left;
  if (insert_fast<put_block>(out, text, n, !left)) return out;
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
  const streamsize n = text ? static_cast<streamsize>(strlen(text)) : -1;
  return n >= 0 && insert_ready<put_text>(base_of(out), text, n) ? out : insert_c_string_slow(out, text);
}

ostream &__zor_insert_string(ostream &out, const char *text, streamsize n) {
  return n >= 0 && insert_ready<put_block>(base_of(out), text, n) ? out : insert_string_slow(out, text, n);
}

}  // namespace std
