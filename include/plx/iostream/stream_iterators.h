// istream_iterator and ostream_iterator (1998, 24.5.1 and 24.5.2): extraction and insertion in the form of iterators.
// The streams are only named here: programs that use them include <istream> or <ostream> as well.
#ifndef PLX_STREAM_ITERATORS_H
#define PLX_STREAM_ITERATORS_H

#include <plx/base/ios_fwd.h>
#include <plx/base/iterator_base.h>
#include <plx/base/type_properties.h>

namespace std {

// Reads a value when it is made and at each increment. Where that fails it becomes equal to a default-constructed one.
template <class _T, class _Ct = char, class _Traits = char_traits<_Ct>, class _Distance = ptrdiff_t>
class istream_iterator : public iterator<input_iterator_tag, _T, _Distance, const _T *, const _T &> {
public:
  typedef _Ct char_type;
  typedef _Traits traits_type;
  typedef basic_istream<_Ct, _Traits> istream_type;

  istream_iterator() : _in_(0), _value_() {}
  istream_iterator(istream_type &_in) : _in_(&_in), _value_() { _read(); }

  const _T &operator*() const { return _value_; }
  const _T *operator->() const { return __zor::_address_of(_value_); }
  istream_iterator &operator++() {
    _read();
    return *this;
  }
  istream_iterator operator++(int) {
    istream_iterator _before(*this);
    _read();
    return _before;
  }

  // On the same stream, or both at the end.
  bool _equals(const istream_iterator &_other) const PLX_NOTHROW { return _in_ == _other._in_; }

private:
  void _read() {
    if (_in_ && !(*_in_ >> _value_)) _in_ = 0;
  }

  istream_type *_in_;
  _T _value_;
};

template <class _T, class _Ct, class _Traits, class _Distance>
inline bool operator==(const istream_iterator<_T, _Ct, _Traits, _Distance> &_left,
                       const istream_iterator<_T, _Ct, _Traits, _Distance> &_right) PLX_NOTHROW {
  return _left._equals(_right);
}
template <class _T, class _Ct, class _Traits, class _Distance>
inline bool operator!=(const istream_iterator<_T, _Ct, _Traits, _Distance> &_left,
                       const istream_iterator<_T, _Ct, _Traits, _Distance> &_right) PLX_NOTHROW {
  return !_left._equals(_right);
}

// Writes each value that is assigned through it, and the delimiter, which stays the caller's, after each.
template <class _T, class _Ct = char, class _Traits = char_traits<_Ct> > class ostream_iterator
    : public iterator<output_iterator_tag, void, void, void, void> {
public:
  typedef _Ct char_type;
  typedef _Traits traits_type;
  typedef basic_ostream<_Ct, _Traits> ostream_type;

  ostream_iterator(ostream_type &_out) PLX_NOTHROW : _out_(&_out), _delim_(0) {}
  ostream_iterator(ostream_type &_out, const _Ct *_delim) PLX_NOTHROW : _out_(&_out), _delim_(_delim) {}

  ostream_iterator &operator=(const _T &_value) {
    *_out_ << _value;
    if (_delim_) *_out_ << _delim_;
    return *this;
  }
  ostream_iterator &operator*() PLX_NOTHROW { return *this; }
  ostream_iterator &operator++() PLX_NOTHROW { return *this; }
  ostream_iterator &operator++(int) PLX_NOTHROW { return *this; }

private:
  ostream_type *_out_;
  const _Ct *_delim_;
};

}  // namespace std

#endif
