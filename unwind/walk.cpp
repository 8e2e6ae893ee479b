// The search: from the thrower outwards, over frames of C++ by their plans and over entries of the eh stack by their
// positions, in the one order in which they are nested.
//
//   higher addresses
//     main            C++      CFA 0xff10 ---- landing pad?           after the entries below it
//     convert         gen. C   entry 0xfe80    try block
//     std::sort       C++      CFA 0xfe40
//     compare         C++      CFA 0xfd90
//     operator<<      library  entry 0xfd40    eh_guard
//     thrower         C++      CFA 0xfc20
//   stack pointer
//
// Each frame that the exception will land in is recorded with its registers, so that the way out reads no tables. Where
// there is no room for more records the search goes on without; the way out then walks once more from the last one
// (record_more), so that the time is linear in the depth.

#include "walk.h"

#include "../cxxabi/foreign_match.h"
#include "../libC/throw_stack.h"

namespace __zor {

namespace {

// When the guess was wrong.
PLX_NOINLINE a_plan *find_caller(a_plan *plan, unsigned address) {
  if (plan->caller_is_interrupted) return find_plan_of_interrupted(address);
  a_plan *found = find_plan(address);
  if (is_remembered(plan) && is_remembered(found)) plan->caller = found;
  return found;
}

inline unsigned stack_word(unsigned address) { return *reinterpret_cast<const unsigned *>(address); }

// A frame's CFA must lie above what the frame calls, and on the stack: a damaged table must not lead in a circle.
PLX_ALWAYS_INLINE bool cfa_of(const a_plan *plan, const a_machine_frame &frame, unsigned stack_end, unsigned &cfa) {
  if (__builtin_expect(plan->shape == a_plan::plain, 1)) {
    cfa = frame.registers[plan->cfa_register] + static_cast<unsigned>(plan->cfa_offset);
  } else if (plan->shape >= a_plan::untabled) {
    return false;
  } else if (plan->shape == a_plan::realigned) {
    const unsigned place = frame.registers[plan->cfa_register] + static_cast<unsigned>(plan->cfa_offset);
    if (!is_on_stack(frame, place)) return false;
    cfa = stack_word(place);
  } else if (plan->shape == a_plan::outermost) {
    cfa = 0xFFFFFFFF;  // all entries are inner to it
    return true;
  } else {
    unsigned found;  // so that the caller's can stay in a register
    if (!find_cfa(*plan->rules, frame, found)) return false;
    cfa = found;
    // A signal handler may run on a stack of its own.
    if (plan->caller_is_interrupted) return true;
  }
  return cfa > frame.registers[register_esp] && cfa <= stack_end;
}

PLX_ALWAYS_INLINE void plain_step(const a_plan *plan, unsigned cfa, a_machine_frame &frame) {
  const unsigned *words = reinterpret_cast<const unsigned *>(cfa);
  if (plan->saved[0]) frame.registers[register_ebx] = words[plan->saved[0]];
  if (plan->saved[1]) frame.registers[register_esi] = words[plan->saved[1]];
  if (plan->saved[2]) frame.registers[register_edi] = words[plan->saved[2]];
  if (plan->saved[3]) frame.registers[register_ebp] = words[plan->saved[3]];
  frame.registers[register_esp] = cfa;
  frame.address = words[-1];
}

PLX_ALWAYS_INLINE bool step(const a_plan *plan, unsigned cfa, a_machine_frame &frame) {
  if (__builtin_expect(plan->shape != a_plan::plain, 0))
    return plan->shape != a_plan::outermost && step_by_rules(*plan->rules, cfa, frame);
  plain_step(plan, cfa, frame);
  return true;
}

enum class a_verdict { pass, clean_up, handle };

// What the actions say: the first clause that takes the exception, else the clean-up if there is one.
a_verdict choose_by_actions(const a_plan *plan, a_throw_stack_entry *thrown, int &selector) {
  const an_exception_table table = plan->table();
  bool has_cleanup = false;
  for (const byte *at = plan->action; at;) {
    const int filter = table.next_action(at);
    if (filter == 0) {
      has_cleanup = true;
    } else if (filter > 0 ? catch_clause_matches(table.type(static_cast<unsigned>(filter)), nullptr, thrown,
                                                 &state_of(thrown).adjusted)
                          : !allowed_by(table, filter, thrown)) {
      selector = filter;
      return a_verdict::handle;
    }
  }
  selector = 0;
  return has_cleanup ? a_verdict::clean_up : a_verdict::pass;
}

PLX_ALWAYS_INLINE a_verdict choose(const a_plan *plan, a_throw_stack_entry *thrown, int &selector) {
  selector = 0;
  if (__builtin_expect(plan->handling == a_plan::clean_up, 1)) return a_verdict::clean_up;
  if (plan->handling == a_plan::actions) return choose_by_actions(plan, thrown, selector);
  for (int i = 0; i < 2 && plan->selectors[i]; ++i) {
    const a_clause &clause = plan->clauses[i];
    if (catch_clause_matches(clause.type, clause.library_identity, thrown, &state_of(thrown).adjusted)) {
      selector = plan->selectors[i];
      return a_verdict::handle;
    }
  }
  return plan->handling == a_plan::one_or_two ? a_verdict::pass : a_verdict::clean_up;
}

// Where records go. The last record is followed by one that only says that there are no more. Room for many is asked
// for when the first comes: a throw that lands nowhere on its way needs none.
struct a_recorder {
  a_throw_stack_entry *thrown;
  a_landing *next, *end;
  an_eh_stack_entry *last_entry;  // the unwinder stands here after the record before
  a_pace least_pace;              // slow where waits may end at any landing
  a_pace closing = no_more_landings;

