// collate<char>, by the C library's strcoll and strxfrm.

#include <string.h>

#include <plx/collate.h>

#include "../libC/eh_tools.h"

using namespace __zor;

namespace std {

locale::id collate<char>::id;

namespace {

// A range as a text that ends with a null character; short ones need no memory.
class text_of {
public:
  text_of(const char *lo, const char *hi) : text_(short_) {
    const size_t n = static_cast<size_t>(hi - lo);
    if (n >= sizeof short_) text_ = new char[n + 1];
    if (n != 0) memcpy(text_, lo, n);
    text_[n] = 0;
  }
  ~text_of() {
    if (text_ != short_) delete[] text_;
  }
  text_of(const text_of &) = delete;
  text_of &operator=(const text_of &) = delete;
  const char *get() const { return text_; }

private:
  char *text_;
  char short_[120];
};

}  // namespace

collate<char>::~collate() {}

int collate<char>::do_compare(const char *lo1, const char *hi1, const char *lo2, const char *hi2) const {
  eh_local<text_of> left(lo1, hi1);
  eh_local<text_of> right(lo2, hi2);
  const int order = strcoll(left->get(), right->get());
  return order < 0 ? -1 : order > 0;
}

string collate<char>::do_transform(const char *lo, const char *hi) const {
  eh_local<text_of> source(lo, hi);
  eh_local<string> key(strxfrm(nullptr, source->get(), 0), '\0');
  if (!key->empty()) strxfrm(&(*key)[0], source->get(), key->size() + 1);
  return *key;
}

// The shift spreads the sign: it is no rotation.
static int stir(int h) { return static_cast<int>(static_cast<unsigned int>(h) << 5) | (h >> 27); }

long collate<char>::do_hash(const char *lo, const char *hi) const {
  int h = static_cast<int>(hi - lo);
  for (; hi - lo >= 4; lo += 4) {
    int word;
    memcpy(&word, lo, 4);
    h = stir(h) ^ word;
  }
  if (lo == hi) return h;
  int tail = 0;
  for (; lo != hi; ++lo) tail = static_cast<int>(static_cast<unsigned int>(tail) << 8) | static_cast<signed char>(*lo);
  return tail ^ stir(h);
}

}  // namespace std
