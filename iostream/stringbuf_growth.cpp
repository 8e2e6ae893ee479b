// basic_stringbuf<char>: room for more characters.
//
// A derived object sees its areas move by the rule of sizes, a step of 64 at a time, also where the block at hand is
// larger and nothing is moved. A plain object is given room in larger steps.

#include <stdlib.h>
#include <string.h>

#include "stringbuf_block.h"
#include "windows.h"

using namespace __zor;

namespace __zor {

bool buffer_access::make_room(std::stringbuf &b, unsigned n) {
  if (!(b._mode_ & std::ios_base::out)) return false;
  if ((!b._block_ || b._room_end_ - b._pptr_ < static_cast<int>(n)) && !b._make_room(n)) return false;
  b._open_up();
  return true;
}

void buffer_access::settle(std::stringbuf &b) { b._settle(); }

}  // namespace __zor

namespace std {

// By the rule. Where the get position was counts from before the get area is forgotten.
template <class C, class T, class A> void basic_stringbuf<C, T, A>::_grow() {
  C *const from = this->pbase();
  const unsigned used = static_cast<unsigned>(this->pptr() - from);
  const unsigned size = _rule(used);
  unsigned read = static_cast<unsigned>(this->gptr() - this->eback());
  unsigned room = static_cast<unsigned>(_room_end_ - _block_);
  const bool free = string_blocks_are_free();
  if (!free || !from || from != _block_ || size > room) {
    C *at = nullptr;
    if (free) at = static_cast<C *>(malloc(room = grown_string_room(room, size - 1)));
    if (!at) at = static_cast<C *>(operator new[](room = size));
    if (used) memcpy(at, from, used);
    _release();
    _adopt(at, room);
  }
  _buffer_end_ = _block_ + size;
  _written_ = _block_ + used;
  _wide_ = false;
  if (read > size) read = size;
  this->setg(nullptr, nullptr, nullptr);
  if (_mode_ & ios_base::in) this->setg(_block_, _block_ + read, _written_);
  _set_put(_block_, _written_, _written_ + 1);
}

// A plain object continues in another block, which holds its characters already if it is the old one `moved`.
template <class C, class T, class A>
void basic_stringbuf<C, T, A>::_move_to(C *at, unsigned room, bool moved) PLX_NOTHROW {
  C *const from = _block_;
  const ptrdiff_t next = this->pptr() - from, end = this->epptr() - from, read = this->gptr() ? this->gptr() - from : 0,
                  readable = this->egptr() - from, written = _put_end() - from, recorded = _buffer_end_ - from;
  if (!moved && from) {
    memcpy(at, from, _wide_ ? written : end);
    if (from != _small_) operator delete[](from);
  }
  _adopt(at, room);
  _buffer_end_ = at + recorded;
  _written_ = at + written;
  _set_put(at, at + next, _wide_ ? _room_end_ : at + end);
  if (!(_mode_ & ios_base::in)) return;
  if (_wide_)
    this->setg(at + read, at + read, at + read);
  else
    this->setg(at, at + read, at + readable);
}

// Gives a plain object room for n characters behind the put position, by other means than operator new[]; false where
// these may not be used or fail.
template <class C, class T, class A> bool basic_stringbuf<C, T, A>::_make_room(unsigned n) PLX_NOTHROW {
  if (!string_blocks_are_free()) return false;
  if (!_block_ && n <= _step) {
    _move_to(_small_, _step, false);
    return true;
  }
  const unsigned used = static_cast<unsigned>(this->pptr() - this->pbase());
  if (n > 0x7FFFFF00u - used) return false;
  const unsigned sizes[] = {grown_string_room(static_cast<unsigned>(_room_end_ - _block_), used + n), _rule(used + n)};
  const bool moved = _block_ && _block_ != _small_;
  for (unsigned i = 0; i < 2; ++i)
    if (void *const at = moved ? realloc(_block_, sizes[i]) : malloc(sizes[i])) {
      _move_to(static_cast<C *>(at), sizes[i], moved);
      return true;
    }
  return false;
}

// A plain object without a block gets the room within itself, before anything is written.
template <class C, class T, class A> void basic_stringbuf<C, T, A>::_start() PLX_NOTHROW {
  if (!(_mode_ & ios_base::out) || !string_blocks_are_free()) return;
  _adopt(_small_, _step);
  _buffer_end_ = _written_ = _block_;
  _wide_ = true;
  this->setp(_block_, _room_end_);
}

// Opens the put area of a plain object to all its room, and hides the get area. Reading and giving back then reach the
// virtual operations, which settle.
template <class C, class T, class A> void basic_stringbuf<C, T, A>::_open_up() PLX_NOTHROW {
  if (_wide_) return;
  _wide_ = true;
  _set_put(this->pbase(), this->pptr(), _room_end_);
  this->setg(this->gptr(), this->gptr(), this->gptr());
}

// Sets the areas of a plain object as the rules have them.
template <class C, class T, class A> void basic_stringbuf<C, T, A>::_settle() PLX_NOTHROW {
  if (!_wide_) return;
  _written_ = _put_end();
  if (_written_ == _block_) {
    // Nothing was written: by the rule there is no block yet.
    _release();
    return _forget();
  }
  if (_buffer_end_ < _written_) _buffer_end_ = _block_ + _rule(static_cast<unsigned>(_written_ - _block_) - 1);
  _set_put(_block_, this->pptr(), _written_);
  if (_mode_ & ios_base::in) this->setg(_block_, this->gptr() ? this->gptr() : _block_, _written_);
  _wide_ = false;
}

// Gives a plain object a put area of n characters or more. Throws bad_alloc.
template <class C, class T, class A> void basic_stringbuf<C, T, A>::_widen(unsigned n) {
  if (!_block_ || static_cast<unsigned>(_room_end_ - this->pptr()) < n) {
    if (!string_blocks_are_free()) {
      _settle();
      _grow();
    } else if (!_make_room(n)) {
      const unsigned size = _rule(static_cast<unsigned>(this->pptr() - this->pbase()) + n);
      _move_to(static_cast<C *>(operator new[](size)), size, false);
    }
  }
  _open_up();
}

template class basic_stringbuf<char, char_traits<char>, allocator<char>>;

}  // namespace std
