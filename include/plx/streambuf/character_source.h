// How the library's scanners get characters from an input iterator of any type: a source of characters, in pieces.
//
//     piece      _next -> c c c c <- _end      the scanner moves _next, and asks _more() when the piece is used up
//
// A facet template that reads [in, end) makes a _source_of<its iterator>::_type of the pair, has the scanner in the
// library read from it, and calls _finish(), after which `in` stands behind the last character read. Nothing beyond it
// has been read, except that an iterator over a stream buffer may have looked at the character there.
//
// What the iterators throw passes through the scanner; `in` then stands where it was read up to.
#ifndef PLX_CHARACTER_SOURCE_H
#define PLX_CHARACTER_SOURCE_H

#include <plx/streambuf/streambuf_iterators.h>

namespace __zor {

struct _character_source {
  const char *_next;
  const char *_end;

  // The next piece, once this one is used up; false at the end.
  bool (*_more)(_character_source *_self);
};

// Any input iterator: pieces of one character, which is only passed when the scanner has passed it.
template <class _InIter> struct _iterator_source : _character_source {
  _iterator_source(_InIter &_in, const _InIter &_last) : _at_(_in), _last_(_last) {
    _next = _end = 0;
    _more = _fetch;
  }
  void _finish() {
    if (_end && _next == _end) ++_at_;
    _next = _end = 0;
  }

private:
  static bool _fetch(_character_source *_self) {
    _iterator_source &_it = *static_cast<_iterator_source *>(_self);
    _it._finish();
    if (_it._at_ == _it._last_) return false;
    _it._c_ = *_it._at_;
    _it._next = &_it._c_;
    _it._end = &_it._c_ + 1;
    return true;
  }

  _InIter &_at_;
  const _InIter &_last_;
  char _c_;
};

// Pointers: one piece.
template <class _Pointer> struct _pointer_source : _character_source {
  _pointer_source(_Pointer &_in, const _Pointer &_last) : _at_(_in) {
    _next = _in;
    _end = _last;
    _more = _no_more;
  }
  void _finish() PLX_NOTHROW { _at_ += _next - _at_; }

private:
  static bool _no_more(_character_source *) { return false; }

  _Pointer &_at_;
};

// Stream buffers: what lies ready in them at once, and otherwise pieces of one character.
struct _streambuf_source : _character_source {
  typedef std::istreambuf_iterator<char, std::char_traits<char> > _iterator;

  _streambuf_source(_iterator &_in, const _iterator &_last) : _at_(_in), _last_(_last), _cursor_(0) {
    _next = _end = 0;
    _more = _fetch;
  }
  PLX_API void _finish();

private:
  PLX_API static bool _fetch(_character_source *_self);

  _iterator &_at_;
  const _iterator &_last_;
  char **_cursor_;  // the buffer's own, for a piece that lies in it
  const char *_begin_;
  char _c_;
};

template <class _InIter> struct _source_of { typedef _iterator_source<_InIter> _type; };
template <> struct _source_of<char *> { typedef _pointer_source<char *> _type; };
template <> struct _source_of<const char *> { typedef _pointer_source<const char *> _type; };
template <> struct _source_of<_streambuf_source::_iterator> { typedef _streambuf_source _type; };

}  // namespace __zor

#endif
