// The deques that the library carries.

#include "cleanup_by_hand.h"

#include <deque>

template class std::deque<int>;
template class std::deque<char>;
