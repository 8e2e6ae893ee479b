// The library's way into the fields of streams and buffers, which their classes keep to themselves.
#pragma once

#include <plx/iostream/basic_ios.h>
#include <plx/iostream/filebuf.h>
#include <plx/iostream/stringbuf.h>
#include <plx/streambuf/streambuf_iterators.h>

#include "../locale/ios_base_access.h"

namespace __zor {

struct stream_access : ios_base_access {
  static std::ios_base::iostate &state(std::ios &s) { return s._state_; }
  static std::ios_base::iostate exceptions(const std::ios &s) { return s._exceptions_; }
  static std::streambuf *buffer(const std::ios &s) { return s._sb_; }
  static std::ostream *tie(const std::ios &s) { return s._tie_; }
  static char fill(const std::ios &s) { return s._fill_; }
  static void init(std::ios &s, std::streambuf *b) { s.init(b); }
  template <class Stream> static std::streamsize &count(Stream &in) { return in._gcount_; }  // of a basic_istream
};

struct buffer_access {
  static const std::locale &loc(const std::streambuf &b) { return b._loc_; }
  static char *&eback(std::streambuf &b) { return b._eback_; }
  static char *&gptr(std::streambuf &b) { return b._gptr_; }
  static char *&egptr(std::streambuf &b) { return b._egptr_; }
  static char *&pbase(std::streambuf &b) { return b._pbase_; }
  static char *&pptr(std::streambuf &b) { return b._pptr_; }
  static char *&epptr(std::streambuf &b) { return b._epptr_; }

  // Of a buffer that is exactly a stringbuf. Room for n characters behind the put position: false where there is none
  // that could be had without throwing. And the get area, which is hidden while it is written.
  static bool make_room(std::stringbuf &b, unsigned n);
  static void settle(std::stringbuf &b);
  static bool is_settled(const std::stringbuf &b) { return !b._wide_; }
  static void start(std::stringbuf &b) { b._start(); }
  static bool is_at_end(const std::stringbuf &b) { return b._pptr_ >= b._written_; }  // of what was written
  static bool fits_within(const std::string &text) { return text.size() < std::stringbuf::_step; }
  static void set_text(std::stringbuf &b, const std::string &text) { b._set_text(text.data(), text.size(), true); }

  static FILE *file(std::streambuf &b) { return static_cast<std::filebuf &>(b)._file_; }
  static unsigned char &refills(std::filebuf &b) { return b._refills_; }
  static int sync(std::filebuf &b) { return b.std::filebuf::sync(); }  // of exactly a filebuf; throws nothing
  static void keep_write_error(std::filebuf &b) { b._write_error_ = true; }

  static std::streambuf *buffer(const std::istreambuf_iterator<char> &i) { return i._sb_; }
  static std::streambuf *buffer(const std::ostreambuf_iterator<char> &i) { return i._sb_; }
  static bool &failed(std::ostreambuf_iterator<char> &i) { return i._failed_; }
  static void forget(std::istreambuf_iterator<char> &i) { i._c_ = -1; }  // the character it keeps
};

}  // namespace __zor
