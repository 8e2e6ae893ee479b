// money_put (1998, 22.2.6.2): writes amounts of money, as the moneypunct of a stream's locale, its flags, width and
// fill say.
//
// An amount is a text of digits, or a number, in the smallest unit: 12345 are 123.45 where there are two decimals. The
// currency symbol is written with showbase only. The text is filled up to the stream's width, where the pattern has its
// space or nothing (internal), behind (left) or in front; the width becomes 0. The library makes the text; the template
// only writes it.
#ifndef PLX_MONEY_PUT_H
#define PLX_MONEY_PUT_H

#include <plx/base/char_only.h>
#include <plx/base/cleanup.h>
#include <plx/facets/ctype.h>
#include <plx/facets/moneypunct.h>
#include <plx/streambuf/ios_base.h>
#include <plx/streambuf/streambuf_iterators.h>

namespace __zor {

// Both fill an empty text.
PLX_API void _make_money_text(std::string &_text, std::ios_base &_str, bool _intl, char _fill, const char *_digits,
                              size_t _n);
PLX_API void _make_money_text(std::string &_text, std::ios_base &_str, bool _intl, char _fill, long double _units);

}  // namespace __zor

namespace std {

template <class _Ct, class _OutIter> class PLX_API money_put : public locale::facet {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  typedef _Ct char_type;
  typedef _OutIter iter_type;
  typedef basic_string<_Ct, char_traits<_Ct>, allocator<_Ct> > string_type;
  static locale::id id;

  explicit money_put(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // Writes the amount: the nearest whole number to `_units`, or the digits at the beginning of `_digits`, behind '-'
  // for a negative one. Where there are fewer digits than decimals, zeros come before them, one of them in front of the
  // point. Without any digit, as for an infinity, nothing is written. Returns the iterator after the last character.
  // Throws bad_cast with "Facet not present\n" when the locale has no ctype<char> or no moneypunct of this form, and
  // what facets and iterators throw.
  iter_type put(iter_type _out, bool _intl, ios_base &_str, char_type _fill, long double _units) const {
    return do_put(_out, _intl, _str, _fill, _units);
  }
  iter_type put(iter_type _out, bool _intl, ios_base &_str, char_type _fill, const string_type &_digits) const {
    return do_put(_out, _intl, _str, _fill, _digits);
  }

protected:
  virtual ~money_put() {}

  virtual iter_type do_put(iter_type _out, bool _intl, ios_base &_str, char_type _fill, long double _units) const {
    __zor::_cleanup<string> _text;
    __zor::_make_money_text(_text.get(), _str, _intl, _fill, _units);
    return _write(_out, _text.get());
  }
  virtual iter_type do_put(iter_type _out, bool _intl, ios_base &_str, char_type _fill,
                           const string_type &_digits) const {
    __zor::_cleanup<string> _text;
    __zor::_make_money_text(_text.get(), _str, _intl, _fill, _digits.data(), _digits.size());
    return _write(_out, _text.get());
  }

private:
  static iter_type _write(iter_type _out, const string &_text) {
    for (const char *_c = _text.data(), *_end = _c + _text.size(); _c != _end; ++_c, (void)++_out) *_out = *_c;
    return _out;
  }
};

template <class _Ct, class _OutIter> locale::id money_put<_Ct, _OutIter>::id;

__extension__ extern template class PLX_API money_put<char, ostreambuf_iterator<char, char_traits<char> > >;
__extension__ extern template class PLX_API money_put<char, char *>;

}  // namespace std

#endif
