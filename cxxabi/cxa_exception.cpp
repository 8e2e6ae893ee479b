// The entry points that compilers' code calls to throw and to handle (the C++ ABI's exception handling, level 2). One
// throw is one entry of the throw stack, whoever throws.

#include <plx/base/config.h>

#include "../libC/foreign.h"
#include "../libC/frames.h"
#include "../libC/probe.h"
#include "../libC/throw_stack.h"

using namespace __zor;

namespace {

a_throw_stack_entry *older_unthrown(const void *object) {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && (thrown->object != object || thrown->thrown)) thrown = thrown->next;
  if (!thrown) assertion_failed(nothing_to_throw);
  return thrown;
}

inline a_throw_stack_entry *unthrown(const void *object) {
  a_throw_stack_entry *newest = curr_throw_stack_entry;
  return newest && newest->object == object && !newest->thrown ? newest : older_unthrown(object);
}

inline bool is_ours(const an_exception_header *exception) {
  return exception->class_low == our_exception_class_low && exception->class_high == our_exception_class_high;
}

}  // namespace

extern "C" {

// Storage for an object of `bytes` bytes. The entry is pushed already, as for generated code; the frame itself gives
// the object up when its construction throws.
PLX_API void *__cxa_allocate_exception(size_t bytes) PLX_NOTHROW { return push_throw_with_header(bytes)->object; }

// The object's construction threw. What it threw lies above it in exception memory, so this only marks the entry.
PLX_API void __cxa_free_exception(void *object) PLX_NOTHROW {
  abandon(unthrown(object));
  free_finished_throws();
}

[[noreturn]] PLX_REGPARM PLX_HIDDEN __attribute__((__used__)) void __zor_cxa_throw_from(const a_saved_frame *thrower) {
  a_throw_stack_entry *thrown = unthrown(reinterpret_cast<void *>(thrower->arguments[0]));
  // A destructor of C++ takes the object alone; a further argument does it no harm in this calling convention.
  thrown->destructor = reinterpret_cast<a_destructor>(thrower->arguments[2]);
  an_exception_header *header = state_of(thrown).exception;
  header->class_low = our_exception_class_low;
  header->class_high = our_exception_class_high;
  header->cleanup = nullptr;
  header->native = reinterpret_cast<const a_type_info_impl *>(thrower->arguments[1]);
  thrown->thrown = 1;
  PLX_PROBE("throw", thrown->object, thrower->arguments[1]);
  throw_exception(thrown, thrower);
}

// What the handler's parameter is initialised from: an object's address, or a pointer's value.
PLX_API void *__cxa_get_exception_ptr(an_exception_header *exception) PLX_NOTHROW {
  return state_of(exception->thrown).adjusted;
}

PLX_API void *__cxa_begin_catch(an_exception_header *exception) PLX_NOTHROW {
  // Another library's, in a function that terminates.
  if (!is_ours(exception)) return exception + 1;
  a_throw_stack_entry *thrown = exception->thrown;
  a_throw_state &state = state_of(thrown);
  thrown->handled = 1;
  state.caught = true;
  PLX_PROBE("catch", thrown->object, exception->native);
  if (__curr_eh_stack_entry != &thrown->marker) assertion_failed(nothing_to_catch);
  __curr_eh_stack_entry = thrown->marker.next;
  give_back_records(thrown);
  return state.adjusted;
}

// Ends the innermost handler. Another exception may be in flight above it, when it leaves that handler.
PLX_API void __cxa_end_catch() {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && (!state_of(thrown).caught || thrown->released)) thrown = thrown->next;
  if (!thrown) assertion_failed(nothing_to_free);
  release(thrown);
  free_finished_throws();
}

// Newer compilers call it where older ones begin to catch and terminate.
PLX_API PLX_NORETURN void __cxa_call_terminate(an_exception_header *exception) PLX_NOTHROW {
  __cxa_begin_catch(exception);
  __call_terminate();
}

}  // extern "C"
