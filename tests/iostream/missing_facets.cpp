// Streams whose locale lacks facets, as only generated code can make one: what needs a facet gives badbit, what does
// not works as ever, and where there is no frame bad_cast passes.
#include <complex>
#include <fstream>
#include <iostream>
#include <locale>
#include <sstream>
#include <typeinfo>

#include "../fail_allocation.h"

namespace {

// The facets of some categories of the classic locale.
struct bare_locale {
  std::locale::imp *imp;
  explicit bare_locale(int categories) : imp(new std::locale::imp("C", categories)) {}
  ~bare_locale() { locale()._release(); }
  std::locale &locale() { return *reinterpret_cast<std::locale *>(&imp); }
};

enum { good = 0, bad = std::ios::badbit, passes = -1 };
const int no_numbers = std::locale::all & ~std::locale::numeric, no_ctype = std::locale::all & ~std::locale::ctype;

template <class T> void insert(std::iostream &s) { s << T(); }
template <class T> void extract(std::iostream &s) {
  T value = T();
  s >> value;
}
void insert_text(std::iostream &s) { s << "text" << 'c' << std::string("string"); }
void end_line(std::iostream &s) { s << std::endl; }
void word(std::iostream &s) {
  char text[9];
  s.width(9);
  s >> text;
}
void line(std::iostream &s) {
  char text[9];
  s.getline(text, 9);
}
void string_line(std::iostream &s) {
  std::string text;
  std::getline(s, text);
}
void given_line(std::iostream &s) {
  std::string text;
  std::getline(s, text, '\n');
}
void white_space(std::iostream &s) { s >> std::ws; }
void block(std::iostream &s) {
  char text[3];
  s.read(text, 2);
  s.ignore().get();
}
void date(std::iostream &s) {
  const tm t = tm();
  std::use_facet<std::time_put<char> >(s.getloc()).put(s, s, ' ', &t, 'd');
  const char format[] = "%d";
  std::use_facet<std::time_put<char> >(s.getloc()).put(s, s, ' ', &t, format, format + 2);
}
void file(std::iostream &s) {
  std::ofstream out("/dev/null");
  out.imbue(s.getloc());
  out << "text";
  s.setstate(out.rdstate());
}
void new_stream(std::iostream &s) {
  const std::locale before = std::locale::global(s.getloc());
  try {
    std::stringstream made("text");
  } catch (...) {
    std::locale::global(before);
    throw;
  }
  std::locale::global(before);
}

// With skipws the sentry needs ctype, and is in a frame.
const struct {
  int categories;
  void (*run)(std::iostream &);
  int skipping, plain;
} cases[] = {{no_numbers, insert<int>, bad, bad},
             {no_numbers, insert<long long>, bad, bad},
             {no_numbers, insert<double>, bad, bad},
             {no_numbers, insert<bool>, bad, bad},
             {no_numbers, insert<void *>, bad, bad},
             {no_numbers, insert<std::complex<double> >, bad, bad},
             {no_numbers, extract<short>, bad, bad},
             {no_numbers, extract<float>, bad, bad},
             {no_numbers, extract<bool>, bad, bad},
             {no_numbers, extract<std::string>, good, good},
             {no_numbers, extract<char>, good, good},
             {no_numbers, insert_text, good, good},
             {no_numbers, string_line, good, good},
             {no_numbers, new_stream, good, good},
             {no_ctype, insert<int>, bad, bad},
             {no_ctype, insert<double>, bad, bad},
             {no_ctype, insert_text, good, good},
             {no_ctype, end_line, passes, passes},
             {no_ctype, extract<int>, bad, bad},
             {no_ctype, extract<double>, bad, bad},
             {no_ctype, extract<std::string>, bad, passes},
             {no_ctype, extract<char>, bad, good},
             {no_ctype, word, bad, bad},
             {no_ctype, white_space, bad, bad},
             {no_ctype, line, bad, bad},
             {no_ctype, string_line, bad, bad},
             {no_ctype, given_line, good, good},
             {no_ctype, block, good, good},
             {no_ctype, date, passes, passes},
             {no_ctype, file, bad, bad},
             {no_ctype, new_stream, passes, passes}};

}  // namespace

int main() {
  std::locale::classic();
  { std::ofstream once("/dev/null"); }
  for (unsigned i = 0; i < sizeof cases / sizeof *cases; ++i)
    for (int skips = 0; skips < 2; ++skips) {
      const long before = live_blocks;
      {
        bare_locale bare(cases[i].categories);
        std::stringstream s("12 text\n");
        s.imbue(bare.locale());
        if (!skips) s.unsetf(std::ios::skipws);
        int result = good;
        try {
          cases[i].run(s);
          result = s.rdstate() & bad;
        } catch (const std::bad_cast &e) {
          result = passes;
          CHECK_TEXT(e.what(), "Facet not present\n");
        }
        const int want = skips ? cases[i].skipping : cases[i].plain;
        if (result != want) fprintf(stderr, "case %u, skips %d\n", i, skips);
        CHECK_INT(result, want);
      }
      CHECK_INT(live_blocks, before);
    }
  return TEST_RESULT();
}
