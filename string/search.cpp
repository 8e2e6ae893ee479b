// Searching in strings of char.

#include <string.h>

#include <plx/string/string_search.h>

#include "find_pattern.h"

namespace __zor {

namespace {

// A set of characters, one bit each.
class character_set {
public:
  character_set(const char *s, unsigned n) : words_() {
    for (unsigned i = 0; i < n; ++i) words_[byte(s[i]) >> 5] |= 1u << (byte(s[i]) & 31);
  }
  bool has(char c) const { return (words_[byte(c) >> 5] >> (byte(c) & 31)) & 1; }

private:
  static unsigned byte(char c) { return static_cast<unsigned char>(c); }
  unsigned words_[8];
};

unsigned first(const b_str_ref *rep, const char *s, unsigned pos, unsigned n, bool in) {
  const character_set set(s, n);
  for (; pos < rep->length; ++pos)
    if (set.has(rep->data[pos]) == in) return pos;
  return _string_npos;
}

unsigned last(const b_str_ref *rep, const char *s, unsigned pos, unsigned n, bool in) {
  const character_set set(s, n);
  for (pos = pos < rep->length ? pos + 1 : rep->length; pos-- != 0;)
    if (set.has(rep->data[pos]) == in) return pos;
  return _string_npos;
}

}  // namespace

typedef _string_search<std::char_traits<char>> search;

unsigned search::find(const b_str_ref *rep, const char *s, unsigned pos, unsigned n) PLX_NOTHROW {
  const unsigned length = rep->length;
  if (n == 0 || pos > length || n > length - pos) return _string_npos;
  const char *text = rep->data + pos, *const end = rep->data + length;
  const char *found = n == 1 ? static_cast<const char *>(memchr(text, *s, static_cast<unsigned>(end - text)))
                             : find_pattern(text, end, s, n);
  return found ? static_cast<unsigned>(found - rep->data) : _string_npos;
}

unsigned search::rfind(const b_str_ref *rep, const char *s, unsigned pos, unsigned n) PLX_NOTHROW {
  const unsigned length = rep->length;
  if (n == 0 || length < n) return _string_npos;
  const char *at = rep->data + (pos < length - n ? pos : length - n);
  if (n == 1) {
    at = static_cast<const char *>(memrchr(rep->data, *s, static_cast<unsigned>(at - rep->data) + 1));
    return at ? static_cast<unsigned>(at - rep->data) : _string_npos;
  }
  for (;; --at) {
    if (*at == *s && memcmp(at, s, n) == 0) return static_cast<unsigned>(at - rep->data);
    if (at == rep->data) return _string_npos;
  }
}

unsigned search::find_first_of(const b_str_ref *rep, const char *s, unsigned pos, unsigned n) PLX_NOTHROW {
  return n == 0 ? _string_npos : first(rep, s, pos, n, true);
}
unsigned search::find_last_of(const b_str_ref *rep, const char *s, unsigned pos, unsigned n) PLX_NOTHROW {
  return n == 0 ? _string_npos : last(rep, s, pos, n, true);
}
unsigned search::find_first_not_of(const b_str_ref *rep, const char *s, unsigned pos, unsigned n) PLX_NOTHROW {
  return first(rep, s, pos, n, false);
}
unsigned search::find_last_not_of(const b_str_ref *rep, const char *s, unsigned pos, unsigned n) PLX_NOTHROW {
  return last(rep, s, pos, n, false);
}

}  // namespace __zor
