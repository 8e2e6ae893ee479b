// White space, and whether an input operation may do without its frame.
#pragma once

#include <plx/iostream/istream.h>
#include <plx/iostream/ostream.h>

#include "input_blocks.h"
#include "operation.h"

namespace __zor {

inline void start_count(std::istream &in) { _stream_access::count(in) = 0; }

// As the classic table has it.
inline bool is_classic_space(char c) { return c == ' ' || static_cast<unsigned char>(c - '\t') < 5; }

// The bytes of a word that are below 0x21, white space among them, as bit 7 of each. Those above the lowest may be
// wrong.
inline unsigned int low_bytes(unsigned int four) { return (four - 0x21212121u) & ~four & 0x80808080u; }

// The first white space of the classic table in the range, or its end.
inline const char *find_classic_space(const char *at, const char *end) {
  while (end - at >= 4) {
    const unsigned int low = low_bytes(words(at)->value);
    if (!low) {
      at += 4;
      continue;
    }
    at += __builtin_ctz(low) >> 3;
    if (is_classic_space(*at)) return at;
    ++at;
  }
  while (at != end && !is_classic_space(*at)) ++at;
  return at;
}

// Drops white space; false when the input ended. Throws bad_cast without a ctype facet, and what the buffer throws.
bool skip_white_space(std::istream &in);

// The same for a plain buffer and the classic table: cannot throw.
bool skip_plain_space(std::streambuf *buffer) PLX_NOTHROW;

// The tied stream needs no flush now: the C library holds nothing of it back, or the flush is put off. (A file that was
// read from is set to where the reader is, so that is looked at, too.)
PLX_REGPARM bool needs_no_flush(const std::istream &in, const std::ostream &tied) PLX_NOTHROW;

// The stream is good, so it has a buffer, and nothing has to be flushed now.
inline bool starts_fast(std::istream &in) {
  if (__builtin_expect(_stream_access::state(in) != ios_base::goodbit, false)) return false;
  const std::ostream *const tied = _stream_access::tie(in);
  return __builtin_expect(!tied, true) || needs_no_flush(in, *tied);
}

// The window at the first character that is no classic white space; false when that is not in the buffer's window, or
// when the window has no known end.
inline bool open_window_beyond_space(std::istream &in, get_window &window) {
  if (!window.open(_stream_access::buffer(in)) || window.is_endless()) return false;
  if (_stream_access::flags(in) & ios_base::skipws)
    while (is_classic_space(*window.at))
      if (++window.at == window.end) return false;
  return true;
}

// Begins an operation that needs no frame because nothing can throw. False: nothing was done, the frame is needed.
inline bool starts_unguarded(std::istream &in, bool noskipws) {
  if (!starts_fast(in)) return false;
  std::streambuf *const buffer = _stream_access::buffer(in);
  if (!is_plain_buffer(buffer)) return false;
  // White space, and where a word ends, are the facet's to say.
  if (!noskipws && !has_plain_ctype(_stream_access::loc(in))) return false;
  if (!noskipws && (_stream_access::flags(in) & ios_base::skipws)) {
    get_window window;
    if (!window.open(buffer) || is_classic_space(*window.at)) skip_plain_space(buffer);
  }
  start_count(in);
  return true;
}

}  // namespace __zor
