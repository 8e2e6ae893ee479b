// strstreambuf and its streams (1998, annex D.7): characters in an array that the program supplies, or in one that is
// allocated and grows.
//
// Where it differs from the 1998 classes on purpose: freeze works the other way round, no destructor releases an array,
// and the functions that return a character return it as a signed char, so that 0xFF looks like the end.
#ifndef PLX_STRSTREAM_H
#define PLX_STRSTREAM_H

#include <plx/iostream/basic_iostream.h>

namespace std {

class PLX_API strstreambuf : public basic_streambuf<char> {
public:
  // An array that grows, made at the first character: of `_alsize` bytes, or 16 if that is more, by the given functions
  // or else by the two below. It grows by 16 bytes, or to `_alsize`.
  explicit strstreambuf(streamsize _alsize = 0);
  strstreambuf(void *(*_palloc)(size_t), void (*_pfree)(void *));

  // A given array of n characters; 0: up to its terminator; negative: as far as memory goes. It is read up to `_pbeg`
  // and written from there on, n characters at most; without `_pbeg` it is only read.
  strstreambuf(char *_gnext, streamsize _n, char *_pbeg = 0);
  strstreambuf(const char *_gnext, streamsize _n);
  strstreambuf(signed char *_gnext, streamsize _n, signed char *_pbeg = 0);
  strstreambuf(const signed char *_gnext, streamsize _n);
  strstreambuf(unsigned char *_gnext, streamsize _n, unsigned char *_pbeg = 0);
  strstreambuf(const unsigned char *_gnext, streamsize _n);

  // The array stays: str() has it.
  virtual ~strstreambuf();

  // Of an array that grows: false forbids it to, true allows it again.
  void freeze(bool _freezefl = true) PLX_NOTHROW;

  // The array, null when there is none yet. Nothing is written behind the characters, and nothing is frozen.
  char *str() const PLX_NOTHROW { return eback() ? eback() : pbase(); }

  // How many characters are before the write position.
  int pcount() const PLX_NOTHROW { return static_cast<int>(pptr() - pbase()); }

  // The next character, as a signed char.
  int sgetc() { return underflow(); }

  // How arrays are made (may throw bad_alloc) and given back when the program has no functions of its own: new char[n]
  // and delete[].
  static void *default_alloc(long _n);
  static void default_free(void *_array) PLX_NOTHROW;

protected:
  virtual int overflow(int _c = -1);
  virtual int pbackfail(int _c = -1);  // never writes
  virtual int underflow();
  virtual streampos seekoff(streamoff _off, ios_base::seekdir _way,
                            ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual streampos seekpos(streampos _pos, ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual streamsize xsputn(const char *_from, streamsize _n);

private:
  friend class ostrstream;
  friend class strstream;
  enum { _allocated = 1, _constant = 2, _dynamic = 4, _frozen = 8, _wide = 16 };

  // An array of n characters, as above, which is written from its beginning, or from its terminator.
  strstreambuf(char *_array, streamsize _n, bool _appends) PLX_NOTHROW;
  void _initialize(char *_gnext, streamsize _n, char *_pbeg) PLX_NOTHROW;
  void _set_put(char *_begin, char *_next, char *_end) PLX_NOTHROW;
  char *_make(streamsize _n);
  bool _grow();
  void _open_up() PLX_NOTHROW;
  void _settle() PLX_NOTHROW;

  int _state_;
  streamsize _alsize_;
  streamsize _size_;          // of the array, as it is said to be
  void *(*_palloc_)(size_t);  // null: default_alloc
  void (*_pfree_)(void *);    // null: default_free
  streamsize _room_;          // of an array that grows, if it really is larger
};

// The input streams' base. Its own seeks never touch the state. plx's own.
class PLX_API isstream : public basic_istream<char> {
public:
  explicit isstream(basic_streambuf<char> *_buffer);
  virtual ~isstream();

  isstream &seekg(streampos _pos);
  isstream &seekg(streamoff _off, ios_base::seekdir _way);

protected:
  isstream() {}  // for classes that initialise the shared base themselves
};

// Reads an array up to its terminator, or n characters of it; with a negative n, as far as memory goes.
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

// Writes into an array that grows, or into the n characters of one: from its beginning, or with app from its
// terminator on. Characters beyond are refused.
class PLX_API ostrstream : public basic_ostream<char> {
public:
  ostrstream();
  ostrstream(char *_array, int _n, ios_base::openmode _mode = ios_base::out);
  virtual ~ostrstream();

  strstreambuf *rdbuf() const PLX_NOTHROW { return const_cast<strstreambuf *>(&_buffer_); }
  void freeze(bool _freezefl = true) PLX_NOTHROW { _buffer_.freeze(_freezefl); }
  char *str() const PLX_NOTHROW { return _buffer_.str(); }
  int pcount() const PLX_NOTHROW { return _buffer_.pcount(); }

private:
  strstreambuf _buffer_;
};

// Both.
class PLX_API strstream : public basic_iostream<char> {
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
