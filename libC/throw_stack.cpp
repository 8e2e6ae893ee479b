// The rarer operations of the throw stack, and the entry points of generated code that work on it.

#include "throw_stack.h"

#include "probe.h"

namespace __zor {

a_throw_stack_entry *curr_throw_stack_entry;
a_throw_stack_entry *pending_throws;

void end_older_wait(a_throw_stack_entry *thrown) {
  a_throw_stack_entry **link = &pending_throws;
  while (*link && *link != thrown) link = &state_of(*link).next_pending;
  if (*link) *link = state_of(thrown).next_pending;
}

namespace {

template <class Condition> inline void end_waits(Condition is_over) {
  for (a_throw_stack_entry *thrown = pending_throws, *next; thrown; thrown = next) {
    next = state_of(thrown).next_pending;
    if (!is_over(state_of(thrown))) continue;
    const a_pending_step step = state_of(thrown).step;
    end_wait(thrown);
    if (step == a_pending_step::construction) abandon(thrown);
    if (step == a_pending_step::unexpected) release(thrown);
  }
}

}  // namespace

void end_waits_at(an_eh_stack_entry *reached) {
  end_waits([=](const a_throw_state &state) { return state.base == reached; });
}

void end_waits_below(unsigned stack_pointer) {
  end_waits([=](const a_throw_state &state) { return state.base_address < stack_pointer; });
}

namespace {

an_eh_stack_entry *innermost_idle_try() {
  an_eh_stack_entry *entry = __curr_eh_stack_entry;
  while (entry && (entry->kind != PLX_EH_TRY_BLOCK || entry->body.try_block.handled_exception)) entry = entry->next;
  return entry;
}

// `place` is where the caller's frame ends.
inline void *set_up(const a_type_info_impl *type, int size, unsigned char flags, a_destructor destructor, void *place) {
  // A negative size is no size; as an unsigned one it is refused.
  a_throw_stack_entry *thrown = push_throw(type, static_cast<unsigned int>(size), destructor, flags);
  thrown->catch_context = innermost_idle_try();
  begin_wait(thrown, a_pending_step::construction, __curr_eh_stack_entry, place);
  return thrown->object;
}

}  // namespace

a_throw_stack_entry *push_rethrow(a_throw_stack_entry *source) {
  auto *thrown = static_cast<a_throw_stack_entry *>(eh_alloc_on_stack(sizeof(a_throw_stack_entry)));
  push_entry(thrown, source->type, source->destructor, source->flags, source->object);
  thrown->qualifier_string = source->qualifier_string;
  thrown->access_value = source->access_value;
  thrown->catch_context = innermost_idle_try();
  thrown->source = source;
  thrown->reference_count = 0;
  thrown->is_rethrow = 1;
  ++source->reference_count;
  thrown->thrown = 1;
  if (state_of(source).has_header) {
    an_exception_header *header = state_of(source).exception;
    state_of(thrown).has_header = true;
    state_of(thrown).exception = header;
    PLX_PROBE("rethrow", thrown->object, header->native);
  } else {
    PLX_PROBE("rethrow", thrown->object, thrown->type);
  }
  return thrown;
}

// What is being handled: not what is in flight, and not what a `throw;` has led out of its handler, although its entry
// stays until the rethrow ends.
a_throw_stack_entry *exception_to_rethrow() {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && (!thrown->handled || thrown->released)) thrown = thrown->next;
  return thrown && thrown->is_rethrow ? thrown->source : thrown;
}

// The destructor may throw and handle an exception of its own, whose end frees what is finished down to the first entry
// that waits. Waiting keeps the object that is being destroyed.
void destroy_object(a_throw_stack_entry *owner) {
  begin_wait(owner, a_pending_step::destruction, __curr_eh_stack_entry, &owner);
  owner->destructor(owner->object, 2);
  end_wait(owner);
}

void abandon(a_throw_stack_entry *thrown) {
  thrown->released = thrown->destroyed = 1;
  thrown->reference_count = 0;
}

}  // namespace __zor

using namespace __zor;

void *__throw_setup(const a_type_info_impl *type, int size, unsigned char flags) {
  return set_up(type, size, flags, nullptr, __builtin_dwarf_cfa());
}

void *__throw_setup_dtor(const a_type_info_impl *type, int size, unsigned char flags, a_destructor destructor) {
  return set_up(type, size, flags, destructor, __builtin_dwarf_cfa());
}

void __exception_started() {
  if (!curr_throw_stack_entry) assertion_failed(nothing_to_throw);
  start(curr_throw_stack_entry);
}

void __exception_caught() {
  an_eh_stack_entry *head = __curr_eh_stack_entry;
  if (!head || head->kind != PLX_EH_IN_PROGRESS) assertion_failed(nothing_to_catch);
  __curr_eh_stack_entry = head->next;
}

void __free_thrown_object() {
  if (!curr_throw_stack_entry) assertion_failed(nothing_to_free);
  release(curr_throw_stack_entry);
  free_finished_throws();
}
