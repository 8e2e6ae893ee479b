// Comparing texts by a locale. In a file of its own: few programs that have locales sort by them.

#include <plx/facets/collate.h>

bool std::locale::_before(const char *lo1, const char *hi1, const char *lo2, const char *hi2) const {
  return use_facet<std::collate<char>>(*this).compare(lo1, hi1, lo2, hi2) < 0;
}
