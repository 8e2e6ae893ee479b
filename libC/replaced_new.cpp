// The answers that replaced_new.h remembers.

#include "replaced_new.h"

namespace __zor {

unsigned char replaced_allocations;

unsigned char ask_for_replacements() {
  unsigned char answers = replacement_was_asked;
  if (finds_replaced_new()) answers |= replaced_new | replaced_array_new;
  if (finds_replaced_array_new()) answers |= replaced_array_new;
  return replaced_allocations = answers;
}

}  // namespace __zor
