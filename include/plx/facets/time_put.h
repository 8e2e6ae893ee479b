// time_put (1998, 22.2.5.3): writes date and time by a pattern as strftime's.
//
// %c, %x and %X stand for "%a %b %d %H:%M:%S %Y", "%m/%d/%y" and "%H:%M:%S" everywhere. Names are those of the
// environment's locale (LC_ALL, LC_TIME, LANG), whatever the stream's; time_put_byname has those of its name. There are
// no modifiers: the letter behind % is the conversion. The library makes the text; the template only writes it.
#ifndef PLX_TIME_PUT_H
#define PLX_TIME_PUT_H

#include <plx/base/char_only.h>
#include <plx/facets/ctype.h>
#include <plx/facets/timepunct.h>
#include <plx/streambuf/ios_base.h>
#include <plx/streambuf/streambuf_iterators.h>

namespace __zor {

enum { _time_text_room = 512 };

// What a pattern needs before anything is written: the stream's ctype, and the environment's locale.
PLX_API const std::ctype<char> &_begin_time_put(std::ios_base &_str);

// The text of one conversion, in a buffer of _time_text_room bytes; returns its end. With null for names the
// environment's.
PLX_API char *_make_time_text(char *_text, char _conversion, const std::tm *_t, const std::timepunct<char> *_names);

// What %c, %x and %X stand for; null for any other.
PLX_API const char *_expanded_time_format(char _conversion) PLX_NOTHROW;

}  // namespace __zor

namespace std {

template <class _Ct, class _OutIter> class PLX_API time_put : public locale::facet {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  typedef _Ct char_type;
  typedef _OutIter iter_type;
  static locale::id id;

  explicit time_put(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // Writes the pattern: its characters, and for each conversion what do_put writes. A '%' at the end is dropped.
  // Returns the iterator after the last character. Throws bad_cast with "Facet not present\n" when the stream's locale
  // has no ctype<char>, runtime_error with "Invalid locale name\n" when the C library does not know the environment's
  // locale, and what iterators throw.
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, const tm *_t, const _Ct *_pattern,
                const _Ct *_pattern_end) const {
    const ctype<_Ct> &_classes = __zor::_begin_time_put(_str);
    for (; _pattern != _pattern_end; ++_pattern) {
      if (_classes.narrow(*_pattern, 0) != '%') {
        *_out = *_pattern;
        ++_out;
        continue;
      }
      if (++_pattern == _pattern_end) break;
      const char _conversion = _classes.narrow(*_pattern, 0);
      if (const char *const _format = __zor::_expanded_time_format(_conversion))
        _out = _put_format(_out, _str, _fill, _t, _format);
      else if (_conversion != 0)
        _out = do_put(_out, _str, _fill, _t, _conversion, 0);
    }
    return _out;
  }

  // One conversion.
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, const tm *_t, char _format, char _modifier = 0) const {
    return do_put(_out, _str, _fill, _t, _format, _modifier);
  }

protected:
  virtual ~time_put() {}

  // Fill and modifier have no say.
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type _fill, const tm *_t, char _format, char) const {
    return _put_one(_out, _str, _fill, _t, _format, 0);
  }

  // plx's own, for time_put_byname: null for the environment's names.
  iter_type _put_one(iter_type _out, ios_base &_str, char_type _fill, const tm *_t, char _conversion,
                     const timepunct<_Ct> *_names) const {
    if (const char *const _format = __zor::_expanded_time_format(_conversion))
      return _put_format(_out, _str, _fill, _t, _format);
    char _text[__zor::_time_text_room];
    const char *const _end = __zor::_make_time_text(_text, _conversion, _t, _names);
    for (const char *_c = _text; _c != _end; ++_c, (void)++_out) *_out = *_c;
    return _out;
  }

private:
  iter_type _put_format(iter_type _out, ios_base &_str, char_type _fill, const tm *_t, const char *_format) const {
    return put(_out, _str, _fill, _t, _format, _format + char_traits<char>::length(_format));
  }
};

template <class _Ct, class _OutIter> locale::id time_put<_Ct, _OutIter>::id;

// 22.2.5.4: the same, with the names of a locale of the C library. Fails as timepunct does.
template <class _Ct, class _OutIter> class PLX_API time_put_byname : public time_put<_Ct, _OutIter> {
public:
  typedef _Ct char_type;
  typedef _OutIter iter_type;

  explicit time_put_byname(const char *_name, size_t _refs = 0) : time_put<_Ct, _OutIter>(_refs), _names_(_name) {}

protected:
  virtual ~time_put_byname() {}
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type _fill, const tm *_t, char _format, char) const {
    return this->_put_one(_out, _str, _fill, _t, _format, &_names_);
  }

private:
  timepunct<_Ct> _names_;
};

__extension__ extern template class PLX_API time_put<char, ostreambuf_iterator<char, char_traits<char> > >;
__extension__ extern template class PLX_API time_put_byname<char, ostreambuf_iterator<char, char_traits<char> > >;

}  // namespace std

#endif
