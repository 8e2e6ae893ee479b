// Blocks of string buffers. A program that replaced an allocation function sees every block, in the sizes of the rule,
// by operator new[]; any other gets larger ones from the C library, so that appending is linear in all.
#pragma once

namespace __zor {

enum allocation_habit : unsigned char { habit_unknown, habit_by_rule, habit_free };

// Found out at the first use; asked again it is a load.
extern __attribute__((__visibility__("hidden"))) allocation_habit string_block_habit;
allocation_habit find_string_block_habit();

inline bool string_blocks_are_free() {
  const allocation_habit habit = string_block_habit;
  return (habit != habit_unknown ? habit : find_string_block_habit()) == habit_free;
}

// The room to ask for when a block of `room` bytes must hold `needed` characters.
inline unsigned grown_string_room(unsigned room, unsigned needed) {
  const unsigned grown = room < 4096 ? 4 * room : room < 0x40000000 ? 2 * room : room + room / 8;
  return ((grown > needed ? grown : needed) & ~63u) + 64;
}

}  // namespace __zor
