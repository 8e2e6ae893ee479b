// collate<char> and collate_byname<char>, by the C library's comparison and sort keys.

#include <plx/facets/collate.h>

#include "../libC/eh_tools.h"
#include "c_locale.h"
#include "standard_facets.h"

using namespace __zor;

namespace std {

locale::id collate<char>::id;

namespace {

// Room for a range as a text that ends with a null character. Short texts need no memory, and so no frame for it.
const size_t short_text = 120;

class long_text {
public:
  // A call, not a new-expression: compilers assume that those read no memory, and sink the stores that link the
  // eh_local before past them.
  explicit long_text(size_t n) : text_(static_cast<char *>(operator new[](n + 1))) {}
  ~long_text() { operator delete[](text_); }
  long_text(const long_text &) = delete;
  long_text &operator=(const long_text &) = delete;
  char *get() const { return text_; }

private:
  char *text_;
};

const char *terminated(char *room, const char *lo, size_t n) {
  if (n != 0) memcpy(room, lo, n);
  room[n] = 0;
  return room;
}

// The C library's functions for a locale, or with none for the one in force.
int order(const char *left, const char *right, locale_t by) {
  return by ? strcoll_l(left, right, by) : strcoll(left, right);
}
size_t key_of(char *key, const char *text, size_t size, locale_t by) {
  return by ? strxfrm_l(key, text, size, by) : strxfrm(key, text, size);
}

int sign(int difference) { return difference < 0 ? -1 : difference > 0; }

int compare_by(const char *lo1, const char *hi1, const char *lo2, const char *hi2, locale_t by) {
  const size_t n1 = static_cast<size_t>(hi1 - lo1), n2 = static_cast<size_t>(hi2 - lo2);
  if (n1 < short_text && n2 < short_text) {
    char room1[short_text], room2[short_text];
    return sign(order(terminated(room1, lo1, n1), terminated(room2, lo2, n2), by));
  }
  eh_local<long_text> room1(n1);
  eh_local<long_text> room2(n2);
  return sign(order(terminated(room1->get(), lo1, n1), terminated(room2->get(), lo2, n2), by));
}

string transform_long(const char *text, size_t n, locale_t by) {
  eh_local<string> key(n, '\0');
  key_of(&(*key)[0], text, n + 1, by);
  return *key;
}

// The whole key, however long: a part of it would not compare as the texts do.
string transform_text(const char *text, locale_t by) {
  char key[2 * short_text];
  const size_t n = key_of(key, text, sizeof key, by);
  return n < sizeof key ? string(key, n) : transform_long(text, n, by);
}

string transform_by(const char *lo, const char *hi, locale_t by) {
  const size_t n = static_cast<size_t>(hi - lo);
  if (n < short_text) {
    char room[short_text];
    return transform_text(terminated(room, lo, n), by);
  }
  eh_local<long_text> room(n);
  return transform_text(terminated(room->get(), lo, n), by);
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

const __zor::standard_facet __zor::collate_facet = {made_alike<std::collate<char>>, &std::collate<char>::id};
