// basic_stringbuf (1998, 27.7.1): a buffer over characters of its own, which begin as a copy of a string.
//
//                      _block_           _written_      _buffer_end_       _room_end_
//                      | characters      |              |                  |
//     empty            (no block, no areas)
//     by the rule      eback             egptr                             gptr and pptr are anywhere in their areas
//                      pbase             epptr
//     wide             pbase      pptr                                     epptr      eback = gptr = egptr, or null
//
//     empty --a stream is built over it: _start--> wide             wide --it is read, moved, set: _settle--> by the
//     rule, empty or by the rule --it is written: _widen, window--> wide                      or empty: nothing was
//     written
//
// By the rule both areas end with the characters: overflow widens the put area by one, as long as the block lasts, and
// then moves to a block of (n & ~63) + 64 bytes for n characters. A derived class sees exactly this. Of objects that
// are exactly of this class nobody sees the areas: short texts of theirs need no block, the block may be larger than
// the rule has it, and while they are written the put area is all of it and the get area is hidden behind the virtual
// operations.
#ifndef PLX_STRINGBUF_H
#define PLX_STRINGBUF_H

#include <string>

#include <plx/streambuf/streambuf.h>

namespace std {

template <class _Ct, class _T, class _A> class PLX_API basic_stringbuf : public basic_streambuf<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  // Without characters, or with a copy of the text's. Writing starts at the beginning and overwrites these, unless the
  // mode has app; `ate` means nothing. The second form may throw bad_alloc.
  explicit basic_stringbuf(ios_base::openmode _mode = ios_base::in | ios_base::out);
  explicit basic_stringbuf(const basic_string<_Ct, _T, _A> &_text,
                           ios_base::openmode _mode = ios_base::in | ios_base::out);
  virtual ~basic_stringbuf();

  // All characters, wherever the positions are. Throws bad_alloc.
  basic_string<_Ct, _T, _A> str() const;

  // Replaces the characters, as the constructor does it. A buffer whose block does not hold them loses its old ones
  // when there is no memory (bad_alloc).
  void str(const basic_string<_Ct, _T, _A> &_text);

protected:
  virtual basic_streambuf<_Ct, _T> *setbuf(_Ct *_at, streamsize _n);  // nothing; returns this

  // Both positions move together only from the beginning or the end. Failure is the position -1.
  virtual pos_type seekoff(off_type _off, ios_base::seekdir _way,
                           ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual pos_type seekpos(pos_type _pos, ios_base::openmode _which = ios_base::in | ios_base::out);

  // To be called when the get area is exhausted: with characters left it returns eof too.
  virtual int_type underflow();

  // A buffer that can be written takes any character, and returns it as a signed char: 0xFF looks like eof.
  virtual int_type pbackfail(int_type _c = _T::eof());

  virtual streamsize showmanyc();
  virtual streamsize xsputn(const _Ct *_from, streamsize _n);
  virtual int_type overflow(int_type _c = _T::eof());  // throws bad_alloc, with nothing changed

private:
  friend struct __zor::buffer_access;
  typedef basic_streambuf<_Ct, _T> _base;
  enum { _step = 64 };

  static unsigned int _rule(unsigned int _n) PLX_NOTHROW { return (_n & ~(_step - 1u)) + _step; }
  bool _is_plain() const PLX_NOTHROW;

  // The end of the characters that can have been written. In a derived object overflow may have widened the put area
  // by more than it wrote.
  _Ct *_put_end() const PLX_NOTHROW {
    _Ct *const _next = this->pptr();
    return _next < _written_ && _written_ <= this->epptr() && _written_ >= this->pbase() ? _written_ : _next;
  }
  void _note_written() PLX_NOTHROW {
    if (_written_ < this->pptr()) _written_ = this->pptr();
  }
  void _set_put(_Ct *_begin, _Ct *_next, _Ct *_end) PLX_NOTHROW {
    this->setp(_begin, _end);
    this->pbump(static_cast<int>(_next - _begin));
  }
  void _adopt(_Ct *_at, unsigned int _room) PLX_NOTHROW {
    _block_ = _at;
    _room_end_ = _at + _room;
  }
  void _set_areas(_Ct *_at, unsigned int _n) PLX_NOTHROW;
  void _set_text(const _Ct *_text, unsigned int _n, bool _plain);
  void _release() PLX_NOTHROW;
  void _forget() PLX_NOTHROW;
  void _grow();
  void _move_to(_Ct *_at, unsigned int _room, bool _moved) PLX_NOTHROW;
  bool _make_room(unsigned int _n) PLX_NOTHROW;
  void _start() PLX_NOTHROW;
  void _open_up() PLX_NOTHROW;
  void _settle() PLX_NOTHROW;
  void _widen(unsigned int _n);

  ios_base::openmode _mode_;
  _Ct *_buffer_end_;  // one past the block as the rule of sizes has it; null: there is none

  _Ct *_block_;     // where the block starts
  _Ct *_room_end_;  // where it really ends
  _Ct *_written_;   // characters reach as far as this, or as the put position if that is further
  bool _wide_;      // only of a plain buffer: the put area goes to _room_end_, the get area is hidden
  _Ct _small_[_step];
};

__extension__ extern template class PLX_API basic_stringbuf<char, char_traits<char>, allocator<char> >;

}  // namespace std

#endif
