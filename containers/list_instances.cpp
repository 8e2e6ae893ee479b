// The lists that the library carries.

#include "cleanup_by_hand.h"

#include <list>

template class std::list<int>;
template class std::list<char>;
