// strstreambuf: arrays that the program gave, or that grow.

#include <limits.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <new>

#include "../containers/cleanup_by_hand.h"

#include <plx/iostream/strstream.h>

#include "offset.h"
#include "stringbuf_block.h"

using namespace __zor;

namespace __zor {

extern PLX_API const void *const array_buffer_table[] __asm__("_ZTVSt12strstreambuf");

}  // namespace __zor

namespace std {

namespace {

// An array without an end must not go around the end of memory.
inline char *end_of(char *begin, streamsize n) {
  const uintptr_t left = ~reinterpret_cast<uintptr_t>(begin);
  return begin + (static_cast<uintptr_t>(n) < left ? n : left);
}

inline streamsize length_meant(const char *array, streamsize n) {
  return n > 0 ? n : n < 0 ? INT_MAX : static_cast<streamsize>(strlen(array));
}

inline char *plain(const void *array) { return static_cast<char *>(const_cast<void *>(array)); }

inline int as_signed(char c) { return static_cast<signed char>(c); }

inline bool is_plain(const strstreambuf *buffer) {
  return *reinterpret_cast<const void *const *const *>(buffer) == array_buffer_table + 2;
}

}  // namespace

#define PLX_FIELDS(state, alsize, palloc, pfree) \
  _state_(state), _alsize_(alsize), _size_(0), _palloc_(palloc), _pfree_(pfree), _room_(0)

strstreambuf::strstreambuf(streamsize alsize) : PLX_FIELDS(_dynamic, alsize, nullptr, nullptr) {}
strstreambuf::strstreambuf(void *(*palloc)(size_t), void (*pfree)(void *)) : PLX_FIELDS(_dynamic, 16, palloc, pfree) {}
strstreambuf::strstreambuf(char *gnext, streamsize n, char *pbeg) : PLX_FIELDS(0, 16, nullptr, nullptr) {
  _initialize(gnext, n, pbeg);
}
strstreambuf::strstreambuf(const char *gnext, streamsize n) : PLX_FIELDS(_constant, 0, nullptr, nullptr) {
  _initialize(plain(gnext), n, nullptr);
}
strstreambuf::strstreambuf(signed char *gnext, streamsize n, signed char *pbeg) : PLX_FIELDS(0, 0, nullptr, nullptr) {
  _initialize(plain(gnext), n, plain(pbeg));
}
strstreambuf::strstreambuf(const signed char *gnext, streamsize n) : PLX_FIELDS(_constant, 0, nullptr, nullptr) {
  _initialize(plain(gnext), n, nullptr);
}
strstreambuf::strstreambuf(unsigned char *gnext, streamsize n, unsigned char *pbeg)
    : PLX_FIELDS(0, 0, nullptr, nullptr) {
  _initialize(plain(gnext), n, plain(pbeg));
}
strstreambuf::strstreambuf(const unsigned char *gnext, streamsize n) : PLX_FIELDS(_constant, 0, nullptr, nullptr) {
  _initialize(plain(gnext), n, nullptr);
}

// Only of the array's own characters a terminator is looked for, and the put area ends with them.
strstreambuf::strstreambuf(char *array, streamsize n, bool appends) PLX_NOTHROW : PLX_FIELDS(0, 16, nullptr, nullptr) {
  char *next = array;
  if (appends) next += n > 0 ? strnlen(array, n) : strlen(array);
  _initialize(array, n, next);
  if (n >= 0) setp(next, end_of(array, _size_));
}

#undef PLX_FIELDS

strstreambuf::~strstreambuf() {}

void strstreambuf::_initialize(char *gnext, streamsize n, char *pbeg) PLX_NOTHROW {
  _size_ = length_meant(gnext, n);
  setg(gnext, gnext, pbeg ? pbeg : end_of(gnext, _size_));
  if (pbeg) setp(pbeg, end_of(pbeg, _size_));
}

void *strstreambuf::default_alloc(long n) { return new char[n]; }
void strstreambuf::default_free(void *array) PLX_NOTHROW { delete[] static_cast<char *>(array); }

void strstreambuf::freeze(bool f) PLX_NOTHROW {
  _settle();
  if (_state_ & _dynamic) _state_ = f ? _state_ & ~_frozen : _state_ | _frozen;
}

void strstreambuf::_set_put(char *begin, char *next, char *end) PLX_NOTHROW {
  setp(begin, end);
  pbump(static_cast<int>(next - begin));
}

// A new array, which may be larger where nobody can see that: a release function sees every array that is left.
char *strstreambuf::_make(streamsize n) {
  if (_palloc_) return static_cast<char *>(_palloc_(n));
  if (!_pfree_ && string_blocks_are_free()) {
    const unsigned room = grown_string_room(_room_, n);
    if (void *const at = room <= INT_MAX ? malloc(room) : nullptr) {
      _room_ = room;
      return static_cast<char *>(at);
    }
  }
  char *const at = static_cast<char *>(default_alloc(n));
  _room_ = n;
  return at;
}

// Makes room for one character behind the put area.
bool strstreambuf::_grow() {
  char *const from = pbase();
  const streamsize used = static_cast<streamsize>(epptr() - from);
  if (_size_ > used) {
    _set_put(from, from + used, from + used + 1);
    return true;
  }
  if (used > INT_MAX - 16) return false;
  const streamsize size = used + 16 > _alsize_ ? used + 16 : _alsize_;
  char *at = from;
  if (_room_ < size) {
    at = _make(size);
    if (!at) return false;
    if (used) memcpy(at, from, used);
  }
  // The read position becomes the number of characters that were not read yet.
  const int unread = static_cast<int>(egptr() - gptr()), readable = static_cast<int>(egptr() - eback());
  _size_ = size;
  _set_put(at, at + used, at + used + 1);
  setg(at, at + unread, at + readable);
  if (from && at != from) _pfree_ ? _pfree_(from) : default_free(from);
  _state_ |= _allocated;
  return true;
}

// By the rule the put area ends with the characters, and is widened by one at a time. Of an object that is exactly of
// this class nobody sees that: while it is written, its area goes to the end of the array, and beyond where the array
// is larger than it is said to be. Not if there are characters to read, of which each growth changes the position.
void strstreambuf::_open_up() PLX_NOTHROW {
  if (!is_plain(this)) return;
  streamsize end = _size_;
  if (!_pfree_ && eback() == egptr() && _room_ > _size_) end += (_room_ - _size_) & ~15;
  _set_put(pbase(), pptr(), pbase() + end);
  _state_ |= _wide;
}

// Back to the rule; the write position is behind all characters.
void strstreambuf::_settle() PLX_NOTHROW {
  if (!(_state_ & _wide)) return;
  _state_ &= ~_wide;
  const streamsize used = static_cast<streamsize>(pptr() - pbase());
  if (used > _size_) _size_ += (used - _size_ + 15) & ~15;
  _set_put(pbase(), pptr(), pptr());
}

int strstreambuf::overflow(int c) {
  if (c == -1) return 0;
  if (pptr() >= epptr()) {
    _settle();
    if ((_state_ & (_dynamic | _frozen)) != _dynamic || !_grow()) return -1;
    _open_up();
  }
  *pptr() = static_cast<char>(c);
  pbump(1);
  return c;
}

streamsize strstreambuf::xsputn(const char *from, streamsize n) { return streambuf::xsputn(from, n); }

int strstreambuf::underflow() {
  _settle();
  char *const next = gptr();
  if (next < egptr()) return as_signed(*next);
  if (!next || !pptr() || pptr() <= egptr()) return -1;
  setg(eback(), next, pptr());
  return as_signed(*next);
}

int strstreambuf::pbackfail(int c) {
  if (gptr() <= eback() || (c != -1 && gptr()[-1] != static_cast<char>(c))) return -1;
  gbump(-1);
  return c == -1 ? 0 : c;
}

streampos strstreambuf::seekoff(streamoff off, ios_base::seekdir way, ios_base::openmode which) {
  const bool begins = way == ios_base::beg, continues = way == ios_base::cur;
  if (!begins && !continues && way != ios_base::end) return -1;
  _settle();
  long at = -1;
  if ((which & ios_base::in) && gptr()) {
    const long size = egptr() - eback();
    at = within(begins ? 0 : continues ? gptr() - eback() : size, off, size);
    if (at == -1) return -1;
    setg(eback(), eback() + at, egptr());
  }
  if ((which & ios_base::out) && pptr()) {
    if (continues && (which & ios_base::in)) return -1;
    const long size = epptr() - pbase();
    at = within(begins ? 0 : continues ? pptr() - pbase() : size, off, size);
    if (at != -1) _set_put(pbase(), pbase() + at, epptr());
  }
  return at;
}

streampos strstreambuf::seekpos(streampos pos, ios_base::openmode which) {
  const streamoff at = pos;
  if (at < 0) return -1;
  _settle();
  if (which & ios_base::in) {
    if (!gptr() || at > egptr() - eback()) return -1;
    setg(eback(), eback() + at, egptr());
  }
  if ((which & ios_base::out) && pptr() && at <= epptr() - pbase()) {
    _set_put(pbase(), pbase() + at, epptr());
    return pos;
  }
  return which & ios_base::in ? pos : streampos(-1);
}

}  // namespace std
