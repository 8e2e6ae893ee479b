// Reading characters by blocks: all loops of the input streams stand on read_blocks.
//
// A buffer's get window is one block. Where there is none, a buffer over a file is refilled by stdio, and any other
// shows its next character by the virtual underflow: that is a block of its own, and is taken by uflow only when it is
// wanted. So a program's buffer need not take back anything.
#pragma once

#include "read_ahead.h"
#include "windows.h"

namespace __zor {

// Makes a get window of stdio's next characters; false at the end.
inline bool refill(std::streambuf *buffer) { return peek_file(static_cast<std::filebuf &>(*buffer)) != EOF; }

// Calls accept(at, end) with block after block. accept advances `at` past what it takes and returns whether it wants
// more, which it may only when it took the whole block. Returns false when the input ended first. What the buffer or
// accept throws passes; a block that accept threw at is not taken.
template <class Accept> [[gnu::always_inline]] inline bool read_blocks(std::streambuf *buffer, Accept accept) {
  for (;;) {
    get_window window;
    if (window.open(buffer)) {
      const char *at = window.at;
      const bool more = accept(at, window.end);
      window.take_up_to(at);
      if (!more) return true;
    } else if (is_plain_filebuf(buffer)) {
      if (!refill(buffer)) return false;
    } else {
      const int c = buffer->sgetc();
      if (c == EOF) return false;
      if (window.open(buffer)) continue;
      const char block[1] = {static_cast<char>(c)};
      const char *at = block;
      const bool more = accept(at, block + 1);
      if (at != block) buffer->sbumpc();
      if (!more) return true;
    }
  }
}

}  // namespace __zor
