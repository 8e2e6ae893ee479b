// What the fuzzers share: a stream buffer that shows its text piece by piece, the check that ends a bad input, and the
// words of which good ones are made.
#ifndef TESTS_FUZZ_CHECK_H
#define TESTS_FUZZ_CHECK_H

#include <stdio.h>
#include <stdlib.h>

#include <streambuf>
#include <string>

// Shows its text in get areas of `step` characters.
struct pieces : std::streambuf {
  std::string text;
  size_t at, step;
  pieces(const std::string &of, size_t by) : text(of), at(0), step(by) {}
  size_t position() const { return at - (egptr() - gptr()); }

protected:
  virtual int_type underflow() {
    if (at >= text.size()) return -1;
    const size_t n = step < text.size() - at ? step : text.size() - at;
    setg(&text[at], &text[at], &text[at] + n);
    at += n;
    return (unsigned char)*gptr();
  }
};

extern const char *const fuzz_words[];  // null at the end

inline void must(bool holds, const char *what, const std::string &text) {
  if (holds) return;
  fprintf(stderr, "%s: \"%s\"\n", what, text.c_str());
  abort();
}

#endif
