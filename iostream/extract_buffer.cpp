// From a stream into another buffer: operator>> and get. A character is only taken once the other buffer has it: what
// throws, or takes no more, loses none.

#include "input_operation.h"

namespace __zor {

namespace {

// Counts what was moved, at once: the count holds when something throws.
void move_all(std::streambuf *from, std::streambuf *to, int delim, std::streamsize &count, iostate &error) {
  for (;;) {
    while (const int n = move_ready(from, to, delim)) count_more(count, n);
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
