// imp::_look: which facets of a table are the library's own, unchanged, so that streams need not ask them.
//
// An object is of exactly a class when it has the class's virtual table. A program's executable may hold a copy of that
// table, so its address is taken as data of another object would be, which is how the constructors take it too.

#include <plx/codecvt.h>
#include <plx/ctype.h>
#include <plx/num_get.h>
#include <plx/num_put.h>
#include <plx/numpunct.h>

extern "C" {
extern PLX_API const void *const ctype_table[] __asm__("_ZTVSt5ctypeIcE");
extern PLX_API const void *const codecvt_table[] __asm__("_ZTVSt7codecvtIcciE");
extern PLX_API const void *const numpunct_table[] __asm__("_ZTVSt8numpunctIcE");
extern PLX_API const void *const num_get_table[] __asm__(
    "_ZTVSt7num_getIcSt19istreambuf_iteratorIcSt11char_traitsIcEEE");
extern PLX_API const void *const num_put_table[] __asm__(
    "_ZTVSt7num_putIcSt19ostreambuf_iteratorIcSt11char_traitsIcEEE");
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
  const facet *punctuation = _get(std::numpunct<char>::id._get_value());
  if (classes && punctuation && has_virtual_table(punctuation, numpunct_table) &&
      static_cast<const std::numpunct<char> *>(punctuation)->_is_plain()) {
    const facet *input = _get(num_get<char>::id._get_value());
    if (input && has_virtual_table(input, num_get_table) && (seen & _quick_ctype)) seen |= _quick_num_get;
    const facet *output = _get(num_put<char>::id._get_value());
    if (output && has_virtual_table(output, num_put_table)) seen |= _quick_num_put;
  }
  _quick_ = seen;
}

}  // namespace std
