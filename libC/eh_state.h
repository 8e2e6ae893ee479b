// The private side of the exception runtime: its two stacks, the state of one throw, and what its source files ask of
// each other. Nothing outside libC/ and clang/ includes this.
#pragma once

#include <plx/runtime.h>

// Functions on the way of every throw take their arguments in registers.
#define EH_FAST __attribute__((__regparm__(3)))

namespace __zor {

// Kinds of eh stack entry that generated code never makes. Their numbers are far from the contract's.
enum private_eh_kind : unsigned char {
  eh_foreign_frame = 0xC1,      // the function context of a frame compiled by a C++ compiler; see foreign.h
  eh_unexpected_guard = 0xC2,   // an unexpected handler at work for such a frame; see foreign.h
  eh_terminate_barrier = 0xC3,  // a terminate handler at work: what is thrown must not leave it
};

// What an entry of the throw stack is waiting for. The wait ends when an exception leaves the code that was running
// on the entry's behalf, that is when unwinding reaches the entry's `base`.
enum class a_pending_step : unsigned char {
  none,
  construction,  // the object is being constructed: abandon it without running a destructor
  unexpected,    // std::unexpected works on it: release it
  destruction,   // its destructor is running: it may be freed from now on
};

// The runtime's own fields of a throw. They live in the body of the entry's marker, which has no use for it.
struct a_throw_state {
  // The search's result.
  an_eh_stack_entry *handler;  // null: none
  int selector;                // kind 0: the clause number; foreign frames: their selector
  void *adjusted;              // what the handler reads: the object's address, or a pointer's value

  // The wait.
  a_throw_stack_entry *next_pending;
  an_eh_stack_entry *base;  // head of the eh stack when the wait began
  a_pending_step step;

  // Foreign frames.
  bool caught;                     // the handler has begun and not ended
  const a_type_info_impl *native;  // the compiler's record of the thrown type; null for generated code's throws
  an_eh_stack_entry *landed;       // the frame that runs a cleanup or enters a handler; the marker sits below it
  int landing_pad;                 // of the chosen handler
  const unsigned char *filter;     // the violated specification's list
  const void *const *filter_types;
};

static_assert(sizeof(a_throw_state) <= sizeof(an_eh_stack_entry) - offsetof(an_eh_stack_entry, body),
              "the marker's body must hold the state of a throw");

inline a_throw_state &state_of(a_throw_stack_entry *thrown) {
  return *reinterpret_cast<a_throw_state *>(&thrown->marker.body);
}

extern int terminate_called;

// Terminates for a reason that is not the newest exception's; the text completes "plx: terminated: ".
[[noreturn]] void terminate_because(const char *reason);

// Prints the runtime's assertion message with the line number that the contract gives the condition, and aborts.
[[noreturn]] void assertion_failed(int line);

// Searches, unwinds and jumps; see throw.cpp. `resume_unwinding` goes on after a foreign frame's cleanup.
[[noreturn]] EH_FAST void throw_exception(a_throw_stack_entry *thrown);
[[noreturn]] EH_FAST void resume_unwinding(a_throw_stack_entry *thrown);

// Matching; see match.cpp. Returns the 1-based index of the first element that matches, or 0. When `object` is given
// and a conversion to a base matches, *object becomes the base's address.
int match_specification(const an_exception_type_specification *list, const a_type_info_impl *type, unsigned char flags,
                        char *qualifier_string, unsigned char access_value, void **object);
bool same_type(const a_type_info_impl *left, const a_type_info_impl *right);

void clean_up_regions(an_eh_stack_entry *entry, unsigned short from, unsigned short to);

}  // namespace __zor
