// The facets of each category. A new facet class of the library is named here, in both functions, and nowhere else.
//
// The order is the order of identities in a process whose first locale is built here, and of allocations: keep it.

#include "standard_facets.h"

#include <plx/codecvt.h>
#include <plx/collate.h>
#include <plx/ctype.h>
#include <plx/money_get.h>
#include <plx/money_put.h>
#include <plx/moneypunct.h>
#include <plx/num_get.h>
#include <plx/num_put.h>
#include <plx/numpunct.h>
#include <plx/time_get.h>
#include <plx/time_put.h>

#include "own.h"

using namespace std;

namespace __zor {

namespace {

template <class Facet, class... Arguments> void install(locale::imp &table, const Arguments &...arguments) {
  eh_local<facet_hold> hold(make<Facet>(arguments...));
  table._store(hold->held, Facet::id);
}

}  // namespace

void install_standard_facets(locale::imp &table, const char *name, int categories) {
  if (categories & locale::numeric) {
    install<numpunct<char>>(table, name);
    install<num_get<char>>(table);
    install<num_put<char>>(table);
  }
  if (categories & locale::ctype) {
    install<ctype<char>>(table);
    install<codecvt<char, char, int>>(table);
  }
  if (categories & locale::collate) install<collate<char>>(table);
  if (categories & locale::time) {
    eh_local<facet_hold> put(make<time_put<char>>());
    eh_local<facet_hold> get(make<time_get<char>>());
    table._store(put->held, time_put<char>::id);
    table._store(get->held, time_get<char>::id);
  }
  if (categories & locale::monetary) {
    install<moneypunct_byname<char, true>>(table, name);
    install<moneypunct_byname<char, false>>(table, name);
    install<money_put<char>>(table);
    install<money_get<char>>(table);
  }
}

// codecvt and the facets of time stay: what a stream's file holds, and how a program writes dates, are not settings of
// the text's language that a mixture of locales is made for.
void carry_standard_facets(locale &to, locale::imp *from, int categories) {
  if (categories & locale::numeric) {
    to.set_imp(from, numpunct<char>::id);
    to.set_imp(from, num_put<char>::id);
    to.set_imp(from, num_get<char>::id);
  }
  if (categories & locale::ctype) to.set_imp(from, ctype<char>::id);
  if (categories & locale::monetary) {
    to.set_imp(from, moneypunct<char, true>::id);
    to.set_imp(from, moneypunct<char, false>::id);
    to.set_imp(from, money_put<char>::id);
    to.set_imp(from, money_get<char>::id);
  }
  if (categories & locale::collate) to.set_imp(from, collate<char>::id);
}

}  // namespace __zor
