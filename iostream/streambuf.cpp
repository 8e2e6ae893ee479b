// basic_streambuf<char>: what the virtual operations do unless they are overridden.

#include <string.h>

#include "../containers/cleanup_by_hand.h"

#include <plx/streambuf.h>

namespace std {

template <> basic_streambuf<char>::basic_streambuf()
    : _eback_(nullptr), _gptr_(nullptr), _egptr_(nullptr), _pbase_(nullptr), _pptr_(nullptr), _epptr_(nullptr) {}

template <> basic_streambuf<char>::~basic_streambuf() {}

template <> locale basic_streambuf<char>::pubimbue(const locale &loc) {
  __zor::eh_local<locale> old(_loc_);
  imbue(loc);
  _loc_ = loc;
  return *old;
}

template <> void basic_streambuf<char>::imbue(const locale &) {}
template <> streambuf *basic_streambuf<char>::setbuf(char *, streamsize) { return this; }
template <> streampos basic_streambuf<char>::seekoff(streamoff, ios_base::seekdir, ios_base::openmode) { return -1; }
template <> streampos basic_streambuf<char>::seekpos(streampos, ios_base::openmode) { return -1; }
template <> int basic_streambuf<char>::sync() { return 0; }
template <> streamsize basic_streambuf<char>::showmanyc() { return 0; }
template <> int basic_streambuf<char>::underflow() { return -1; }
template <> int basic_streambuf<char>::pbackfail(int) { return -1; }
template <> int basic_streambuf<char>::overflow(int) { return -1; }

template <> int basic_streambuf<char>::uflow() {
  if (underflow() == -1) return -1;
  return static_cast<unsigned char>(*_gptr_++);
}

template <> streamsize basic_streambuf<char>::xsgetn(char *to, streamsize n) {
  streamsize done = 0;
  while (done < n) {
    const streamsize ready = _egptr_ - _gptr_;
    if (ready > 0) {
      const streamsize part = ready < n - done ? ready : n - done;
      memcpy(to + done, _gptr_, part);
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

template <> streamsize basic_streambuf<char>::xsputn(const char *from, streamsize n) {
  streamsize done = 0;
  while (done < n) {
    const streamsize room = _epptr_ - _pptr_;
    if (room > 0) {
      const streamsize part = room < n - done ? room : n - done;
      memcpy(_pptr_, from + done, part);
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
