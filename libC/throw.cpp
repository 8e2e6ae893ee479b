// A throw: search for a handler, unwind to it, jump. The search changes nothing but the throw's own state, so a
// handler is known before the first destructor runs. This is the whole of it for programs of generated C; where there
// are frames of C++ too, unwind/ leads, and asks here about each entry.
//
//   __curr_eh_stack_entry -> marker -> ... inner entries ... -> H -> ...       before
//   __curr_eh_stack_entry -> marker -> H -> ...                                when H is reached
//
// The marker's link moves on before each entry is unwound, never back: clean-ups of C++ frames run on the frame's
// own stack and free what lies below, so no link may lead through entries that are done with.

#include "foreign.h"
#include "frames.h"
#include "i386/jump_buffer.h"
#include "probe.h"
#include "throw_stack.h"

using namespace __zor;

namespace __zor {
void (*throw_across_frames)(a_throw_stack_entry *, const a_saved_frame *);
unsigned address_without_table;
}  // namespace __zor

namespace {

// What clauses of generated code compare: described once, also for a foreign type.
void describe(a_throw_stack_entry *thrown) {
  if (!thrown->type) foreign_describe(native_type(thrown), &thrown->type, &thrown->flags);
}

void *thrown_value(a_throw_stack_entry *thrown) {
  return thrown->flags & PLX_TYPE_POINTER ? *static_cast<void **>(thrown->object) : thrown->object;
}

int match_list(const an_exception_type_specification *list, a_throw_stack_entry *thrown, void **object) {
  // The usual case first: the list's first type is the very one thrown, and no pointer.
  if (list->type == thrown->type && !((list->flags | thrown->flags) & PLX_TYPE_POINTER)) return 1;
  return match_specification(list, thrown->type, thrown->flags, thrown->qualifier_string, thrown->access_value, object);
}

// The exception would escape from code that must not be left: terminate on the stack as it stands.
[[noreturn]] void stop_at(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  __curr_eh_stack_entry = entry;
  thrown->handled = 1;
  if (entry->kind == PLX_EH_IN_PROGRESS) __exception_caught();
  __call_terminate();
}

inline an_unexpected_guard *guard_at(an_eh_stack_entry *entry) {
  return reinterpret_cast<an_unexpected_guard *>(entry);
}

inline bool choose(a_throw_state &state, an_eh_stack_entry *entry) {
  state.final.next_entry = entry;
  state.final.selector = 1;
  return true;
}

PLX_ALWAYS_INLINE bool looks_at(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  a_throw_state &state = state_of(thrown);
  switch (entry->kind) {
    case PLX_EH_TRY_BLOCK: {
      if (entry->body.try_block.handled_exception) return false;
      const an_exception_type_specification *list = entry->body.try_block.clause_list;
      describe(thrown);
      void *value = thrown_value(thrown);
      int clause = list ? match_list(list, thrown, &value) : 1;
      if (!clause) return false;
      if (!state.final.next_entry) {
        state.final.next_entry = entry;
        state.final.selector = clause;
        state.adjusted = value;
      }
      // A try without a list keeps its match, but the search goes on.
      return list;
    }
    case PLX_EH_SPECIFICATION: {
      // After a try without a list the search could not end here; generated code never makes such a stack.
      if (state.final.next_entry) assertion_failed(unknown_kind_in_search);
      const an_exception_type_specification *list = entry->body.specification.allowed_list;
      describe(thrown);
      return !(list && match_list(list, thrown, nullptr)) && choose(state, entry);
    }
    case eh_unexpected_guard:
      return !state.final.next_entry && guard_at(entry)->stops(guard_at(entry), thrown) && choose(state, entry);
    case PLX_EH_IN_PROGRESS:
      if (state.final.next_entry) assertion_failed(unknown_kind_in_search);
      stop_at(entry, thrown);
    case eh_terminate_barrier: stop_at(entry, thrown);
    case PLX_EH_FUNCTION:
    case PLX_EH_ARRAY:
    case eh_detour: return false;
    default: assertion_failed(unknown_kind_in_search);
  }
}

[[noreturn]] PLX_ALWAYS_INLINE void handle_in_try(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  const a_throw_state &state = state_of(thrown);
  const unsigned short region = entry->body.try_block.try_region;
  if (__eh_curr_region != region) {
    an_eh_stack_entry *function = entry->next;
    while (function && function->kind != PLX_EH_FUNCTION) function = function->next;
    if (function) clean_up_regions(function, __eh_curr_region, region);
    __eh_curr_region = region;
    if (__curr_eh_stack_entry != &thrown->marker) assertion_failed(head_has_changed);
  }
  thrown->handled = 1;
  PLX_PROBE("catch", thrown->object, thrown->type);
  __catch_clause_number = state.final.selector;
  if (thrown->flags & PLX_TYPE_POINTER) {
    thrown->pointer_slot = state.adjusted;
    __caught_object_address = &thrown->pointer_slot;
  } else {
    __caught_object_address = state.adjusted;
  }
  entry->body.try_block.handled_exception = thrown;
  give_back_records(thrown);
  jump_to_buffer(entry->body.try_block.jump_buffer);
}

}  // namespace

