// The instantiations of num_get: over stream buffers, which every locale holds, and over pointers.
#include <plx/num_get.h>

namespace std {

template class num_get<char, istreambuf_iterator<char, char_traits<char>>>;
template class num_get<char, char *>;
template class num_get<char, const char *>;

}  // namespace std
