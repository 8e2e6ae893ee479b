// ctype<char>: the classic table of masks and the conversions that go with it.

#include <string.h>

#include <plx/facets/ctype.h>

#include "standard_facets.h"

namespace std {

const ctype_base::mask ctype_base::space;
const ctype_base::mask ctype_base::print;
const ctype_base::mask ctype_base::cntrl;
const ctype_base::mask ctype_base::upper;
const ctype_base::mask ctype_base::lower;
const ctype_base::mask ctype_base::alpha;
const ctype_base::mask ctype_base::digit;
const ctype_base::mask ctype_base::punct;
const ctype_base::mask ctype_base::xdigit;
const ctype_base::mask ctype_base::alnum;
const ctype_base::mask ctype_base::graph;

locale::id ctype<char>::id;
const size_t ctype<char>::table_size;

#define FOUR(c) c, c + 1, c + 2, c + 3
#define SIXTEEN(c) FOUR(c), FOUR(c + 4), FOUR(c + 8), FOUR(c + 12)
#define LETTERS(a) SIXTEEN(a), FOUR(a + 16), FOUR(a + 20), a + 24, a + 25
#define UPPER_HALF \
  SIXTEEN(128), SIXTEEN(144), SIXTEEN(160), SIXTEEN(176), SIXTEEN(192), SIXTEEN(208), SIXTEEN(224), SIXTEEN(240)
#define CASES(...) \
  { -1, __VA_ARGS__, UPPER_HALF, 0 }
const short ctype<char>::toupper_tab[258] = CASES(SIXTEEN(0), SIXTEEN(16), SIXTEEN(32), SIXTEEN(48), SIXTEEN(64),
                                                  SIXTEEN(80), 96, LETTERS('A'), 123, FOUR(124));
const short ctype<char>::tolower_tab[258] =
    CASES(SIXTEEN(0), SIXTEEN(16), SIXTEEN(32), SIXTEEN(48), 64, LETTERS('a'), 91, FOUR(92), SIXTEEN(96), SIXTEEN(112));
#undef FOUR
#undef SIXTEEN
#undef LETTERS
#undef UPPER_HALF
#undef CASES

namespace {

typedef ctype_base base;

constexpr base::mask mask_of(int c) {
  if (c == 0 || c > 127) return 0;
  if (c >= 9 && c <= 13) return base::space | base::cntrl;
  if (c < 32 || c == 127) return base::cntrl;
  if (c == ' ') return base::space | base::print;
  if (c >= '0' && c <= '9') return base::digit | base::xdigit | base::print;
  const base::mask hex = (c | 32) <= 'f' ? base::xdigit : 0;
  if (c >= 'A' && c <= 'Z') return base::upper | base::alpha | base::print | hex;
  if (c >= 'a' && c <= 'z') return base::lower | base::alpha | base::print | hex;
  return base::punct | base::print;
}

struct masks {
  base::mask of[256];
};

constexpr masks make_masks() {
  masks made = {};
  for (int c = 0; c < 256; ++c) made.of[c] = mask_of(c);
  return made;
}

constexpr masks classic = make_masks();

unsigned int in_each_byte(unsigned int c) { return c * 0x01010101u; }

// 0x20 in each byte that is one of 26 letters of ASCII from `first` on: what its case differs in.
unsigned int case_bits(unsigned int bytes, unsigned int first) {
  const unsigned int low = bytes & in_each_byte(0x7F);
  const unsigned int from_first = low + in_each_byte(0x80 - first), beyond_last = low + in_each_byte(0x80 - first - 26);
  return ((from_first ^ beyond_last) & ~bytes & in_each_byte(0x80)) >> 2;
}

char other_case(char c, char first) {
  return static_cast<unsigned char>(c - first) < 26 ? static_cast<char>(c ^ 0x20) : c;
}

// Four bytes at a time, since texts to convert tend to be long.
void convert(char *lo, const char *hi, char first) {
  for (; hi - lo >= 4; lo += 4) {
    unsigned int bytes;
    memcpy(&bytes, lo, 4);
    bytes ^= case_bits(bytes, static_cast<unsigned char>(first));
    memcpy(lo, &bytes, 4);
  }
  for (; lo != hi; ++lo) *lo = other_case(*lo, first);
}

void copy(const char *lo, const char *hi, char *to) {
  if (lo != hi) memcpy(to, lo, static_cast<size_t>(hi - lo));
}

}  // namespace

ctype<char>::ctype(const mask *table, bool del, size_t refs) PLX_NOTHROW : facet(refs),
                                                                           _table_(table ? table : classic.of),
                                                                           _del_(table &&del) {}

ctype<char>::~ctype() {
  if (_del_) operator delete(const_cast<mask *>(_table_));
}

const ctype_base::mask *ctype<char>::classic_table() PLX_NOTHROW { return classic.of; }

char ctype<char>::do_toupper(char c) const { return other_case(c, 'a'); }

const char *ctype<char>::do_toupper(char *lo, const char *hi) const {
  convert(lo, hi, 'a');
  return hi;
}

char ctype<char>::do_tolower(char c) const { return other_case(c, 'A'); }

const char *ctype<char>::do_tolower(char *lo, const char *hi) const {
  convert(lo, hi, 'A');
  return hi;
}

char ctype<char>::do_widen(char c) const { return c; }

const char *ctype<char>::do_widen(const char *lo, const char *hi, char *to) const {
  copy(lo, hi, to);
  return hi;
}

char ctype<char>::do_narrow(char c, char) const { return c; }

const char *ctype<char>::do_narrow(const char *lo, const char *hi, char, char *to) const {
  copy(lo, hi, to);
  return hi;
}

}  // namespace std

const __zor::standard_facet __zor::ctype_facet = {made_alike<std::ctype<char>>, &std::ctype<char>::id};
