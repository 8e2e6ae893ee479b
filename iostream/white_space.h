// White space, and whether an input operation may do without its frame.
#pragma once

#include <plx/istream.h>
#include <plx/ostream.h>

#include "input_blocks.h"
#include "operation.h"

namespace __zor {

inline void start_count(std::istream &in) { stream_access::count(in) = 0; }

// As the classic table has it.
inline bool is_classic_space(char c) { return c == ' ' || static_cast<unsigned char>(c - '\t') < 5; }

// Drops white space; false when the input ended. Throws bad_cast without a ctype facet, and what the buffer throws.
bool skip_white_space(std::istream &in);

// The same for a plain buffer and the classic table: cannot throw.
bool skip_plain_space(std::streambuf *buffer) PLX_NOTHROW;

inline bool is_quick(const std::istream &in, unsigned int facets) {
  return stream_access::loc(in)._get_imp()->_get_quick() & facets;
}

// Flushing the tied stream would do nothing: the C library holds nothing of it back. (A file that was read from is set
// to where the reader is, so that is looked at, too.)
inline bool has_nothing_to_flush(const std::ostream *tied) {
  if (stream_access::state(const_cast<std::ostream &>(*tied)) != ios_base::goodbit || stream_access::tie(*tied))
    return false;
  std::streambuf *const buffer = stream_access::buffer(*tied);
  if (!is_plain_filebuf(buffer)) return false;
  const FILE *const file = buffer_access::file(*buffer);
  return !file || (file->_IO_write_ptr <= file->_IO_write_base && file->_IO_read_ptr == file->_IO_read_end);
}

// The stream is good, so it has a buffer, and nothing has to be flushed.
inline bool starts_at_once(std::istream &in) {
  if (__builtin_expect(stream_access::state(in) != ios_base::goodbit, false)) return false;
  const std::ostream *const tied = stream_access::tie(in);
  return !tied || has_nothing_to_flush(tied);
}

// Begins an operation that needs no frame because nothing can throw. False: nothing was done, the frame is needed.
inline bool starts_plainly(std::istream &in, bool noskipws) {
  if (!starts_at_once(in)) return false;
  std::streambuf *const buffer = stream_access::buffer(in);
  if (!is_plain_buffer(buffer)) return false;
  if (!noskipws && (stream_access::flags(in) & ios_base::skipws)) {
    if (!is_quick(in, std::locale::imp::_quick_ctype)) return false;
    get_window window;
    if (!open_get_window(buffer, window) || is_classic_space(*window.at)) skip_plain_space(buffer);
  }
  start_count(in);
  return true;
}

}  // namespace __zor
