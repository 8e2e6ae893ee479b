// Short-lived string streams and locales: what a program pays to make a message, to take it apart, and to look at a
// locale.
#include <locale>

#include "streams.h"

namespace {

unsigned long construct(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::ostringstream out;
    BENCH_TOUCH(&out);
    sum += out.good();
  }
  return sum;
}

unsigned long message(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::ostringstream out;
    out << "item " << static_cast<int>(i & 1023) << ": " << 'x';
    sum += out.str().size();
  }
  return sum;
}

unsigned long take_apart(unsigned long iterations) {
  static const std::string text("width 640 height 480");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::istringstream in(text);
    std::string word;
    int n;
    while (in >> word >> n) sum += n + word.size();
  }
  return sum;
}

unsigned long both_ways(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::stringstream both;
    both << static_cast<int>(i & 4095) << ' ' << 7;
    int a = 0, b = 0;
    both >> a >> b;
    sum += a + b;
  }
  return sum;
}

unsigned long facets(unsigned long iterations) {
  const std::locale loc;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&loc);
    sum += std::use_facet<std::ctype<char> >(loc).is(std::ctype_base::space, static_cast<char>(i & 127));
  }
  return sum;
}

unsigned long copies(unsigned long iterations) {
  const std::locale loc;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::locale copy(loc);
    BENCH_TOUCH(&copy);
    sum += copy == loc;
  }
  return sum;
}

const bench_case cases[] = {
    {"construct an ostringstream", 3, 1, construct},
    {"make a message and take str()", 3, 1, message},
    {"take two words and two numbers apart", 3, 1, take_apart},
    {"two numbers through a stringstream", 3, 1, both_ways},
    {"use_facet", 1, 1, facets},
    {"copy a locale", 1, 1, copies},
};

}  // namespace

BENCH_MAIN(cases)
