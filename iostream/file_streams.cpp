// The file streams: how they open and close. All else is their bases' and the file buffer's.

#include <plx/iostream/fstream.h>

#include "stream_start.h"

namespace __zor {

extern PLX_API const void *const file_in_table[] __asm__("_ZTVSt14basic_ifstreamIcSt11char_traitsIcEE");
extern PLX_API const void *const file_out_table[] __asm__("_ZTVSt14basic_ofstreamIcSt11char_traitsIcEE");
extern PLX_API const void *const file_both_table[] __asm__("_ZTVSt13basic_fstreamIcSt11char_traitsIcEE");

}  // namespace __zor

using namespace __zor;

namespace std {

namespace {

template <class Stream> void open_buffer(Stream &stream, const char *path, ios_base::openmode mode) {
  if (stream.rdbuf()->open(path, mode))
    stream.clear();
  else
    stream.setstate(ios_base::failbit);
}

template <class Stream> void close_buffer(Stream &stream) {
  if (!stream.rdbuf()->close()) stream.setstate(ios_base::failbit);
}

}  // namespace

template <class C, class T> basic_ifstream<C, T>::basic_ifstream() { start_stream(*this, _buffer_, file_in_table); }
template <class C, class T> basic_ifstream<C, T>::basic_ifstream(const char *path, ios_base::openmode mode) {
  start_stream(*this, _buffer_, file_in_table);
  open(path, mode);
}
template <class C, class T> basic_ifstream<C, T>::~basic_ifstream() {}
template <class C, class T> void basic_ifstream<C, T>::open(const char *path, ios_base::openmode mode) {
  open_buffer(*this, path, mode | ios_base::in);
}
template <class C, class T> void basic_ifstream<C, T>::close() { close_buffer(*this); }

template <class C, class T> basic_ofstream<C, T>::basic_ofstream() { start_stream(*this, _buffer_, file_out_table); }
template <class C, class T> basic_ofstream<C, T>::basic_ofstream(const char *path, ios_base::openmode mode) {
  start_stream(*this, _buffer_, file_out_table);
  open(path, mode);
}
template <class C, class T> basic_ofstream<C, T>::~basic_ofstream() {}
template <class C, class T> void basic_ofstream<C, T>::open(const char *path, ios_base::openmode mode) {
  open_buffer(*this, path, mode | ios_base::out);
}
template <class C, class T> void basic_ofstream<C, T>::close() { close_buffer(*this); }

template <class C, class T> basic_fstream<C, T>::basic_fstream() { start_stream(*this, _buffer_, file_both_table); }
template <class C, class T> basic_fstream<C, T>::basic_fstream(const char *path, ios_base::openmode mode) {
  start_stream(*this, _buffer_, file_both_table);
  if (!_buffer_.open(path, mode | ios_base::in | ios_base::out)) open(path, mode);
}
template <class C, class T> basic_fstream<C, T>::~basic_fstream() {}
template <class C, class T> void basic_fstream<C, T>::open(const char *path, ios_base::openmode mode) {
  open_buffer(*this, path, mode);
}
template <class C, class T> void basic_fstream<C, T>::close() { close_buffer(*this); }

template class basic_ifstream<char, char_traits<char>>;
template class basic_ofstream<char, char_traits<char>>;
template class basic_fstream<char, char_traits<char>>;

}  // namespace std
