// The extractors of characters and C strings.

#include "input_operation.h"

namespace std {

using namespace __zor;

// The end gives failbit alone.
istream &__zor_extract_char(istream &in, char &c) {
  bool stored = false;
  light_input_operation(
      in, false,
      [&](iostate &) {
        read_blocks(stream_access::buffer(in), [&](const char *&at, const char *) {
          c = *at++;
          stored = true;
          return false;
        });
      },
      [&](iostate &error) {
        if (!stored) error |= ios_base::failbit;
      });
  return in;
}

istream &__zor_extract_c_string(istream &in, char *to) {
  char *next = to;
  light_input_operation(
      in, false,
      [&](iostate &error) {
        const streamsize width = stream_access::width(in);
        const char *const last = next + ((width > 0 ? width : 0x7fffffff) - 1);
        if (next == last) return;
        const ctype<char> &classes = use_facet<ctype<char>>(stream_access::loc(in));
        const ctype_base::mask *const table = classes._get_table();
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

}  // namespace std
