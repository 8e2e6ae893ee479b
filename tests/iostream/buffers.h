// Stream buffers of a program's own, for the tests of streams: one that takes characters one by one, one with a put
// area, one whose virtual operations fail or throw on demand.
#ifndef TESTS_IOSTREAM_BUFFERS_H
#define TESTS_IOSTREAM_BUFFERS_H

#include <string.h>

#include <streambuf>

// Takes up to `room` characters through overflow, and keeps them.
class taking : public std::streambuf {
public:
  char text[600];
  int n, room;
  explicit taking(int most = 500) : n(0), room(most) { text[0] = 0; }
  // What came since the last time.
  const char *taken() {
    text[n] = 0;
    n = 0;
    return text;
  }

protected:
  virtual int overflow(int c) {
    if (n >= room) return -1;
    text[n++] = static_cast<char>(c);
    return c & 0xFF;
  }
};

// A put area of `size` characters in an array that is larger, and nothing else.
class area : public std::streambuf {
public:
  char text[64];
  explicit area(int size) {
    memset(text, '.', sizeof text);
    setp(text, text + size);
  }
  int n() const { return static_cast<int>(pptr() - pbase()); }
};

enum an_operation { no_operation, overflow_operation, xsputn_operation, sync_operation, seek_operation };

struct buffer_error {
  static int live;
  buffer_error() { ++live; }
  buffer_error(const buffer_error &) { ++live; }
  ~buffer_error() { --live; }
};
int buffer_error::live;

// One of its operations fails, or throws a buffer_error.
class faulty : public std::streambuf {
public:
  an_operation which;
  bool throws;
  int syncs;
  faulty(an_operation w, bool t) : which(w), throws(t), syncs(0) {}

protected:
  bool fails(an_operation now) {
    if (now != which) return false;
    if (throws) throw buffer_error();
    return true;
  }
  virtual int overflow(int c) { return fails(overflow_operation) ? -1 : c & 0xFF; }
  virtual std::streamsize xsputn(const char *, std::streamsize n) { return fails(xsputn_operation) ? n - 1 : n; }
  virtual int sync() {
    ++syncs;
    return fails(sync_operation) ? -1 : 0;
  }
  virtual pos_type seekoff(off_type, std::ios_base::seekdir, std::ios_base::openmode) {
    return fails(seek_operation) ? -1 : 7;
  }
  virtual pos_type seekpos(pos_type, std::ios_base::openmode) { return fails(seek_operation) ? -1 : 7; }
};

#endif
