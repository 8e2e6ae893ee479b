// basic_ios<char>: what is not inline.

#include "../containers/cleanup_by_hand.h"

#include <plx/iostream/basic_ios.h>

namespace std {

template <class C, class T> void basic_ios<C, T>::init(basic_streambuf<C, T> *buffer) {
  _sb_ = buffer;
  _tie_ = nullptr;
  _state_ = buffer ? goodbit : badbit;
  _exceptions_ = goodbit;
  _flags_ = skipws | dec;
  _width_ = 0;
  _precision_ = 6;
  _fill_ = widen(' ');
  _loc_ = locale();
}

template <class C, class T> locale basic_ios<C, T>::imbue(const locale &loc) {
  __zor::eh_local<locale> old(ios_base::imbue(loc));
  if (_sb_) _sb_->pubimbue(loc);
  return *old;
}

template class basic_ios<char, char_traits<char>>;

}  // namespace std
