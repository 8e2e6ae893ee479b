// The string streams: making and destroying them. All else is the buffer's and the bases'.

#include "../containers/cleanup_by_hand.h"

#include <plx/iostream/sstream.h>

#include "stream_start.h"
#include "stringbuf_block.h"

using namespace __zor;

namespace __zor {

extern PLX_API const void *const string_in_table[] __asm__("_ZTVSt19basic_istringstreamIcSt11char_traitsIcESaIcEE");
extern PLX_API const void *const string_out_table[] __asm__("_ZTVSt19basic_ostringstreamIcSt11char_traitsIcESaIcEE");
extern PLX_API const void *const string_both_table[] __asm__("_ZTVSt18basic_stringstreamIcSt11char_traitsIcESaIcEE");

template <class Stream>
void start_with_text(Stream &s, std::stringbuf &b, const void *const *table, const std::string &text) {
  if (text.empty()) {
    _buffer_access::start(b);
    start_stream(s, b, table);
    return;
  }
  if (_buffer_access::fits_within(text) && string_blocks_are_free()) {
    _buffer_access::set_text(b, text);  // cannot fail
    start_stream(s, b, table);
    return;
  }
  start_stream_guarded(s, &b, true, table, [&] { _buffer_access::set_text(b, text); });
}

}  // namespace __zor

namespace std {

template <class C, class T, class A> basic_istringstream<C, T, A>::basic_istringstream(ios_base::openmode mode)
    : _buffer_(mode | ios_base::in) {
  _buffer_access::start(_buffer_);
  start_stream(*this, _buffer_, string_in_table);
}
template <class C, class T, class A>
basic_istringstream<C, T, A>::basic_istringstream(const basic_string<C, T, A> &text, ios_base::openmode mode)
    : _buffer_(mode | ios_base::in) {
  start_with_text(*this, _buffer_, string_in_table, text);
}
template <class C, class T, class A> basic_istringstream<C, T, A>::~basic_istringstream() {}

template <class C, class T, class A> basic_ostringstream<C, T, A>::basic_ostringstream(ios_base::openmode mode)
    : _buffer_(mode | ios_base::out) {
  _buffer_access::start(_buffer_);
  start_stream(*this, _buffer_, string_out_table);
}
template <class C, class T, class A>
basic_ostringstream<C, T, A>::basic_ostringstream(const basic_string<C, T, A> &text, ios_base::openmode mode)
    : _buffer_(mode | ios_base::out) {
  start_with_text(*this, _buffer_, string_out_table, text);
}
template <class C, class T, class A> basic_ostringstream<C, T, A>::~basic_ostringstream() {}

template <class C, class T, class A> basic_stringstream<C, T, A>::basic_stringstream(ios_base::openmode mode)
    : _buffer_(mode) {
  _buffer_access::start(_buffer_);
  start_stream(*this, _buffer_, string_both_table);
}
template <class C, class T, class A>
basic_stringstream<C, T, A>::basic_stringstream(const basic_string<C, T, A> &text, ios_base::openmode mode)
    : _buffer_(mode) {
  start_with_text(*this, _buffer_, string_both_table, text);
}
template <class C, class T, class A> basic_stringstream<C, T, A>::~basic_stringstream() {}

template class basic_istringstream<char, char_traits<char>, allocator<char>>;
template class basic_ostringstream<char, char_traits<char>, allocator<char>>;
template class basic_stringstream<char, char_traits<char>, allocator<char>>;

}  // namespace std
