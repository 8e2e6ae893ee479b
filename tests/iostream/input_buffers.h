// Buffers for tests of input: one that shows one character at a time, one with a get area of pieces, and one that
// throws from a chosen virtual operation.
#ifndef TESTS_INPUT_BUFFERS_H
#define TESTS_INPUT_BUFFERS_H

#include <istream>
#include <string>

#include "../harness.h"

// No get area at all: every character comes through uflow, and goes back through pbackfail.
class slow_buffer : public std::streambuf {
public:
  explicit slow_buffer(const std::string &text) : text_(text), at_(0) {}
  std::string rest() const { return text_.substr(at_); }

protected:
  virtual int underflow() { return at_ < text_.size() ? static_cast<unsigned char>(text_.data()[at_]) : EOF; }
  virtual int uflow() { return at_ < text_.size() ? static_cast<unsigned char>(text_.data()[at_++]) : EOF; }
  virtual int pbackfail(int c) {
    if (at_ == 0) return EOF;
    --at_;
    if (c != EOF) text_[at_] = static_cast<char>(c);
    return static_cast<unsigned char>(text_.data()[at_]);
  }

  std::string text_;
  std::string::size_type at_;
};

// A get area of at most `piece` characters, which cannot go back over its beginning.
class piece_buffer : public std::streambuf {
public:
  piece_buffer(const std::string &text, int piece) : text_(text), piece_(piece), next_(0) {}
  std::string rest() const { return std::string(gptr(), egptr() - gptr()) + text_.substr(next_); }

protected:
  virtual int underflow() {
    if (next_ == text_.size()) return EOF;
    std::string::size_type n = text_.size() - next_;
    if (n > sizeof area_) n = sizeof area_;
    if (n > static_cast<unsigned int>(piece_)) n = piece_;
    memcpy(area_, text_.data() + next_, n);
    next_ += n;
    setg(area_, area_, area_ + n);
    return static_cast<unsigned char>(area_[0]);
  }

private:
  std::string text_;
  int piece_;
  std::string::size_type next_;
  char area_[64];
};

// What throwing buffers throw; counted, so that lost ones are seen.
struct thrown {
  static int live;
  thrown() { ++live; }
  thrown(const thrown &) { ++live; }
  ~thrown() { --live; }
};
int thrown::live = 0;

enum operation {
  nothing,
  at_underflow,
  at_uflow,
  at_xsgetn,
  at_pbackfail,
  at_showmanyc,
  at_seekoff,
  at_seekpos,
  at_sync
};

// Throws once `calm` calls of the operation have gone well.
class throwing_buffer : public slow_buffer {
public:
  throwing_buffer(const std::string &text, operation what, int calm = 0)
      : slow_buffer(text), what_(what), calm_(calm) {}

protected:
  void reach(operation here) {
    if (here == what_ && calm_-- == 0) throw thrown();
  }
  virtual int underflow() {
    reach(at_underflow);
    return slow_buffer::underflow();
  }
  virtual int uflow() {
    reach(at_uflow);
    return slow_buffer::uflow();
  }
  virtual std::streamsize xsgetn(char *to, std::streamsize n) {
    reach(at_xsgetn);
    return slow_buffer::xsgetn(to, n);
  }
  virtual int pbackfail(int c) {
    reach(at_pbackfail);
    return slow_buffer::pbackfail(c);
  }
  virtual std::streamsize showmanyc() {
    reach(at_showmanyc);
    return 3;
  }
  virtual std::streampos seekoff(std::streamoff, std::ios_base::seekdir, std::ios_base::openmode) {
    reach(at_seekoff);
    return -1;
  }
  virtual std::streampos seekpos(std::streampos, std::ios_base::openmode) {
    reach(at_seekpos);
    return -1;
  }
  virtual int sync() {
    reach(at_sync);
    return 0;
  }

private:
  operation what_;
  int calm_;
};

static const std::ios_base::iostate good = std::ios_base::goodbit, bad = std::ios_base::badbit,
                                    eof = std::ios_base::eofbit, fail = std::ios_base::failbit;

// A stream over one of the buffers, with one text.
template <class Buffer> struct over_text {
  explicit over_text(const std::string &text) : buffer(text), in(&buffer) {}
  Buffer buffer;
  std::istream in;
};
typedef over_text<slow_buffer> slow;

#endif
