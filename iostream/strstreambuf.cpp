// strstreambuf: arrays and their growth, characters in and out, positions.
//
// Two conversions are through signed char, as ever: underflow returns bytes from 0x80 on as negative numbers, so that
// 0xFF reads as the end.

#include <limits.h>
#include <stdint.h>
#include <string.h>

#include "../libC/eh_tools.h"

#include <plx/strstream.h>

namespace {

enum { allocated = 1, constant = 2, dynamic = 4, frozen = 8 };

// The end of an array, never beyond the top of the address space.
char *end_of(char *from, std::streamsize n) {
  const uintptr_t left = UINTPTR_MAX - reinterpret_cast<uintptr_t>(from);
  return from + (static_cast<uintptr_t>(n) < left ? static_cast<uintptr_t>(n) : left);
}

void *allocate_by_default(size_t n) { return std::strstreambuf::default_alloc(static_cast<long>(n)); }

template <class Ch> char *characters(Ch *at) {
  return reinterpret_cast<char *>(const_cast<char *>(reinterpret_cast<const char *>(at)));
}

}  // namespace

namespace std {

strstreambuf::strstreambuf(streamsize alsize)
    : _state_(dynamic),
      _allocation_size_(alsize),
      _array_size_(0),
      _allocate_(allocate_by_default),
      _release_(default_free) {}

strstreambuf::strstreambuf(void *(*palloc)(size_t), void (*pfree)(void *))
    : _state_(dynamic),
      _allocation_size_(16),
      _array_size_(0),
      _allocate_(palloc ? palloc : allocate_by_default),
      _release_(pfree ? pfree : default_free) {}

strstreambuf::strstreambuf(char *gnext, streamsize n, char *pbeg) : _state_(0), _allocation_size_(16) {
  _initialize(gnext, n, pbeg);
}
strstreambuf::strstreambuf(signed char *gnext, streamsize n, signed char *pbeg) : _state_(0), _allocation_size_(0) {
  _initialize(characters(gnext), n, characters(pbeg));
}
strstreambuf::strstreambuf(unsigned char *gnext, streamsize n, unsigned char *pbeg) : _state_(0), _allocation_size_(0) {
  _initialize(characters(gnext), n, characters(pbeg));
}
strstreambuf::strstreambuf(const char *gnext, streamsize n) : _state_(constant), _allocation_size_(0) {
  _initialize(characters(gnext), n, nullptr);
}
strstreambuf::strstreambuf(const signed char *gnext, streamsize n) : _state_(constant), _allocation_size_(0) {
  _initialize(characters(gnext), n, nullptr);
}
strstreambuf::strstreambuf(const unsigned char *gnext, streamsize n) : _state_(constant), _allocation_size_(0) {
  _initialize(characters(gnext), n, nullptr);
}

strstreambuf::strstreambuf(char *array, int n, ios_base::openmode mode) : _state_(0), _allocation_size_(16) {
  if (!(mode & ios_base::app)) {
    _initialize(array, n, array);
    return;
  }
  // The room ends with the array, not n characters behind the text that is there; an array without a null is full.
  const size_t used = n > 0 ? strnlen(array, static_cast<size_t>(n)) : strlen(array);
  _initialize(array, n, array + used);
  if (n >= 0) setp(array + used, array + _array_size_);
}

strstreambuf::~strstreambuf() {}

void strstreambuf::_initialize(char *gnext, streamsize n, char *pbeg) PLX_NOTHROW {
  _allocate_ = nullptr;
  _release_ = nullptr;
  _array_size_ = n > 0 ? n : n == 0 ? static_cast<streamsize>(strlen(gnext)) : INT_MAX;
  if (pbeg) {
    setg(gnext, gnext, pbeg);
    setp(pbeg, end_of(pbeg, _array_size_));
  } else {
    setg(gnext, gnext, end_of(gnext, _array_size_));
  }
}

void strstreambuf::freeze(bool freezefl) PLX_NOTHROW {
  if (_state_ & dynamic) _state_ = freezefl ? _state_ & ~frozen : _state_ | frozen;
}

void *strstreambuf::default_alloc(long n) { return new char[static_cast<unsigned long>(n)]; }
void strstreambuf::default_free(void *p) { delete[] static_cast<char *>(p); }

// Room for one more character in a dynamic array. What the allocation function throws passes; nothing has changed then.
bool strstreambuf::_make_room() {
  if ((_state_ & (dynamic | frozen)) != dynamic) return false;
  const streamsize used = epptr() - pbase();
  if (_array_size_ > used) {
    char *const base = pbase();
    setp(base, base + used + 1);
    pbump(used);
    return true;
  }
  if (used > INT_MAX - 16) return false;
  const streamsize size = used + 16 > _allocation_size_ ? used + 16 : _allocation_size_;
  char *const array = static_cast<char *>(_allocate_(static_cast<size_t>(size)));
  if (!array) return false;
  char *const old = pbase();
  if (used) memcpy(array, old, static_cast<size_t>(used));
  const long readable = egptr() - eback();
  // The count of unread characters becomes the read position. It has always been so.
  const long position = egptr() - gptr();
  setg(array, array + position, array + readable);
  setp(array, array + used + 1);
  pbump(used);
  _array_size_ = size;
  if (old) _release_(old);
  _state_ |= allocated;
  return true;
}

strstreambuf::int_type strstreambuf::overflow(int_type c) {
  if (c == -1) return 0;
  if (pptr() >= epptr() && !_make_room()) return -1;
  *pptr() = static_cast<char>(c);
  pbump(1);
  return c;
}

streamsize strstreambuf::xsputn(const char *from, streamsize n) {
  streamsize done = 0;
  for (; done < n; ++done) {
    if (pptr() && pptr() < epptr()) {
      *pptr() = from[done];
      pbump(1);
    } else if (overflow(static_cast<unsigned char>(from[done])) == -1) {
      break;
    }
  }
  return done;
}

strstreambuf::int_type strstreambuf::underflow() {
  if (gptr() >= egptr()) {
    if (!gptr() || !pptr() || pptr() <= egptr()) return -1;
    setg(eback(), gptr(), pptr());
  }
  return static_cast<signed char>(*gptr());
}

strstreambuf::int_type strstreambuf::pbackfail(int_type c) {
  if (gptr() <= eback()) return -1;
  if (c != -1 && gptr()[-1] != static_cast<char>(c)) return -1;
  gbump(-1);
  return c == -1 ? 0 : c;
}

strstreambuf::pos_type strstreambuf::seekoff(off_type off, ios_base::seekdir way, ios_base::openmode which) {
  pos_type result(-1);
  if ((which & ios_base::in) && gptr()) {
    const long long base = way & ios_base::beg ? 0 : way & ios_base::end ? egptr() - eback() : gptr() - eback();
    const long long to = base + off;
    if (to < 0 || to > egptr() - eback()) return pos_type(-1);
    setg(eback(), eback() + to, egptr());
    result = pos_type(static_cast<streamoff>(to));
  }
  if ((which & ios_base::out) && pptr()) {
    if (!(way & (ios_base::beg | ios_base::end)) && (which & ios_base::in)) return pos_type(-1);
    const long long base = way & ios_base::beg ? 0 : way & ios_base::end ? epptr() - pbase() : pptr() - pbase();
    const long long to = base + off;
    if (to < 0 || to > epptr() - pbase()) return pos_type(-1);
    pbump(static_cast<int>(to - (pptr() - pbase())));
    result = pos_type(static_cast<streamoff>(to));
  }
  return result;
}

strstreambuf::pos_type strstreambuf::seekpos(pos_type pos, ios_base::openmode which) {
  const streamoff to = pos;
  if (to < 0) return pos_type(-1);
  pos_type result(-1);
  if (which & ios_base::in) {
    if (!gptr() || to > egptr() - eback()) return pos_type(-1);
    setg(eback(), eback() + to, egptr());
    result = pos;
  }
  if ((which & ios_base::out) && pptr() && to <= epptr() - pbase()) {
    pbump(static_cast<int>(to - (pptr() - pbase())));
    result = pos;
  }
  return result;
}

}  // namespace std
