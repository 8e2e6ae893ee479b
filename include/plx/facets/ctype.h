// ctype<char> (1998, 22.2.1.3): classification of characters by a table of masks, and conversion of case.
//
// Bytes from 0x80 on have no class, unless the program brings a table of its own, and no other case, so text in UTF-8
// survives. The null character has no class either.
#ifndef PLX_CTYPE_H
#define PLX_CTYPE_H

#include <plx/base/char_only.h>
#include <plx/locale/locale_core.h>

namespace std {

class PLX_API ctype_base {
public:
  typedef unsigned int mask;
  static const mask space = 0x001;
  static const mask print = 0x002;
  static const mask cntrl = 0x004;
  static const mask upper = 0x008;
  static const mask lower = 0x010;
  static const mask alpha = 0x020;
  static const mask digit = 0x040;
  static const mask punct = 0x080;
  static const mask xdigit = 0x100;
  static const mask alnum = alpha | digit;
  static const mask graph = alnum | punct;
};

template <class _Ct> class ctype {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  static locale::id id;
};

template <> class PLX_API ctype<char> : public locale::facet, public ctype_base {
public:
  typedef char char_type;
  static locale::id id;
  static const size_t table_size = 256;

  // plx's own: the upper and the lower case of the character c at c + 1, for c from -1 (eof) to 255.
  static const short toupper_tab[258];
  static const short tolower_tab[258];

  // A table has 256 masks. With `_del` the destructor frees it, by operator delete; without a table, it is the classic.
  explicit ctype(const mask *_table = 0, bool _del = false, size_t _refs = 0) PLX_NOTHROW;

  bool is(mask _m, char _c) const PLX_NOTHROW { return (_table_[static_cast<unsigned char>(_c)] & _m) != 0; }

  // The masks of a range; returns `_hi`.
  const char *is(const char *_lo, const char *_hi, mask *_vec) const PLX_NOTHROW {
    for (; _lo != _hi; ++_lo, ++_vec) *_vec = _table_[static_cast<unsigned char>(*_lo)];
    return _hi;
  }

  // The first character that is, or is not, of one of the classes; `_hi` when there is none.
  const char *scan_is(mask _m, const char *_lo, const char *_hi) const PLX_NOTHROW {
    while (_lo != _hi && !is(_m, *_lo)) ++_lo;
    return _lo;
  }
  const char *scan_not(mask _m, const char *_lo, const char *_hi) const PLX_NOTHROW {
    while (_lo != _hi && is(_m, *_lo)) ++_lo;
    return _lo;
  }

  // Each forwards to the virtual operation of its name. Those on ranges return `_hi`.
  char toupper(char _c) const { return do_toupper(_c); }
  const char *toupper(char *_lo, const char *_hi) const { return do_toupper(_lo, _hi); }
  char tolower(char _c) const { return do_tolower(_c); }
  const char *tolower(char *_lo, const char *_hi) const { return do_tolower(_lo, _hi); }
  char widen(char _c) const { return do_widen(_c); }
  const char *widen(const char *_lo, const char *_hi, char *_to) const { return do_widen(_lo, _hi, _to); }
  char narrow(char _c, char _dfault) const { return do_narrow(_c, _dfault); }
  const char *narrow(const char *_lo, const char *_hi, char _dfault, char *_to) const {
    return do_narrow(_lo, _hi, _dfault, _to);
  }

  // The table in use, and that of the classic locale, of table_size masks each. (For derived classes only in 1998.)
  const mask *table() const PLX_NOTHROW { return _table_; }
  static const mask *classic_table() PLX_NOTHROW;

protected:
  virtual char do_toupper(char _c) const;
  virtual const char *do_toupper(char *_lo, const char *_hi) const;
  virtual char do_tolower(char _c) const;
  virtual const char *do_tolower(char *_lo, const char *_hi) const;
  virtual char do_widen(char _c) const;
  virtual const char *do_widen(const char *_lo, const char *_hi, char *_to) const;
  virtual char do_narrow(char _c, char _dfault) const;
  virtual const char *do_narrow(const char *_lo, const char *_hi, char _dfault, char *_to) const;
  virtual ~ctype();

private:
  const mask *_table_;
  bool _del_;
};

// 22.2.1.4: of one of the C library's locales, for bytes from 0x80 on; those below are classified as in the classic
// table. Throws runtime_error with "Invalid locale name\n". A program installs it by itself: the locales that are made
// from names hold a plain ctype.
template <class _Ct> class ctype_byname {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
};

template <> class PLX_API ctype_byname<char> : public ctype<char> {
public:
  explicit ctype_byname(const char *_name, size_t _refs = 0);

protected:
  virtual char do_toupper(char _c) const;
  virtual const char *do_toupper(char *_lo, const char *_hi) const;
  virtual char do_tolower(char _c) const;
  virtual const char *do_tolower(char *_lo, const char *_hi) const;
  virtual ~ctype_byname();

private:
  mask _masks_[256];
  char _upper_[256];
  char _lower_[256];
};

}  // namespace std

#endif
