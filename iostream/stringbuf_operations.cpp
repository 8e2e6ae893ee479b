// basic_stringbuf<char>: what the streams call when an area is exhausted, and positions.

#include "../libC/i386/copy_block.h"
#include "offset.h"
#include "windows.h"

#include "stringbuf_block.h"

using namespace __zor;

namespace std {

namespace {

inline char as_byte(int c) { return 0 <= c && c <= 255 ? static_cast<char>(c) : 0; }

}  // namespace

template <class C, class T, class A> basic_streambuf<C, T> *basic_stringbuf<C, T, A>::setbuf(C *, streamsize) {
  return this;
}

template <class C, class T, class A> typename T::int_type basic_stringbuf<C, T, A>::overflow(int_type c) {
  if (c == -1) return 0;
  if (!(_mode_ & ios_base::out)) return -1;
  C *const end = this->epptr();
  if (_is_plain()) {
    _widen(1);
  } else if (end && _block_ <= end && end < _buffer_end_) {
    if (this->pptr() != end) *end = 0;  // called with room left: nobody wrote the character that now counts
    _set_put(this->pbase(), this->pptr(), end + 1);
  } else {
    _grow();
  }
  *this->pptr() = as_byte(c);
  this->pbump(1);
  if (_wide_) return c;
  if ((_mode_ & ios_base::in) && this->gptr()) this->setg(this->eback(), this->gptr(), this->pptr());
  _note_written();
  return c;
}

// A derived class hears of each character that its put area does not take.
template <class C, class T, class A> streamsize basic_stringbuf<C, T, A>::xsputn(const C *from, streamsize n) {
  if (n <= 0 || !(_mode_ & ios_base::out) || !_is_plain() || !string_blocks_are_free()) return _base::xsputn(from, n);
  _widen(n);
  copy_block(this->pptr(), from, n);
  this->pbump(n);
  return n;
}

template <class C, class T, class A> typename T::int_type basic_stringbuf<C, T, A>::underflow() {
  if (_wide_) {
    _settle();
    return this->gptr() < this->egptr() ? static_cast<unsigned char>(*this->gptr()) : -1;
  }
  C *const next = this->gptr(), *const end = this->egptr();
  if (!next || !(_mode_ & ios_base::out) || next < end || this->pptr() <= end) return -1;
  this->setg(this->eback(), next, this->pptr());
  // The position may have been moved beyond what can be read.
  return next < this->egptr() ? static_cast<unsigned char>(*next) : -1;
}

template <class C, class T, class A> typename T::int_type basic_stringbuf<C, T, A>::pbackfail(int_type c) {
  if (_wide_) {
    // With the get area in sight, nobody would have called.
    _settle();
    return c == -1 ? this->sungetc() : this->sputbackc(static_cast<C>(c));
  }
  C *const next = this->gptr();
  if (!next || next <= this->eback()) return -1;
  if (c != -1 && (_mode_ & ios_base::out)) {
    this->gbump(-1);
    next[-1] = as_byte(c);
    return static_cast<signed char>(next[-1]);
  }
  if (c != -1 && c != static_cast<unsigned char>(next[-1])) return -1;
  this->gbump(-1);
  return c == -1 ? 0 : c;
}

// What a hidden get area holds.
template <class C, class T, class A> streamsize basic_stringbuf<C, T, A>::showmanyc() {
  _settle();
  return this->gptr() < this->egptr() ? static_cast<streamsize>(this->egptr() - this->gptr()) : 0;
}

template <class C, class T, class A>
typename T::pos_type basic_stringbuf<C, T, A>::seekoff(off_type off, ios_base::seekdir way, ios_base::openmode which) {
  _settle();
  C *const get = this->gptr(), *const put = this->pptr();
  const bool moves_get = get && (which & ios_base::in), moves_put = put && (which & ios_base::out);
  const long size = this->epptr() - this->pbase(), readable = this->egptr() - this->eback();
  const bool begins = way == ios_base::beg, continues = way == ios_base::cur;
  if ((!moves_get && !moves_put) || (!begins && !continues && way != ios_base::end)) return -1;
  _note_written();
  if (moves_get && moves_put) {
    const long at = continues ? -1 : within(begins ? 0 : size, off, size);
    if (at == -1) return -1;
    this->setg(this->eback(), this->pbase() + at, this->egptr());
    _set_put(this->pbase(), this->pbase() + at, this->epptr());
    return at;
  }
  if (moves_get) {
    const long at = within(begins ? 0 : continues ? get - this->eback() : readable, off, readable);
    if (at != -1) this->setg(this->eback(), this->eback() + at, this->egptr());
    return at;
  }
  const long at = within(begins ? 0 : continues ? put - this->pbase() : size, off, size);
  if (at != -1) _set_put(this->pbase(), this->pbase() + at, this->epptr());
  return at;
}

template <class C, class T, class A>
typename T::pos_type basic_stringbuf<C, T, A>::seekpos(pos_type pos, ios_base::openmode which) {
  const long at = streamoff(pos);
  if (at < 0) return -1;
  _settle();
  C *const get = this->gptr(), *const put = this->pptr();
  if (get && put && put > this->egptr()) this->setg(this->eback(), get, put);
  bool moved = false;
  if ((which & ios_base::in) && get && at <= this->egptr() - this->eback()) {
    this->setg(this->eback(), this->eback() + at, this->egptr());
    moved = true;
  }
  if ((which & ios_base::out) && put && at <= this->epptr() - this->pbase()) {
    _note_written();
    _set_put(this->pbase(), this->pbase() + at, this->epptr());
    moved = true;
  }
  return moved ? at : -1;
}

template class basic_stringbuf<char, char_traits<char>, allocator<char>>;

}  // namespace std
