// num_put (1998, 22.2.2.2): numbers to text, by a stream's flags, width, precision and locale. The inserters of streams
// call it.
//
// The text is the C library's printf's for the same flags in the "C" locale, then grouped, given the locale's decimal
// point, and filled up to the width, which becomes 0. Of the 1998 standard it departs where plx's interface says so:
// a bool is never filled, a pointer is filled on the other side, `uppercase` changes hexadecimal digits and an exponent
// behind a decimal point only, a precision below 1 is 6 unless `fixed` is set.
#ifndef PLX_NUM_PUT_H
#define PLX_NUM_PUT_H

#include <plx/facets/ctype.h>
#include <plx/facets/numpunct.h>
#include <plx/streambuf/ios_base.h>
#include <plx/streambuf/streambuf_iterators.h>

namespace __zor {

// Where the untyped core below sends the text, piece by piece. What the two operations throw passes through it.
struct _a_text_sink {
  void (*_put)(_a_text_sink *_sink, const char *_text, unsigned int _n);
  void (*_fill)(_a_text_sink *_sink, char _c, unsigned int _n);
};

// Through an output iterator, one character after the other.
template <class _OutIter> struct _text_sink_to : _a_text_sink {
  explicit _text_sink_to(const _OutIter &_out) : _out_(_out) {
    _put = _put_each;
    _fill = _fill_each;
  }
  static void _put_each(_a_text_sink *_sink, const char *_text, unsigned int _n) {
    _OutIter &_out = static_cast<_text_sink_to *>(_sink)->_out_;
    for (; _n != 0; --_n, (void)++_out, ++_text) *_out = *_text;
  }
  static void _fill_each(_a_text_sink *_sink, char _c, unsigned int _n) {
    _OutIter &_out = static_cast<_text_sink_to *>(_sink)->_out_;
    for (; _n != 0; --_n, (void)++_out) *_out = _c;
  }
  _OutIter _out_;
};

// The core: all of them set the stream's width to 0, but for the bool. bad_cast with "Facet not present\n" when the
// stream's locale lacks numpunct<char> or ctype<char>.
PLX_API PLX_REGPARM void _put_bool(_a_text_sink *_sink, std::ios_base &_str, bool _v);
PLX_API PLX_REGPARM void _put_long(_a_text_sink *_sink, std::ios_base &_str, char _fill, long _v);
PLX_API PLX_REGPARM void _put_unsigned_long(_a_text_sink *_sink, std::ios_base &_str, char _fill, unsigned long _v);
PLX_API PLX_REGPARM void _put_double(_a_text_sink *_sink, std::ios_base &_str, char _fill, double _v);
PLX_API PLX_REGPARM void _put_long_double(_a_text_sink *_sink, std::ios_base &_str, char _fill, long double _v);
PLX_API PLX_REGPARM void _put_pointer(_a_text_sink *_sink, std::ios_base &_str, char _fill, const void *_v);

PLX_API PLX_REGPARM void _put_integer_text(_a_text_sink *_sink, std::ios_base &_str, char _fill, const char *_text,
                                           unsigned int _n);
PLX_API PLX_REGPARM void _put_float_text(_a_text_sink *_sink, std::ios_base &_str, char _fill, const char *_text,
                                         unsigned int _n, unsigned int _extra_zeros, char _point);
PLX_API PLX_REGPARM char _local_decimal_point() PLX_NOTHROW;

PLX_API PLX_REGPARM void _make_integer_format(char *_format, char _conversion, int _flags) PLX_NOTHROW;
PLX_API PLX_REGPARM void _make_float_format(char *_format, char _modifier, int _flags) PLX_NOTHROW;

}  // namespace __zor

