// money_get (1998, 22.2.6.1): reads amounts of money in the negative format of the moneypunct of a stream's locale.
//
// An amount is a number, or its digits as text, in the smallest unit: "$1,056.23" is 105623. What is not required may
// be missing: separators, the symbol without showbase, a sign for which the locale has an empty text. Decimals are
// required behind a point, as many as the locale has; without a point, "12" are 12 of the smallest unit. The library
// reads; the templates only bring the characters.
#ifndef PLX_MONEY_GET_H
#define PLX_MONEY_GET_H

#include <plx/base/char_only.h>
#include <plx/facets/moneypunct.h>
#include <plx/streambuf/character_source.h>
#include <plx/streambuf/ios_base.h>

namespace __zor {

// Both store the amount and return true, or change nothing and return false.
PLX_API bool _scan_money(_character_source &_from, std::ios_base &_str, bool _intl, long double &_units);
PLX_API bool _scan_money(_character_source &_from, std::ios_base &_str, bool _intl, std::string &_digits);

}  // namespace __zor

namespace std {

template <class _Ct, class _InIter> class PLX_API money_get : public locale::facet {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  typedef _Ct char_type;
  typedef _InIter iter_type;
  typedef basic_string<_Ct, char_traits<_Ct>, allocator<_Ct> > string_type;
  static locale::id id;

  explicit money_get(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // Reads from [in, end). Returns the position after the last character that was read. Sets failbit in `_err`, and
  // stores nothing, when that was no amount, and eofbit when the input ended. `_digits` becomes the digits without
  // leading zeros, behind '-' for a negative amount. Throws bad_cast with "Facet not present\n" when the locale has no
  // ctype<char> or no moneypunct of this form, bad_alloc, and what facets and iterators throw.
  iter_type get(iter_type _in, iter_type _end, bool _intl, ios_base &_str, ios_base::iostate &_err,
                long double &_units) const {
    return do_get(_in, _end, _intl, _str, _err, _units);
  }
  iter_type get(iter_type _in, iter_type _end, bool _intl, ios_base &_str, ios_base::iostate &_err,
                string_type &_digits) const {
    return do_get(_in, _end, _intl, _str, _err, _digits);
  }

protected:
  virtual ~money_get() {}

  virtual iter_type do_get(iter_type _in, iter_type _end, bool _intl, ios_base &_str, ios_base::iostate &_err,
                           long double &_units) const {
    return _get(_in, _end, _intl, _str, _err, _units);
  }
  virtual iter_type do_get(iter_type _in, iter_type _end, bool _intl, ios_base &_str, ios_base::iostate &_err,
                           string_type &_digits) const {
    return _get(_in, _end, _intl, _str, _err, _digits);
  }

private:
  template <class _Amount> static iter_type _get(iter_type &_in, iter_type &_end, bool _intl, ios_base &_str,
                                                 ios_base::iostate &_err, _Amount &_amount) {
    typename __zor::_source_of<_InIter>::_type _from(_in, _end);
    const bool _done = __zor::_scan_money(_from, _str, _intl, _amount);
    _from._finish();
    if (!_done) _err |= ios_base::failbit;
    if (_in == _end) _err |= ios_base::eofbit;
    return _in;
  }
};

template <class _Ct, class _InIter> locale::id money_get<_Ct, _InIter>::id;

__extension__ extern template class PLX_API money_get<char, istreambuf_iterator<char, char_traits<char> > >;
__extension__ extern template class PLX_API money_get<char, char *>;

}  // namespace std

#endif
