// The functions that programs call for single characters. The quick way of these is in the public header, because
// optimised programs take it without a call.

#include <stddef.h>
#include <stdio.h>

#include "output_window.h"
#include "stdio_file.h"

using namespace __zor;

static_assert(offsetof(_quick_output::_file, _write_next_) == offsetof(FILE, _IO_write_ptr));
static_assert(offsetof(_quick_output::_file, _write_end_) == offsetof(FILE, _IO_write_end));
static_assert(offsetof(_quick_output::_start, _file_) == sizeof(std::streambuf));

namespace std {

namespace {

PLX_LONG_WAY ostream &put_guarded(ostream &out, char c) {
  output_operation(out, ios_base::badbit, [&](iostate &error) {
    if (out.rdbuf()->sputc(c) == -1) error |= ios_base::badbit;
  });
  return out;
}

PLX_LONG_WAY ostream &insert_guarded(ostream &out, char c) {
  output_operation(
      out, ios_base::goodbit, [&](iostate &) { out.rdbuf()->sputc(c); }, [&](bool) { out.width(0); });
  return out;
}

// Writes through stdio when its buffer is full: false where that is not the way.
inline bool put_into_stdio(ostream &out, char c, bool &refused) {
  FILE *const file = is_quiet(out) ? plain_file(_stream_access::buffer(out)) : nullptr;
  if (!file) return false;
  refused = put_into_file(file, static_cast<unsigned char>(c)) == EOF;
  return true;
}

PLX_LONG_WAY ostream &put_elsewhere(ostream &out, char c) {
  bool refused;
  if (!put_into_stdio(out, c, refused)) return put_guarded(out, c);
  if (refused) update_state(out, ios_base::badbit);
  return out;
}

PLX_LONG_WAY ostream &insert_elsewhere(ostream &out, char c) {
  bool refused;
  if (!put_into_stdio(out, c, refused)) return insert_guarded(out, c);
  if (refused) note_loss(*_stream_access::buffer(out), _buffer_access::file(*_stream_access::buffer(out)));
  _stream_access::width(out) = 0;
  return out;
}

}  // namespace

ostream &__zor_put_char(ostream &out, char c) {
  return _quick_output::_put(base_of(out), c, false) ? out : put_elsewhere(out, c);
}

ostream &__zor_insert_char(ostream &out, char c) {
  return _quick_output::_put(base_of(out), c, true) ? out : insert_elsewhere(out, c);
}

}  // namespace std