namespace std {

template <class _Ct, class _OutIter> class PLX_API num_put : public locale::facet {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
  typedef __zor::_text_sink_to<_OutIter> _a_sink;

public:
  typedef _Ct char_type;
  typedef _OutIter iter_type;
  static locale::id id;

  explicit num_put(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // Each forwards to the virtual operation for its type and returns the iterator after the last character. Of a stream
  // buffer's iterator, failed() tells whether the buffer took all. Throws bad_cast with "Facet not present\n" when the
  // stream's locale lacks numpunct<char> or ctype<char>, and what iterators and those facets throw.
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, bool _v) const {
    return do_put(_out, _str, _fill, _v);
  }
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, long _v) const {
    return do_put(_out, _str, _fill, _v);
  }
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, unsigned long _v) const {
    return do_put(_out, _str, _fill, _v);
  }
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, double _v) const {
    return do_put(_out, _str, _fill, _v);
  }
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, long double _v) const {
    return do_put(_out, _str, _fill, _v);
  }
  iter_type put(iter_type _out, ios_base &_str, char_type _fill, const void *_v) const {
    return do_put(_out, _str, _fill, _v);
  }

  // plx's own. The formats for printf: at most 6 bytes for an integer ("%+#lX"), 8 for a floating value ("%+#.*Lg").
  static void int_fmt(char *_format, char _conversion, ios_base::fmtflags _flags) {
    __zor::_make_integer_format(_format, _conversion, _flags);
  }
  static void float_fmt(char *_format, char _modifier, ios_base &_str) {
    __zor::_make_float_format(_format, _modifier, _str.flags());
  }

  // plx's own. A text that printf made, grouped, with the locale's decimal point for the C library's present one, and
  // filled. `_extra_zeros` follow the fraction.
  static iter_type print_integral_type(iter_type _out, ios_base &_str, char_type _fill, char *_text,
                                       unsigned int _length) {
    _a_sink _sink(_out);
    __zor::_put_integer_text(&_sink, _str, _fill, _text, _length);
    return _sink._out_;
  }
  static iter_type print_float_type(iter_type _out, ios_base &_str, char_type _fill, char *_text,
                                    unsigned int _extra_zeros, unsigned int _length) {
    _a_sink _sink(_out);
    __zor::_put_float_text(&_sink, _str, _fill, _text, _length, _extra_zeros, __zor::_local_decimal_point());
    return _sink._out_;
  }

protected:
  virtual ~num_put() {}

  // "true" or "false" of the locale with `boolalpha`, else "1" or "0"; width and fill have no say.
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type, bool _v) const {
    _a_sink _sink(_out);
    __zor::_put_bool(&_sink, _str, _v);
    return _sink._out_;
  }
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type _fill, long _v) const {
    _a_sink _sink(_out);
    __zor::_put_long(&_sink, _str, _fill, _v);
    return _sink._out_;
  }
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type _fill, unsigned long _v) const {
    _a_sink _sink(_out);
    __zor::_put_unsigned_long(&_sink, _str, _fill, _v);
    return _sink._out_;
  }
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type _fill, double _v) const {
    _a_sink _sink(_out);
    __zor::_put_double(&_sink, _str, _fill, _v);
    return _sink._out_;
  }
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type _fill, long double _v) const {
    _a_sink _sink(_out);
    __zor::_put_long_double(&_sink, _str, _fill, _v);
    return _sink._out_;
  }
  // As "%p", not grouped. Filled in front with exactly `left`, behind with exactly `right`, and not otherwise.
  virtual iter_type do_put(iter_type _out, ios_base &_str, char_type _fill, const void *_v) const {
    _a_sink _sink(_out);
    __zor::_put_pointer(&_sink, _str, _fill, _v);
    return _sink._out_;
  }
};

template <class _Ct, class _OutIter> locale::id num_put<_Ct, _OutIter>::id;

__extension__ extern template class PLX_API num_put<char, ostreambuf_iterator<char, char_traits<char> > >;
__extension__ extern template class PLX_API num_put<char, char *>;

}  // namespace std

#endif
