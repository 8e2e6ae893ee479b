// collate<char> (1998, 22.2.4.1): comparison and sort keys by the C library's collation that is set at the time of each
// call, whatever locale the facet is in, and a hash.
#ifndef PLX_COLLATE_H
#define PLX_COLLATE_H

#include <plx/base/char_only.h>
#include <plx/locale/locale_core.h>

namespace std {

template <class _Ct> class collate {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  static locale::id id;
};

template <> class PLX_API collate<char> : public locale::facet {
public:
  typedef char char_type;
  typedef string string_type;
  static locale::id id;

  explicit collate(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // Each forwards to the virtual operation of its name.

  // -1, 0 or 1. A null character ends a text before its range does. Throws bad_alloc for long texts.
  int compare(const char *_lo1, const char *_hi1, const char *_lo2, const char *_hi2) const {
    return do_compare(_lo1, _hi1, _lo2, _hi2);
  }
  // A text that compares with others of its kind by bytes as compare() does with the originals.
  string transform(const char *_lo, const char *_hi) const { return do_transform(_lo, _hi); }
  // Not the same for texts that merely compare equal.
  long hash(const char *_lo, const char *_hi) const { return do_hash(_lo, _hi); }

protected:
  virtual ~collate();
  virtual int do_compare(const char *_lo1, const char *_hi1, const char *_lo2, const char *_hi2) const;
  virtual string do_transform(const char *_lo, const char *_hi) const;
  virtual long do_hash(const char *_lo, const char *_hi) const;
};

// 22.2.4.2: by one of the C library's locales. Throws runtime_error with "Invalid locale name\n". A program installs it
// by itself: the locales that are made from names hold a plain collate.
template <class _Ct> class collate_byname {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
};

template <> class PLX_API collate_byname<char> : public collate<char> {
public:
  explicit collate_byname(const char *_name, size_t _refs = 0);

protected:
  virtual ~collate_byname();
  virtual int do_compare(const char *_lo1, const char *_hi1, const char *_lo2, const char *_hi2) const;
  virtual string do_transform(const char *_lo, const char *_hi) const;

private:
  void *_c_locale_;
};

}  // namespace std

#endif
