// moneypunct (1998, 22.2.6.3): how amounts of money are written: decimal point, groups, currency symbol, signs, and the
// order of these parts. money_get and money_put ask it. The second argument chooses the international form, with a
// symbol such as "USD ", or the local one, "$".
#ifndef PLX_MONEYPUNCT_H
#define PLX_MONEYPUNCT_H

#include <plx/base/char_only.h>
#include <plx/locale/locale_core.h>

namespace std {

class PLX_API money_base {
public:
  // The values are the characters by which patterns are shown: "-?0v" is sign, symbol, nothing, value.
  enum part { none = '0', space = ' ', symbol = '?', sign = '-', value = 'v' };

  // The parts of an amount in their order: symbol, sign, value, and either space or none.
  struct pattern {
    char field[4];
  };

  // plx's own. "?-0v", the pattern where nothing else is known.
  static pattern get_pat() PLX_NOTHROW;

  // plx's own. The pattern for the fields of that name of the C library's lconv: `_cs_precedes` and `_sep_by_space` are
  // 0 or 1, `_sign_posn` is 0 to 7. `_paren` tells whether the C library asks for parentheses as the sign.
  static pattern get_pat(int _cs_precedes, int _sep_by_space, int _sign_posn, bool &_paren) PLX_NOTHROW;
};

template <class _Ct, bool _Intl> class PLX_API moneypunct : public locale::facet, public money_base {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  typedef _Ct char_type;
  typedef basic_string<_Ct, char_traits<_Ct>, allocator<_Ct> > string_type;
  static const bool intl = _Intl;
  static locale::id id;

  // '.', ',', no groups, symbol, signs or decimals, "?-0v": what derived classes begin with that override some of it.
  // The second form is for a literal 0.
  explicit moneypunct(size_t _refs = 0) PLX_NOTHROW;
  explicit moneypunct(int _refs) PLX_NOTHROW;

  // plx's own: the punctuation of a locale of the C library, which is switched for the time of the call; a null name
  // stands for the one that is set. Of point and separator only the first byte is used. Patterns are the locale's in
  // the local form only. Throws runtime_error with "Invalid locale name\n" for an unknown name, and bad_alloc.
  explicit moneypunct(const char *_name, size_t _refs = 0);

  // Each forwards to the virtual operation of its name.
  _Ct decimal_point() const { return do_decimal_point(); }
  _Ct thousands_sep() const { return do_thousands_sep(); }
  // Each byte the size of a group, counted from the point; the last is repeated. 127, 0 or less ends grouping.
  string_type grouping() const { return do_grouping(); }
  string_type curr_symbol() const { return do_curr_symbol(); }
  // Of a sign's characters the first stands where the pattern has the sign, the others behind everything.
  string_type positive_sign() const { return do_positive_sign(); }
  string_type negative_sign() const { return do_negative_sign(); }
  // Digits behind the decimal point. 127: the C library does not say; what is below 0 or above 126 means none.
  int frac_digits() const { return do_frac_digits(); }
  pattern pos_format() const { return do_pos_format(); }
  pattern neg_format() const { return do_neg_format(); }

protected:
  virtual ~moneypunct();
  virtual _Ct do_decimal_point() const;
  virtual _Ct do_thousands_sep() const;
  virtual string_type do_grouping() const;
  virtual string_type do_curr_symbol() const;
  virtual string_type do_positive_sign() const;
  virtual string_type do_negative_sign() const;
  virtual int do_frac_digits() const;
  virtual pattern do_pos_format() const;
  virtual pattern do_neg_format() const;

  // plx's own: reads the C library's locale, as the constructor by name does; all or nothing.
  void init(const char *_name);

private:
  void _set_default() PLX_NOTHROW;

  _Ct _decimal_point_;
  _Ct _thousands_sep_;
  string_type _curr_symbol_;
  string_type _positive_sign_;
  string_type _negative_sign_;
  string_type _grouping_;
  int _frac_digits_;
  pattern _pos_format_;
  pattern _neg_format_;
};

template <class _Ct, bool _Intl> const bool moneypunct<_Ct, _Intl>::intl;

// 22.2.6.4: nothing but the constructor by name.
template <class _Ct, bool _Intl> class PLX_API moneypunct_byname : public moneypunct<_Ct, _Intl> {
public:
  explicit moneypunct_byname(const char *_name, size_t _refs = 0) : moneypunct<_Ct, _Intl>(_name, _refs) {}

protected:
  virtual ~moneypunct_byname() {}
};

__extension__ extern template class PLX_API moneypunct<char, false>;
__extension__ extern template class PLX_API moneypunct<char, true>;
__extension__ extern template class PLX_API moneypunct_byname<char, false>;
__extension__ extern template class PLX_API moneypunct_byname<char, true>;

}  // namespace std

#endif
