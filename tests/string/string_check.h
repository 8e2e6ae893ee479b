// Looks into strings: their representation, and the invariants that hold between any two operations.
#ifndef TESTS_STRING_CHECK_H
#define TESTS_STRING_CHECK_H

#include <string>

#include "../harness.h"

static const unsigned int unshareable = 0xFFFFFFFFu;

inline __zor::b_str_ref *rep_of(const std::string &text) { return *reinterpret_cast<__zor::b_str_ref *const *>(&text); }

inline unsigned int count_of(const std::string &text) { return rep_of(text)->count; }

// The representation that empty strings share.
inline __zor::b_str_ref *null_rep() {
  static const std::string empty;
  return rep_of(empty);
}

// The number of the first broken invariant, 0 when all hold.
static TEST_UNUSED int broken_invariant(const std::string &text) {
  const __zor::b_str_ref *rep = rep_of(text);
  if (sizeof text != sizeof rep || !rep || rep->count == 0 || !rep->data) return 1;
  if (rep->data[rep->length] != 0 || rep->length > rep->capacity) return 2;
  if (rep->capacity == 0 || rep->capacity % 32 != 0) return 3;
  // The class keeps the empty one for itself.
  if (rep == null_rep()) return rep->length != 0 || rep->count < 2 || rep->count == unshareable ? 4 : 0;
  const unsigned int block = rep->_block & ~1u;
  if (rep->capacity >= rep->_room || block % 32 != 0 || block < 64) return 5;
  if (rep->data == reinterpret_cast<const char *>(rep + 1)) return rep->_room != block - sizeof *rep ? 6 : 0;
  return rep->_room % 32 != 0 || rep->_block == block ? 7 : 0;
}

#endif
