// basic_istream<char> and basic_iostream<char>: the classes themselves. Their operations are in extract_*.cpp,
// getline.cpp and unformatted*.cpp.

#include "../containers/cleanup_by_hand.h"

#include <plx/iostream/basic_iostream.h>

#include "input_operation.h"
#include "stream_start.h"

namespace __zor {

extern PLX_API const void *const istream_table[] __asm__("_ZTVSi");
extern PLX_API const void *const iostream_table[] __asm__("_ZTVSd");

}  // namespace __zor

namespace std {

template <class C, class T> basic_istream<C, T>::basic_istream(basic_streambuf<C, T> *buffer) : _gcount_(0) {
  __zor::start_stream(*this, buffer, false, __zor::istream_table);
}

template <class C, class T> basic_iostream<C, T>::basic_iostream(basic_streambuf<C, T> *buffer) {
  __zor::start_stream(*this, buffer, false, __zor::iostream_table);
}

template <class C, class T> basic_istream<C, T>::sentry::sentry(basic_istream &in, bool noskipws)
    : _ok_(__zor::input_prefix(in, noskipws)) {}

template <class C, class T> bool basic_istream<C, T>::ipfx(bool noskipws) {
  return __zor::input_prefix(*this, noskipws);
}

template class basic_istream<char, char_traits<char>>;
template class basic_iostream<char, char_traits<char>>;

}  // namespace std
