// The operations on the buffer itself: sync, tellg and seekg. They have no sentry: a stream at its end can be told
// where to go on. What the buffer throws becomes badbit, as everywhere.

#include "input_operation.h"

namespace std {

using namespace __zor;

namespace {

template <class Body> void on_buffer(istream &in, Body body) {
  iostate error = ios_base::goodbit;
  if (eh_guard([&] { body(error); })) error |= ios_base::badbit;
  if (error != ios_base::goodbit) update_state(in, error);
}

template <class Move> void seek(istream &in, Move move) {
  if (in.fail()) return;
  on_buffer(in, [&](iostate &error) {
    if (move() == streamoff(-1)) error |= ios_base::failbit;
  });
}

}  // namespace

template <class C, class T> int basic_istream<C, T>::sync() {
  streambuf *const buffer = this->rdbuf();
  if (!buffer) return -1;
  int result = -1;
  on_buffer(*this, [&](iostate &error) {
    result = buffer->pubsync();
    if (result == -1) error |= ios_base::badbit;
  });
  return result == -1 ? -1 : 0;
}

template <class C, class T> typename basic_istream<C, T>::pos_type basic_istream<C, T>::tellg() {
  streampos at = -1;
  if (!this->fail())
    on_buffer(*this, [&](iostate &) { at = this->rdbuf()->pubseekoff(0, ios_base::cur, ios_base::in); });
  return at;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::seekg(pos_type to) {
  seek(*this, [&] { return streamoff(this->rdbuf()->pubseekpos(to, ios_base::in)); });
  return *this;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::seekg(off_type off, ios_base::seekdir way) {
  seek(*this, [&] { return streamoff(this->rdbuf()->pubseekoff(off, way, ios_base::in)); });
  return *this;
}

template class basic_istream<char, char_traits<char>>;

}  // namespace std
