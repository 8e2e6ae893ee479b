// Random operations, of those on which plx and the standard of 1998 agree, on strings, files and single characters:
// what they give, the state and what is left, printed so that two libraries can be compared. Not shown are values of
// numbers that failed and the eofbit of a character that is not there; not done are moves in an empty buffer,
// operations on streams that have failed, and groups in texts without a point.
//
// prints: 159000 lines
#include <fstream>

#include "../../buffers.h"
#include "../operations.h"

using namespace operations;

static unsigned sum_of(const std::string &text) {
  unsigned sum = 0;
  for (std::string::size_type i = 0; i < text.size(); ++i) sum = sum * 31 + static_cast<unsigned char>(text[i]);
  return sum;
}

static void print(const std::string &text) {
  printf(" %u %u:", unsigned(text.size()), sum_of(text));
  for (unsigned i = 0; i < text.size() && i < 60; ++i) printf(text[i] < ' ' ? "\\%02x" : "%c", (unsigned char)text[i]);
}

static void show(std::iostream &s, const an_operation &o, const std::string &got) {
  const bool counts = o.what >= get_one && o.what <= get_part, ends = o.what != in_char || !s.fail();
  printf("%u", o.what);
  print(got);
  printf(" %d%d%d", s.bad(), ends && s.eof(), s.fail());
  if (counts) printf(" count %d", int(s.gcount()));
  if (o.what >= reads && o.what < writes) printf(" width %d", int(s.width()));
  s.width(0);
  s.clear();
}

static void reading(int round, const own_file &path) {
  const std::string text = random_text(true);
  path.hold(text);
  std::stringbuf strings(text);
  std::filebuf files;
  files.open(path.name(), std::ios_base::in);
  scripted singles(text, round / 3 % 4);
  std::iostream s(round % 3 == 0 ? &strings : round % 3 == 1 ? static_cast<std::streambuf *>(&files) : &singles);
  for (int i = 0; i < 30; ++i) {
    an_operation o = random_operation(0, comparable_reads, true);
    if (o.what == skip_space) o.what = in_string;  // at the end it is failbit there
    if (o.what == peek_one && s.peek() == -1) s.clear();
    show(s, o, perform(s, o, true));
    printf("\n");
  }
}

struct grouping : std::numpunct<char> {
  int which;
  explicit grouping(int by) : which(by) {}
  virtual char do_thousands_sep() const { return '\''; }
  virtual char do_decimal_point() const { return which % 2 ? ',' : '.'; }
  virtual std::string do_grouping() const { return which % 3 == 0 ? "\3" : which % 3 == 1 ? "\2\3" : "\1"; }
  virtual std::string do_truename() const { return "yes"; }
};

static void writing(int round, const own_file &path) {
  std::stringstream strings;
  std::fstream files(path.name(), std::ios_base::out | std::ios_base::in | std::ios_base::trunc);
  std::iostream &s = round % 10 ? static_cast<std::iostream &>(strings) : files;
  const bool groups = round % 5 == 1;
  if (groups) s.imbue(std::locale(std::locale::classic(), new grouping(round / 5)));
  for (int i = 0; i < 30; ++i) {
    an_operation o = random_operation(reads, groups ? unsigned(out_pointer) : unsigned(comparable_writes), true);
    if (groups && o.what >= out_float && o.what <= out_long_double) {
      o.flags = (o.flags & ~(base::floatfield | base::uppercase)) | base::fixed | base::showpoint;
      if (o.real * 0 != 0) o.real = 1e9 / 7;
      if (o.precision < 0) o.precision = 0;
    }
    s << i;
    perform(s, o, true);
    const int width = int(s.width());
    show(s, o, "");
    std::string line;
    if (round % 10) {
      line = strings.str();
      strings.str("");
    } else {
      files.flush();
      line = path.content();
      files.close();
      files.open(path.name(), std::ios_base::out | std::ios_base::in | std::ios_base::trunc);
    }
    printf(" %d", width);
    print(line);
    printf("\n");
  }
}

static std::string without_signs(std::string text) {
  for (std::string::size_type i = 0; i < text.size(); ++i)
    if (strchr("+-eE", text[i])) text[i] = '.';
  return text;
}

// String streams of every mode, written and read and moved in any order. Whole numbers without signs are read: what a
// lone sign or an exponent without digits means is not agreed on.
static void in_any_order(int round) {
  const int in = std::ios_base::in, out = std::ios_base::out;
  const int modes[] = {in | out, in | out, in | out | std::ios_base::app, in, out}, mode = modes[round % 5];
  std::stringstream s(without_signs(random_text(true)).substr(0, random_below(200)), std::ios_base::openmode(mode));
  for (int i = 0; i < 50; ++i) {
    const unsigned kind = mode == in ? 5 + random_below(7) : random_below(12);
    an_operation o = random_operation(kind < 5 ? unsigned(reads) : 0,
                                      kind < 5   ? unsigned(comparable_writes)
                                      : kind < 9 ? unsigned(comparable_reads)
                                                 : 1,
                                      true);
    if (kind >= 9) o.what = move_get + kind - 9;
    if (o.what == skip_space || o.what == in_double) o.what = in_string;
    if (o.what >= out_float && o.what <= out_long_double) o.what = out_string;
    o.text = without_signs(o.text);
    o.flags &= ~base::showpos;
    o.fill = '*';
    if (o.integer < 0) o.integer = -(o.integer + 1);
    if (o.what >= reads) o.integer %= 30000;
    if (o.what == out_line) o.what = out_string;
    const bool empty = s.str().empty(), writes_only = mode == out;
    std::string got;
    if (kind < 9 ? true : !empty && !(writes_only && o.what == move_get)) got = perform(s, o, true);
    show(s, o, got);
    const std::string all = s.str();
    printf(" %u %u\n", unsigned(all.size()), sum_of(all));
    if (random_below(40) == 0) s.str(without_signs(random_text(true)));
  }
}

int main() {
  const own_file path("streams");
  for (int round = 0; round < 1500; ++round) reading(round, path);
  for (int round = 0; round < 1000; ++round) writing(round, path);
  for (int round = 0; round < 1680; ++round) in_any_order(round);
}
