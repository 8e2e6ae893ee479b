// Checks groups of digits as they come.
#include "digit_groups.h"

namespace __zor {

void digit_groups::separator() {
  if (separators_++ == 0) {
    sizes_.assign(length_, '\0');
    first_ = current_;
  } else {
    close();
  }
  current_ = 0;
}

// A group behind the first separator is complete: the (separators_ - 2)th of them.
void digit_groups::close() {
  const unsigned int i = separators_ - 2;
  char &place = sizes_[i % length_];
  if (i >= length_ && !fits(static_cast<unsigned int>(place), length_ - 1)) bad_ = true;
  place = static_cast<char>(current_ < 100 ? current_ : 100);  // no group is that long
}

bool digit_groups::hold() {
  if (separators_ == 0) return true;
  ++separators_;
  close();
  const unsigned int groups = separators_ - 1;
  for (unsigned int i = 0; i < groups && i < length_; ++i)
    if (!fits(static_cast<unsigned int>(sizes_[(groups - 1 - i) % length_]), i)) return false;
  const char before = grouping_[groups < length_ ? groups : length_ - 1];
  return !bad_ && (before == unlimited || first_ <= static_cast<unsigned int>(before & size_bits));
}

}  // namespace __zor
