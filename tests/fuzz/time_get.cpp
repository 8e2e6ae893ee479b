// time_get: the first of three bytes of an input chooses what is read and in which pieces, the rest is the text. What
// is read must be in range, must be the same over pointers and over a stream buffer, and must survive being written and
// read again.
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <locale>
#include <ostream>

#include "fuzz_check.h"

namespace {

struct pointer_reader : std::time_get<char, const char *> {
  pointer_reader() : std::time_get<char, const char *>(1) {}
  ~pointer_reader() {}
};

typedef std::ios_base::iostate iostate;

template <class Facet, class Iterator>
Iterator read(const Facet &facet, int what, Iterator in, Iterator end, std::ios &stream, iostate &err, tm &t) {
  switch (what) {
    case 0: return facet.get_time(in, end, stream, err, &t);
    case 1: return facet.get_date(in, end, stream, err, &t);
    case 2: return facet.get_weekday(in, end, stream, err, &t);
    case 3: return facet.get_monthname(in, end, stream, err, &t);
    default: return facet.get_year(in, end, stream, err, &t);
  }
}

bool in_range(const tm &t) {
  return t.tm_hour >= 0 && t.tm_hour < 24 && t.tm_min >= 0 && t.tm_min < 60 && t.tm_sec >= 0 && t.tm_sec < 62 &&
         t.tm_mday >= 1 && t.tm_mday <= 31 && t.tm_mon >= 0 && t.tm_mon < 12 && t.tm_wday >= 0 && t.tm_wday < 7 &&
         t.tm_year >= -1900 && t.tm_year < 8100;
}

bool same(const tm &a, const tm &b) {
  return a.tm_hour == b.tm_hour && a.tm_min == b.tm_min && a.tm_sec == b.tm_sec && a.tm_mday == b.tm_mday &&
         a.tm_mon == b.tm_mon && a.tm_wday == b.tm_wday && a.tm_year == b.tm_year;
}

}  // namespace

const char *const fuzz_words[] = {
    "Sun", "Monday", "tue",   "WEDNESDAY", "Thurs", "day", "Jan", "February", "mar",      "May",       "June",    "jul",
    "y",   "Sept",   "ember", "12",        ":",     "3",   "/",   "31",       "59",       "60",        "61",      "00",
    "69",  "68",     "1996",  "2026",      "099",   " ",   ",",   "24:00:00", "23:59:60", "2/29/2000", "13/1/70", 0};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  const int what = (data[0] & 7) % 5;
  const std::string text(reinterpret_cast<const char *>(data) + 3, size - 3);
  std::ios stream(0);
  tm first = tm();
  first.tm_mday = 1;
  const tm none = first;
  tm other = first;
  iostate err = std::ios_base::goodbit, other_err = err;
  // A block of its own, so that a step too far is seen.
  char *const begin = new char[text.size()];
  const char *const end = begin + text.size();
  memcpy(begin, text.data(), text.size());
  const char *const stop = read(pointer_reader(), what, static_cast<const char *>(begin), end, stream, err, first);
  must(stop >= begin && stop <= end, "beyond the end", text);
  must(((err & std::ios_base::eofbit) != 0) == (stop == end), "eofbit", text);
  const std::string left(stop, end);
  delete[] begin;

  typedef std::istreambuf_iterator<char> iterator;
  pieces buffer(text, 1 + (data[0] >> 4));
  iterator at = read(std::use_facet<std::time_get<char> >(std::locale::classic()), what, iterator(&buffer), iterator(),
                     stream, other_err, other);
  std::string other_left;
  for (; at != iterator(); ++at) other_left += *at;
  must(same(first, other) && err == other_err && left == other_left, "the iterators differ", text);

  if (err & std::ios_base::failbit) {
    must(same(first, none), "stored", text);
    return 0;
  }
  must(in_range(first), "out of range", text);
  static const char *const patterns[] = {"%X", "%m/%d/%Y", "%A", "%b", "%Y"};
  struct sink : std::streambuf {
    char room[64];
    sink() { setp(room, room + sizeof room); }
    std::string written() const { return std::string(pbase(), pptr()); }
  } out;
  // strftime writes years below 1000 without leading zeros: those would be read as two digits.
  if (first.tm_year < -900) return 0;
  std::use_facet<std::time_put<char> >(std::locale::classic())
      .put(&out, stream, ' ', &first, patterns[what], patterns[what] + strlen(patterns[what]));
  const std::string written = out.written();
  other = none;
  other_err = std::ios_base::goodbit;
  read(pointer_reader(), what, written.data(), written.data() + written.size(), stream, other_err, other);
  must(same(first, other) && other_err == std::ios_base::eofbit, "no round trip", written);
  return 0;
}
