// The instantiations of num_get: over stream buffers, which every locale holds, and over pointers.
#include <plx/facets/num_get.h>

#include "standard_facets.h"

namespace std {

template class num_get<char, istreambuf_iterator<char, char_traits<char>>>;
template class num_get<char, char *>;
template class num_get<char, const char *>;

}  // namespace std

const __zor::standard_facet __zor::num_get_facet = {made_alike<std::num_get<char>>, &std::num_get<char>::id};
