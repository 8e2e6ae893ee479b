// Whether the program brought its own operator new or operator delete (1998, 17.4.3.4). Then every allocation of the
// library goes through them, and no block may come from anywhere else.
//
// The shared object (shared/replaced_new.cpp) sees it by the functions' addresses; a program with libplx.a in it
// (archive/replaced_new.cpp) by which of the objects below the linker took in: each stands beside its function.
#pragma once

#include <plx/base/config.h>

// For the forms of operator new and delete that share a file: a program may bring one of them and use another.
#define PLX_REPLACEABLE __attribute__((__weak__))

namespace __zor {

enum replaced_allocation : unsigned char { replacement_was_asked = 1, replaced_new = 2, replaced_array_new = 4 };

// The answers, or 0 before the first question.
extern PLX_HIDDEN unsigned char replaced_allocations;

// Fills in and returns `replaced_allocations`.
PLX_HIDDEN PLX_COLD unsigned char ask_for_replacements();

inline bool is_replaced(replaced_allocation functions) {
  unsigned char answers = replaced_allocations;
  if (__builtin_expect(answers == 0, 0)) answers = ask_for_replacements();
  return answers & functions;
}

inline bool operator_new_is_replaced() { return is_replaced(replaced_new); }

// One of those, or of operator new[] and operator delete[].
inline bool array_operator_new_is_replaced() { return is_replaced(replaced_array_new); }

// Asked once, by ask_for_replacements.
bool finds_replaced_new();
bool finds_replaced_array_new();

extern PLX_HIDDEN const char own_operator_new, own_operator_delete, own_operator_new_array, own_operator_delete_array;

}  // namespace __zor
