// The vector of facets that the library carries ready-made for programs; its own tables are light-weight vectors.

#include "../containers/cleanup_by_hand.h"

#include <vector>

#include <plx/locale/locale_core.h>

template class std::vector<std::locale::facet *>;