  void note(const a_machine_frame &frame, const a_plan *plan, unsigned cfa, int selector,
            an_eh_stack_entry *next_entry) {
    if (next == end && !find_room()) {
      closing = more_landings;
      return;
    }
    fill(*next, frame, plan, cfa, selector, next_entry);
    next->pace = pace_before(next_entry);
    last_entry = next_entry;
    ++next;
  }

  // Whether the handler is the first place to land in: then `final` is the only record.
  bool leads_to_final(an_eh_stack_entry *next_entry) {
    a_throw_state &state = state_of(thrown);
    if (next != &state.spare) return false;
    state.records = &state.final;
    state.final.pace = pace_before(next_entry);
    return true;
  }
  a_pace pace_before(const an_eh_stack_entry *next_entry) const {
    return next_entry == last_entry ? least_pace : slow_pace;
  }
  void close() { next->pace = closing; }

  PLX_ALWAYS_INLINE bool find_room() {
    a_throw_state &state = state_of(thrown);
    if (next != &state.spare) return false;
    void *room = eh_extend_on_stack(thrown, landing_records * sizeof(a_landing));
    if (room) state.records = next = static_cast<a_landing *>(room);
    end = next + (room ? landing_records - 1 : 1);
    return true;
  }

  static void fill(a_landing &landing, const a_machine_frame &frame, const a_plan *plan, unsigned cfa, int selector,
                   an_eh_stack_entry *next_entry) {
    note_frame(landing, frame, plan->arguments_size);
    landing.landing_pad = plan->landing_pad;
    landing.selector = selector;
    landing.next_entry = next_entry;
    landing.cfa = cfa;
  }
};

// One walk over frames and entries. `Visitor` says what is looked for:
//   entry(entry, frame, plan, cfa)         whether the walk ends at this entry
//   frame(frame, plan, cfa, entry)         whether it ends in this frame, which has a landing pad or must not be left
//   end(frame, plan, entry)                there are no more frames
template <class Visitor> inline void walk(a_machine_frame &frame, an_eh_stack_entry *entry, Visitor &visitor) {
  const unsigned stack_pointer = frame.registers[register_esp];
  const unsigned stack_end = reinterpret_cast<unsigned>(__libc_stack_end);
  unsigned entry_position = position_of(entry, stack_pointer, stack_end);
  a_plan *plan = find_plan(frame.address);
  for (;;) {
    unsigned cfa;
    if (!cfa_of(plan, frame, stack_end, cfa)) return visitor.end(frame, plan, entry);
    while (__builtin_expect(entry_position < cfa, 0)) {
      an_eh_stack_entry *passed = entry;
      entry = passed->next;
      entry_position = position_of(entry, stack_pointer, stack_end);
      // A function's matters on the way out only.
      if (passed->kind == PLX_EH_FUNCTION) continue;
      if (visitor.entry(passed, frame, plan, cfa)) return;
      if (passed->kind == eh_detour) {
        frame = frame_of(reinterpret_cast<const a_detour *>(passed)->next);
        plan = find_plan(frame.address);
        goto next_frame;
      }
    }
    if (plan->is_passed()) {
      plain_step(plan, cfa, frame);
    } else {
      if (plan->handling != a_plan::none && visitor.frame(frame, plan, cfa, entry)) return;
      if (!step(plan, cfa, frame)) return visitor.end(frame, plan, entry);
    }
    if (__builtin_expect(plan->caller->address == frame.address, 1)) {
      plan = plan->caller;
    } else {
      // The bottom of a stack that nothing else ends.
      if (frame.address == 0) return visitor.end(frame, plan, entry);
      plan = find_caller(plan, frame.address);
    }
  next_frame:;
  }
}

struct a_search {
  a_throw_stack_entry *thrown;
  a_landing &final;
  a_recorder recorder;

