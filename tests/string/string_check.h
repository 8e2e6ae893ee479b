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
  if (sizeof text != sizeof rep) return 1;
  if (!rep) return 2;
  if (rep->count == 0) return 3;
  if (!rep->data) return 4;
  if (rep->data[rep->length] != 0) return 5;
  if (rep->capacity == 0 || rep->capacity % 32 != 0) return 6;
  if (rep->length > rep->capacity) return 7;
  if (rep == null_rep()) {
    if (rep->length != 0) return 8;
    if (rep->count < 2 || rep->count == unshareable) return 9;  // the class keeps one for itself
    return 0;
  }
  if (rep->capacity >= rep->_room) return 10;
  const unsigned int block = rep->_block & ~1u;
  if (block % 32 != 0 || block < 64) return 11;
  const bool inside = rep->data == reinterpret_cast<const char *>(rep + 1);
  if (inside && rep->_room != block - sizeof *rep) return 12;
  if (!inside && (rep->_room % 32 != 0 || rep->_block == block)) return 13;
  return 0;
}

#define CHECK_STRING(text, want)             \
  do {                                       \
    const std::string &checked = (text);     \
    CHECK_INT(broken_invariant(checked), 0); \
    CHECK_TEXT(checked.c_str(), (want));     \
    CHECK_INT(checked.size(), strlen(want)); \
  } while (0)

#endif
