// collate<char>: results reduced to -1, 0 and 1, ranges that nothing ends but their end, the hash of known and of all
// bytes, long texts.

#include <string>

#include "locale_check.h"

static const std::collate<char> &facet() { return std::use_facet<std::collate<char> >(std::locale::classic()); }

static int compare(const std::string &left, const std::string &right) {
  return facet().compare(left.data(), left.data() + left.size(), right.data(), right.data() + right.size());
}

static long hash(const std::string &text) { return facet().hash(text.data(), text.data() + text.size()); }

// As the hash is described, with each shift done in 64 bits.
static long described(const std::string &text) {
  long long h = static_cast<long long>(text.size());
  size_t i = 0;
  for (; i + 4 <= text.size(); i += 4) {
    unsigned int word = 0;
    for (int k = 3; k >= 0; --k) word = word << 8 | static_cast<unsigned char>(text[i + static_cast<size_t>(k)]);
    h = static_cast<int>(static_cast<unsigned int>(h * 32) | static_cast<unsigned int>(h >> 27)) ^
        static_cast<int>(word);
  }
  if (i == text.size()) return static_cast<long>(h);
  long long t = 0;
  for (; i < text.size(); ++i)
    t = static_cast<int>(static_cast<unsigned int>(t * 256)) | static_cast<signed char>(text[i]);
  return static_cast<long>(t ^
                           static_cast<int>(static_cast<unsigned int>(h * 32) | static_cast<unsigned int>(h >> 27)));
}

int main() {
  CHECK_INT(compare("a", "z"), -1);
  CHECK_INT(compare("z", "a"), 1);
  CHECK_INT(compare("", ""), 0);
  CHECK_INT(compare("ab", "abc"), -1);
  CHECK_INT(compare(std::string("a\0x", 3), std::string("a\0y", 3)), 0);
  CHECK_INT(compare("\xE4", "z"), 1);
  for (unsigned int n = 100; n < 140; ++n) {
    CHECK_INT(compare(std::string(n, 'q') + "a", std::string(n, 'q') + "b"), -1);
    CHECK_INT(compare(std::string(n, 'q'), std::string(n, 'q')), 0);
  }

  const char longer[] = "abcdef";
  CHECK_TEXT(facet().transform(longer, longer + 3).c_str(), "abc");
  CHECK_TEXT(facet().transform(longer, longer).c_str(), "");
  CHECK_INT(facet().transform("a\0b", &"a\0b"[3]).size(), 1);
  for (unsigned int n = 230; n < 250; ++n) {
    const std::string text(n, 'x');
    CHECK(facet().transform(text.data(), text.data() + n) == text);
  }

  CHECK_INT(hash(""), 0);
  CHECK_INT(hash("abcd"), 0x646362E1);
  CHECK_INT(hash("a"), 0x41);
  unsigned int random = 1;
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (int n = i % 23; n > 0; --n) {
      random = random * 1103515245u + 12345u;
      text += static_cast<char>(random >> 16);
    }
    CHECK_INT(hash(text), described(text));
  }
  return TEST_RESULT();
}
