// What is written without padding: blocks, and the manipulators that write a character.

#include "output_operation.h"

using namespace __zor;

namespace __zor {

PLX_SLOW std::ostream &write_guarded(std::ostream &out, const char *text, std::streamsize n) {
  output_operation(out, ios_base::goodbit, [&](iostate &error) {
    if (out.rdbuf()->sputn(text, n) != n) error |= ios_base::badbit;
  });
  return out;
}

}  // namespace __zor

namespace std {

template <class C, class T> basic_ostream<C, T> &basic_ostream<C, T>::write(const C *text, streamsize n) {
  ios &stream = base_of(*this);
  const a_put_result result =
      is_quiet(stream) && n > 0 ? put_fast<put_block>(stream_access::buffer(stream), text, n) : put_not_fast;
  if (result == put_not_fast) return write_guarded(*this, text, n);
  if (result == put_refused) update_state(stream, ios_base::badbit);
  return *this;
}

template <> ostream &endl(ostream &out) {
  ios &stream = out;
  const locale &loc = stream_access::loc(stream);
  return out.put(has_plain_ctype(loc) ? '\n' : use_facet<ctype<char>>(loc).widen('\n')).flush();
}

template <> ostream &ends(ostream &out) { return out.put('\0'); }
template <> ostream &flush(ostream &out) { return out.flush(); }

template ostream &ostream::write(const char *, streamsize);

}  // namespace std
