// Blocks of string buffers. A program that replaced an allocation function sees every block, in the sizes of the rule,
// by operator new[]; any other gets larger ones from the C library, so that appending is linear in all.
#pragma once

#include "../libC/replaced_new.h"

namespace __zor {

inline bool string_blocks_are_free() { return !array_operator_new_is_replaced(); }

// The room to ask for when a block of `room` bytes must hold `needed` characters.
inline unsigned grown_string_room(unsigned room, unsigned needed) {
  const unsigned grown = room < 4096 ? 4 * room : room < 0x40000000 ? 2 * room : room + room / 8;
  return ((grown > needed ? grown : needed) & ~63u) + 64;
}

}  // namespace __zor
