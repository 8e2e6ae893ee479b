// num_get (1998, 22.2.2.1): characters to numbers, as the format flags and the locale's numpunct and ctype say.
//
// Integers are a sign, then white space if skipws is set, a prefix, and digits; the base is that of the flags, or with
// no or several base flags the one that the prefix names, without which there is no number. Digits may be grouped when
// the locale groups them, and then must be as it says. Floating numbers are a sign, white space, digits, the locale's
// point, digits, and an exponent. Nothing that belongs to no number is read.
//
// get sets eofbit in `err` when the input ended, and failbit when the text is no number of the type; it clears no bits.
// An integer is stored in any case: what lies beyond the type's range becomes the limit, text without digits 0.
// Floating numbers, bools and pointers are only stored without failbit. Throws bad_cast with "Facet not present\n" when
// the stream's locale has no numpunct or no ctype, and what the iterators and facets throw.
//
// The scanners are in the library; the templates only bring the characters to them.
#ifndef PLX_NUM_GET_H
#define PLX_NUM_GET_H

#include <plx/base/char_only.h>
#include <plx/locale/locale_core.h>
#include <plx/streambuf/character_source.h>
#include <plx/streambuf/ios_base.h>

namespace __zor {

// What the source has next, up to the first character that cannot belong to the number. `_max` has the bits of the
// type. `_base` becomes the base that was used, or -1 when failbit is due.
PLX_API unsigned long _scan_integer(_character_source &_from, std::ios_base &_str, int &_base, bool _is_signed,
                                    unsigned long _max);

// True when a value was read and stored.
PLX_API bool _scan_real(_character_source &_from, std::ios_base &_str, float &_v);
PLX_API bool _scan_real(_character_source &_from, std::ios_base &_str, double &_v);
PLX_API bool _scan_real(_character_source &_from, std::ios_base &_str, long double &_v);
// The text of a floating number as sscanf of the C library's present locale reads it, at most 199 characters and a null
// character: a longer one is shortened to its first digits and an exponent. False when its digits are grouped wrongly.
PLX_API bool _scan_real_text(_character_source &_from, std::ios_base &_str, char *_text);
PLX_API bool _scan_pointer(_character_source &_from, std::ios_base &_str, void *&_v);

// Both: the bits to add to err.
PLX_API std::ios_base::iostate _scan_name_of_bool(_character_source &_from, std::ios_base &_str, bool &_v);

}  // namespace __zor

namespace std {

template <class _Ct, class _InIter> class PLX_API num_get : public locale::facet {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
  typedef typename __zor::_source_of<_InIter>::_type _source;

public:
  typedef _Ct char_type;
  typedef _InIter iter_type;
  static locale::id id;

  explicit num_get(size_t _refs = 0) PLX_NOTHROW : locale::facet(_refs) {}

  // Reads from [in, end). Returns the position after the last character that was read.
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, bool &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, unsigned short &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, unsigned int &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, long &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, unsigned long &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, float &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, double &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, long double &_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }
  iter_type get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, void *&_v) const {
    return do_get(_in, _end, _str, _err, _v);
  }

  // plx's own: the scanner of all integer overloads. Moves `_in`; `_base` becomes the base used, or -1 for an error.
  static unsigned long zor_scan_integral_type(iter_type &_in, iter_type &_end, ios_base &_str, int &_base,
                                              int _is_signed, unsigned long _max) {
    _source _from(_in, _end);
    const unsigned long _value = __zor::_scan_integer(_from, _str, _base, _is_signed != 0, _max);
    _from._finish();
    return _value;
  }

  // plx's own: the text of a floating number, for sscanf, into a buffer of 200 characters. Moves `_in`. False when the
  // digits are grouped wrongly; that the text is no number shows when it is read.
  static bool scan_float_type(iter_type &_in, iter_type &_end, ios_base &_str, char_type *_text) {
    _source _from(_in, _end);
    const bool _done = __zor::_scan_real_text(_from, _str, _text);
    _from._finish();
    return _done;
  }

protected:
  virtual ~num_get() {}

  // Without boolalpha, the numbers 0 and 1. With it, the locale's names, read only as far as it takes to tell them
  // apart and to the end of one; eofbit is set only when more was looked for.
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, bool &_v) const {
    if (_str.flags() & ios_base::boolalpha) {
      _source _from(_in, _end);
      _err |= __zor::_scan_name_of_bool(_from, _str, _v);
      _from._finish();
      return _in;
    }
    long _number = 0;
    ios_base::iostate _state = ios_base::goodbit;
    _get_integer(_in, _end, _str, _state, _number, 1, 0xFFFFFFFFul);
    if (_number & ~1L) _state |= ios_base::failbit;
    if (!(_state & ios_base::failbit)) _v = _number != 0;
    _err |= _state;
    return _in;
  }
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err,
                           unsigned short &_v) const {
    _get_integer(_in, _end, _str, _err, _v, 0, 0xFFFFul);
    return _in;
  }
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err,
                           unsigned int &_v) const {
    _get_integer(_in, _end, _str, _err, _v, 0, 0xFFFFFFFFul);
    return _in;
  }
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, long &_v) const {
    _get_integer(_in, _end, _str, _err, _v, 1, 0xFFFFFFFFul);
    return _in;
  }
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err,
                           unsigned long &_v) const {
    _get_integer(_in, _end, _str, _err, _v, 0, 0xFFFFFFFFul);
    return _in;
  }

  // The values are those of sscanf for the same text: infinite beyond the range, and zero or denormal below it.
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, float &_v) const {
    _get_real(_in, _end, _str, _err, _v);
    return _in;
  }
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, double &_v) const {
    _get_real(_in, _end, _str, _err, _v);
    return _in;
  }
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err,
                           long double &_v) const {
    _get_real(_in, _end, _str, _err, _v);
    return _in;
  }

  // Hexadecimal digits, whatever the flags say, or "(nil)": what is written for pointers can be read.
  virtual iter_type do_get(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, void *&_v) const {
    _source _from(_in, _end);
    const bool _done = __zor::_scan_pointer(_from, _str, _v);
    _from._finish();
    _note(_in == _end, _done, _err);
    return _in;
  }

private:
  static void _note(bool _ended, bool _done, ios_base::iostate &_err) PLX_NOTHROW {
    if (_ended) _err |= ios_base::eofbit;
    if (!_done) _err |= ios_base::failbit;
  }
  template <class _V> static void _get_integer(iter_type &_in, iter_type &_end, ios_base &_str, ios_base::iostate &_err,
                                               _V &_v, int _is_signed, unsigned long _max) {
    int _base;
    const unsigned long _value = zor_scan_integral_type(_in, _end, _str, _base, _is_signed, _max);
    _note(_in == _end, _base != -1, _err);
    _v = static_cast<_V>(_value);
  }
  template <class _V>
  static void _get_real(iter_type &_in, iter_type &_end, ios_base &_str, ios_base::iostate &_err, _V &_v) {
    _source _from(_in, _end);
    const bool _done = __zor::_scan_real(_from, _str, _v);
    _from._finish();
    _note(_in == _end, _done, _err);
  }
};

template <class _Ct, class _InIter> locale::id num_get<_Ct, _InIter>::id;

__extension__ extern template class PLX_API num_get<char, istreambuf_iterator<char, char_traits<char> > >;
__extension__ extern template class PLX_API num_get<char, char *>;
__extension__ extern template class PLX_API num_get<char, const char *>;

}  // namespace std

#endif
