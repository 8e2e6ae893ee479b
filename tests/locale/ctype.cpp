// ctype, codecvt and collate: all bytes against <ctype.h> of the C library, texts of each length, tables of the
// program's own; conversion facets of both state types, whose state lives from call to call; comparison and sort keys
// against strcoll and strxfrm, the hash against its description.
// test-variants: -O0 | -O2
#include <ctype.h>

#include <algorithm>

#include "../fail_allocation.h"
#include "locale_check.h"

using std::string;
typedef std::ctype<char> a_ctype;

static const struct {
  a_ctype::mask mask;
  int (*is)(int);
  bool (*is_in)(char, const std::locale &);
} a_class[] = {
#define CLASS(name) \
  { a_ctype::name, is##name, std::is##name }
    CLASS(space), CLASS(print), CLASS(cntrl),  CLASS(upper), CLASS(lower), CLASS(alpha),
    CLASS(digit), CLASS(punct), CLASS(xdigit), CLASS(alnum), CLASS(graph)};

// Bytes from 0x80 on and the null character are of no class and have no other case, unless a locale is named.
static void classes(const std::locale &loc, const char *named = 0) {
  const a_ctype &facet = std::use_facet<a_ctype>(loc);
  for (int i = 0; i < 256; ++i) {
    setlocale(LC_CTYPE, named && i >= 128 ? named : "C");
    const char c = static_cast<char>(i);
    const bool plain = i != 0 && (i < 128 || named);
    for (int k = 0; k < 11; ++k) {
      const bool want = plain && a_class[k].is(i);
      const a_ctype::mask mask = a_class[k].mask;
      CHECK(facet.is(mask, c) == want && a_class[k].is_in(c, loc) == want);
      CHECK(facet.scan_is(mask, &c, &c + 1) == &c + !want && facet.scan_not(mask, &c, &c + 1) == &c + want);
    }
    const char upper = static_cast<char>(plain ? toupper(i) : i), lower = static_cast<char>(plain ? tolower(i) : i);
    CHECK(facet.toupper(c) == upper && facet.tolower(c) == lower && facet.widen(c) == c && facet.narrow(c, '?') == c);
    CHECK(std::toupper(c, loc) == upper && std::tolower(c, loc) == lower);
    for (int n = 0; n < 11; ++n) {
      const string text = string(n, c) + "x", all(n + 1, 'y');
      string to[] = {text, text, all, all};
      CHECK(facet.toupper(&to[0][0], &to[0][n]) == &to[0][n] && to[0] == string(n, upper) + "x");
      CHECK(facet.tolower(&to[1][0], &to[1][n]) == &to[1][n] && to[1] == string(n, lower) + "x");
      CHECK(facet.widen(&text[0], &text[n], &to[2][0]) == &text[n] && to[2] == string(n, c) + "y");
      CHECK(facet.narrow(&text[0], &text[n], '?', &to[3][0]) == &text[n] && to[3] == string(n, c) + "y");
    }
  }
  setlocale(LC_CTYPE, "C");
  const char text[] = "ab12";
  a_ctype::mask masks[4];
  CHECK(facet.is(text, text + 4, masks) == text + 4 && masks[0] == facet.table()[97] && masks[3] & a_ctype::digit);
  CHECK(facet.scan_is(a_ctype::digit, text, text + 4) == text + 2);
  CHECK(facet.scan_not(a_ctype::alpha, text, text + 4) == text + 2);
}

// A table of the program's own, which the facet frees, or does not; a null one is the classic.
struct vowels : a_ctype {
  explicit vowels(const mask *table, bool del) : a_ctype(table, del) {}
  virtual char do_toupper(char c) const { return c == 'e' ? 'E' : c; }
};
static void own_tables() {
  const std::locale &classic = std::locale::classic();
  a_ctype::mask *const masks = new a_ctype::mask[a_ctype::table_size];
  std::copy(a_ctype::classic_table(), a_ctype::classic_table() + 256, masks);
  masks[0xE4] = a_ctype::lower | a_ctype::alpha;
  const long before = live_blocks;
  {
    const std::locale derived(classic, new vowels(masks, false)), with_table(classic, new a_ctype(masks));
    CHECK(std::use_facet<a_ctype>(derived).table() == masks && std::isalpha('\xE4', derived));
    CHECK(std::toupper('e', derived) == 'E' && std::toupper('a', derived) == 'a' && std::isalpha('\xE4', with_table));
  }
  CHECK_INT(live_blocks, before);
  { const std::locale loc(classic, new vowels(masks, true)); }
  { const std::locale loc(classic, new a_ctype(0, true)); }
  CHECK_INT(live_blocks, before - 1);
}

typedef std::codecvt<char, char, int> conversion;
typedef std::codecvt<char, char, std::mbstate_t> standard_conversion;

// Counts its operations in the first word of the state; the rest must be as at the start.
struct counting : standard_conversion {
  static result counted(std::mbstate_t &state, int n, result what) {
    int *const words = reinterpret_cast<int *>(&state);
    CHECK(sizeof state == 2 * sizeof *words && words[1] == 0);
    return *words += n, what;
  }
  virtual result do_in(std::mbstate_t &state, const char *from, const char *, const char *&next, char *to, char *,
                       char *&to_next) const {
    *to = static_cast<char>(*from ^ 32), next = from + 1, to_next = to + 1;
    return counted(state, 1, partial);
  }
  virtual result do_out(std::mbstate_t &state, const char *, const char *end, const char *&next, char *, char *to_end,
                        char *&to_next) const {
    next = end, to_next = to_end;
    return counted(state, 10, ok);
  }
  virtual result do_unshift(std::mbstate_t &state, char *to, char *to_end, char *&next) const {
    *to = '5', next = to_end - 1;
    return counted(state, 100, error);
  }
  virtual int do_length(std::mbstate_t &state, const char *from, const char *end, size_t most) const {
    return counted(state, 2, ok), static_cast<int>(end - from + most);
  }
  virtual int do_encoding() const throw() { return -1; }
};

// Each operation once, from the state 40 on: its result, where pointers went, the text, the state.
template <class Facet> static string converted(const std::locale &loc) {
  static const char text[] = "abc";
  const Facet &facet = std::use_facet<Facet>(loc);
  typename Facet::state_type state = typename Facet::state_type();
  int &word = reinterpret_cast<int &>(state);
  word = 40;
  string all;
  for (int how = 0; how < 4; ++how) {
    char to[] = "...", made[60], *to_next = to + 3;
    const char *next = text + 3;
    const int result = how == 0   ? facet.in(state, text, text + 3, next, to, to + 2, to_next)
                       : how == 1 ? facet.out(state, text, text + 3, next, to, to + 3, to_next)
                       : how == 2 ? facet.unshift(state, to, to + 3, to_next)
                                  : facet.length(state, text, text + 3, 2);
    sprintf(made, " %d:%d%d%s:%d", result, int(next - text), int(to_next - to), to, word);
    all += made;
  }
  return all;
}
static void conversions() {
  const std::locale &classic = std::locale::classic(), own(classic, new counting);
  // Under the standard's name for the facet, found by both names; 1 is partial, 3 noconv.
  static const char none[] = " 3:33...:40 3:33...:40 3:33...:40 2:33...:40",
                    counts[] = " 1:11A..:41 0:33...:51 2:325..:151 5:33...:153";
  CHECK_TEXT((converted<conversion>(classic) + converted<conversion>(own)).c_str(), (string(none) + counts).c_str());
  CHECK(converted<standard_conversion>(classic) == none && converted<standard_conversion>(own) == counts);
  const conversion &plain = std::use_facet<conversion>(classic);
  int state = 0;
  CHECK(plain.always_noconv() && plain.max_length() == 1 && plain.length(state, none, none + 3, 0x80000000u) == 3);
  CHECK(std::use_facet<standard_conversion>(own).encoding() == -1 &&
        std::use_facet<standard_conversion>(classic).encoding() == 1);
}

// The C library's locale in force decides, or the one that is named, for texts of each length; a null character ends a
// text.
static void collation(const std::collate<char> &facet, const char *during, const char *by) {
  for (int i = 0; i < 3000; ++i) {
    string text[2];
    const unsigned common = random_below(3) ? 0 : 90 + random_below(160);
    for (int k = 0; k < 2; ++k) {
      text[k].assign(common, 'q');
      for (unsigned n = random_below(random_below(9) ? 6 : 160); n > 0; --n)
        text[k] += i % 2 ? "aAbBcdzZ"[random_below(8)] : static_cast<char>(1 + random_below(255));
    }
    if (i % 50 == 0) text[0] += string("\0z", 2);
    const char *const a = text[0].data(), *const b = text[1].data(), *const end = a + text[0].size();
    setlocale(LC_ALL, by);
    const int want = strcoll(text[0].c_str(), text[1].c_str());
    string key(strxfrm(0, a, 0) + 1, '\0');
    strxfrm(&key[0], text[0].c_str(), key.size());
    setlocale(LC_ALL, during);
    CHECK_INT(facet.compare(a, end, b, b + text[1].size()), want < 0 ? -1 : want > 0);
    CHECK(facet.transform(a, end) == key.c_str() && facet.transform(a, a) == "" && facet.compare(a, end, a, end) == 0);
  }
  setlocale(LC_ALL, "C");
  // The length and each word by a shift of five that keeps the sign's bits; what is left at the end by bytes.
  static const char *const texts[] = {"", "a", "abc", "abcd", "abcdefg", "\xFF\x80\x7F", "the quick brown fox"};
  static const long hashes[] = {0, 65, 6382083, 1684234977, -1945553333, -32737, -6713213};
  for (int i = 0; i < 7; ++i) CHECK_INT(facet.hash(texts[i], texts[i] + strlen(texts[i])), hashes[i]);
}

int main() {
  const std::locale &classic = std::locale::classic();
  const std::collate<char> &collate = std::use_facet<std::collate<char> >(classic);
  classes(classic);
  own_tables();
  conversions();
  collation(collate, "C", "C");
  if (!named_locales_setup()) return TEST_RESULT();
  classes(std::locale("xx_DE"));
  classes(std::locale(classic, new std::ctype_byname<char>("xx_DE")), "xx_DE");
  classes(std::locale(classic, new std::ctype_byname<char>("xx_FR")), "xx_FR");
  collation(collate, "xx_DE", "xx_DE");
  collation(own_facet<std::collate_byname<char> >("xx_DE"), "C", "xx_DE");
  CHECK((own_facet<std::codecvt_byname<char, char, std::mbstate_t> >("xx_XX").always_noconv()));
  return TEST_RESULT();
}
