// For tests of facets that read, and for their fuzzers: a text is read over pointers, over an iterator of another kind
// and over a buffer that shows it piece by piece, and all must be the same. It runs with every C++ library.
#ifndef TESTS_READING_H
#define TESTS_READING_H

#include <deque>
#include <iterator>
#include <ostream>
#include <vector>

#include "../buffers.h"

// A facet for a while, over any iterator.
template <class Base> struct own_facet : Base {
  own_facet() : Base(1) {}
  explicit own_facet(const char *name) : Base(name, 1) {}
  ~own_facet() {}
};

struct chosen_punctuation : std::numpunct<char> {
  const std::string sizes;
  const char point, separator;
  explicit chosen_punctuation(const std::string &grouping, char p = '.', char s = ',')
      : sizes(grouping), point(p), separator(s) {}
  virtual char do_decimal_point() const { return point; }
  virtual char do_thousands_sep() const { return separator; }
  virtual std::string do_grouping() const { return sizes; }
  virtual std::string do_truename() const { return "oui"; }
  virtual std::string do_falsename() const { return sizes == "=" ? "oui" : "on ne sait pas"; }
};

inline void must(bool holds, const char *what, const std::string &text) {
  if (holds) return;
  fprintf(stderr, "%s: \"%s\"\n", what, text.c_str());
  abort();
}

// Returns what is left.
template <class Reading> std::string read_all_ways(const std::string &text, size_t step, Reading &value, int &err) {
  Reading others[] = {value, value};
  std::ios_base::iostate states[3] = {std::ios_base::goodbit, std::ios_base::goodbit, std::ios_base::goodbit};
  // A block of its own, so that a step too far is seen.
  const std::vector<char> block(text.begin(), text.end());
  const char *const begin = block.empty() ? 0 : &block[0], *const end = begin + text.size(),
                    *const stop = value.read(begin, end, states[0]);
  must(stop >= begin && stop <= end, "beyond the end", text);
  const std::string left(stop, end);
  const std::deque<char> copy(text.begin(), text.end());
  const std::deque<char>::const_iterator at = others[0].read(copy.begin(), copy.end(), states[1]);
  must(size_t(copy.end() - at) == left.size(), "another iterator", text);
  typedef std::istreambuf_iterator<char> iterator;
  scripted buffer(text, step);
  others[1].read(iterator(&buffer), iterator(), states[2]);
  must(text.size() - buffer.position() == left.size(), "a buffer", text);
  for (int i = 0; i < 2; ++i) must(value.same(others[i]) && states[0] == states[i + 1], "not the same", text);
  err = states[0];
  must(left.empty() || !(err & std::ios_base::eofbit), "eofbit", text);
  return left;
}

template <class T> struct number_reading {
  std::ios *stream;
  T value;
  template <class Iterator> Iterator read(Iterator in, Iterator end, std::ios_base::iostate &err) {
    return own_facet<std::num_get<char, Iterator> >().get(in, end, *stream, err, value);
  }
  bool same(const number_reading &other) const {
    return memcmp(&value, &other.value, sizeof(T) == 12 ? 10 : sizeof(T)) == 0;
  }
};

#endif
