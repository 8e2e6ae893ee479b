// Where classification, case and collation of the "C" locale are those of the 1998 standard: all bytes below 0x80 but
// the null character, which plx gives no class, and texts in ranges. Printed for comparison with the host's library.
// prints: 20794 lines

#include <locale>
#include <stdio.h>
#include <string>

template <class Facet> static const Facet &classic() { return std::use_facet<Facet>(std::locale::classic()); }

static unsigned int state = 7;
static unsigned int next(unsigned int limit) {
  state = state * 1103515245u + 12345u;
  return (state >> 16) % limit;
}

int main() {
  typedef std::ctype<char> ctype;
  const ctype &chars = classic<ctype>();
  const std::locale &loc = std::locale::classic();
  for (int i = 1; i < 128; ++i) {
    const char c = static_cast<char>(i);
    printf("%d: %d%d%d%d%d%d%d%d%d%d%d %d %d\n", i, std::isspace(c, loc), std::isprint(c, loc), std::iscntrl(c, loc),
           std::isupper(c, loc), std::islower(c, loc), std::isalpha(c, loc), std::isdigit(c, loc), std::ispunct(c, loc),
           std::isxdigit(c, loc), std::isalnum(c, loc), std::isgraph(c, loc), chars.toupper(c), chars.tolower(c));
  }
  for (int i = 0; i < 20000; ++i) {
    std::string text[2];
    for (int k = 0; k < 2; ++k)
      for (unsigned int n = next(12); n > 0; --n) text[k] += static_cast<char>(1 + next(i % 2 ? 255 : 3));
    const char *a = text[0].data(), *b = text[1].data(), *ae = a + text[0].size(), *be = b + text[1].size();
    printf("%d %d ", classic<std::collate<char> >().compare(a, ae, b, be), loc(text[0], text[1]));
    printf("%s ", classic<std::collate<char> >().transform(a, ae).c_str());
    for (char *c = &text[0][0]; c != &text[0][0] + text[0].size(); ++c)
      *c = static_cast<char>(*c & 0x7F ? *c & 0x7F : 1);
    a = text[0].data();
    ae = a + text[0].size();
    const ctype::mask m = i % 3 ? ctype::alpha : ctype::punct | ctype::digit;
    printf("%d %d ", static_cast<int>(chars.scan_is(m, a, ae) - a), static_cast<int>(chars.scan_not(m, a, ae) - a));
    chars.toupper(&text[0][0], &text[0][0] + text[0].size());
    printf("%s\n", text[0].c_str());
  }
  return 0;
}
