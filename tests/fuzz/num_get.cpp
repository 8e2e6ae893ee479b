// num_get, and the extractors of streams: the first three bytes of an input choose flags, punctuation,
// type and manner of reading, the rest is the text.
#include <stdint.h>

#include "../locale/read_number.h"

extern const char *const fuzz_words[];

const char *const fuzz_words[] = {
    "0",   "1",  "12", "999",  "4294967295", "2147483648", "0x", "-", "+",    " ",     ",", ".",  "e",  "E-",
    "000", "fF", "7",  ",234", "123456789",  "(nil)",      "x",  "8", "true", "false", "t", ",,", "99", 0};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  static const int bases[] = {base::dec, 0, base::oct, base::hex, base::basefield, base::hex | base::oct};
  const int kind = data[2] & 64 ? 0 : data[0] >> 3;
  std::ios stream(0);
  stream.flags(base::fmtflags(bases[data[2] & 128 ? 4 + (data[2] & 1) : data[0] & 3]));
  std::string text(reinterpret_cast<const char *>(data) + 3, size - 3);
  if (data[0] & 4) {
    stream.setf(base::skipws);
    text.erase(0, text.find_first_not_of(" \t\n\v\f\r"));  // which is for the extractors only
  }
  static const char *const groupings[] = {"", "\3", "\3\2", "\1\177", "\2\1\3", "\21", "\177", "\1\1\1\1\1\2"};
  const chosen_punctuation *const how =
      new chosen_punctuation(groupings[kind & 7], kind & 16 ? ',' : '.', kind & 8 ? '.' : ',');
  const std::locale loc(std::locale::classic(), how);
  if (kind & 23) stream.imbue(loc);  // otherwise as the classic locale has it
  typedef std::string a_check(std::ios &, const chosen_punctuation &, const std::string &, size_t);
  static a_check *const checks[] = {check_number<unsigned short>, check_number<long>,       check_number<unsigned int>,
                                    check_number<unsigned long>,  check_number<float>,      check_number<float>,
                                    check_number<double>,         check_number<long double>};
  checks[data[1] & 7](stream, *how, text, 1 + (data[1] >> 4));
  return 0;
}
