// time_get: the first of three bytes of an input chooses what is read and in which pieces, the rest is the text. What
// is read must be the same over pointers and over a stream buffer, and must survive being written, where it is in
// range, and read again.
#include "fuzz_check.h"

struct reading {
  int what;
  tm t;
  template <class Iterator> Iterator read(Iterator in, Iterator end, std::ios_base::iostate &err) {
    const own_facet<std::time_get<char, Iterator> > facet;
    std::ios stream(0);
    switch (what) {
      case 0: return facet.get_time(in, end, stream, err, &t);
      case 1: return facet.get_date(in, end, stream, err, &t);
      case 2: return facet.get_weekday(in, end, stream, err, &t);
      case 3: return facet.get_monthname(in, end, stream, err, &t);
      default: return facet.get_year(in, end, stream, err, &t);
    }
  }
  bool same(const reading &other) const { return memcmp(&t, &other.t, sizeof t) == 0; }
};

const char *const fuzz_words[] = {
    "Sun", "Monday", "tue",   "WEDNESDAY", "Thurs", "day", "Jan", "February", "mar",      "May",       "June",    "jul",
    "y",   "Sept",   "ember", "12",        ":",     "3",   "/",   "31",       "59",       "60",        "61",      "00",
    "69",  "68",     "1996",  "2026",      "099",   " ",   ",",   "24:00:00", "23:59:60", "2/29/2000", "13/1/70", 0};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  const std::string text(reinterpret_cast<const char *>(data) + 3, size - 3);
  reading first = {(data[0] & 7) % 5, tm()};
  first.t.tm_mday = 1;
  reading again(first);
  int err;
  const std::string left = read_all_ways(text, 1 + (data[0] >> 4), first, err);
  must(((err & std::ios_base::eofbit) != 0) == left.empty(), "eofbit", text);
  if (err & std::ios_base::failbit) {
    must(first.same(again), "stored", text);
    return 0;
  }
  // strftime writes years below 1000 without leading zeros: those would be read as two digits.
  if (first.t.tm_year < -900) return 0;
  static const char *const patterns[] = {"%X", "%m/%d/%Y", "%A", "%b", "%Y"};
  const char *const pattern = patterns[first.what];
  char written[64];
  std::ios stream(0);
  *own_facet<std::time_put<char, char *> >().put(written, stream, ' ', &first.t, pattern, pattern + strlen(pattern)) =
      0;
  read_all_ways(written, 3, again, err);
  must(first.same(again) && err == std::ios_base::eofbit, "no round trip", written);
  return 0;
}
