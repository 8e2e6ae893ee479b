// Whether the digits of a number are grouped as its locale says (1998, 22.2.3.1.2).
//
// A grouping text has one character for the size of each group, from the last group of the number to the first; its
// last character holds for all groups before. The first group may be shorter, and with the size 127 as long as it
// likes. Numbers of any length are checked in the space of two grouping texts: sizes are kept while they may still turn
// out to be in front of the last character of the text, and are compared with that when they no longer may.
#pragma once

#include <string>

#include <plx/facets/numpunct.h>

namespace __zor {

// Holds strings: a local of this type is an eh_local.
class digit_groups {
public:
  explicit digit_groups(const std::numpunct<char> &punct)
      : grouping_(punct.grouping()), length_(grouping_.size()), separators_(0), first_(0), current_(0), bad_(false) {}

  // Without a grouping there are no separators.
  bool allowed() const { return length_ != 0; }

  void digit() { ++current_; }
  void separator();

  // At the end of the digits. Without separators, there is nothing to hold.
  bool hold();

private:
  enum { unlimited = 127, size_bits = 15 };

  void close();
  bool fits(unsigned int size, unsigned int i) const {
    return grouping_[i] != unlimited && size == static_cast<unsigned int>(grouping_[i] & size_bits);
  }

  const std::string grouping_;
  const unsigned int length_;
  std::string sizes_;  // of the last groups, as a ring: group i after the first separator is at i % length_
  unsigned int separators_;
  unsigned int first_;    // digits before the first separator
  unsigned int current_;  // digits since the last separator
  bool bad_;
};

}  // namespace __zor
