// ctype, codecvt and collate: all bytes against <ctype.h> of the C library, cases of ranges of each length, tables of
// the program's own; conversion facets of both state types, whose state lives from call to call; comparison and sort
// keys against strcoll and strxfrm, the hash against its description.
// test-variants: -O0 | -O2
#include <ctype.h>
#include <locale.h>

#include <locale>
#include <string>

#include "../harness.h"
#include "../random.h"
#include "named_locales.h"

typedef std::ctype<char> a_ctype;

// Bytes from 0x80 on and the null character are of no class and have no other case, unless a locale is named.
static void classes(const a_ctype &facet, const std::locale &loc, const char *named = 0) {
  for (int i = 0; i < 256; ++i) {
    setlocale(LC_CTYPE, named && i >= 128 ? named : "C");
    const char c = static_cast<char>(i);
    const bool plain = i != 0 && (i < 128 || named);
    const struct {
      int mask;
      int (*is)(int);
      bool of_locale;
    } all[] = {{a_ctype::space, isspace, std::isspace(c, loc)},    {a_ctype::print, isprint, std::isprint(c, loc)},
               {a_ctype::cntrl, iscntrl, std::iscntrl(c, loc)},    {a_ctype::upper, isupper, std::isupper(c, loc)},
               {a_ctype::lower, islower, std::islower(c, loc)},    {a_ctype::alpha, isalpha, std::isalpha(c, loc)},
               {a_ctype::digit, isdigit, std::isdigit(c, loc)},    {a_ctype::punct, ispunct, std::ispunct(c, loc)},
               {a_ctype::xdigit, isxdigit, std::isxdigit(c, loc)}, {a_ctype::alnum, isalnum, std::isalnum(c, loc)},
               {a_ctype::graph, isgraph, std::isgraph(c, loc)}};
    for (unsigned k = 0; k < sizeof all / sizeof *all; ++k) {
      const bool want = plain && all[k].is(i);
      CHECK(facet.is(all[k].mask, c) == want && all[k].of_locale == want);
      CHECK(facet.scan_is(all[k].mask, &c, &c + 1) == &c + !want &&
            facet.scan_not(all[k].mask, &c, &c + 1) == &c + want);
    }
    const char upper = static_cast<char>(plain ? toupper(i) : i), lower = static_cast<char>(plain ? tolower(i) : i);
    CHECK(facet.toupper(c) == upper && facet.tolower(c) == lower && std::toupper(c, loc) == upper &&
          std::tolower(c, loc) == lower);
    CHECK(facet.widen(c) == c && facet.narrow(c, '?') == c);
    for (int n = 0; n < 11; ++n) {
      char text[12];
      memset(text, 'x', sizeof text);
      memset(text, c, n);
      CHECK(facet.toupper(text, text + n) == text + n && text[0] == (n ? upper : 'x') && text[n] == 'x');
      for (int k = 0; k < n; ++k) CHECK(text[k] == upper);
      memset(text, c, n);
      CHECK(facet.tolower(text, text + n) == text + n && text[n] == 'x');
      for (int k = 0; k < n; ++k) CHECK(text[k] == lower);
      char to[12] = "...........";
      CHECK(facet.widen(text, text + n, to) == text + n && memcmp(to, text, n) == 0 && (n == 11 || to[n] == '.'));
      CHECK(facet.narrow(text, text + n, '?', to) == text + n && memcmp(to, text, n) == 0);
    }
  }
  setlocale(LC_CTYPE, "C");
  const char text[] = "ab12";
  a_ctype::mask masks[4];
  CHECK(facet.is(text, text + 4, masks) == text + 4 && masks[0] == facet.table()[int('a')] &&
        masks[3] == facet.table()[int('2')]);
}

