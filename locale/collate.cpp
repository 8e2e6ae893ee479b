// collate<char> and collate_byname<char>, by the C library's comparison and sort keys.

#include <plx/collate.h>

#include "../libC/eh_tools.h"
#include "c_locale.h"

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

// The C library's functions for a locale, or with none for the one in force.
int order(const char *left, const char *right, locale_t by) {
  return by ? strcoll_l(left, right, by) : strcoll(left, right);
}
size_t key_of(char *key, const char *text, size_t size, locale_t by) {
  return by ? strxfrm_l(key, text, size, by) : strxfrm(key, text, size);
}

int compare_by(const char *lo1, const char *hi1, const char *lo2, const char *hi2, locale_t by) {
  eh_local<text_of> left(lo1, hi1);
  eh_local<text_of> right(lo2, hi2);
  const int difference = order(left->get(), right->get(), by);
  return difference < 0 ? -1 : difference > 0;
}

// The whole key, however long: a part of it would not compare as the texts do.
string transform_by(const char *lo, const char *hi, locale_t by) {
  eh_local<text_of> source(lo, hi);
  char key[240];
  const size_t n = key_of(key, source->get(), sizeof key, by);
  if (n < sizeof key) return string(key, n);
  eh_local<string> long_key(n, '\0');
  key_of(&(*long_key)[0], source->get(), n + 1, by);
  return *long_key;
}

}  // namespace

collate<char>::~collate() {}

int collate<char>::do_compare(const char *lo1, const char *hi1, const char *lo2, const char *hi2) const {
  return compare_by(lo1, hi1, lo2, hi2, nullptr);
}

string collate<char>::do_transform(const char *lo, const char *hi) const { return transform_by(lo, hi, nullptr); }

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

collate_byname<char>::collate_byname(const char *name, size_t refs)
    : collate<char>(refs), _c_locale_(open_c_locale(LC_COLLATE_MASK | LC_CTYPE_MASK, name)) {}

collate_byname<char>::~collate_byname() { freelocale(static_cast<locale_t>(_c_locale_)); }

int collate_byname<char>::do_compare(const char *lo1, const char *hi1, const char *lo2, const char *hi2) const {
  return compare_by(lo1, hi1, lo2, hi2, static_cast<locale_t>(_c_locale_));
}

string collate_byname<char>::do_transform(const char *lo, const char *hi) const {
  return transform_by(lo, hi, static_cast<locale_t>(_c_locale_));
}

}  // namespace std
