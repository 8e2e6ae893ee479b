// imp::_look: which facets of a table are the library's own, unchanged, so that streams need not ask them.
//
// An object is of exactly a class when it has the class's virtual table. A program's executable may hold a copy of that
// table, so its address is taken as data of another object would be, which is how the constructors take it too.

#include <plx/codecvt.h>
#include <plx/ctype.h>

extern "C" {
extern PLX_API const void *const ctype_table[] __asm__("_ZTVSt5ctypeIcE");
extern PLX_API const void *const codecvt_table[] __asm__("_ZTVSt7codecvtIcciE");
}

namespace std {

namespace {

// A table begins with two words that objects do not point at.
bool has_virtual_table(const locale::facet *facet, const void *const table[]) {
  return *reinterpret_cast<const void *const *const *>(facet) == table + 2;
}

struct classic_ctype : ctype<char> {
  static const mask *masks() { return classic_table(); }
};

}  // namespace

void locale::imp::_look() PLX_NOTHROW {
  unsigned int seen = 0;
  const facet *classes = _get(std::ctype<char>::id._get_value());
  if (classes && has_virtual_table(classes, ctype_table) &&
      static_cast<const std::ctype<char> *>(classes)->_get_table() == classic_ctype::masks())
    seen |= _quick_ctype;
  const facet *conversion = _get(codecvt<char, char, int>::id._get_value());
  if (conversion && has_virtual_table(conversion, codecvt_table)) seen |= _quick_codecvt;
  _quick_ = seen;
}

}  // namespace std
