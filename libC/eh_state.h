// The private side of the exception runtime: its two stacks, the state of one throw, and what its source files ask of
// each other. Nothing outside libC/, cxxabi/ and unwind/ includes this.
#pragma once

#include <plx/base/config.h>
#include <plx/runtime.h>

#include "assertion.h"

namespace __zor {

// Kinds of eh stack entry that generated code never makes. Their numbers are far from the contract's.
enum private_eh_kind : unsigned char {
  eh_detour = 0xC1,             // the frames below are done with: the walk goes on elsewhere; see frames.h
  eh_unexpected_guard = 0xC2,   // an unexpected handler at work for a frame of C++; see frames.h
  eh_terminate_barrier = 0xC3,  // a terminate handler at work: what is thrown must not leave it
};

// What an entry of the throw stack is waiting for. The wait ends when an exception leaves the code that was running
// on the entry's behalf: when unwinding reaches the entry's `base`, or lands in a C++ frame that lies above its
// `base_address`.
enum class a_pending_step : unsigned char {
  none,
  construction,  // the object is being constructed: abandon it without running a destructor
  unexpected,    // std::unexpected works on it: release it
  destruction,   // its destructor is running: it may be freed from now on
};

// How to get to a landing.
enum a_pace : unsigned char {
  fast_pace,         // load the registers and jump
  slow_pace,         // first there are entries to unwind, or waits to end
  no_more_landings,  // this is the place after the last recorded landing, and holds nothing else
  more_landings      // the same, and there are landings for which there was no room
};

// A place where a throw interrupts its way out: a landing pad of a C++ frame, or, with no landing pad, the entry of the
// eh stack that handles the exception. unwind/i386/resume.h reads this record by offsets.
struct a_landing {
  a_pace pace;
  unsigned ebx, esi, edi, ebp, esp;
  unsigned landing_pad;
  int selector;                   // of an entry its clause; 0 where nobody handles the exception
  an_eh_stack_entry *next_entry;  // the first entry outside of the frame; without a landing pad the handler
  unsigned cfa;                   // of the frame; its canonical frame address
  unsigned address;               // the return address in it
};

static_assert(sizeof(a_landing) == 44 && offsetof(a_landing, ebx) == 4 && offsetof(a_landing, selector) == 28,
              "resume.h knows the record");

// As many as are recorded beside a throw, if exception memory has the room; the last only ends them.
const unsigned landing_records = 32;

// What C++ code holds of an exception is the address of this header (the C++ ABI's _Unwind_Exception). An object that
// C++ threw follows it at once; for any other the header is a stand-in, followed by the value of a thrown pointer.
struct an_exception_header {
  unsigned class_low, class_high;  // tell our exceptions from other libraries'
  void *cleanup;                   // what others call to delete one: nothing
  a_landing *landed;               // where the exception stands on its way; null before and while entries are unwound
  a_throw_stack_entry *thrown;     // the newest throw of the object
  const a_type_info_impl *native;  // the compiler's record of the thrown type; a stand-in's may be a descriptor
  void *unused[2];
};

const unsigned our_exception_class_low = 0x33584C50;   // "PLX3"
const unsigned our_exception_class_high = 0x002B2B43;  // "C++"

static_assert(sizeof(an_exception_header) == 32 && offsetof(an_exception_header, landed) == 12,
              "compilers compute the object's address from the header's; resume.h knows the fields");

struct a_stand_in {
  an_exception_header header;
  void *pointer;
};

// The runtime's own fields of a throw. They live in the body of the entry's marker, which has no use for it.
struct a_throw_state {
  void *adjusted;  // what the handler reads: the object's address, or a pointer's value

  // The wait.
  a_throw_stack_entry *next_pending;
  an_eh_stack_entry *base;  // head of the eh stack when the wait began
  unsigned base_address;    // an address in the stack frame of who waits
  a_pending_step step;

  bool caught;      // the handler of a C++ frame has begun and not ended
  bool has_header;  // the object was thrown by C++ and stands behind a header, in one piece with the entry

  // The way out. The handler is `final`, whether or not it stands among the records as well.
  an_exception_header *exception;
  a_landing *records;  // landings up to the handler's, as far as there is room; `final` if that is the first
  unsigned position;   // of the marker while no frame was landed in
  // What the header held of an older throw of the same object.
  a_landing *older_landed;
  a_throw_stack_entry *older_thrown;

  a_landing final;
  // Records when exception memory has no room for more: one, and what ends them, or `final`.
  a_landing spare;
  a_pace spare_end;
  a_stand_in stand_in;
};

static_assert(offsetof(a_throw_state, spare) == offsetof(a_throw_state, final) + sizeof(a_landing),
              "what follows `final` as a record ends the records");
static_assert(sizeof(a_throw_state) <= sizeof(an_eh_stack_entry) - offsetof(an_eh_stack_entry, body),
              "the marker's body must hold the state of a throw");

inline a_throw_state &state_of(a_throw_stack_entry *thrown) {
  return *reinterpret_cast<a_throw_state *>(&thrown->marker.body);
}

inline const a_type_info_impl *native_type(a_throw_stack_entry *thrown) {
  const a_throw_state &state = state_of(thrown);
  return state.has_header ? state.exception->native : nullptr;
}

extern int terminate_called;

// Matching; see match.cpp. Returns the 1-based index of the first element that matches, or 0. When `object` is given
// and a conversion to a base matches, *object becomes the base's address.
int match_specification(const an_exception_type_specification *list, const a_type_info_impl *type, unsigned char flags,
                        char *qualifier_string, unsigned char access_value, void **object);
PLX_HIDDEN bool same_type(const a_type_info_impl *left, const a_type_info_impl *right);

void clean_up_regions(an_eh_stack_entry *entry, unsigned short from, unsigned short to);

}  // namespace __zor
