// The function context that clang builds in every frame with something to clean up or to catch (setjmp/longjmp
// exceptions, i386), read as an entry of the eh stack.
//
//    0  previous context   not used: the eh stack is the list
//    4  call site          1-based while the frame runs, -1: nothing to do; on landing the landing pad's number
//    8  exception          read by landing pads
//   12  selector           read by landing pads
//   16  data[2]  \         never touched by the compiler's code:
//   20  data[3]  /         the eh stack entry's `next` and `kind`
//   24  personality        not used
//   28  exception table
//   32  frame pointer, landing address, stack pointer, two unused words
#pragma once

#include "../libC/eh_state.h"

namespace __zor {

struct a_function_context {
  void *previous;
  int call_site;
  void *exception;
  int selector;  // between search and landing: the cleanup's landing pad, or -1
  an_eh_stack_entry *next;
  int kind;
  void *personality;
  const unsigned char *exception_table;
  void *frame_pointer;
  void *landing_address;
  void *stack_pointer;
  void *unused[2];
};

static_assert(sizeof(a_function_context) == 52 && offsetof(a_function_context, next) == 16 &&
                  offsetof(a_function_context, exception_table) == 28 &&
                  offsetof(a_function_context, stack_pointer) == 40,
              "the context is the compiler's");

inline a_function_context *context_of(an_eh_stack_entry *entry) {
  return reinterpret_cast<a_function_context *>(reinterpret_cast<char *>(entry) - offsetof(a_function_context, next));
}

// The compiler's code holds an exception by an address this far before the object: for handlers that catch a pointer
// by reference it computes the object's address from it.
const int exception_header = 32;

inline void *exception_pointer(a_throw_stack_entry *thrown) {
  return static_cast<char *>(thrown->object) - exception_header;
}

// Takes the marker from below the frame that was landed in: the handler begins.
inline void unlink_marker(a_throw_stack_entry *thrown) {
  a_throw_state &state = state_of(thrown);
  if (!state.landed) return;
  state.landed->next = thrown->marker.next;
  state.landed = nullptr;
}

}  // namespace __zor
