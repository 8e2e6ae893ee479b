// The extractors of characters and C strings.

#include <string.h>

#include "input_operation.h"

namespace std {

using namespace __zor;

namespace {

// The end gives failbit alone.
[[gnu::noinline]] istream &extract_char(istream &in, char &c) {
  bool stored = false;
  unguarded_input_operation(
      in, false,
      [&](iostate &) {
        const int next = stream_access::buffer(in)->sbumpc();
        if (next == EOF) return;
        c = static_cast<char>(next);
        stored = true;
      },
      [&](iostate &error) {
        if (!stored) error |= ios_base::failbit;
      });
  return in;
}

// A word without a limit that lies whole in the buffer's window. What is not whole is read again.
inline bool extract_word_fast(istream &in, char *to) {
  get_window window;
  if (!starts_fast(in) || !has_plain_ctype(stream_access::loc(in)) || stream_access::width(in) != 0 ||
      !open_window_beyond_space(in, window))
    return false;
  const char *at = window.at;
  while (window.end - at >= 4) {
    const unsigned int four = words(at)->value, low = low_bytes(four);
    if (!low) {
      memcpy(to, &four, 4);
      at += 4;
      to += 4;
      continue;
    }
    for (unsigned int n = __builtin_ctz(low) >> 3; n != 0; --n) *to++ = *at++;
    if (*at != 0 && !is_classic_space(*at)) {
      *to++ = *at++;
      continue;
    }
    if (at == window.at) return false;
    *to = 0;
    window.take_up_to(at + (*at == 0));
    start_count(in);
    return true;
  }
  return false;
}

[[gnu::noinline]] istream &extract_word(istream &in, char *to) {
  char *next = to;
  unguarded_input_operation(
      in, false,
      [&](iostate &error) {
        const streamsize width = stream_access::width(in);
        const char *const last = width > 0 ? next + (width - 1) : nullptr;
        if (next == last) return;
        const ctype<char> &classes = use_facet<ctype<char>>(stream_access::loc(in));
        const ctype_base::mask *const table = classes.table();
        if (!read_blocks(stream_access::buffer(in), [&](const char *&at, const char *end) {
              for (const char *p = at; p != end; ++p) {
                const char c = *p;
                if (c == 0 || (table[static_cast<unsigned char>(c)] & ctype_base::space)) {
                  // A table may call the null character white space, too.
                  at = table[static_cast<unsigned char>(c)] & ctype_base::space ? p : p + 1;
                  return false;
                }
                *next++ = c;
                if (next == last) {
                  at = p + 1;
                  return false;
                }
              }
              at = end;
              return true;
            }))
          error |= ios_base::eofbit;
      },
      [&](iostate &error) {
        stream_access::width(in) = 0;
        *next = 0;
        if (next == to) error |= ios_base::failbit;
      });
  return in;
}

}  // namespace

istream &__zor_extract_char(istream &in, char &c) {
  get_window window;
  if (!starts_fast(in) || !has_plain_ctype(stream_access::loc(in)) || !open_window_beyond_space(in, window))
    return extract_char(in, c);
  start_count(in);
  window.take_up_to(window.at + 1);
  c = *window.at;
  return in;
}

istream &__zor_extract_c_string(istream &in, char *to) { return extract_word_fast(in, to) ? in : extract_word(in, to); }

}  // namespace std
