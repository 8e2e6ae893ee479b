// numpunct<char>: the C library's punctuation of numbers, copied when the facet is built.

#include <plx/facets/numpunct.h>

#include "../libC/eh_tools.h"
#include "c_locale.h"
#include "standard_facets.h"

using namespace __zor;

namespace std {

locale::id numpunct<char>::id;

// A constructor that throws does not destroy its members here: everything that may throw is made beside them, and
// sharing a string cannot fail.
void numpunct<char>::_set_default() {
  eh_local<string> yes("true");
  eh_local<string> no("false");
  _decimal_point_ = '.';
  _thousands_sep_ = ',';
  _truename_ = *yes;
  _falsename_ = *no;
}

numpunct<char>::numpunct(const char *name, size_t refs) : facet(refs) {
  eh_local<c_locale_switch> c_library;
  if (name && !c_library->to(name, LC_NUMERIC)) invalid_locale_name();
  const lconv *const punctuation = localeconv();
  eh_local<string> yes("true");
  eh_local<string> no("false");
  eh_local<string> sizes(punctuation->grouping);
  _decimal_point_ = punctuation->decimal_point[0];
  _thousands_sep_ = punctuation->thousands_sep[0];
  _grouping_ = *sizes;
  _truename_ = *yes;
  _falsename_ = *no;
}

numpunct<char>::~numpunct() {}

char numpunct<char>::do_decimal_point() const { return _decimal_point_; }
char numpunct<char>::do_thousands_sep() const { return _thousands_sep_; }
string numpunct<char>::do_grouping() const { return _grouping_; }
string numpunct<char>::do_truename() const { return _truename_; }
string numpunct<char>::do_falsename() const { return _falsename_; }

}  // namespace std

const __zor::standard_facet __zor::numpunct_facet = {made_by_name<std::numpunct<char>>, &std::numpunct<char>::id};
