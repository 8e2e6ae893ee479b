// From a stream into another buffer: operator>> and get. A character is only taken once the other buffer has it: what
// throws, or takes no more, loses none.

#include <string.h>

#include "input_operation.h"

namespace __zor {

namespace {

// A piece that both sides can move without a call. False: they cannot, or the delimiter comes first.
bool move_piece(std::streambuf *from, std::streambuf *to, int delim, std::streamsize &count) {
  get_window source;
  put_window room;
  if (!open_get_window(from, source) || !open_put_window(to, 1, room)) return false;
  const unsigned int ready = source.end - source.at, place = room.end - room.at;
  unsigned int n = ready < place ? ready : place;
  if (delim != EOF) {
    const void *const found = memchr(source.at, delim, n);
    if (found) n = static_cast<const char *>(found) - source.at;
  }
  if (n == 0) return false;
  memmove(room.at, source.at, n);
  source.take_up_to(source.at + n);
  room.filled_up_to(room.at + n);
  count_more(count, static_cast<std::streamsize>(n));
  return true;
}

// Counts what was moved, at once: the count holds when something throws.
void move_all(std::streambuf *from, std::streambuf *to, int delim, std::streamsize &count, iostate &error) {
  for (;;) {
    while (move_piece(from, to, delim, count)) {}
    const int c = from->sgetc();
    if (c == EOF) error |= ios_base::eofbit;
    if (c == EOF || c == delim || to->sputc(static_cast<char>(c)) == EOF) return;
    count_more(count, 1);
    from->sbumpc();
  }
}

}  // namespace

}  // namespace __zor

namespace std {

using namespace __zor;

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::operator>>(basic_streambuf<C, T> *to) {
  streamsize count = 0;
  input_operation(
      *this, false,
      [&](iostate &error) {
        if (to) move_all(this->rdbuf(), to, EOF, count, error);
      },
      [&](iostate &error) {
        if (count == 0) error |= ios_base::failbit;
      });
  return *this;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::get(basic_streambuf<C, T> &to, C delim) {
  input_operation(
      *this, true,
      [&](iostate &error) { move_all(this->rdbuf(), &to, static_cast<unsigned char>(delim), _gcount_, error); },
      [&](iostate &error) {
        if (_gcount_ == 0) error |= ios_base::failbit;
      });
  return *this;
}

// The newline is the locale's; a facet that throws leaves a bad stream, which get refuses.
template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::get(basic_streambuf<C, T> &to) {
  char delim = '\n';
  if (eh_guard([&] { delim = this->widen('\n'); })) this->_state_ |= ios_base::badbit;
  return get(to, delim);
}

template class basic_istream<char, char_traits<char>>;

}  // namespace std
