// The facets of each category. A new facet class of the library is named here and nowhere else.
//
// The order is the order of identities in a process whose first locale is built here, and of allocations: keep it.

#include "standard_facets.h"

using namespace std;

namespace __zor {

namespace {

struct a_member {
  const standard_facet *facet;  // null in a static program that has no use for it
  short category;
  bool carried;
};

// codecvt and the facets of time are not carried over: what a stream's file holds, and how a program writes dates, are
// not settings of the text's language that a mixture of locales is made for.
const a_member members[] = {
    {&numpunct_facet, locale::numeric, true},         {&num_get_facet, locale::numeric, true},
    {&num_put_facet, locale::numeric, true},          {&ctype_facet, locale::ctype, true},
    {&codecvt_facet, locale::ctype, false},           {&collate_facet, locale::collate, true},
    {&time_put_facet, locale::time, false},           {&time_get_facet, locale::time, false},
    {&moneypunct_intl_facet, locale::monetary, true}, {&moneypunct_facet, locale::monetary, true},
    {&money_put_facet, locale::monetary, true},       {&money_get_facet, locale::monetary, true},
};

}  // namespace

void install_standard_facets(locale::imp &table, const char *name, int categories) {
  for (const a_member &member : members) {
    if (!member.facet || !(categories & member.category)) continue;
    eh_local<facet_hold> hold(member.facet->made(name));
    table._store(hold->held, *member.facet->identity);
  }
}

void carry_standard_facets(locale &to, locale::imp *from, int categories) {
  for (const a_member &member : members)
    if (member.facet && member.carried && (categories & member.category)) to.set_imp(from, *member.facet->identity);
}

}  // namespace __zor
