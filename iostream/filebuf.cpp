// basic_filebuf<char>: the operations on an open file. filebuf_open.cpp opens and closes, filebuf_convert.cpp writes
// through a program's own codecvt.

#include <plx/facets/codecvt.h>
#include <plx/iostream/filebuf.h>

#include "../libC/eh_tools.h"
#include "../locale/plain_facets.h"
#include "filebuf_convert.h"
#include "owed_flush.h"
#include "read_ahead.h"
#include "stdio_file.h"

using namespace __zor;

namespace std {

namespace {

// Whether characters go out as they are; else `facet` is asked. Throws bad_cast when there is none.
inline bool writes_plainly(const locale &loc, const codecvt<char, char, int> *&facet) {
  if (has_plain_codecvt(loc)) return true;
  facet = &use_facet<codecvt<char, char, int>>(loc);
  return facet->always_noconv();
}

int PLX_NOINLINE PLX_REGPARM overflow_through(filebuf &buffer, int c) {
  const codecvt<char, char, int> *facet;
  const bool plain = writes_plainly(_buffer_access::loc(buffer), facet);
  FILE *const file = _buffer_access::file(buffer);
  if (!file) return -1;
  if (c == -1) return 0;
  if (plain) return put_into_file(file, c);
  const char one = static_cast<char>(c);
  return write_converted(buffer, *facet, &one, 1) ? c : -1;
}

}  // namespace

template <class C, class T> basic_filebuf<C, T>::~basic_filebuf() {
  if (owed_flush == this) pay_owed_flush();
  if (!_file_) return;
  if (conversions) eh_guard([this] { end_conversion(*this); });
  if (!is_standard_file(_file_)) fclose(_file_);
}

template <class C, class T> void basic_filebuf<C, T>::imbue(const locale &loc) {
  if (!ends_conversion(*this)) _buffer_access::keep_write_error(*this);
  this->_loc_ = loc;
}

template <class C, class T> basic_streambuf<C, T> *basic_filebuf<C, T>::setbuf(C *, streamsize) {
  return _file_ ? this : nullptr;
}

template <class C, class T> typename basic_filebuf<C, T>::int_type basic_filebuf<C, T>::overflow(int_type c) {
  // Nothing is in the way of most characters.
  if (has_plain_codecvt(this->_loc_) && _file_ && c != -1) return put_into_file(_file_, c);
  return overflow_through(*this, c);
}

template <class C, class T> streamsize basic_filebuf<C, T>::xsputn(const C *from, streamsize n) {
  const codecvt<char, char, int> *facet;
  const bool plain = writes_plainly(this->_loc_, facet);
  if (!_file_ || n <= 0) return 0;
  if (plain) return write_file(_file_, from, n);
  return write_converted(*this, *facet, from, n) ? n : 0;
}

template <class C, class T> typename basic_filebuf<C, T>::int_type basic_filebuf<C, T>::underflow() {
  return peek_file(*this);
}

template <class C, class T> typename basic_filebuf<C, T>::int_type basic_filebuf<C, T>::uflow() {
  return get_from_file(*this);
}

template <class C, class T> streamsize basic_filebuf<C, T>::xsgetn(C *to, streamsize n) {
  return _file_ && n > 0 ? read_file(*this, to, n) : 0;
}

template <class C, class T> typename basic_filebuf<C, T>::int_type basic_filebuf<C, T>::pbackfail(int_type c) {
  if (!_file_) return -1;
  if (c == -1) return step_back(_file_) ? 0 : -1;
  return put_back(_file_, c) == EOF ? -1 : c;
}

template <class C, class T> typename basic_filebuf<C, T>::pos_type basic_filebuf<C, T>::seekoff(off_type off,
                                                                                                ios_base::seekdir way,
                                                                                                ios_base::openmode) {
  if (!_file_ || ((way & ios_base::beg) && off < 0) || ((way & ios_base::end) && off > 0)) return -1;
  if (!(way & (ios_base::beg | ios_base::end)) && off == 0) return position_of(_file_);
  if (!ends_conversion(*this)) return -1;
  _refills_ = 0;
  return move_by(_file_, off, way & ios_base::beg ? SEEK_SET : way & ios_base::end ? SEEK_END : SEEK_CUR);
}

template <class C, class T>
typename basic_filebuf<C, T>::pos_type basic_filebuf<C, T>::seekpos(pos_type pos, ios_base::openmode) {
  if (!_file_ || pos == pos_type(-1) || !ends_conversion(*this)) return -1;
  _refills_ = 0;
  return move_by(_file_, pos, SEEK_SET);
}

template <class C, class T> int basic_filebuf<C, T>::sync() {
  if (!_file_) return 0;
  if (owed_flush == this) forget_owed_flush();
  const int result = synchronise(_file_);
  if (!_write_error_) return result;
  _write_error_ = false;
  return -1;
}

template <class C, class T> streamsize basic_filebuf<C, T>::showmanyc() { return _file_ ? left_in_file(_file_) : -1; }

template class basic_filebuf<char, char_traits<char>>;

}  // namespace std
