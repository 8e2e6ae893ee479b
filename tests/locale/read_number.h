// For tests of num_get and its fuzzer: a number is read in all ways, and by the extractor, with the same outcome. What
// is stored without failbit is what the C library makes of the text.
#ifndef TESTS_READ_NUMBER_H
#define TESTS_READ_NUMBER_H

#include <ctype.h>
#include <locale.h>

#include <sstream>

#include "reading.h"

typedef std::ios_base base;

static const char *during = "C";  // the C library's locale while plx reads or writes

// Returns what is left.
template <class T> std::string read_number(std::ios &stream, const std::string &text, size_t step, T &value, int &err) {
  number_reading<T> got = {&stream, value}, extracted = got;
  // With more behind, which is next to digits, so that the extractors see the end in their window.
  const std::string behind(8, ":/@G`g"[text.size() % 6]);
  std::istringstream in(text + behind);
  in.copyfmt(stream);
  setlocale(LC_ALL, during);
  const std::string left = read_all_ways(text, step, got, err);
  in >> extracted.value;
  setlocale(LC_ALL, "C");
  value = got.value;
  if (isspace(*text.c_str())) return left;  // which extractors skip
  must(extracted.same(got) && in.rdstate() == (err & base::failbit), "not the same extracted", text);
  in.clear();
  must(std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()) == left + behind, "not so far",
       text);
  return left;
}

inline void parse(const std::string &text, int, float &value) { value = strtof(text.c_str(), 0); }
inline void parse(const std::string &text, int, double &value) { value = strtod(text.c_str(), 0); }
inline void parse(const std::string &text, int, long double &value) { value = strtold(text.c_str(), 0); }
template <class T> void parse(const std::string &text, int radix, T &value) {
  value = static_cast<T>(strtoll(text.c_str(), 0, radix));
}

// Returns "!" for failure, and what is left.
template <class T>
std::string check_number(std::ios &stream, const chosen_punctuation &how, const std::string &text, size_t step) {
  const int field = stream.flags() & base::basefield;
  number_reading<T> got = {&stream, 77}, want = got;
  int err;
  const std::string left = read_number(stream, text, step, got.value, err);
  must(left.empty() == ((err & base::eofbit) != 0), "eofbit", text);
  std::string plain;
  for (size_t i = 0; i < text.size() - left.size(); ++i)
    if (!isspace(text[i]) && (how.sizes.empty() || text[i] != how.separator))
      plain += text[i] == how.point ? '.' : text[i];
  parse(plain, field == base::dec ? 10 : field == base::hex ? 16 : field == base::oct ? 8 : 0, want.value);
  must((err & base::failbit) || got.same(want), "not the value", text);
  return (err & base::failbit ? "!" : "") + left;
}

#endif