  bool entry(an_eh_stack_entry *entry, const a_machine_frame &frame, const a_plan *, unsigned cfa) {
    if (search_entry(entry, thrown)) {
      end_at_entry(frame, cfa);
      return true;
    }
    // After a try without a list only entries matter.
    if (!final.next_entry) return false;
    search_entries(entry->next, thrown);
    end_at_entry(frame, cfa);
    return true;
  }

  bool frame(const a_machine_frame &frame, const a_plan *plan, unsigned cfa, an_eh_stack_entry *entry) {
    if (plan->handling == a_plan::terminate) {
      end_unhandled(cfa, entry);
      return true;
    }
    int selector;
    switch (choose(plan, thrown, selector)) {
      case a_verdict::pass: return false;
      case a_verdict::clean_up: recorder.note(frame, plan, cfa, selector, entry); return false;
      case a_verdict::handle: break;
    }
    a_recorder::fill(final, frame, plan, cfa, selector, entry);
    if (!recorder.leads_to_final(entry)) recorder.note(frame, plan, cfa, selector, entry);
    return true;
  }

  void end(const a_machine_frame &frame, const a_plan *plan, an_eh_stack_entry *entry) {
    if (plan->shape == a_plan::untabled || plan->shape == a_plan::damaged) {
      address_without_table = frame.address;
      end_unhandled(0xFFFFFFFF, entry);
      return;
    }
    // What stands on other stacks.
    search_entries(entry, thrown);
    if (final.next_entry)
      end_at_entry(frame, 0xFFFFFFFF);
    else
      end_unhandled(0xFFFFFFFF, nullptr);
  }

  // `next_entry` names the handler, as search_entry left it. A try block has the registers it jumps to itself.
  void end_at_entry(const a_machine_frame &frame, unsigned cfa) {
    if (final.next_entry->kind == PLX_EH_TRY_BLOCK)
      final.address = 0;
    else
      note_frame(final, frame, 0);
    final.landing_pad = 0;
    final.cfa = cfa;
  }

  // Nobody handles the exception: it is unwound to here.
  void end_unhandled(unsigned cfa, an_eh_stack_entry *entry) {
    final.landing_pad = 0;
    final.selector = 0;
    final.cfa = cfa;
    final.next_entry = entry;
  }
};

// The same way again, up to the landing that the search ended with.
struct a_second_walk {
  a_throw_stack_entry *thrown;
  const a_landing &final;
  a_recorder recorder;
  unsigned beyond;  // the last recorded frame's CFA

  bool entry(an_eh_stack_entry *entry, const a_machine_frame &, const a_plan *, unsigned) {
    return !final.landing_pad && entry == final.next_entry;
  }
  bool frame(const a_machine_frame &frame, const a_plan *plan, unsigned cfa, an_eh_stack_entry *entry) {
    if (cfa <= beyond) return false;
    if (cfa >= final.cfa) return true;
    int selector = 0;
    void *adjusted = state_of(thrown).adjusted;
    const a_verdict verdict = choose(plan, thrown, selector);
    state_of(thrown).adjusted = adjusted;
    if (verdict == a_verdict::clean_up) recorder.note(frame, plan, cfa, 0, entry);
    return recorder.closing == more_landings;
  }
  void end(const a_machine_frame &, const a_plan *, an_eh_stack_entry *) {}
};

a_recorder start_recorder(a_throw_stack_entry *thrown) {
  a_throw_state &state = state_of(thrown);
  const unsigned room = state.records == &state.spare ? 0 : landing_records - 1;
  return {thrown, state.records, state.records + room, thrown->marker.next, pending_throws ? slow_pace : fast_pace};
}

}  // namespace

bool allowed_by(const an_exception_table &table, int filter, a_throw_stack_entry *thrown) {
  a_byte_reader list(table.range(), table.allowed_types(filter));
  void *ignored;
  while (unsigned index = list.uleb())
    if (catch_clause_matches(table.type(index), nullptr, thrown, &ignored)) return true;
  return false;
}

void search_from(const a_saved_frame &thrower, a_throw_stack_entry *thrown) {
  a_machine_frame frame = frame_of(thrower);
  a_search search = {thrown, state_of(thrown).final, start_recorder(thrown)};
  search.final.next_entry = nullptr;
  walk(frame, thrown->marker.next, search);
  search.recorder.close();
}

void record_more(a_throw_stack_entry *thrown, const a_landing &last) {
  a_machine_frame frame = frame_of(last);
  // The landing took the arguments off the stack; the tables count from where they were.
  frame.registers[register_esp] -= find_plan(last.address)->arguments_size;
  a_second_walk again = {thrown, state_of(thrown).final, start_recorder(thrown), last.cfa};
  walk(frame, thrown->marker.next, again);
  again.recorder.close();
}

}  // namespace __zor
