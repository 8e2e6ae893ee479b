// basic_streambuf<char>: what the virtual operations do unless they are overridden.

#include "../containers/cleanup_by_hand.h"
#include "move_block.h"

#include <plx/streambuf/streambuf.h>

namespace std {

template <class C, class T> basic_streambuf<C, T>::basic_streambuf()
    : _eback_(nullptr), _gptr_(nullptr), _egptr_(nullptr), _pbase_(nullptr), _pptr_(nullptr), _epptr_(nullptr) {}

template <class C, class T> basic_streambuf<C, T>::~basic_streambuf() {}

template <class C, class T> locale basic_streambuf<C, T>::pubimbue(const locale &loc) {
  __zor::eh_local<locale> old(_loc_);
  imbue(loc);
  _loc_ = loc;
  return *old;
}

template <class C, class T> void basic_streambuf<C, T>::imbue(const locale &) {}
template <class C, class T> basic_streambuf<C, T> *basic_streambuf<C, T>::setbuf(C *, streamsize) { return this; }
template <class C, class T>
typename basic_streambuf<C, T>::pos_type basic_streambuf<C, T>::seekoff(off_type, ios_base::seekdir,
                                                                        ios_base::openmode) {
  return -1;
}
template <class C, class T>
typename basic_streambuf<C, T>::pos_type basic_streambuf<C, T>::seekpos(pos_type, ios_base::openmode) {
  return -1;
}
template <class C, class T> int basic_streambuf<C, T>::sync() { return 0; }
template <class C, class T> streamsize basic_streambuf<C, T>::showmanyc() { return 0; }
template <class C, class T> typename basic_streambuf<C, T>::int_type basic_streambuf<C, T>::underflow() { return -1; }
template <class C, class T> typename basic_streambuf<C, T>::int_type basic_streambuf<C, T>::pbackfail(int_type) {
  return -1;
}
template <class C, class T> typename basic_streambuf<C, T>::int_type basic_streambuf<C, T>::overflow(int_type) {
  return -1;
}

template <class C, class T> typename basic_streambuf<C, T>::int_type basic_streambuf<C, T>::uflow() {
  if (underflow() == -1) return -1;
  return static_cast<unsigned char>(*_gptr_++);
}

template <class C, class T> streamsize basic_streambuf<C, T>::xsgetn(C *to, streamsize n) {
  streamsize done = 0;
  while (done < n) {
    const streamsize ready = _egptr_ - _gptr_;
    if (ready > 0) {
      const streamsize part = ready < n - done ? ready : n - done;
      __zor::move_block(to + done, _gptr_, part);
      _gptr_ += part;
      done += part;
      continue;
    }
    const int c = uflow();
    if (c == -1) break;
    to[done++] = static_cast<char>(c);
  }
  return done;
}

template <class C, class T> streamsize basic_streambuf<C, T>::xsputn(const C *from, streamsize n) {
  streamsize done = 0;
  while (done < n) {
    const streamsize room = _epptr_ - _pptr_;
    if (room > 0) {
      const streamsize part = room < n - done ? room : n - done;
      __zor::copy_block(_pptr_, from + done, part);
      _pptr_ += part;
      done += part;
      continue;
    }
    if (overflow(static_cast<unsigned char>(from[done])) == -1) break;
    ++done;
  }
  return done;
}

template class basic_streambuf<char, char_traits<char>>;

}  // namespace std
