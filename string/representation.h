// Making, filling and giving up representations: what the files of the core share. Nothing here looks at a count
// except to give a representation up.
#pragma once

#include <stddef.h>

#include <plx/base/prefetch.h>
#include <plx/string/string_core.h>

#include "../libC/i386/short_copy.h"
#include "block_pool.h"

namespace __zor {

constexpr unsigned no_limit = 0xFFFFFFFFu;

// Programs hold these offsets.
static_assert(offsetof(b_str_ref, count) == 4 && offsetof(b_str_ref, data) == 8 && offsetof(b_str_ref, length) == 12 &&
                  offsetof(b_str_ref, capacity) == 16,
              "the layout of a representation");

// The capacity for n characters: the next multiple of 32 above n, and 0 where that is no 32-bit number.
inline unsigned capacity_for(unsigned n) { return (n & ~31u) + 32; }

// Out of line for the reason that short_copy.h gives.
[[noreturn]] PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void fail_out_of_range();
[[noreturn]] PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void fail_length();

inline unsigned in_steps(unsigned bytes) { return (bytes + block_step - 1) & ~(block_step - 1); }

// An empty representation with this capacity, one owner, and at least `room` bytes where that is more than the capacity
// needs. Its characters are not set. Throws bad_alloc.
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM b_str_ref *make_roomy_representation(unsigned capacity, unsigned room);
PLX_ALWAYS_INLINE b_str_ref *make_representation(unsigned capacity) {
  static_assert(sizeof(b_str_ref) < block_step, "one step holds the fields and the terminator");
  if (__builtin_expect(capacity <= largest_pooled - block_step, true)) {
    free_block *&head = free_strings[capacity / block_step + 1];  // never filled where the capacity is 0
    if (__builtin_expect(head != nullptr, true)) {
      b_str_ref *rep = reinterpret_cast<b_str_ref *>(head);
      head = head->next;
      _prefetch_unless_null(head, rep);  // where many were freed, the next has left the cache
      rep->count = 1;
      rep->capacity = capacity;
      return rep;
    }
  }
  return make_roomy_representation(capacity, 0);
}

// Whether a representation of n characters can be made from a pooled block, which cannot fail.
inline bool has_block_for(unsigned n) {
  const unsigned capacity = capacity_for(n);
  return n < largest_pooled - 2 * block_step && free_strings[capacity / block_step + 1];
}

// Gives a private representation this capacity and room in a larger block; its other fields and characters stay. Null
// where that is no gain over copying: then nothing was changed.
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM b_str_ref *extend_representation(b_str_ref *rep, unsigned capacity, unsigned room);

inline void set_length(b_str_ref *rep, unsigned length) {
  rep->length = length;
  rep->data[length] = 0;
}

PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void free_special_representation(b_str_ref *rep) PLX_NOTHROW;
PLX_ALWAYS_INLINE void free_representation(b_str_ref *rep) PLX_NOTHROW {
  const unsigned bytes = rep->_block;
  if (__builtin_expect(bytes & block_is_special, false)) return free_special_representation(rep);
  free_block *block = reinterpret_cast<free_block *>(rep);
  free_block *&head = free_strings[bytes / block_step];
  block->next = head;
  head = block;
}

// The string's old representation loses an owner, the new one is put in its place.
inline void take_over(b_str_ref *&rep, b_str_ref *made) {
  if (_string_is_private(rep))
    free_representation(rep);
  else
    --rep->count;
  rep = made;
}

// The room to ask for when a representation outgrows its own: twice as much, so that appending is linear in all.
inline unsigned grown_room(const b_str_ref *rep) {
  return rep->_room < 0x30000000 ? 2 * rep->_room : rep->_room + rep->_room / 8;
}

PLX_ALWAYS_INLINE b_str_ref *make_text(const char *text, unsigned n) {
  b_str_ref *rep = make_representation(capacity_for(n));
  char *data = own_buffer(rep);
  rep->length = n;
  data[n] = 0;
  copy_characters(data, text, n);
  return rep;
}

// A private representation can hold n characters at this capacity without a new block.
inline bool has_room(const b_str_ref *rep, unsigned n, unsigned capacity) {
  return n < rep->_room && capacity < rep->_room;
}

// The representation that all empty strings share; static, never freed.
extern PLX_HIDDEN b_str_ref null_representation;

}  // namespace __zor