// A table of the program's own, which the facet frees, or does not.
static int tables_freed;
static void *table_to_watch;
void operator delete(void *block) throw() {
  if (block && block == table_to_watch) ++tables_freed;
  free(block);
}
struct vowels : a_ctype {
  explicit vowels(const mask *table, bool del) : a_ctype(table, del) {}
  virtual char do_toupper(char c) const { return c == 'e' ? 'E' : c; }
};
static void own_tables() {
  a_ctype::mask *masks = new a_ctype::mask[a_ctype::table_size];
  for (int c = 0; c < 256; ++c) masks[c] = a_ctype::classic_table()[c];
  masks[0xE4] = a_ctype::lower | a_ctype::alpha;
  table_to_watch = masks;
  const unsigned bit = std::locale::imp::_quick_ctype;
  {
    vowels *facet = new vowels(masks, false);
    CHECK(facet->table() == masks && facet->is(a_ctype::alpha, '\xE4'));
    const std::locale loc(std::locale::classic(), facet);
    CHECK(std::isalpha('\xE4', loc) && std::toupper('e', loc) == 'E' && std::toupper('a', loc) == 'a');
    // The very class, but with a table of its own.
    const std::locale with_table(std::locale::classic(), new a_ctype(masks));
    const std::locale classic_again(with_table, new a_ctype(a_ctype::classic_table(), false));
    CHECK(!(loc._get_imp()->_get_quick() & bit) && !(with_table._get_imp()->_get_quick() & bit));
    CHECK(classic_again._get_imp()->_get_quick() & bit);
  }
  CHECK_INT(tables_freed, 0);
  { const std::locale loc(std::locale::classic(), new vowels(masks, true)); }
  CHECK_INT(tables_freed, 1);
  // Nothing is freed where there is no table.
  table_to_watch = const_cast<a_ctype::mask *>(a_ctype::classic_table());
  { const std::locale loc(std::locale::classic(), new a_ctype(0, true)); }
  CHECK_INT(tables_freed, 1);
}

typedef std::codecvt<char, char, int> conversion;
typedef std::codecvt<char, char, std::mbstate_t> standard_conversion;

// Counts in the state what it has taken, in each of its operations.
struct counting : standard_conversion {
  static int add(std::mbstate_t &state, int more) {
    int taken;
    memcpy(&taken, &state, sizeof taken);
    const int before = taken;
    taken += more;
    memcpy(&state, &taken, sizeof taken);
    return before;
  }
  static result move(std::mbstate_t &state, const char *from, const char *end, const char *&next, char *to,
                     char *to_end, char *&to_next) {
    for (next = from, to_next = to; next != end && to_next != to_end; add(state, 1))
      *to_next++ = static_cast<char>(*next++ ^ 32);
    return next == end ? ok : partial;
  }
  virtual result do_in(std::mbstate_t &s, const char *f, const char *e, const char *&n, char *t, char *te,
                       char *&tn) const {
    return move(s, f, e, n, t, te, tn);
  }
  virtual result do_out(std::mbstate_t &s, const char *f, const char *e, const char *&n, char *t, char *te,
                        char *&tn) const {
    return move(s, f, e, n, t, te, tn);
  }
  virtual result do_unshift(std::mbstate_t &state, char *to, char *, char *&next) const {
    next = to;
    *next++ = static_cast<char>('0' + add(state, 100) % 10);
    return ok;
  }
  virtual int do_length(std::mbstate_t &state, const char *from, const char *end, size_t most) const {
    const int n = end - from < static_cast<int>(most) ? static_cast<int>(end - from) : static_cast<int>(most);
    return add(state, n), n;
  }
  virtual int do_encoding() const throw() { return -1; }
};

static void conversions() {
  const conversion &plain = std::use_facet<conversion>(std::locale::classic());
  const char text[] = "abc";
  char to[] = "...";
  const char *from_next = text + 1;
  char *to_next = to + 1;
  int state = 7;
  CHECK_INT(plain.in(state, text, text + 3, from_next, to, to + 3, to_next), 3);
  CHECK_INT(plain.out(state, text, text + 3, from_next, to, to + 3, to_next), conversion::noconv);
  CHECK_INT(plain.unshift(state, to, to + 3, to_next), conversion::noconv);
  CHECK(from_next == text + 1 && to_next == to + 1 && state == 7);
  CHECK(plain.always_noconv() && plain.max_length() == 1);
  CHECK_INT(plain.length(state, text, text + 3, 2), 2);
  CHECK_INT(plain.length(state, text, text + 3, 0x80000000u), 3);

  // Under the standard's name for the facet, found by both names.
  const std::locale loc(std::locale::classic(), new counting);
  const conversion &by_int = std::use_facet<conversion>(loc);
  state = 40;
  CHECK(by_int.in(state, text, text + 3, from_next, to, to + 2, to_next) == conversion::partial && state == 42);
  CHECK(from_next == text + 2 && to_next == to + 2 && memcmp(to, "AB.", 3) == 0);
  CHECK(by_int.out(state, text, text + 3, from_next, to, to + 3, to_next) == conversion::ok && state == 45);
  CHECK(by_int.unshift(state, to, to + 3, to_next) == conversion::ok && to[0] == '5' && to_next == to + 1 &&
        state == 145);
  CHECK(by_int.length(state, text, text + 3, 2) == 2 && state == 147);
  std::mbstate_t whole = std::mbstate_t();
  const standard_conversion &by_name = std::use_facet<standard_conversion>(loc);
  CHECK_INT(by_name.in(whole, text, text + 3, from_next, to, to + 3, to_next), 0);
  CHECK(by_name.length(whole, text, text + 3, 2) == 2 && counting::add(whole, 0) == 5 && by_name.encoding() == -1);
  const standard_conversion &identity = std::use_facet<standard_conversion>(std::locale::classic());
  CHECK_INT(identity.in(whole, text, text + 3, from_next, to, to + 3, to_next), conversion::noconv);
  CHECK_INT(identity.out(whole, text, text + 3, from_next, to, to + 3, to_next), conversion::noconv);
  CHECK_INT(identity.unshift(whole, to, to + 3, to_next), conversion::noconv);
  CHECK(identity.length(whole, text, text + 3, 2) == 2 && identity.encoding() == 1 && counting::add(whole, 0) == 5);
}

