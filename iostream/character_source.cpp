// The source of characters that scanners read stream buffers through.
#include <plx/streambuf/character_source.h>

#include "windows.h"

namespace __zor {

void streambuf_source::_finish() {
  if (_cursor_) {
    // The iterator keeps a character that may have been passed.
    if (_next != _begin_) {
      *_cursor_ = const_cast<char *>(_next);
      buffer_access::forget(_at_);
    }
  } else if (_end && _next == _end) {
    // Before the call: it may throw.
    _next = _end = nullptr;
    ++_at_;
  }
  _cursor_ = nullptr;
  _next = _end = nullptr;
}

// Asks the iterator first, as one who reads character by character would: the buffer sees the same calls.
bool streambuf_source::_fetch(character_source *self) {
  streambuf_source &source = *static_cast<streambuf_source *>(self);
  source._finish();
  if (source._at_.equal(source._last_)) return false;
  std::streambuf *const buffer = buffer_access::buffer(source._at_);
  if (!buffer) return false;
  get_window window;
  if (window.open(buffer)) {
    source._cursor_ = &window.cursor();
    source._begin_ = source._next = window.at;
    source._end = window.end;
    return true;
  }
  source._c_ = *source._at_;
  source._next = &source._c_;
  source._end = &source._c_ + 1;
  return true;
}

}  // namespace __zor
