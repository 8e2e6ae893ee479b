// The texts of time_put.

#include <plx/facets/time_put.h>

#include <string.h>

#include "ios_base_access.h"
#include "time_names.h"
#include "standard_facets.h"

using namespace std;

namespace __zor {

const ctype<char> &_begin_time_put(ios_base &str) {
  const ctype<char> &classes = use_facet<ctype<char>>(_ios_base_access::loc(str));
  environment_time_names();
  return classes;
}

const char *_expanded_time_format(char conversion) PLX_NOTHROW {
  switch (conversion) {
    case 'c': return "%a %b %d %H:%M:%S %Y";
    case 'x': return "%m/%d/%y";
    case 'X': return "%H:%M:%S";
    default: return nullptr;
  }
}

char *_make_time_text(char *text, char conversion, const tm *t, const timepunct<char> *names) {
  if (names) return names->_write(text, conversion, *t);
  const a_time_name_list environment = environment_time_names();
  const unsigned which = time_name_for(conversion, *t);
  return which < time_name_count ? stpcpy(text, environment[which]) : write_time(text, conversion, *t, "");
}

}  // namespace __zor

namespace std {

template class time_put<char, ostreambuf_iterator<char>>;
template class time_put_byname<char, ostreambuf_iterator<char>>;

}  // namespace std

const __zor::standard_facet __zor::time_put_facet = {made_alike<std::time_put<char>>, &std::time_put<char>::id};
