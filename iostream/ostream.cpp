// basic_ostream<char>: the sentry, flushing and positions. Texts and numbers have files of their own.

#include "output_operation.h"
#include "stream_start.h"

using namespace __zor;

namespace __zor {

extern PLX_API const void *const ostream_table[] __asm__("_ZTVSo");

}  // namespace __zor

namespace std {

template <class C, class T> basic_ostream<C, T>::basic_ostream(basic_streambuf<C, T> *buffer) {
  start_stream(*this, buffer, false, ostream_table);
}

template <class C, class T> basic_ostream<C, T>::sentry::sentry(basic_ostream &out)
    : _ok_(output_prefix(out)), _out_(out) {}

template <class C, class T> basic_ostream<C, T>::sentry::~sentry() {
  const ios_base::iostate error = output_suffix(_out_);
  if (error == ios_base::goodbit) return;
  // A second exception would end the program.
  if (uncaught_exception())
    stream_access::state(_out_) |= error;
  else
    update_state(_out_, error);
}

template <class C, class T> bool basic_ostream<C, T>::opfx() {
  if (this->good() && this->tie()) this->tie()->flush();
  return this->good();
}

template <class C, class T> void basic_ostream<C, T>::osfx() {
  const ios_base::iostate error = output_suffix(*this);
  if (error != ios_base::goodbit) update_state(*this, error);
}

namespace {

PLX_SLOW ostream &flush_guarded(ostream &out) {
  output_operation(out, ios_base::goodbit, [&](iostate &error) {
    if (out.rdbuf() && out.rdbuf()->pubsync() == -1) error |= ios_base::badbit;
  });
  return out;
}

}  // namespace

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::flush() {
  ios &stream = *this;
  if (!is_quiet(stream)) return flush_guarded(*this);
  streambuf *const buffer = stream_access::buffer(stream);
  if (is_plain_stringbuf(buffer)) return *this;  // it has nothing to synchronise
  if (!is_plain_filebuf(buffer)) return flush_guarded(*this);
  if (buffer_access::sync(static_cast<filebuf &>(*buffer)) != 0) update_state(stream, ios_base::badbit);
  return *this;
}

// No frame here: a position is neither input nor output, and asking for it flushes nothing.
template <class C, class T> typename basic_ostream<C, T>::pos_type basic_ostream<C, T>::tellp() {
  streampos at = -1;
  if (!this->fail() && eh_guard([&] { at = this->rdbuf()->pubseekoff(0, ios_base::cur, ios_base::out); }))
    update_state(*this, ios_base::badbit);
  return at;
}

namespace {

template <class Move> ostream &move_to(ostream &out, Move move) {
  if (out.fail()) return out;
  ios_base::iostate error = ios_base::goodbit;
  if (eh_guard([&] {
        if (streamoff(move(*out.rdbuf())) == -1) error = ios_base::failbit;
      }))
    error = ios_base::badbit;
  if (error != ios_base::goodbit) update_state(out, error);
  return out;
}

}  // namespace

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::seekp(pos_type pos) {
  return move_to(*this, [&](streambuf &buffer) { return buffer.pubseekpos(pos, ios_base::out); });
}

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::seekp(off_type off, ios_base::seekdir way) {
  return move_to(*this, [&](streambuf &buffer) { return buffer.pubseekoff(off, way, ios_base::out); });
}

void __zor_do_flush(ostream *out) { out->flush(); }

template class basic_ostream<char, char_traits<char>>;

}  // namespace std
