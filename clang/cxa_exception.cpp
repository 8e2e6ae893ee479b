// The entry points that clang's code calls to throw, to handle and to go on unwinding (the C++ ABI's
// exception handling; the setjmp/longjmp forms are LLVM's). One throw is one entry of the throw stack, whoever throws.

#include <plx/config.h>

#include "../libC/foreign.h"
#include "../libC/throw_stack.h"
#include "frame.h"

using namespace __zor;

namespace {

// The exception that the code of a landing pad holds: the newest one with that object whose handler has not begun.
a_throw_stack_entry *in_flight(const void *exception) {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && (exception_pointer(thrown) != exception || state_of(thrown).caught)) thrown = thrown->next;
  if (!thrown) assertion_failed(1099);
  return thrown;
}

a_throw_stack_entry *older_unthrown(const void *object) {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && (thrown->object != object || thrown->thrown)) thrown = thrown->next;
  if (!thrown) assertion_failed(916);
  return thrown;
}

inline a_throw_stack_entry *unthrown(const void *object) {
  a_throw_stack_entry *newest = curr_throw_stack_entry;
  return newest && newest->object == object && !newest->thrown ? newest : older_unthrown(object);
}

}  // namespace

extern "C" {

// Storage for an object of `bytes` bytes. The entry is pushed already, as for generated code; the frame itself gives
// the object up when its construction throws.
PLX_API void *__cxa_allocate_exception(size_t bytes) PLX_NOTHROW {
  return push_throw(nullptr, bytes, nullptr, 0)->object;
}

// The object's construction threw. What it threw lies above it in exception memory, so this only marks the entry.
PLX_API void __cxa_free_exception(void *object) PLX_NOTHROW {
  abandon(unthrown(object));
  free_finished_throws();
}

PLX_API PLX_NORETURN void __cxa_throw(void *object, const a_type_info_impl *type, void (*destructor)(void *)) {
  a_throw_stack_entry *thrown = unthrown(object);
  // A destructor of C++ takes the object alone; a further argument does it no harm in this calling convention.
  thrown->destructor = reinterpret_cast<a_destructor>(reinterpret_cast<a_routine>(destructor));
  state_of(thrown).native = type;
  throw_exception(thrown);
}

PLX_API PLX_NORETURN void __cxa_rethrow() {
  a_throw_stack_entry *source = exception_to_rethrow();
  if (!source) terminate_because(nothing_to_rethrow);
  throw_exception(push_rethrow(source));
}

// What the handler's parameter is initialised from: an object's address, or a pointer's value.
PLX_API void *__cxa_get_exception_ptr(void *exception) PLX_NOTHROW { return state_of(in_flight(exception)).adjusted; }

PLX_API void *__cxa_begin_catch(void *exception) PLX_NOTHROW {
  a_throw_stack_entry *thrown = in_flight(exception);
  unlink_marker(thrown);
  a_throw_state &state = state_of(thrown);
  // A frame that must not be left has no handler to be chosen: it lands to terminate.
  thrown->handled = 1;
  state.caught = true;
  return state.adjusted;
}

// Ends the innermost handler. Another exception may be in flight above it, when it leaves that handler.
PLX_API void __cxa_end_catch() {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && (!state_of(thrown).caught || thrown->released)) thrown = thrown->next;
  if (!thrown) assertion_failed(1387);
  release(thrown);
  free_finished_throws();
}

// The end of a cleanup: its frame is done with, though its memory is still the top of the stack.
PLX_API PLX_NORETURN void _Unwind_SjLj_Resume(void *exception) {
  a_throw_stack_entry *thrown = in_flight(exception);
  if (__curr_eh_stack_entry != state_of(thrown).landed) assertion_failed(1099);
  __curr_eh_stack_entry = &thrown->marker;
  state_of(thrown).landed = nullptr;
  resume_unwinding(thrown);
}

// Named by every frame, called by nobody: the runtime reads the tables itself.
PLX_API int __gxx_personality_sj0() { assertion_failed(1003); }

}  // extern "C"
