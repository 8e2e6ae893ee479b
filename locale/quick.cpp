// imp::_look: which facets of a table are the library's own, unchanged, so that streams need not ask them.
//
// An object is of exactly a class when its vtable pointer says so. A program for a fixed address holds the vtable
// itself, by a copy relocation, so its address is looked up in the global offset table, as constructors do.

#include <plx/facets/ctype.h>
#include <plx/facets/numpunct.h>

#include "standard_facets.h"

extern "C" {
extern PLX_API PLX_IF_LINKED const void *const ctype_table[] __asm__("_ZTVSt5ctypeIcE");
extern PLX_API PLX_IF_LINKED const void *const codecvt_table[] __asm__("_ZTVSt7codecvtIcciE");
extern PLX_API PLX_IF_LINKED const void *const numpunct_table[] __asm__("_ZTVSt8numpunctIcE");
extern PLX_API PLX_IF_LINKED const void *const num_get_table[] __asm__(
    "_ZTVSt7num_getIcSt19istreambuf_iteratorIcSt11char_traitsIcEEE");
extern PLX_API PLX_IF_LINKED const void *const num_put_table[] __asm__(
    "_ZTVSt7num_putIcSt19ostreambuf_iteratorIcSt11char_traitsIcEEE");
}

namespace std {

namespace {

// A table begins with two words that objects do not point at.
bool has_virtual_table(const locale::facet *facet, const void *const table[]) {
  return *reinterpret_cast<const void *const *const *>(facet) == table + 2;
}

// A facet of a table, by the library's standard one of that identity.
const locale::facet *get(const locale::imp &table, const __zor::standard_facet *standard) {
  return standard ? table._get(standard->identity->_get_value()) : nullptr;
}

struct classic_ctype : ctype<char> {
  static const mask *masks() { return classic_table(); }
};

}  // namespace

void locale::imp::_look() PLX_NOTHROW {
  unsigned int seen = 0;
  const facet *classes = get(*this, &__zor::ctype_facet);
  const bool widens_plainly = classes && has_virtual_table(classes, ctype_table);
  if (widens_plainly && static_cast<const std::ctype<char> *>(classes)->table() == classic_ctype::masks())
    seen |= _quick_ctype;
  const facet *conversion = get(*this, &__zor::codecvt_facet);
  if (conversion && has_virtual_table(conversion, codecvt_table)) seen |= _quick_codecvt;
  const facet *punctuation = get(*this, &__zor::numpunct_facet);
  if (classes && punctuation && has_virtual_table(punctuation, numpunct_table) &&
      static_cast<const std::numpunct<char> *>(punctuation)->_is_plain()) {
    const facet *input = get(*this, &__zor::num_get_facet);
    if (input && has_virtual_table(input, num_get_table) && (seen & _quick_ctype)) seen |= _quick_num_get;
    const facet *output = get(*this, &__zor::num_put_facet);
    if (output && widens_plainly && has_virtual_table(output, num_put_table)) seen |= _quick_num_put;
  }
  _quick_ = seen;
}

}  // namespace std