// As the hash is described, with each shift done in 64 bits.
static long described(const std::string &text) {
  long long h = static_cast<long long>(text.size()), tail = 0;
  size_t i = 0;
  for (; i + 4 <= text.size(); i += 4) {
    unsigned word = 0;
    for (size_t k = 4; k-- > 0;) word = word << 8 | static_cast<unsigned char>(text[i + k]);
    h = static_cast<int>(static_cast<unsigned>(h * 32) | static_cast<unsigned>(h >> 27)) ^ static_cast<int>(word);
  }
  if (i == text.size()) return static_cast<long>(h);
  for (; i < text.size(); ++i)
    tail = static_cast<int>(static_cast<unsigned>(tail * 256)) | static_cast<signed char>(text[i]);
  return static_cast<long>(tail ^ static_cast<int>(static_cast<unsigned>(h * 32) | static_cast<unsigned>(h >> 27)));
}

static int sign(int n) { return n < 0 ? -1 : n > 0; }

// The C library's locale in force decides, for texts of each length; a null character ends a text.
static void collation(const std::collate<char> &facet, bool by_name) {
  for (int i = 0; i < 3000; ++i) {
    std::string text[2];
    const unsigned common = random_below(3) ? 0 : 90 + random_below(160);
    for (int k = 0; k < 2; ++k) {
      text[k].assign(common, 'q');
      for (unsigned n = random_below(random_below(9) ? 6 : 160); n > 0; --n)
        text[k] += i % 2 ? "aAbBcdzZ"[random_below(8)] : static_cast<char>(1 + random_below(255));
    }
    if (i % 50 == 0) text[0] += std::string("\0z", 2);
    const char *const a = text[0].data(), *const b = text[1].data(), *const ae = a + text[0].size(),
                      *const be = b + text[1].size();
    if (by_name) setlocale(LC_ALL, "xx_DE");
    const int want = sign(strcoll(text[0].c_str(), text[1].c_str()));
    std::string key(strxfrm(0, text[0].c_str(), 0) + 1, '\0');
    strxfrm(&key[0], text[0].c_str(), key.size());
    if (by_name) setlocale(LC_ALL, "C");
    CHECK_INT(facet.compare(a, ae, b, be), want);
    CHECK(facet.transform(a, ae) == key.c_str());
    CHECK_INT(facet.hash(a, ae), described(text[0]));
  }
  const char inner[] = "abcdef";
  CHECK(facet.transform(inner, inner) == "" && facet.hash(inner, inner) == 0 &&
        facet.compare(inner, inner + 2, inner, inner + 2) == 0);
}

int main() {
  const std::locale &classic = std::locale::classic();
  classes(std::use_facet<a_ctype>(classic), classic);
  own_tables();
  conversions();
  collation(std::use_facet<std::collate<char> >(classic), false);
  if (named_locales_setup()) {
    classes(std::use_facet<a_ctype>(std::locale("xx_DE")), std::locale("xx_DE"));
    const std::locale german(std::locale(classic, new std::ctype_byname<char>("xx_DE")),
                             new std::collate_byname<char>("xx_DE"));
    collation(std::use_facet<std::collate<char> >(german), true);
    classes(std::use_facet<a_ctype>(german), german, "xx_DE");
    setlocale(LC_ALL, "xx_DE");
    collation(std::use_facet<std::collate<char> >(classic), false);
    setlocale(LC_ALL, "C");
    const std::locale french(classic, new std::ctype_byname<char>("xx_FR"));
    classes(std::use_facet<a_ctype>(french), french, "xx_FR");
    const std::locale converting(classic, new std::codecvt_byname<char, char, std::mbstate_t>("xx_XX"));
    CHECK(std::use_facet<conversion>(converting).always_noconv());
  } else {
    fprintf(stderr, "skipped: there is no localedef\n");
  }
  return TEST_RESULT();
}
