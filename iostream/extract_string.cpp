// operator>> for string. Its frame is its own: a locale without ctype is reported by bad_cast, which passes, and the
// characters that were taken before something threw are kept.

#include "extract_string.h"

#include <string.h>

#include <plx/containers/bitset_io.h>

#include "../string/representation.h"
#include "input_operation.h"

namespace __zor {

namespace {

// Copies a short text with what follows it, up to 16 bytes, where the string has a block of its own. All is read before
// anything is written.
inline bool assign_short(std::string &text, const char *from, unsigned int n, const char *end) {
  b_str_ref *const rep = representation_of(text);
  if (n > 16 || end - from < 16 || !string_is_private(rep)) return false;
  const unsigned int a = words(from)->value, b = words(from + 4)->value, c = words(from + 8)->value,
                     d = words(from + 12)->value;
  char *const to = rep->data;
  memcpy(to, &a, 4);
  memcpy(to + 4, &b, 4);
  memcpy(to + 8, &c, 4);
  memcpy(to + 12, &d, 4);
  to[n] = 0;
  rep->length = n;
  rep->count = 1;
  return true;
}

// Any text; false, with an empty string, when there is no memory for it.
inline bool assign_long(std::string &text, const char *from, unsigned int n) {
  const b_str_ref *const rep = representation_of(text);
  if ((string_is_private(rep) && n < rep->capacity) || has_block_for(n)) {
    text.assign(from, n);
    return true;
  }
  return !eh_guard([&] {
    text.clear();
    text.assign(from, n);
  });
}

// A word that lies whole in the buffer's window, where nothing is to be done for the stream.
inline bool extract_fast(std::istream &in, std::string &text) {
  get_window window;
  if (!starts_fast(in) || !has_plain_ctype(stream_access::loc(in)) || stream_access::width(in) != 0 ||
      !open_window_beyond_space(in, window))
    return false;
  const char *const stop = find_classic_space(window.at, window.end);
  if (stop == window.end || stop == window.at) return false;
  start_count(in);
  const unsigned int n = stop - window.at;
  if (!assign_short(text, window.at, n, window.end) && !assign_long(text, window.at, n)) {
    update_state(in, ios_base::badbit);
    return true;
  }
  window.take_up_to(stop);
  return true;
}

// Characters that came one by one, until there are enough to append them.
struct a_block {
  unsigned int size = 0;
  char text[512];

  void append_to(std::string &to) {
    if (size == 0) return;
    to.append(text, size);
    size = 0;
  }
};

// Moves a word of up to `limit` characters to the end of the text, and counts them; false when the input ended.
inline bool read_word(std::streambuf *buffer, const std::ctype<char> &classes, std::string &text, a_block &block,
                      unsigned int limit, unsigned int &count) {
  return read_blocks(buffer, [&](const char *&at, const char *end) {
    const unsigned int room = limit - count;
    const char *const stop = room < static_cast<unsigned int>(end - at) ? at + room : end;
    const char *const space = classes.scan_is(std::ctype_base::space, at, stop);
    const unsigned int n = space - at;
    if (n == 1 && end - at == 1) {
      block.text[block.size++] = *at;
      ++count;
      if (block.size == sizeof block.text) block.append_to(text);
    } else if (n) {
      block.append_to(text);
      text.append(at, n);
      count += n;
    }
    at = space;
    return space == end && count != limit;
  });
}

[[gnu::noinline]] void extract_word(std::istream &in, std::string &text) {
  if (!input_prefix(in, false)) return;
  const std::ctype<char> &classes = std::use_facet<std::ctype<char>>(stream_access::loc(in));
  const std::streamsize width = stream_access::width(in);
  const unsigned int limit = width ? static_cast<unsigned int>(width) : 0xFFFFFFFEu;
  unsigned int count = 0;
  a_block block;
  bool ended = false;
  iostate error = ios_base::goodbit;
  if (eh_guard([&] {
        text.clear();
        ended = !read_word(stream_access::buffer(in), classes, text, block, limit, count);
      }))
    error |= ios_base::badbit;
  // What was taken before the buffer threw is kept.
  if (eh_guard([&] { block.append_to(text); })) error |= ios_base::badbit;
  if (ended) error |= ios_base::eofbit;
  if (count == 0) error |= ios_base::failbit;
  if (error != ios_base::goodbit) update_state(in, error);
}

}  // namespace

bool extract_bits(std::istream &in, std::string &text, unsigned count) {
  bool any = false;
  input_operation(in, false, [&](iostate &error) {
    text.clear();
    unsigned taken = 0;
    if (count && !read_blocks(stream_access::buffer(in), [&](const char *&at, const char *end) {
          const char *p = at;
          while (p != end && taken != count && (*p == '0' || *p == '1')) ++p, ++taken;
          text.append(at, p - at);
          any |= p != at;
          at = p;
          return p == end && taken != count;
        }))
      error |= ios_base::eofbit;
    if (!any) error |= ios_base::failbit;
  });
  return any;
}

}  // namespace __zor

namespace std {

template <> istream &operator>>(istream &in, string &text) {
  if (!__zor::extract_fast(in, text)) __zor::extract_word(in, text);
  return in;
}

}  // namespace std
