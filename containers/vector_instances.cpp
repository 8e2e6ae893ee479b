// The vectors that the library carries. Their elements are plain, so an allocation that fails leaves nothing to undo.

#include "cleanup_by_hand.h"

#include <vector>

template class std::vector<long>;
template class std::vector<char>;
template class std::vector<void *>;
