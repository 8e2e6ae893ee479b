// num_get: what it makes of texts by plx's own rules, row by row; digits and groups without an end. fuzz/num_get has
// random texts, num_put the values, iostream/faults what throws.
// test-variants: -O1 | -O2 -std=gnu++17
#include "locale_check.h"
#include "read_number.h"

static long double number(void *value) { return reinterpret_cast<size_t>(value); }
template <class T> static long double number(T value) { return value; }

// The value, 77 if it was left alone, "!" failbit, "." eofbit, and how far it was read.
template <class T> static std::string read(base::fmtflags flags, const std::string &text, const std::locale &loc) {
  std::ios s(0);
  s.imbue(loc);
  s.flags(flags);
  T value = (T)77;
  int err;
  const unsigned stop = unsigned(text.size() - read_number(s, text, 3, value, err).size());
  char made[100];
  sprintf(made, "%.20Lg%s%s%u", number(value), err & base::failbit ? "!" : "", err & base::eofbit ? "." : "", stop);
  return made;
}

static void table() {
  typedef std::string reading(base::fmtflags, const std::string &, const std::locale &);
  static reading *const readings[] = {read<long>,   read<double>,         read<bool>,
                                      read<void *>, read<unsigned short>, read<unsigned long>};
  static const char *const types[] = {"long", "double", "bool", "pointer", "unsigned_short", "unsigned_long"};
  for (rows row(__FILE__, "data/num_get"); row.next();) {
    const char *const marks = row[5].empty() ? ",." : row[5].c_str();
    const std::locale loc = row[4].empty() ? std::locale::classic() : locale_of(row[4], marks[1], marks[0]);
    for (unsigned i = 0; i < 6; ++i)
      if (row[0] == types[i]) CHECK_TEXT(readings[i](flags_of(row[1]), row[2], loc).c_str(), row[3].c_str());
  }
}

// As many digits and groups as there may be, and a grouping as long as it likes to be.
template <class T> static std::string grouped(const std::string &grouping, const std::string &text) {
  std::ios stream(0);
  const chosen_punctuation *const how = new chosen_punctuation(grouping);
  stream.imbue(std::locale(std::locale::classic(), how));
  return check_number<T>(stream, *how, text, 3);
}
static void without_end() {
  const std::string odd = std::string(100, '\1') + std::string(100, '\2');
  std::string ones = "1", threes = "1";
  for (int i = 0; i < 100; ++i) ones = "00," + ones + (i ? ",0" : "");
  for (int i = 0; i < 3000; ++i) threes += ",000";
  CHECK(grouped<long>("", std::string(5000, '0') + "12") == "" && grouped<long>("", std::string(5000, '9')) == "!");
  CHECK(grouped<double>(odd, "1," + ones + "e-99") == "" && grouped<double>(odd, "1," + ones + ",0") == "!");
  CHECK(grouped<double>("\3", threes + "e-9000") == "");
  for (int at = 1; at < 11000; at += 1999) {
    std::string wrong = threes;
    wrong.erase(wrong.find(',', at) + 1, 1);
    CHECK(grouped<double>("\3", wrong) == "!");
  }
}

int main() {
  if (!named_locales_setup()) return TEST_SKIP;
  table();
  without_end();
  return TEST_RESULT();
}
