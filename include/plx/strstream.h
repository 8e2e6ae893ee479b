// The character-array streams (1998, annex D.7): strstreambuf over an array of the program's, or over one that it
// allocates and grows itself, and the streams on it.
//
// freeze works the other way round, and the destructor releases nothing: whoever needs the memory of a dynamic array
// back takes it by str() and gives it to the release function. docs/deviations.md has the list.
#ifndef PLX_STRSTREAM_H
#define PLX_STRSTREAM_H

#include <plx/basic_iostream.h>

namespace std {

class PLX_API strstreambuf : public streambuf {
public:
  // Dynamic: empty at first, and `_alsize` characters are the least that is allocated.
  explicit strstreambuf(streamsize _alsize = 0);

  // Dynamic, with functions for memory; a null one stands for new char[] or delete[].
  strstreambuf(void *(*_palloc)(size_t), void (*_pfree)(void *));

  // Over an array of n characters; 0: up to its null character; negative: without end. Reading starts at `_gnext`.
  // With `_pbeg`, reading ends and writing starts there.
  strstreambuf(char *_gnext, streamsize _n, char *_pbeg = 0);
  strstreambuf(signed char *_gnext, streamsize _n, signed char *_pbeg = 0);
  strstreambuf(unsigned char *_gnext, streamsize _n, unsigned char *_pbeg = 0);
  strstreambuf(const char *_gnext, streamsize _n);
  strstreambuf(const signed char *_gnext, streamsize _n);
  strstreambuf(const unsigned char *_gnext, streamsize _n);
  virtual ~strstreambuf();

  // Of a dynamic array: freeze(false) refuses all writing that needs room, freeze(true) allows it again.
  void freeze(bool _freezefl = true) PLX_NOTHROW;

  // The array's start, which may be null; it stays the buffer's as it is. No null character is added.
  char *str() const PLX_NOTHROW { return pbase() ? pbase() : eback(); }
  int pcount() const PLX_NOTHROW { return static_cast<int>(pptr() - pbase()); }

  static void *default_alloc(long _n);
  static void default_free(void *_p);

protected:
  virtual pos_type seekoff(off_type _off, ios_base::seekdir _way,
                           ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual pos_type seekpos(pos_type _pos, ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual int_type underflow();
  virtual int_type pbackfail(int_type _c = -1);
  virtual streamsize xsputn(const char *_from, streamsize _n);
  virtual int_type overflow(int_type _c = -1);

private:
  // The streams over an array that is appended to: writing starts at `_pbeg`, the array ends at `_gnext` + n.
  friend class ostrstream;
  friend class strstream;
  strstreambuf(char *_gnext, int _n, ios_base::openmode _mode);

  void _initialize(char *_gnext, streamsize _n, char *_pbeg) PLX_NOTHROW;
  bool _make_room();

  int _state_;  // bits: 1 allocated, 2 constant, 4 dynamic, 8 frozen
  streamsize _allocation_size_;
  streamsize _array_size_;
  void *(*_allocate_)(size_t);
  void (*_release_)(void *);
};

// What istrstream stands on. Its seekg never changes the state. plx's own.
class PLX_API isstream : public istream {
public:
  explicit isstream(streambuf *_buffer);
  virtual ~isstream();
  isstream &seekg(pos_type _pos);
  isstream &seekg(off_type _off, ios_base::seekdir _way);
};

class PLX_API istrstream : public isstream {
public:
  explicit istrstream(const char *_text);
  explicit istrstream(char *_text);
  istrstream(const char *_text, streamsize _n);
  istrstream(char *_text, streamsize _n);
  virtual ~istrstream();

  strstreambuf *rdbuf() const PLX_NOTHROW { return const_cast<strstreambuf *>(&_buffer_); }
  char *str() const PLX_NOTHROW { return _buffer_.str(); }

private:
  strstreambuf _buffer_;
};

class PLX_API ostrstream : public ostream {
public:
  ostrstream();
  // With app, writing starts at the array's null character.
  ostrstream(char *_array, int _n, ios_base::openmode _mode = ios_base::out);
  virtual ~ostrstream();

  strstreambuf *rdbuf() const PLX_NOTHROW { return const_cast<strstreambuf *>(&_buffer_); }
  void freeze(bool _freezefl = true) PLX_NOTHROW { _buffer_.freeze(_freezefl); }
  char *str() const PLX_NOTHROW { return _buffer_.str(); }
  int pcount() const PLX_NOTHROW { return _buffer_.pcount(); }

private:
  strstreambuf _buffer_;
};

class PLX_API strstream : public iostream {
public:
  strstream();
  strstream(char *_array, int _n, ios_base::openmode _mode = ios_base::in | ios_base::out);
  virtual ~strstream();

  strstreambuf *rdbuf() const PLX_NOTHROW { return const_cast<strstreambuf *>(&_buffer_); }
  void freeze(bool _freezefl = true) PLX_NOTHROW { _buffer_.freeze(_freezefl); }
  char *str() const PLX_NOTHROW { return _buffer_.str(); }
  int pcount() const PLX_NOTHROW { return _buffer_.pcount(); }

private:
  strstreambuf _buffer_;
};

}  // namespace std

#endif
