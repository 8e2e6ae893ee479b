// numpunct<char> (1998, 22.2.3.1): the punctuation of numbers: decimal point, separator and sizes of the groups of
// digits, and the names of true and false. num_put and num_get ask it.
#ifndef PLX_NUMPUNCT_H
#define PLX_NUMPUNCT_H

#include <plx/base/char_only.h>
#include <plx/locale/locale_core.h>

namespace std {

template <class _Ct> class numpunct {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  static locale::id id;
};

template <> class PLX_API numpunct<char> : public locale::facet {
public:
  typedef char char_type;
  typedef string string_type;
  static locale::id id;

  // '.', ',', no grouping: what derived classes begin with that override some of it. The second form is for a literal
  // 0.
  explicit numpunct(size_t _refs = 0) : facet(_refs) { _set_default(); }
  explicit numpunct(int _refs) : facet(static_cast<size_t>(_refs)) { _set_default(); }

  // plx's own: the punctuation of a locale of the C library, which is switched for the time of the call; a null name
  // stands for the one that is set. Of separators only the first byte is used; where the C library has none, as in "C",
  // it is the null character. Throws runtime_error with "Invalid locale name\n" for an unknown name, and bad_alloc.
  explicit numpunct(const char *_name, size_t _refs = 0);

  // Each forwards to the virtual operation of its name.
  char decimal_point() const { return do_decimal_point(); }
  char thousands_sep() const { return do_thousands_sep(); }
  // Each byte the size of a group, counted from the point; the last is repeated. 127 ends grouping; a size of 0 or less
  // does so only as the first: behind another, that one is repeated.
  string grouping() const { return do_grouping(); }
  string truename() const { return do_truename(); }
  string falsename() const { return do_falsename(); }

  // plx's own: the decimal point is '.' and digits are not grouped, unless a derived class says otherwise.
  bool _is_plain() const PLX_NOTHROW { return _decimal_point_ == '.' && _grouping_.empty(); }

protected:
  virtual ~numpunct();
  virtual char do_decimal_point() const;
  virtual char do_thousands_sep() const;
  virtual string do_grouping() const;
  virtual string do_truename() const;
  virtual string do_falsename() const;

private:
  void _set_default();

  char _decimal_point_;
  char _thousands_sep_;
  string _grouping_;
  string _truename_;
  string _falsename_;
};

// 22.2.3.2: nothing but the constructor by name.
template <class _Ct> class numpunct_byname : public numpunct<_Ct> {
public:
  explicit numpunct_byname(const char *_name, size_t _refs = 0) : numpunct<_Ct>(_name, _refs) {}

protected:
  virtual ~numpunct_byname() {}
};

}  // namespace std

#endif
