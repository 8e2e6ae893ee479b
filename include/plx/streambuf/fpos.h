// fpos (1998, 27.4.3): a position in a stream, an offset and a conversion state of two words. The offset -1 says that
// there is no such position.
#ifndef PLX_FPOS_H
#define PLX_FPOS_H

#include <plx/base/char_traits.h>
#include <plx/base/is_integer.h>

namespace std {

template <class _State> class fpos {
public:
  fpos(streamoff _off = 0) PLX_NOTHROW : _offset_(_off), _state_() {}

  operator streamoff() const PLX_NOTHROW { return _offset_; }
  _State state() const PLX_NOTHROW { return _state_; }
  void state(_State _state) PLX_NOTHROW { _state_ = _state; }

  fpos &operator+=(streamoff _off) PLX_NOTHROW {
    _offset_ += _off;
    return *this;
  }
  fpos &operator-=(streamoff _off) PLX_NOTHROW {
    _offset_ -= _off;
    return *this;
  }
  // For every type that sums of numbers have: for others than these the built-in operators would do as well.
  fpos operator+(int _off) const PLX_NOTHROW { return fpos(*this) += _off; }
  fpos operator+(unsigned int _off) const PLX_NOTHROW { return fpos(*this) += static_cast<streamoff>(_off); }
  fpos operator+(long _off) const PLX_NOTHROW { return fpos(*this) += _off; }
  fpos operator+(unsigned long _off) const PLX_NOTHROW { return fpos(*this) += static_cast<streamoff>(_off); }
  fpos operator+(__zor::_longest _off) const PLX_NOTHROW { return fpos(*this) += static_cast<streamoff>(_off); }
  fpos operator-(int _off) const PLX_NOTHROW { return fpos(*this) -= _off; }
  fpos operator-(unsigned int _off) const PLX_NOTHROW { return fpos(*this) -= static_cast<streamoff>(_off); }
  fpos operator-(long _off) const PLX_NOTHROW { return fpos(*this) -= _off; }
  fpos operator-(unsigned long _off) const PLX_NOTHROW { return fpos(*this) -= static_cast<streamoff>(_off); }
  fpos operator-(__zor::_longest _off) const PLX_NOTHROW { return fpos(*this) -= static_cast<streamoff>(_off); }
  streamoff operator-(const fpos &_other) const PLX_NOTHROW { return _offset_ - _other._offset_; }

private:
  streamoff _offset_;
  _State _state_;
};

// Templates, so that a position and a number compare as numbers.
template <class _State> inline bool operator==(const fpos<_State> &_left, const fpos<_State> &_right) PLX_NOTHROW {
  return streamoff(_left) == streamoff(_right);
}
template <class _State> inline bool operator!=(const fpos<_State> &_left, const fpos<_State> &_right) PLX_NOTHROW {
  return streamoff(_left) != streamoff(_right);
}

}  // namespace std

#endif