namespace __zor {

bool search_entry(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) { return looks_at(entry, thrown); }

void search_entries(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  while (entry && !looks_at(entry, thrown)) entry = entry->next;
}

void unwind_entry(an_eh_stack_entry *entry) {
  switch (entry->kind) {
    case PLX_EH_FUNCTION:
      clean_up_regions(entry, __eh_curr_region, PLX_NO_REGION);
      __eh_curr_region = entry->body.function.saved_region;
      break;
    case PLX_EH_ARRAY: __cleanup_vec_new_or_delete(entry); break;
    case PLX_EH_TRY_BLOCK:
      // The exception leaves a handler: what was caught there ends now, before the locals of that handler's function.
      if (entry->body.try_block.handled_exception) release(entry->body.try_block.handled_exception);
      break;
    case PLX_EH_SPECIFICATION:
    case PLX_EH_IN_PROGRESS:
    case eh_detour:
    case eh_unexpected_guard: break;
    default: assertion_failed(unknown_kind_in_unwinding);
  }
}

void unwind_entries(a_throw_stack_entry *thrown, an_eh_stack_entry *last) {
  for (an_eh_stack_entry *entry; (entry = thrown->marker.next) && entry != last;) {
    if (pending_throws) end_waits_at(entry);
    thrown->marker.next = entry->next;
    unwind_entry(entry);
  }
}

void enter_handler(an_eh_stack_entry *entry, a_throw_stack_entry *thrown, const a_landing *frame) {
  // A landing in a frame of C++ may well have this entry before it, and be inside of what waits here.
  if (pending_throws) end_waits_at(entry);
  if (__curr_eh_stack_entry != &thrown->marker) assertion_failed(head_has_changed);
  if (entry->kind == PLX_EH_TRY_BLOCK) handle_in_try(entry, thrown);
  thrown->handled = 1;
  __curr_eh_stack_entry = entry->next;
  a_detour detour;
  if (frame) {
    detour.next = *frame;
    detour.entry.kind = eh_detour;
    detour.entry.next = entry->next;
    __curr_eh_stack_entry = &detour.entry;
  }
  if (entry->kind == eh_unexpected_guard) guard_at(entry)->replace(guard_at(entry), thrown);
  begin_wait(thrown, a_pending_step::unexpected, entry->next, &entry);
  __call_unexpected();
}

void throw_exception(a_throw_stack_entry *thrown, const a_saved_frame *thrower) {
  if (!thrown->started) start(thrown);
  if (__curr_eh_stack_entry != &thrown->marker) assertion_failed(nothing_to_throw);
  a_throw_state &state = state_of(thrown);
  state.final.next_entry = nullptr;
  if (throw_across_frames) throw_across_frames(thrown, thrower);
  search_entries(thrown->marker.next, thrown);
  an_eh_stack_entry *handler = state.final.next_entry;
  unwind_entries(thrown, handler);
  if (!handler) end_without_handler(thrown);
  enter_handler(handler, thrown, nullptr);
}

void end_without_handler(a_throw_stack_entry *thrown) {
  thrown->handled = 1;
  __exception_caught();
  __call_terminate();
}

}  // namespace __zor

extern "C" {

[[noreturn]] PLX_REGPARM PLX_HIDDEN __attribute__((__used__)) void __zor_throw_from(const a_saved_frame *thrower) {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  if (!thrown) assertion_failed(nothing_to_throw);
  end_wait(thrown);
  thrown->thrown = 1;
  PLX_PROBE("throw", thrown->object, thrown->type);
  throw_exception(thrown, thrower);
}

[[noreturn]] PLX_REGPARM PLX_HIDDEN __attribute__((__used__)) void __zor_rethrow_from(const a_saved_frame *thrower) {
  a_throw_stack_entry *source = exception_to_rethrow();
  if (!source) terminate_because(nothing_to_rethrow);
  throw_exception(push_rethrow(source), thrower);
}

}  // extern "C"

void __internal_rethrow() {
  __exception_caught();
  __rethrow();
}

void __eh_exit_processing() { __curr_eh_stack_entry = nullptr; }

void __suppress_optim_on_vars_in_try() { assertion_failed(is_never_called); }
