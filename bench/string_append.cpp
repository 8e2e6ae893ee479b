// Strings that grow: by single characters up to 64 KB and up to 1 MB, and by blocks up to 1 MB. Times are per character
// and per block; appending is linear when the first two agree. Each iteration grows strings to four lengths, spread
// over the last doubling, because a single one would tell only whether a library happened to grow just before it.
#include <string>

#include "bench.h"

namespace {

// The four lengths, as parts of the longest in 64ths; 201 in all.
const unsigned long parts[] = {38, 45, 54, 64};

template <unsigned long longest> unsigned long characters(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (int part = 0; part < 4; ++part) {
      const unsigned long length = longest / 64 * parts[part];
      std::string text;
      for (unsigned long k = 0; k < length; ++k) text += static_cast<char>('a' + (k & 15));
      BENCH_TOUCH(&text);
      sum += text.size() + text.c_str()[length - 1];
    }
  }
  return sum;
}

template <unsigned long block, unsigned long most> unsigned long blocks(unsigned long iterations) {
  char source[block];
  memset(source, 'x', block);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (int part = 0; part < 4; ++part) {
      const unsigned long count = most / 64 * parts[part];
      std::string text;
      for (unsigned long k = 0; k < count; ++k) text.append(source, block);
      BENCH_TOUCH(&text);
      sum += text.size() + text.c_str()[block * count - 1];
    }
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

unsigned long literals(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string text;
    for (int k = 0; k < 32; ++k) {
      text += "key";
      text += ",";
    }
    BENCH_TOUCH(&text);
    sum += text.size();
  }
  return sum;
}

const bench_case cases[] = {
    {"append of a character, up to 64 KB", 1, 65536 / 64 * 201, characters<65536>},
    {"append of a character, up to 1 MB", 1, 1048576 / 64 * 201, characters<1048576>},
    {"append of 64 characters, up to 1 MB", 1, 16384 / 64 * 201, blocks<64, 16384>},
    {"append of 4 KB, up to 1 MB", 1, 256 / 64 * 201, blocks<4096, 256>},
    {"append of 4 short strings to an empty one", 1, 4, short_strings},
    {"append of words and commas", 1, 64, literals},
};

}  // namespace

BENCH_MAIN(cases)
