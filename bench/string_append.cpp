// Strings that grow: by single characters up to 64 KB and up to 1 MB, and by blocks up to 1 MB. Times are per character
// and per block; appending is linear when the first two agree.
#include <string>

#include "bench.h"

namespace {

template <unsigned long length>
unsigned long characters(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string text;
    for (unsigned long k = 0; k < length; ++k) text += static_cast<char>('a' + (k & 15));
    BENCH_TOUCH(&text);
    sum += text.size() + text.c_str()[length - 1];
  }
  return sum;
}

template <unsigned long block, unsigned long count>
unsigned long blocks(unsigned long iterations) {
  char source[block];
  memset(source, 'x', block);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string text;
    for (unsigned long k = 0; k < count; ++k) text.append(source, block);
    BENCH_TOUCH(&text);
    sum += text.size() + text.c_str()[block * count - 1];
  }
  return sum;
}

unsigned long short_strings(unsigned long iterations) {
  const std::string part("key=value");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string text;
    for (int k = 0; k < 4; ++k) text += part;
    BENCH_TOUCH(&text);
    sum += text.size();
  }
  return sum;
}

const bench_case cases[] = {
    {"append of a character, up to 64 KB", 1, 65536, characters<65536>},
    {"append of a character, up to 1 MB", 1, 1048576, characters<1048576>},
    {"append of 64 characters, up to 1 MB", 1, 16384, blocks<64, 16384> },
    {"append of 4 KB, up to 1 MB", 1, 256, blocks<4096, 256> },
    {"append of 4 short strings to an empty one", 1, 4, short_strings},
};

}  // namespace

BENCH_MAIN(cases)
