// Groups of digits (1998, 22.2.3.1.2), for numbers and for money, both ways.
//
// A grouping text has one byte for the size of each group, from the last group of the number to the first; its last
// byte holds for all groups before. Where a size is unlimited, all digits that are left make one group.
//
//     sizes "\2\3"     1,234,567,89       group 0 has two digits, groups 1, 2, ... have three each
//                      head  2   1  0
#pragma once

#include <string>

namespace __zor {

class group_sizes {
public:
  // What other bytes than small sizes mean, which is not the same everywhere.
  enum a_rule : unsigned char {
    of_written,  // 127 is unlimited; a byte that is not positive ends the text, so that the size before it holds on
    of_read,     // 127 is unlimited; the low four bits of any other byte count
    of_money     // 127, and a byte that is not positive, are unlimited
  };
  static constexpr unsigned unlimited = ~0u;

  group_sizes(a_rule rule, const char *text, unsigned length) noexcept
      : text_(reinterpret_cast<const signed char *>(text)), length_(length), rule_(rule) {
    if (rule == of_written)
      for (length_ = 0; length_ < length && text_[length_] > 0;) ++length_;
  }

  bool empty() const noexcept { return length_ == 0; }
  unsigned length() const noexcept { return length_; }

  unsigned operator[](unsigned group) const noexcept {
    if (empty()) return unlimited;
    const int size = text_[group < length_ ? group : length_ - 1];
    if (size == 127 || (size <= 0 && rule_ != of_read)) return unlimited;
    return static_cast<unsigned>(rule_ == of_read ? size & 15 : size);
  }

private:
  const signed char *text_;
  unsigned length_;
  a_rule rule_;
};

// Where the separators go among so many digits that are to be written.
struct digit_groups {
  digit_groups(const group_sizes &sizes, unsigned digits) noexcept : head(digits), separators(0) {
    for (; sizes[separators] < head; ++separators) head -= sizes[separators];
  }

  unsigned head;        // digits before the first separator
  unsigned separators;  // sizes[i] digits follow the separator i, the last of which is 0
};

// Whether digits that are read are grouped rightly. Their number has no limit, and is checked in the space of two
// grouping texts: a group's digits are kept while it may still turn out to be in front of the last byte of the text,
// and are compared with that when it no longer may. Holds strings: a local of this type is an eh_local.
class group_check {
public:
  template <class Punctuation> group_check(group_sizes::a_rule rule, const Punctuation &facet)
      : text_(facet.grouping()), sizes_(rule, text_.data(), text_.size()) {}

  // Without a grouping there are no separators.
  bool allowed() const { return !sizes_.empty(); }
  const group_sizes &sizes() const { return sizes_; }

  void digit() { ++current_; }
  void separator();
  bool at_group_start() const { return current_ == 0; }

  // At the end of the digits. Without separators, there is nothing to hold.
  bool hold();

private:
  void close();
  bool fits(unsigned char digits, unsigned group) const { return digits == sizes_[group]; }

  const std::string text_;
  const group_sizes sizes_;
  std::string groups_;  // digits of the last groups, as a ring: group i after the first separator is at i % length
  unsigned separators_ = 0;
  unsigned first_ = 0;    // digits before the first separator
  unsigned current_ = 0;  // digits since the last separator
  bool bad_ = false;
};

}  // namespace __zor
