// ctype_byname<char>: the classes and cases of one of the C library's locales, read once. In a locale whose characters
// may have several bytes, the C library gives bytes from 0x80 on no class.

#include <ctype.h>

#include <plx/facets/ctype.h>

#include "c_locale.h"

using namespace __zor;

namespace std {

namespace {

typedef ctype_base base;

base::mask mask_of(int c, locale_t from) {
  return (isspace_l(c, from) ? base::space : 0) | (isprint_l(c, from) ? base::print : 0) |
         (iscntrl_l(c, from) ? base::cntrl : 0) | (isupper_l(c, from) ? base::upper : 0) |
         (islower_l(c, from) ? base::lower : 0) | (isalpha_l(c, from) ? base::alpha : 0) |
         (isdigit_l(c, from) ? base::digit : 0) | (ispunct_l(c, from) ? base::punct : 0) |
         (isxdigit_l(c, from) ? base::xdigit : 0);
}

unsigned char index_of(char c) { return static_cast<unsigned char>(c); }

}  // namespace

ctype_byname<char>::ctype_byname(const char *name, size_t refs) : ctype<char>(_masks_, false, refs) {
  const locale_t from = open_c_locale(LC_CTYPE_MASK, name);
  for (int c = 0; c < 256; ++c) {
    _masks_[c] = c < 128 ? classic_table()[c] : mask_of(c, from);
    _upper_[c] = static_cast<char>(c < 128 ? ctype<char>::do_toupper(static_cast<char>(c)) : toupper_l(c, from));
    _lower_[c] = static_cast<char>(c < 128 ? ctype<char>::do_tolower(static_cast<char>(c)) : tolower_l(c, from));
  }
  freelocale(from);
}

ctype_byname<char>::~ctype_byname() {}

char ctype_byname<char>::do_toupper(char c) const { return _upper_[index_of(c)]; }

const char *ctype_byname<char>::do_toupper(char *lo, const char *hi) const {
  for (; lo != hi; ++lo) *lo = _upper_[index_of(*lo)];
  return hi;
}

char ctype_byname<char>::do_tolower(char c) const { return _lower_[index_of(c)]; }

const char *ctype_byname<char>::do_tolower(char *lo, const char *hi) const {
  for (; lo != hi; ++lo) *lo = _lower_[index_of(*lo)];
  return hi;
}

}  // namespace std
