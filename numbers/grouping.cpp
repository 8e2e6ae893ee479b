// Checks groups of digits as they come.
#include "grouping.h"

namespace __zor {

void group_check::separator() {
  if (separators_++ == 0) {
    groups_.assign(sizes_.length(), '\0');
    first_ = current_;
  } else {
    close();
  }
  current_ = 0;
}

// A group behind the first separator is complete: the (separators_ - 2)th of them.
void group_check::close() {
  const unsigned i = separators_ - 2, length = sizes_.length();
  char &place = groups_[i % length];
  if (i >= length && !fits(static_cast<unsigned char>(place), length - 1)) bad_ = true;
  place = static_cast<char>(current_ < 255 ? current_ : 255);  // no group is that long
}

bool group_check::hold() {
  if (separators_ == 0) return true;
  ++separators_;
  close();
  const unsigned groups = separators_ - 1, length = sizes_.length();
  for (unsigned i = 0; i < groups && i < length; ++i)
    if (!fits(static_cast<unsigned char>(groups_[(groups - 1 - i) % length]), i)) return false;
  return !bad_ && first_ <= sizes_[groups];
}

}  // namespace __zor
