// basic_stringbuf<char>: its life, its text as a whole, and its areas. What the streams call in between is in
// stringbuf_operations.cpp, memory in stringbuf_growth.cpp.

#include <stdlib.h>
#include <string.h>

#include "../containers/cleanup_by_hand.h"
#include "../libC/i386/copy_block.h"
#include "windows.h"

#include "stringbuf_block.h"

using namespace __zor;

namespace std {

namespace {

// A base that is destroyed because the rest of the object could not be made.
struct unfinished {
  explicit unfinished(streambuf *base) : base_(base) {}
  ~unfinished() {
    if (base_) base_->streambuf::~basic_streambuf();
  }
  streambuf *base_;
};

}  // namespace

template <class C, class T, class A> basic_stringbuf<C, T, A>::basic_stringbuf(ios_base::openmode mode)
    : _mode_(mode), _buffer_end_(nullptr), _block_(nullptr), _room_end_(nullptr), _written_(nullptr), _wide_(false) {}

// The vtable pointer does not tell yet whether the object is a derived one: by the rule, then, in a block of its own.
template <class C, class T, class A>
basic_stringbuf<C, T, A>::basic_stringbuf(const basic_string<C, T, A> &text, ios_base::openmode mode)
    : basic_stringbuf(mode) {
  if (text.empty()) return;
  eh_local<unfinished> base(this);
  _set_text(text.data(), text.size(), false);
  base->base_ = nullptr;
}

template <class C, class T, class A> basic_stringbuf<C, T, A>::~basic_stringbuf() { _release(); }

template <class C, class T, class A> basic_string<C, T, A> basic_stringbuf<C, T, A>::str() const {
  const C *begin = this->eback(), *end = this->egptr();
  if ((_mode_ & ios_base::out) && this->pptr()) {
    const C *const put_end = _put_end();
    // Characters that can be read but not written any more count, where both areas are of one block.
    if (begin != this->pbase() || end < put_end) end = put_end;
    begin = this->pbase();
  }
  return basic_string<C, T, A>(begin ? begin : "", static_cast<unsigned>(end - begin));
}

template <class C, class T, class A> void basic_stringbuf<C, T, A>::str(const basic_string<C, T, A> &text) {
  const unsigned n = text.size();
  _settle();
  C *const base = _mode_ & ios_base::out ? this->pbase() : _mode_ & ios_base::in ? this->eback() : nullptr;
  if (n == 0) {
    _release();
    _forget();
    if (_is_plain()) _start();
  } else if (base && base >= _block_ && base <= _buffer_end_ && n <= static_cast<unsigned>(_buffer_end_ - base)) {
    memcpy(base, text.data(), n);
    _set_areas(base, n);
  } else {
    const bool plain = _is_plain();
    if (plain && n < static_cast<unsigned>(_room_end_ - _block_)) {
      _buffer_end_ = _block_ + _rule(n);
      memcpy(_block_, text.data(), n);
      _set_areas(_block_, n);
    } else {
      _release();
      _forget();
      _set_text(text.data(), n, plain);
    }
  }
}

// Of a buffer without a block.
template <class C, class T, class A> void basic_stringbuf<C, T, A>::_set_text(const C *text, unsigned n, bool plain) {
  if (!(_mode_ & (ios_base::in | ios_base::out))) return;  // nobody would own the block
  const unsigned size = _rule(n);
  if (plain && size == _step && string_blocks_are_free()) {
    _adopt(_small_, _step);
  } else {
    void *at = string_blocks_are_free() ? malloc(size) : nullptr;
    if (!at) at = operator new[](size);
    _adopt(static_cast<C *>(at), size);
  }
  _buffer_end_ = _block_ + size;
  copy_block(_block_, text, n);
  _set_areas(_block_, n);
}

template <class C, class T, class A> void basic_stringbuf<C, T, A>::_set_areas(C *at, unsigned n) PLX_NOTHROW {
  _wide_ = false;
  _written_ = at + n;
  if (_mode_ & ios_base::in) this->setg(at, at, at + n);
  if (_mode_ & ios_base::out) _set_put(at, _mode_ & ios_base::app ? at + n : at, at + n);
}

// The block belongs to the area that lies in it: a derived class that took it away also took the areas away.
template <class C, class T, class A> void basic_stringbuf<C, T, A>::_release() PLX_NOTHROW {
  const C *const owner = this->gptr() ? this->eback() : this->pptr() ? this->pbase() : nullptr;
  if (!owner || _block_ == _small_ || owner < _block_ || owner > _room_end_) return;
  operator delete[](_block_);
}

template <class C, class T, class A> void basic_stringbuf<C, T, A>::_forget() PLX_NOTHROW {
  this->setg(nullptr, nullptr, nullptr);
  this->setp(nullptr, nullptr);
  _buffer_end_ = _block_ = _room_end_ = _written_ = nullptr;
  _wide_ = false;
}

template <class C, class T, class A> bool basic_stringbuf<C, T, A>::_is_plain() const PLX_NOTHROW {
  return is_plain_stringbuf(this);
}

template class basic_stringbuf<char, char_traits<char>, allocator<char>>;

}  // namespace std
