// money_get: the first three bytes of an input choose the layout and the manner of reading, the rest is the text. What
// is read must be an amount, must be the same over pointers and over a stream buffer, and must survive being written
// and read again.
#include "../locale/money_texts.h"
#include "fuzz_check.h"

struct amount {
  std::ios *stream;
  bool intl;
  std::string digits;
  template <class Iterator> Iterator read(Iterator in, Iterator end, std::ios_base::iostate &err) {
    return own_facet<std::money_get<char, Iterator> >().get(in, end, intl, *stream, err, digits);
  }
  bool same(const amount &other) const { return digits == other.digits; }
};

const char *const fuzz_words[] = {"$",  "USD", "-",      "+",   "(", "cr",  ")", "1",     "0",
                                  "00", "123", ",234",   ",56", ".", ".50", " ", "7,000", "12345678901234567890",
                                  ".5", "US",  "000.05", ",",   "v", 0};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  static const char *const patterns[] = {"$-0v", "-$0v", "$ -v", "-v $", "v -$", "v0$-", "$-v0", "vvvv"};
  static const char *const signs[][2] = {{"", "-"}, {"+", "-"}, {"", "()"}, {"+", "(cr"}};
  static const char *const groupings[] = {"", "\3", "\3\2", "\1\177", "\2\1\3", "\x7e", "\177", "\1"};
  static const int decimals[] = {0, 2, 1, 126, 127, -1, 3, 2000000000};
  const money_rules rules = {patterns[data[0] & 7],
                             data[0] & 8 ? "USD" : "$",
                             signs[data[0] >> 4 & 3][0],
                             signs[data[0] >> 4 & 3][1],
                             groupings[data[1] & 7],
                             decimals[data[1] >> 3 & 7],
                             0};
  money_stream stream(with_money(rules), data[0] & 128 ? int(std::ios_base::showbase) : 0);
  amount first = {&stream, (data[0] & 64) != 0, "kept"};
  const std::string text(reinterpret_cast<const char *>(data) + 3, size - 3);
  int err;
  const std::string left = read_all_ways(text, 1 + (data[2] & 15), first, err);
  must(((err & std::ios_base::eofbit) != 0) == left.empty(), "eofbit", text);
  const std::string &digits = first.digits;
  if (err & std::ios_base::failbit) {
    must(digits == "kept", "stored", text);
    return 0;
  }
  const size_t sign = digits[0] == '-';
  must(digits.size() > sign && digits.find_first_not_of("0123456789", sign) == std::string::npos &&
           (digits[sign] != '0' || digits == "0"),
       "no amount", digits);
  if (rules.pattern[1] == 'v' && rules.pattern[0] == 'v') return 0;
  stream.flags(std::ios_base::showbase);
  const std::string written = money_text(stream, first.intl, digits);
  must(money_read(stream, first.intl, written) == digits + ".", "no round trip", written);
  return 0;
}
