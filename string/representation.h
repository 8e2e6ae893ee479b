// Making, filling and giving up representations: what the files of the core share. Nothing here looks at a count
// except to give a representation up.
#pragma once

#include <string.h>

#include <plx/string_core.h>

#include "block_pool.h"

namespace __zor {

constexpr unsigned no_limit = 0xFFFFFFFFu;

// The capacity for n characters: the next multiple of 32 above n, and 0 where that is no 32-bit number.
inline unsigned capacity_for(unsigned n) { return (n & ~31u) + 32; }

inline char *own_buffer(b_str_ref *rep) { return reinterpret_cast<char *>(rep + 1); }

// Copying and filling that also take null pointers for nothing.
inline void copy_characters(char *to, const char *from, unsigned n) {
  if (n) memcpy(to, from, n);
}
inline void move_characters(char *to, const char *from, unsigned n) {
  if (n) memmove(to, from, n);
}
inline void fill_characters(char *to, unsigned n, char c) {
  if (n) memset(to, c, n);
}

inline unsigned in_steps(unsigned bytes) { return (bytes + block_pool::step - 1) & ~(block_pool::step - 1); }

inline b_str_ref *make_in_block(unsigned bytes, unsigned capacity) {
  b_str_ref *rep = static_cast<b_str_ref *>(pool_take(bytes));
  rep->count = 1;
  rep->data = own_buffer(rep);
  rep->capacity = capacity;
  rep->room = bytes - sizeof(b_str_ref);
  rep->block = bytes;
  return rep;
}

// An empty representation with this capacity, one owner, and at least `room` bytes where that is more than the capacity
// needs. Its characters are not set. Throws bad_alloc.
b_str_ref *make_large_representation(unsigned capacity, unsigned room);
inline b_str_ref *make_representation(unsigned capacity, unsigned room = 0) {
  const unsigned wanted = capacity < room ? room : capacity + 1;
  if (__builtin_expect(capacity - 1u >= 0x1000 || wanted >= 0x2000, false))
    return make_large_representation(capacity, room);
  return make_in_block(in_steps(wanted + sizeof(b_str_ref)), capacity);
}

inline void set_length(b_str_ref *rep, unsigned length) {
  rep->length = length;
  rep->data[length] = 0;
}

// A buffer outside the representation's block.
inline void free_buffer(b_str_ref *rep) PLX_NOTHROW {
  if (__builtin_expect(rep->data != own_buffer(rep), false)) pool_give(rep->data, rep->room);
}

inline void free_representation(b_str_ref *rep) PLX_NOTHROW {
  free_buffer(rep);
  pool_give(rep, rep->block);
}

// The string's old representation loses an owner, the new one is put in its place.
inline void take_over(b_str_ref *&rep, b_str_ref *made) {
  if (string_is_private(rep))
    free_representation(rep);
  else
    --rep->count;
  rep = made;
}

// The room to ask for when a representation outgrows its own: twice as much, so that appending is linear in all.
inline unsigned grown_room(const b_str_ref *rep) {
  return rep->room < 0x30000000 ? 2 * rep->room : rep->room + rep->room / 8;
}

// A private representation can hold n characters at this capacity without a new block.
inline bool has_room(const b_str_ref *rep, unsigned n, unsigned capacity) {
  return n < rep->room && capacity < rep->room;
}

// The representation that all empty strings share; static, never freed.
extern b_str_ref null_representation;

}  // namespace __zor
