// The iterators over a stream buffer (1998, 24.5.3 and 24.5.4).
#ifndef PLX_STREAMBUF_ITERATORS_H
#define PLX_STREAMBUF_ITERATORS_H

#include <plx/base/iterator_base.h>
#include <plx/base/string_fwd.h>
#include <plx/streambuf/streambuf.h>

namespace __zor {

template <class _String, class _Iterator> class _string_range;

// Takes _c, the buffer's next character, and all that follow it up to the end: into a string, or into another buffer.
// When that takes no more, or is null, the rest is dropped and the result false.
PLX_API void _append_rest(std::basic_string<char, std::char_traits<char>, std::allocator<char> > &_text,
                          std::basic_streambuf<char, std::char_traits<char> > &_from, int _c);
PLX_API bool _copy_rest(std::basic_streambuf<char, std::char_traits<char> > *_to,
                        std::basic_streambuf<char, std::char_traits<char> > &_from, int _c);

struct _buffer_range;

}  // namespace __zor

namespace std {

// Reads characters. It looks ahead by one, which it keeps until it is incremented; a default-constructed one is at the
// end, and so is any whose buffer has no more.
template <class _Ct, class _T> class PLX_API istreambuf_iterator
    : public iterator<input_iterator_tag, _Ct, typename _T::off_type, _Ct *, _Ct &> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef basic_streambuf<_Ct, _T> streambuf_type;
  typedef basic_istream<_Ct, _T> istream_type;

  // What it++ gives: the character that was passed, and the buffer.
  class _passed {
  public:
    _Ct operator*() const PLX_NOTHROW { return _c_; }

  private:
    friend class istreambuf_iterator;
    _passed(_Ct _c, streambuf_type *_sb) PLX_NOTHROW : _c_(_c), _sb_(_sb) {}
    _Ct _c_;
    streambuf_type *_sb_;
  };

  istreambuf_iterator() PLX_NOTHROW : _c_(_T::eof()), _sb_(0) {}
  istreambuf_iterator(istream_type &_in) PLX_NOTHROW : _c_(_T::eof()), _sb_(_in.rdbuf()) {}
  istreambuf_iterator(streambuf_type *_sb) PLX_NOTHROW : _c_(_T::eof()), _sb_(_sb) {}
  istreambuf_iterator(const _passed &_p) PLX_NOTHROW : _c_(_T::eof()), _sb_(_p._sb_) {}

  _Ct operator*() const { return _T::to_char_type(_peek()); }
  istreambuf_iterator &operator++() {
    if (_sb_) _sb_->sbumpc();
    _c_ = _T::eof();
    return *this;
  }
  _passed operator++(int) {
    const _Ct _c = **this;
    ++*this;
    return _passed(_c, _sb_);
  }

  // Both at the end, or neither.
  bool equal(const istreambuf_iterator &_other) const { return _at_end() == _other._at_end(); }

private:
  friend struct __zor::_buffer_access;
  friend struct __zor::_buffer_range;

  int_type _peek() const {
    if (_T::eq_int_type(_c_, _T::eof()) && _sb_) {
      _c_ = _sb_->sgetc();
      if (_T::eq_int_type(_c_, _T::eof())) _sb_ = 0;
    }
    return _c_;
  }
  bool _at_end() const { return _T::eq_int_type(_peek(), _T::eof()); }

  mutable int_type _c_;  // eof: none is kept
  mutable streambuf_type *_sb_;
};

template <class _Ct, class _T>
inline bool operator==(const istreambuf_iterator<_Ct, _T> &_left, const istreambuf_iterator<_Ct, _T> &_right) {
  return _left.equal(_right);
}
template <class _Ct, class _T>
inline bool operator!=(const istreambuf_iterator<_Ct, _T> &_left, const istreambuf_iterator<_Ct, _T> &_right) {
  return !_left.equal(_right);
}

// Writes characters. After one that the buffer did not take, it drops all that follow.
template <class _Ct, class _T> class PLX_API ostreambuf_iterator
    : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef basic_streambuf<_Ct, _T> streambuf_type;
  typedef basic_ostream<_Ct, _T> ostream_type;

  ostreambuf_iterator(ostream_type &_out) PLX_NOTHROW : _sb_(_out.rdbuf()), _failed_(!_sb_) {}
  ostreambuf_iterator(streambuf_type *_sb) PLX_NOTHROW : _sb_(_sb), _failed_(!_sb) {}

  ostreambuf_iterator &operator=(_Ct _c) {
    if (!_failed_ && _T::eq_int_type(_sb_->sputc(_c), _T::eof())) _failed_ = true;
    return *this;
  }
  ostreambuf_iterator &operator*() PLX_NOTHROW { return *this; }
  ostreambuf_iterator &operator++() PLX_NOTHROW { return *this; }
  ostreambuf_iterator &operator++(int) PLX_NOTHROW { return *this; }
  bool failed() const PLX_NOTHROW { return _failed_; }

private:
  friend struct __zor::_buffer_access;
  friend struct __zor::_buffer_range;

  streambuf_type *_sb_;
  bool _failed_;
};

}  // namespace std

namespace __zor {

struct _buffer_range {
  typedef std::istreambuf_iterator<char, std::char_traits<char> > _input;
  typedef std::ostreambuf_iterator<char, std::char_traits<char> > _output;

  // The buffer of a range that goes on to its end, or null when the range is empty.
  static std::basic_streambuf<char, std::char_traits<char> > *_of(const _input &_first, const _input &_last) {
    return _first.equal(_last) || _first._at_end() ? 0 : _first._sb_;
  }
  static void _copy(const _input &_first, const _input &_last, _output &_out) {
    std::basic_streambuf<char, std::char_traits<char> > *const _from = _of(_first, _last);
    if (_from && !_copy_rest(_out._failed_ ? 0 : _out._sb_, *_from, _first._peek())) _out._failed_ = true;
  }
};

// What is left in a buffer becomes a string by blocks.
template <class _String> class _string_range<_String, std::istreambuf_iterator<char, std::char_traits<char> > > {
  typedef std::istreambuf_iterator<char, std::char_traits<char> > _iterator;

public:
  _string_range(_iterator _first, _iterator _last) : _made_(0u, char()) {
    std::basic_streambuf<char, std::char_traits<char> > *const _from = _buffer_range::_of(_first, _last);
    if (_from) _append_rest(_made_, *_from, std::char_traits<char>::to_int_type(*_first));
  }
  const char *data() const PLX_NOTHROW { return _made_.data(); }
  unsigned int size() const PLX_NOTHROW { return _made_.size(); }
  const _String &_text() const PLX_NOTHROW { return _made_; }

private:
  _String _made_;
};

}  // namespace __zor

namespace std {

// 25.2.1: from buffer to buffer by blocks, too.
template <class _T> inline ostreambuf_iterator<char, _T> copy(istreambuf_iterator<char, _T> _first,
                                                              istreambuf_iterator<char, _T> _last,
                                                              ostreambuf_iterator<char, _T> _out) {
  __zor::_buffer_range::_copy(_first, _last, _out);
  return _out;
}

}  // namespace std

#endif
