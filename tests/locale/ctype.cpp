// ctype<char> and codecvt<char, char, int>: the classic table against its description, case of all bytes, tables of the
// program's own, which virtual operations are reached; conversion facets of both state types.
// test-variants: -O0 | -O2

#include <new>

#include "locale_check.h"

typedef std::ctype<char> ctype;

static const ctype &classic() { return std::use_facet<ctype>(std::locale::classic()); }

static void classes() {
  const ctype::mask space = ctype::space, print = ctype::print, cntrl = ctype::cntrl;
  CHECK_INT(ctype::graph, 0xE0);
  for (int c = 0; c < 256; ++c) {
    ctype::mask want = 0;
    if (c >= 1 && c < 32) want = cntrl;
    if (c >= 9 && c <= 13) want = space | cntrl;
    if (c == 32) want = space | print;
    if (c > 32 && c < 127) want = ctype::punct | print;
    if (c >= '0' && c <= '9') want = ctype::digit | ctype::xdigit | print;
    if (c >= 'A' && c <= 'Z') want = ctype::upper | ctype::alpha | print | (c <= 'F' ? 0x100 : 0);
    if (c >= 'a' && c <= 'z') want = ctype::lower | ctype::alpha | print | (c <= 'f' ? 0x100 : 0);
    if (c == 127) want = cntrl;
    const char text[] = {static_cast<char>(c)};
    ctype::mask got;
    CHECK(classic().is(text, text + 1, &got) == text + 1);
    CHECK_INT(got, want);
    CHECK(classic().is(ctype::alnum, text[0]) == ((want & 0x60) != 0));
    CHECK(std::isgraph(text[0], std::locale::classic()) == ((want & 0xE0) != 0));

    const char upper = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    const char lower = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    CHECK(classic().toupper(text[0]) == upper && std::toupper(text[0], std::locale::classic()) == upper);
    CHECK(classic().tolower(text[0]) == lower);
    char five[] = {'{', text[0], '\x7F', 'm', text[0]};
    CHECK(classic().toupper(five, five + 5) == five + 5);
    CHECK(five[0] == '{' && five[1] == upper && five[2] == '\x7F' && five[3] == 'M' && five[4] == upper);
    CHECK(classic().tolower(five, five + 5) == five + 5);
    CHECK(five[1] == lower && five[3] == 'm' && five[4] == lower);
    CHECK(classic().widen(text[0]) == text[0] && classic().narrow(text[0], '?') == text[0]);
  }
}

static void ranges() {
  char text[] = "Z\xC3\xA4 12{";
  char *end = text + sizeof text - 1;
  CHECK(classic().scan_is(ctype::digit, text, end) == text + 4);
  CHECK(classic().scan_is(ctype::lower, text, end) == end);
  CHECK(classic().scan_not(ctype::digit, text + 4, end) == text + 6);
  CHECK(classic().scan_not(ctype::upper, text, text + 1) == text + 1);
  CHECK(classic().tolower(text, end) == end);
  CHECK_TEXT(text, "z\xC3\xA4 12{");
  CHECK(classic().toupper(text, text) == text);
  CHECK(classic().toupper(text, end) == end);
  CHECK_TEXT(text, "Z\xC3\xA4 12{");
  char to[4] = "...";
  CHECK(classic().widen(text, text + 2, to) == text + 2);
  CHECK_TEXT(to, "Z\xC3.");
  CHECK(classic().narrow(end - 1, end, '?', to + 2) == end);
  CHECK_TEXT(to, "Z\xC3{");
}

// A table of the program's own, which the facet frees, or does not.
static int tables_freed;
static void *table_to_watch;
void operator delete(void *block) throw() {
  if (block && block == table_to_watch) ++tables_freed;
  free(block);
}

struct vowels : ctype {
  explicit vowels(const mask *table, bool del) : ctype(table, del) {}
  virtual char do_toupper(char c) const { return c == 'e' ? 'E' : c; }
};

static void own_tables() {
  ctype::mask *masks = new ctype::mask[ctype::table_size];
  for (int c = 0; c < 256; ++c) masks[c] = ctype::classic_table()[c];
  masks[0xE4] = ctype::lower | ctype::alpha;
  table_to_watch = masks;
  {
    vowels *facet = new vowels(masks, false);
    CHECK(facet->table() == masks && facet->is(ctype::alpha, '\xE4'));
    const std::locale loc(std::locale::classic(), facet);
    CHECK(std::isalpha('\xE4', loc) && std::toupper('e', loc) == 'E' && std::toupper('a', loc) == 'a');
    CHECK_INT(loc._get_imp()->_get_quick() & std::locale::imp::_quick_ctype, 0);
    // The very class, but with a table of its own.
    const std::locale with_table(std::locale::classic(), new ctype(masks));
    CHECK_INT(with_table._get_imp()->_get_quick() & std::locale::imp::_quick_ctype, 0);
    const std::locale classic_again(with_table, new ctype(ctype::classic_table(), false));
    CHECK(classic_again._get_imp()->_get_quick() & std::locale::imp::_quick_ctype);
  }
  CHECK_INT(tables_freed, 0);
  { const std::locale loc(std::locale::classic(), new vowels(masks, true)); }
  CHECK_INT(tables_freed, 1);
  // Nothing is freed where there is no table.
  table_to_watch = const_cast<ctype::mask *>(ctype::classic_table());
  { const std::locale loc(std::locale::classic(), new ctype(0, true)); }
  CHECK_INT(tables_freed, 1);
}

typedef std::codecvt<char, char, int> conversion;
typedef std::codecvt<char, char, std::mbstate_t> standard_conversion;

// Counts, in the state, what it has taken, and changes case.
struct counting : standard_conversion {
  virtual result do_in(std::mbstate_t &state, const char *from, const char *from_end, const char *&from_next, char *to,
                       char *to_end, char *&to_next) const {
    int taken;
    memcpy(&taken, &state, sizeof taken);
    for (; from != from_end && to != to_end; ++taken) *to++ = static_cast<char>(*from++ ^ 32);
    memcpy(&state, &taken, sizeof taken);
    from_next = from;
    to_next = to;
    return from == from_end ? ok : partial;
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
  state = 40;
  CHECK_INT(std::use_facet<conversion>(loc).in(state, text, text + 3, from_next, to, to + 2, to_next),
            conversion::partial);
  CHECK(state == 42 && from_next == text + 2 && to_next == to + 2);
  CHECK_TEXT(to, "AB.");
  std::mbstate_t whole = std::mbstate_t();
  CHECK_INT(std::use_facet<standard_conversion>(loc).in(whole, text, text + 3, from_next, to, to + 3, to_next), 0);
  CHECK_INT(std::use_facet<conversion>(loc).unshift(state, to, to + 3, to_next), conversion::noconv);
  CHECK_INT(std::use_facet<standard_conversion>(std::locale::classic())
                .in(whole, text, text + 3, from_next, to, to + 3, to_next),
            conversion::noconv);
  CHECK_INT(std::use_facet<standard_conversion>(loc).length(whole, text, text + 3, 2), 2);
  CHECK_INT(std::use_facet<standard_conversion>(loc).encoding(), -1);
  CHECK_INT(std::use_facet<standard_conversion>(std::locale::classic()).encoding(), 1);
}

int main() {
  classes();
  ranges();
  own_tables();
  conversions();
  return TEST_RESULT();
}
