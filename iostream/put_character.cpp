// The functions that programs call for single characters. The fast way of these is in the public header, because
// optimised programs take it without a call.

#include "output_operation.h"

using namespace __zor;

namespace __zor {

PLX_SLOW std::ostream &put_guarded(std::ostream &out, char c) {
  output_operation(out, ios_base::badbit, [&](iostate &error) {
    if (out.rdbuf()->sputc(c) == -1) error |= ios_base::badbit;
  });
  return out;
}

PLX_SLOW std::ostream &insert_guarded(std::ostream &out, char c) {
  output_operation(
      out, ios_base::goodbit, [&](iostate &) { out.rdbuf()->sputc(c); }, [&](bool) { out.width(0); });
  return out;
}

PLX_SLOW std::ostream &put_slow(std::ostream &out, char c) {
  const a_put_result result = is_quiet(out) ? put_fast<put_text>(stream_access::buffer(out), &c, 1) : put_not_fast;
  if (result == put_not_fast) return put_guarded(out, c);
  if (result == put_refused) update_state(out, ios_base::badbit);
  return out;
}

PLX_SLOW std::ostream &insert_slow(std::ostream &out, char c) {
  const a_put_result result = is_quiet(out) ? put_fast<put_text>(stream_access::buffer(out), &c, 1) : put_not_fast;
  if (result == put_not_fast) return insert_guarded(out, c);
  if (result == put_refused) keep_refusal(stream_access::buffer(out));
  stream_access::width(out) = 0;
  return out;
}

}  // namespace __zor

namespace std {

ostream &__zor_put_char(ostream &out, char c) {
  return _quick_output::_put(base_of(out), c, false) ? out : put_slow(out, c);
}

ostream &__zor_insert_char(ostream &out, char c) {
  return _quick_output::_put(base_of(out), c, true) ? out : insert_slow(out, c);
}

}  // namespace std
