// num_get against the model: the first three bytes of an input choose flags, punctuation, type and manner of reading,
// the rest is the text.
#include <locale>
#include <ostream>

#include <stdint.h>
#include <stdio.h>

#include "number_model.h"
#include "fuzz_check.h"

namespace {

struct punctuation : std::numpunct<char> {
  const model::rules rules;
  explicit punctuation(const model::rules &by) : rules(by) {}

protected:
  virtual char do_thousands_sep() const { return rules.separator; }
  virtual char do_decimal_point() const { return rules.point; }
  virtual std::string do_grouping() const { return rules.grouping; }
};

struct pointer_getter : std::num_get<char, const char *> {
  pointer_getter() : std::num_get<char, const char *>(1) {}
  ~pointer_getter() {}
};

template <class T>
void compare(const std::string &text, const model::rules &rules, size_t step, const model::reading &want, T value) {
  const T before = T(77);
  T got = before;
  size_t stop;
  std::ios stream(0);
  stream.flags(rules.flags);
  stream.imbue(std::locale(std::locale::classic(), new punctuation(rules)));
  std::ios_base::iostate err = std::ios_base::goodbit;
  if (step == 0) {
    // A block of its own, so that a step too far is seen.
    char *const begin = new char[text.size()];
    memcpy(begin, text.data(), text.size());
    stop = pointer_getter().get(begin, begin + text.size(), stream, err, got) - begin;
    delete[] begin;
  } else {
    typedef std::istreambuf_iterator<char> iterator;
    pieces buffer(text, step);
    std::use_facet<std::num_get<char> >(stream.getloc()).get(iterator(&buffer), iterator(), stream, err, got);
    stop = buffer.position();
  }
  const T wanted = want.stored ? value : before;
  if (memcmp(&got, &wanted, sizeof(T) == 12 ? 10 : sizeof(T)) == 0 && int(err) == want.err && stop == want.stop) return;
  fprintf(stderr, "text \"%s\" flags %x grouping of %d, step %d: err %d want %d, stop %d want %d, or the value\n",
          text.c_str(), unsigned(rules.flags), int(rules.grouping.size()), int(step), int(err), want.err, int(stop),
          int(want.stop));
  abort();
}

}  // namespace

const char *const fuzz_words[] = {
    "0",   "1",  "12", "999",  "4294967295", "2147483648", "0x", "-", "+",    " ",     ",", ".",  "e",  "E-",
    "000", "fF", "7",  ",234", "123456789",  "(nil)",      "x",  "8", "true", "false", "t", ",,", "99", 0};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  static const char *const groupings[] = {"", "\3", "\3\2", "\1\177", "\2\1\3", "\21", "\177", "\1\1\1\1\1\2"};
  static const int bases[] = {std::ios_base::dec,       0,
                              std::ios_base::oct,       std::ios_base::hex,
                              std::ios_base::basefield, std::ios_base::hex | std::ios_base::oct};
  const model::rules rules = {
      bases[data[2] & 128 ? 4 + (data[2] & 1) : data[0] & 3] | (data[0] & 4 ? int(std::ios_base::skipws) : 0),
      groupings[data[0] >> 3 & 7], data[0] & 64 ? '.' : ',', data[0] & 128 ? ',' : '.'};
  const size_t step = data[1] >> 4;
  const std::string text(reinterpret_cast<const char *>(data) + 3, size - 3);
  model::reading want;
  switch (data[1] & 7) {
    case 0:
      want = model::read_integer(text, rules, false, 0xFFFFull);
      compare(text, rules, step, want, (unsigned short)want.integer);
      break;
    case 1:
    case 2:
      want = model::read_integer(text, rules, true, 0xFFFFFFFFull);
      compare(text, rules, step, want, long(want.integer));
      break;
    case 3:
      want = model::read_integer(text, rules, false, 0xFFFFFFFFull);
      compare(text, rules, step, want, want.integer);
      break;
    case 4:
      want = model::read_pointer(text, rules);
      compare(text, rules, step, want, (void *)want.integer);
      break;
    case 5:
      want = model::read_real(text, rules);
      compare(text, rules, step, want, strtof(want.real.c_str(), 0));
      break;
    case 6:
      want = model::read_real(text, rules);
      compare(text, rules, step, want, strtod(want.real.c_str(), 0));
      break;
    case 7:
      want = model::read_real(text, rules);
      compare(text, rules, step, want, strtold(want.real.c_str(), 0));
      break;
  }
  return 0;
}
