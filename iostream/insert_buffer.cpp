// The inserter of a stream buffer: copies what it has to read. Between two of the library's own buffers the characters
// go in blocks; a buffer of the program's sees them one by one.

#include "output_operation.h"

using namespace __zor;

namespace std {

namespace {

// Copies the characters that `from` holds ready, and returns whether it could: both ends must be served by blocks, and
// must not share a file, whose two directions exclude each other.
bool copy_window(streambuf &to, streambuf &from, bool &took, bool &refused) {
  FILE *const file = plain_file(&to);
  if (!file && !is_plain_stringbuf(&to)) return false;
  if (&to == &from || (file && is_plain_filebuf(&from) && buffer_access::file(from) == file)) return false;
  get_window window;
  if (!window.open(&from)) return false;
  const streamsize ready = window.end - window.at, done = to.sputn(window.at, ready);
  window.take_up_to(window.at + done);
  if (done > 0) took = true;
  refused = done < ready;
  return true;
}

}  // namespace

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::operator<<(basic_streambuf<C, T> *from) {
  output_operation(*this, ios_base::goodbit, [&](iostate &error) {
    streambuf &to = *this->rdbuf();
    bool took = false, refused = false;
    while (from && !refused) {
      const int c = from->sgetc();
      if (c == -1) break;
      if (copy_window(to, *from, took, refused)) continue;
      refused = to.sputc(static_cast<char>(c)) == -1;
      if (refused) break;
      from->sbumpc();
      took = true;
    }
    if (!took) error |= ios_base::failbit;
  });
  return *this;
}

template ostream &ostream::operator<<(streambuf *);

}  // namespace std
