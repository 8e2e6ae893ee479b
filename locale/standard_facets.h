// The facets that the library's own locales hold, category by category: what a named locale begins with, and what
// combining locales carries over.
//
// Each facet describes itself in the object file of its identity, and is reached by a weak reference: a static program,
// which needs the identity to ask for a facet, gets those that it names.
#pragma once

#include <plx/locale/locale_core.h>

#include "../libC/if_linked.h"
#include "own.h"

namespace __zor {

struct standard_facet {
  std::locale::facet *(*made)(const char *name);  // a new one
  const std::locale::id *identity;
};

// Punctuation depends on the locale's name. Hot: the linker puts all of them side by side, as they are called.
#define PLX_FACET_MAKER __attribute__((__hot__))
template <class Facet> PLX_FACET_MAKER std::locale::facet *made_by_name(const char *name) { return make<Facet>(name); }
template <class Facet> PLX_FACET_MAKER std::locale::facet *made_alike(const char *) { return make<Facet>(); }

#define PLX_STANDARD_FACET PLX_IF_LINKED __attribute__((__visibility__("hidden")))
extern PLX_STANDARD_FACET const standard_facet numpunct_facet, num_get_facet, num_put_facet, ctype_facet, codecvt_facet,
    collate_facet, time_put_facet, time_get_facet, moneypunct_intl_facet, moneypunct_facet, money_put_facet,
    money_get_facet;

// New facets of the given categories. `name` is for the punctuation facets; the C library is switched to it.
void install_standard_facets(std::locale::imp &table, const char *name, int categories);

// Into `to`, what `from` has of the given categories.
void carry_standard_facets(std::locale &to, std::locale::imp *from, int categories);

}  // namespace __zor
