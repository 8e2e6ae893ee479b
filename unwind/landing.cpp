// The way out of a throw: from landing to landing, and over the entries between them, to the handler.

#include "../libC/sanitizer.h"
#include "../libC/throw_stack.h"
#include "i386/resume.h"
#include "landing.h"
#include "walk.h"

// Frames that a jump leaves stay poisoned unless the address sanitizer is told, if the program has it.
extern "C" void __asan_handle_no_return() __attribute__((__weak__));

namespace __zor {
namespace {

// What C++ code holds: the header before an object of C++, a stand-in for any other. An older throw of the same object
// may be on its way out below; it gets the header back when this one ends.
inline an_exception_header *prepare_header(a_throw_stack_entry *thrown) {
  a_throw_state &state = state_of(thrown);
  an_exception_header *header = state.exception;
  if (!header) {
    header = state.exception = &state.stand_in.header;
    header->class_low = our_exception_class_low;
    header->class_high = our_exception_class_high;
    header->cleanup = nullptr;
    header->native = thrown->type;  // for a debugger
    header->thrown = nullptr;
    header->landed = nullptr;
  }
  state.older_thrown = header->thrown;
  state.older_landed = header->landed;
  // Meanwhile the older one's marker stands at the end of the frame whose clean-up runs.
  if (header->landed) state_of(header->thrown).position = header->landed->cfa;
  header->thrown = thrown;
  header->landed = nullptr;
  return header;
}

// Unwinds the entries before the next landing, and ends the throw where that is none.
PLX_ALWAYS_INLINE void leave_entries(a_throw_stack_entry *thrown, a_landing &next) {
  // Destructors of entries run on top of this frame: what they throw meets the marker before any frame below.
  state_of(thrown).position = reinterpret_cast<unsigned>(__builtin_frame_address(0));
  unwind_entries(thrown, next.next_entry);
  if (next.landing_pad) return;
  if (!next.selector) end_without_handler(thrown);
  enter_handler(next.next_entry, thrown, &next);
}

[[noreturn]] void go_on(a_throw_stack_entry *thrown) {
  a_throw_state &state = state_of(thrown);
  an_exception_header *header = state.exception;
  a_landing *landed = header->landed;
  // A handler that goes on as a clean-up does was told that it handles.
  if (landed && landed->cfa == state.final.cfa && landed->address == state.final.address)
    assertion_failed(unknown_kind_in_unwinding);
  a_landing *next = landed ? landed + 1 : state.records;
  if (next->pace == more_landings) {
    record_more(thrown, *landed);
    next = state.records;
  }
  if (next->pace >= no_more_landings) next = &state.final;
  header->landed = nullptr;
  leave_entries(thrown, *next);
  if (__curr_eh_stack_entry != &thrown->marker) assertion_failed(head_has_changed);
  if (pending_throws) end_waits_below(next->esp);
  land(header, next);
}
}  // namespace

void throw_and_land(a_throw_stack_entry *thrown, const a_saved_frame *thrower) {
  if (__asan_handle_no_return) __asan_handle_no_return();
  a_throw_state &state = state_of(thrown);
  state.records = &state.spare;
  state.position = 0;
  search_from(*thrower, thrown);
  // Where only entries are on the way no code of C++ sees the header.
  if (state.records->pace == no_more_landings) leave_entries(thrown, state.final);
  an_exception_header *header = prepare_header(thrown);
  if (header == &state.stand_in.header) state.stand_in.pointer = state.adjusted;
  if (state.records->pace == fast_pace) land(header, state.records);
  go_on(thrown);
}

}  // namespace __zor

using namespace __zor;

extern "C" {

[[noreturn]] PLX_REGPARM PLX_HIDDEN __attribute__((__used__)) void __zor_resume_slowly(an_exception_header *exception) {
  go_on(exception->thrown);
}

}  // extern "C"
