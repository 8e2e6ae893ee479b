// The one interface between the throw machinery and the walker over frames of C++, which stands above it: unwind/ puts
// itself in here, when a program or a shared object of C++ asks for it. Without that there are no such frames, and a
// throw looks at the eh stack alone.
//
// An entry of the eh stack lies in the machine frame of its function, so it is inner to a C++ frame exactly when its
// position is below that frame's canonical frame address. unwind/walk.cpp draws it.
#pragma once

#include "eh_state.h"
#include "i386/saved_frame.h"

namespace __zor {

// Searches, unwinds and lands, as the functions below do for entries alone. Null unless C++ is linked.
extern void (*throw_across_frames)(a_throw_stack_entry *thrown, const a_saved_frame *thrower);

// Where frames that are done with lie between those that run and those that are still there: a walk that comes to this
// entry goes on with the frame that it names. On the eh stack while std::unexpected runs, in the frame that calls it.
struct a_detour {
  an_eh_stack_entry entry;
  a_landing next;  // the frame's registers, stack pointer and return address
};

// On the eh stack while std::unexpected works for a violated specification of a C++ function; who puts it there says
// whether an exception that leaves the unexpected handler must stop here, and what becomes of it then.
struct an_unexpected_guard {
  an_eh_stack_entry entry;
  bool (*stops)(an_unexpected_guard *guard, a_throw_stack_entry *thrown);
  void (*replace)(an_unexpected_guard *guard, a_throw_stack_entry *thrown);  // does not return
};

// Throws what is complete and marked as thrown, from the frame of the thrower.
[[noreturn]] void throw_exception(a_throw_stack_entry *thrown, const a_saved_frame *thrower);

// Whether the search ends at this entry; then the state's `final` names it and its clause. A try without a clause list
// is noted in `final` too, and the search goes on among entries. Does not return from an entry that ends the process.
bool search_entry(an_eh_stack_entry *entry, a_throw_stack_entry *thrown);

// The same for all entries from this one outwards.
void search_entries(an_eh_stack_entry *entry, a_throw_stack_entry *thrown);

// Runs the clean-up that the entry stands for. The marker's link has passed it.
void unwind_entry(an_eh_stack_entry *entry);

// The marker's link has reached the handler. `frame`, if there are any of C++, is the one that has been reached:
// std::unexpected's own frames are led to it.
[[noreturn]] void enter_handler(an_eh_stack_entry *entry, a_throw_stack_entry *thrown, const a_landing *frame);

// Everything was unwound, and nobody handles the exception.
[[noreturn]] void end_without_handler(a_throw_stack_entry *thrown);

// Takes entries off the marker's link, and cleans up what they stand for, up to `last`, which stays. Used by both.
void unwind_entries(a_throw_stack_entry *thrown, an_eh_stack_entry *last);

// Where the search ended because the code there has no unwind table, for the report; 0 elsewhere.
extern unsigned address_without_table;

}  // namespace __zor
