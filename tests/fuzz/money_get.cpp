// money_get: the first three bytes of an input choose the layout and the manner of reading, the rest is the text. What
// is read must be an amount, must be the same over pointers and over a stream buffer, and must survive being written
// and read again.
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <streambuf>

#include "../locale/money_texts.h"
#include "fuzz_check.h"

namespace {

// A block of its own, so that a step too far is seen.
std::string read_block(std::ios &stream, bool intl, const std::string &text, std::string &digits, int &err) {
  char *const begin = new char[text.size()];
  memcpy(begin, text.data(), text.size());
  std::ios_base::iostate state = std::ios_base::goodbit;
  const char *const stop = money_reader().get(begin, begin + text.size(), intl, stream, state, digits);
  must(stop >= begin && stop <= begin + text.size(), "beyond the end", text);
  const std::string left(stop, static_cast<const char *>(begin) + text.size());
  delete[] begin;
  err = state;
  return left;
}

}  // namespace

const char *const fuzz_words[] = {"$",  "USD", "-",      "+",   "(", "cr",  ")", "1",     "0",
                                  "00", "123", ",234",   ",56", ".", ".50", " ", "7,000", "12345678901234567890",
                                  ".5", "US",  "000.05", ",",   "v", 0};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  static const char *const patterns[] = {"$-0v", "-$0v", "$ -v", "-v $", "v -$", "v0$-", "$-v0", "vvvv"};
  static const char *const signs[][2] = {{"", "-"}, {"+", "-"}, {"", "()"}, {"+", "(cr"}};
  static const char *const groupings[] = {"", "\3", "\3\2", "\1\177", "\2\1\3", "\x7e", "\177", "\1"};
  static const int decimals[] = {0, 2, 1, 126, 127, -1, 3, 2000000000};
  const money_rules rules = {patterns[data[0] & 7],      data[0] & 8 ? "USD" : "$", signs[data[0] >> 4 & 3][0],
                             signs[data[0] >> 4 & 3][1], groupings[data[1] & 7],    decimals[data[1] >> 3 & 7]};
  const bool intl = (data[0] & 64) != 0;
  const std::string text(reinterpret_cast<const char *>(data) + 3, size - 3);
  std::locale loc = std::locale::classic();
  if (intl)
    loc = std::locale(loc, new chosen_money<true>(rules));
  else
    loc = std::locale(loc, new chosen_money<false>(rules));
  money_stream stream(loc, data[0] & 128 ? int(std::ios_base::showbase) : 0);

  std::string digits = "kept", others = "kept";
  int err;
  const std::string left = read_block(stream, intl, text, digits, err);
  typedef std::istreambuf_iterator<char> iterator;
  pieces buffer(text, 1 + (data[2] & 15));
  std::ios_base::iostate other_err = std::ios_base::goodbit;
  iterator at =
      std::use_facet<std::money_get<char> >(loc).get(iterator(&buffer), iterator(), intl, stream, other_err, others);
  std::string other_left;
  for (; at != iterator(); ++at) other_left += *at;
  must(digits == others && err == other_err && left == other_left, "the iterators differ", text);
  must(((err & std::ios_base::eofbit) != 0) == left.empty(), "eofbit", text);
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
  const std::string written = money_text(stream, intl, digits);
  std::string again;
  const std::string rest = read_block(stream, intl, written, again, err);
  must(again == digits && rest.empty() && err == std::ios_base::eofbit, "no round trip", written);
  return 0;
}
