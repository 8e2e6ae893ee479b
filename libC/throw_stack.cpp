// The throw stack: one entry for each exception object that exists, whether under construction, in flight, being
// handled or thrown again. Entries are pushed by the setup calls and by rethrows, give up their reference when their
// handler ends, and are freed once they are on top.
//
// Code that runs on behalf of an entry (the construction of its object, the unexpected handler, its destructor) can be
// left by a newer exception. Each such entry waits at the head that the eh stack had then; unwinding that reaches this
// point ends the wait. Comparing positions while unwinding, not addresses of try blocks later, is what makes it safe:
// a later call may well put another try block at the same stack address.

#include "eh_state.h"

namespace __zor {

a_throw_stack_entry *curr_throw_stack_entry;
a_throw_stack_entry *pending_throws;

void begin_wait(a_throw_stack_entry *thrown, a_pending_step step, an_eh_stack_entry *base) {
  a_throw_state &state = state_of(thrown);
  state.step = step;
  state.base = base;
  state.next_pending = pending_throws;
  pending_throws = thrown;
}

void end_wait(a_throw_stack_entry *thrown) {
  a_throw_stack_entry **link = &pending_throws;
  while (*link && *link != thrown) link = &state_of(*link).next_pending;
  if (*link) *link = state_of(thrown).next_pending;
  state_of(thrown).step = a_pending_step::none;
}

void end_waits_at(an_eh_stack_entry *reached) {
  while (pending_throws && state_of(pending_throws).base == reached) {
    a_throw_stack_entry *thrown = pending_throws;
    a_pending_step step = state_of(thrown).step;
    end_wait(thrown);
    if (step == a_pending_step::construction) abandon(thrown);
    if (step == a_pending_step::unexpected) release(thrown);
  }
}

namespace {

an_eh_stack_entry *innermost_idle_try() {
  an_eh_stack_entry *entry = __curr_eh_stack_entry;
  while (entry && (entry->kind != PLX_EH_TRY_BLOCK || entry->body.try_block.handled_exception)) entry = entry->next;
  return entry;
}

a_throw_stack_entry *push(const a_type_info_impl *type, a_destructor destructor, unsigned char flags, void *object) {
  auto *thrown = static_cast<a_throw_stack_entry *>(eh_alloc_on_stack(sizeof(a_throw_stack_entry)));
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
  thrown->is_rethrow = thrown->released = thrown->destroyed = thrown->handled = thrown->started = thrown->thrown = 0;
  thrown->access_value = 0;
  thrown->marker.next = nullptr;
  thrown->marker.kind = PLX_EH_IN_PROGRESS;
  a_throw_state &state = state_of(thrown);
  state.handler = nullptr;
  state.step = a_pending_step::none;
  state.caught = false;
  state.native = nullptr;
  state.landed = nullptr;
  curr_throw_stack_entry = thrown;
  return thrown;
}

void *set_up(const a_type_info_impl *type, int size, unsigned char flags, a_destructor destructor) {
  // A negative size is no size; as an unsigned one it is refused.
  void *object = eh_alloc_on_stack(static_cast<unsigned int>(size));
  a_throw_stack_entry *thrown = push(type, destructor, flags, object);
  thrown->catch_context = innermost_idle_try();
  begin_wait(thrown, a_pending_step::construction, __curr_eh_stack_entry);
  return object;
}

}  // namespace

a_throw_stack_entry *push_throw(const a_type_info_impl *type, a_destructor destructor, unsigned char flags,
                                void *object) {
  return push(type, destructor, flags, object);
}

a_throw_stack_entry *push_rethrow(a_throw_stack_entry *source) {
  a_throw_stack_entry *thrown = push(source->type, source->destructor, source->flags, source->object);
  thrown->qualifier_string = source->qualifier_string;
  thrown->access_value = source->access_value;
  thrown->catch_context = innermost_idle_try();
  thrown->source = source;
  thrown->reference_count = 0;
  thrown->is_rethrow = 1;
  ++source->reference_count;
  state_of(thrown).native = state_of(source).native;
  return thrown;
}

a_throw_stack_entry *exception_to_rethrow() {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && (!thrown->handled || thrown->is_rethrow || thrown->destroyed)) thrown = thrown->next;
  return thrown;
}

void start(a_throw_stack_entry *thrown) {
  thrown->marker.next = __curr_eh_stack_entry;
  __curr_eh_stack_entry = &thrown->marker;
  thrown->started = 1;
}

void release(a_throw_stack_entry *thrown) {
  if (thrown->released) return;
  thrown->released = 1;
  a_throw_stack_entry *owner = thrown->is_rethrow ? thrown->source : thrown;
  if (--owner->reference_count != 0 || owner->destroyed) return;
  owner->destroyed = 1;
  if (!owner->thrown || (owner->flags & PLX_TYPE_POINTER) || !owner->destructor) return;
  // The destructor may throw and handle an exception of its own, whose end frees what is finished above the first
  // entry that waits. Waiting keeps the object that is being destroyed.
  begin_wait(owner, a_pending_step::destruction, __curr_eh_stack_entry);
  owner->destructor(owner->object, 2);
  end_wait(owner);
}

void abandon(a_throw_stack_entry *thrown) {
  thrown->released = thrown->destroyed = 1;
  thrown->reference_count = 0;
}

void free_finished_throws() {
  while (a_throw_stack_entry *thrown = curr_throw_stack_entry) {
    if (!thrown->released || state_of(thrown).step != a_pending_step::none) break;
    if (!thrown->is_rethrow && !thrown->destroyed) assertion_failed(1399);
    curr_throw_stack_entry = thrown->next;
    bool owns_object = !thrown->is_rethrow;
    void *object = thrown->object;
    eh_free_on_stack(thrown);
    if (owns_object) eh_free_on_stack(object);
  }
}

}  // namespace __zor

using namespace __zor;

void *__throw_setup(const a_type_info_impl *type, int size, unsigned char flags) {
  return set_up(type, size, flags, nullptr);
}

void *__throw_setup_dtor(const a_type_info_impl *type, int size, unsigned char flags, a_destructor destructor) {
  return set_up(type, size, flags, destructor);
}

void __exception_started() {
  if (!curr_throw_stack_entry) assertion_failed(916);
  start(curr_throw_stack_entry);
}

void __exception_caught() {
  an_eh_stack_entry *head = __curr_eh_stack_entry;
  if (!head || head->kind != PLX_EH_IN_PROGRESS) assertion_failed(849);
  __curr_eh_stack_entry = head->next;
}

void __free_thrown_object() {
  if (!curr_throw_stack_entry) assertion_failed(1387);
  release(curr_throw_stack_entry);
  free_finished_throws();
}
