// The throw stack: one entry for each exception object that exists, whether under construction, in flight, being
// handled or thrown again. Entries are pushed by the setup calls and by rethrows, give up their reference when their
// handler ends, and are freed once they are on top.
//
// Code that runs on behalf of an entry (the construction of its object, the unexpected handler, its destructor) can be
// left by a newer exception. Each such entry waits at the head that the eh stack had then; unwinding that reaches this
// point, or a C++ frame above it, ends the wait. Comparing positions while unwinding, not addresses of try blocks
// later, is what makes it safe: a later call may well put another try block at the same stack address.
//
// What every throw does is inline.
#pragma once

#include "eh_memory.h"
#include "eh_state.h"

namespace __zor {

extern a_throw_stack_entry *curr_throw_stack_entry;
extern a_throw_stack_entry *pending_throws;  // entries with a wait, newest first

a_throw_stack_entry *push_rethrow(a_throw_stack_entry *source);
a_throw_stack_entry *exception_to_rethrow();  // null: none is being handled
constexpr const char *nothing_to_rethrow = "throw; while no exception is being handled";
void abandon(a_throw_stack_entry *thrown);
void end_older_wait(a_throw_stack_entry *thrown);
void end_waits_at(an_eh_stack_entry *reached);  // unwinding has reached this entry
void end_waits_below(unsigned stack_pointer);   // it lands here, in a frame above who waits
void destroy_object(a_throw_stack_entry *owner);

// `place` lies in the frame of who waits, above the frames of what is called on the entry's behalf.
inline void begin_wait(a_throw_stack_entry *thrown, a_pending_step step, an_eh_stack_entry *base, void *place) {
  a_throw_state &state = state_of(thrown);
  state.step = step;
  state.base = base;
  state.base_address = reinterpret_cast<unsigned>(place);
  state.next_pending = pending_throws;
  pending_throws = thrown;
}

PLX_ALWAYS_INLINE void end_wait(a_throw_stack_entry *thrown) {
  state_of(thrown).step = a_pending_step::none;
  if (__builtin_expect(pending_throws == thrown, 1))
    pending_throws = state_of(thrown).next_pending;
  else
    end_older_wait(thrown);
}

inline void push_entry(a_throw_stack_entry *thrown, const a_type_info_impl *type, a_destructor destructor,
                       unsigned char flags, void *object) {
  thrown->next = curr_throw_stack_entry;
  thrown->type = type;
  thrown->destructor = destructor;
  thrown->flags = flags;
  thrown->qualifier_string = nullptr;
  thrown->object = object;
  thrown->pointer_slot = nullptr;
  thrown->catch_context = nullptr;
  thrown->source = nullptr;
  thrown->reference_count = 1;
  thrown->is_rethrow = thrown->released = thrown->destroyed = thrown->handled = 0;
  thrown->started = thrown->thrown = thrown->access_value = 0;
  thrown->marker.next = nullptr;
  thrown->marker.kind = PLX_EH_IN_PROGRESS;
  a_throw_state &state = state_of(thrown);
  state.step = a_pending_step::none;
  state.caught = state.has_header = false;
  state.exception = nullptr;
  state.records = nullptr;
  curr_throw_stack_entry = thrown;
}

// Pushes a throw with storage for its object.
PLX_ALWAYS_INLINE a_throw_stack_entry *push_throw(const a_type_info_impl *type, unsigned int bytes,
                                                  a_destructor destructor, unsigned char flags) {
  void *entry;
  void *object = eh_alloc_two_on_stack(bytes, sizeof(a_throw_stack_entry), &entry);
  auto *thrown = static_cast<a_throw_stack_entry *>(entry);
  push_entry(thrown, type, destructor, flags, object);
  return thrown;
}

// Pushes a throw of C++: entry, header and object in one piece. The alignment of a type divides its size, so the size
// tells the most that the object can need; 16 is what the C++ ABI promises to any.
PLX_ALWAYS_INLINE a_throw_stack_entry *push_throw_with_header(unsigned int bytes) {
  const unsigned int fixed = sizeof(a_throw_stack_entry) + sizeof(an_exception_header);
  unsigned int alignment = bytes & -bytes;
  if (alignment <= 16) alignment = 16;
  if (alignment > 4096) alignment = 4096;
  // Pieces are aligned to 8. An impossible size stays one.
  void *piece = eh_alloc_on_stack(bytes > 0x7FFF0000 ? bytes : fixed + alignment - 8 + bytes);
  auto *thrown = static_cast<a_throw_stack_entry *>(piece);
  const unsigned int object = (reinterpret_cast<unsigned int>(piece) + fixed + alignment - 1) & -alignment;
  push_entry(thrown, nullptr, nullptr, 0, reinterpret_cast<void *>(object));
  a_throw_state &state = state_of(thrown);
  state.has_header = true;
  auto *header = reinterpret_cast<an_exception_header *>(object) - 1;
  state.exception = header;
  header->thrown = nullptr;
  header->landed = nullptr;
  header->native = nullptr;
  return thrown;
}

inline void start(a_throw_stack_entry *thrown) {
  thrown->marker.next = __curr_eh_stack_entry;
  __curr_eh_stack_entry = &thrown->marker;
  thrown->started = 1;
}

// The landings that were recorded beside the entry are behind it, but for those that are its own.
inline void give_back_records(a_throw_stack_entry *thrown) {
  a_throw_state &state = state_of(thrown);
  if (state.records > &state.spare) eh_shrink_on_stack(thrown, landing_records * sizeof(a_landing));
  state.records = nullptr;
}

// An older throw of the same object has the header again: it may go on with its own clean-up.
inline void give_back_header(a_throw_stack_entry *thrown) {
  const a_throw_state &state = state_of(thrown);
  an_exception_header *header = state.exception;
  if (!header || header->thrown != thrown) return;
  header->thrown = state.older_thrown;
  header->landed = state.older_landed;
}

// The entry gives up its reference; the last one takes the object with it.
inline void release(a_throw_stack_entry *thrown) {
  if (thrown->released) return;
  thrown->released = 1;
  give_back_header(thrown);
  a_throw_stack_entry *owner = thrown->is_rethrow ? thrown->source : thrown;
  if (--owner->reference_count != 0 || owner->destroyed) return;
  owner->destroyed = 1;
  if (owner->thrown && owner->destructor && !(owner->flags & PLX_TYPE_POINTER)) destroy_object(owner);
}

// Frees what is finished, from the top down to the first entry that is not, or to `kept`.
PLX_ALWAYS_INLINE void free_finished_throws(const a_throw_stack_entry *kept = nullptr) {
  while (a_throw_stack_entry *thrown = curr_throw_stack_entry) {
    if (thrown == kept || !thrown->released || state_of(thrown).step != a_pending_step::none) break;
    curr_throw_stack_entry = thrown->next;
    if (thrown->is_rethrow || state_of(thrown).has_header) {
      eh_free_on_stack(thrown);
    } else {
      if (!thrown->destroyed) assertion_failed(object_is_not_destroyed);
      eh_free_two_on_stack(thrown->object, thrown);
    }
  }
}

}  // namespace __zor
