// Makes a plan from the tables of the object that an address lies in.

#include "../cxxabi/foreign_match.h"
#include "../libC/if_linked.h"
#include "plan.h"

extern "C" {
int __gxx_personality_v0(int, int, unsigned long long, void *, void *);
int __gcc_personality_v0(int, int, unsigned long long, void *, void *);
}

namespace __zor {
namespace {

// The order of `saved`.
const byte kept_registers[] = {register_ebx, register_esi, register_edi, register_ebp};

bool is_plain(const a_frame_entry &entry, const a_frame_rules &rules) {
  if (entry.is_signal_frame || rules.cfa.kind != a_rule::in_register) return false;
  for (unsigned i = 0; i < register_count; ++i) {
    const a_rule &rule = rules.registers[i];
    switch (i) {
      case register_eip:
        if (rule.kind != a_rule::at_offset || rule.offset != -4) return false;
        break;
      case register_ebx:
      case register_esi:
      case register_edi:
      case register_ebp:
        if (rule.kind == a_rule::same || rule.kind == a_rule::undefined) break;
        if (rule.kind != a_rule::at_offset || rule.offset >= 0 || rule.offset < -512 || rule.offset % 4) return false;
        break;
      default:
        if (rule.kind != a_rule::same && rule.kind != a_rule::undefined) return false;
    }
  }
  return true;
}

// Functions that align their stack, such as every main of gcc, keep their CFA in memory: an expression of two
// operations (DW_OP_breg with an offset, DW_OP_deref).
bool is_realigned(const a_frame_rules &rules, a_plan &plan) {
  if (rules.cfa.kind != a_rule::is_expression) return false;
  a_byte_reader reader(rules.range, rules.cfa.expression);
  const unsigned length = reader.uleb();
  const byte *end = reader.at() + length;
  const unsigned reg = reader.u8() - 0x70;
  const int offset = reader.sleb();
  if (reg >= register_eip || reader.u8() != 0x06 || reader.failed() || reader.at() != end) return false;
  plan.cfa_register = static_cast<byte>(reg);
  plan.cfa_offset = offset;
  return true;
}

void take_rules(const a_frame_entry &entry, a_frame_rules &rules, a_plan &plan) {
  plan.arguments_size = rules.arguments_size;
  plan.caller_is_interrupted = entry.is_signal_frame;
  if (rules.registers[register_eip].kind == a_rule::undefined) {
    plan.shape = a_plan::outermost;
  } else if (is_plain(entry, rules)) {
    plan.shape = a_plan::plain;
    plan.cfa_register = rules.cfa.reg;
    plan.cfa_offset = rules.cfa.offset;
    for (unsigned i = 0; i < 4; ++i) {
      const a_rule &rule = rules.registers[kept_registers[i]];
      plan.saved[i] = rule.kind == a_rule::at_offset ? static_cast<signed char>(rule.offset / 4) : 0;
    }
  } else {
    plan.shape = !entry.is_signal_frame && is_realigned(rules, plan) ? a_plan::realigned : a_plan::general;
    plan.rules = &rules;
  }
}

// Nearly all chains of actions are short: one or two types, and perhaps a clean-up behind them.
a_plan::a_handling take_clauses(const an_exception_table &table, a_plan &plan) {
  unsigned clauses = 0;
  for (const byte *next = plan.action; next;) {
    const int filter = table.next_action(next);
    if (filter == 0 && !next) return clauses ? a_plan::one_or_two_and_clean_up : a_plan::clean_up;
    if (filter <= 0 || filter > 32767 || clauses == 2) return a_plan::actions;
    const void *type = table.type(static_cast<unsigned>(filter));
    plan.clauses[clauses] = {type, type ? library_identity_of_clause(type) : nullptr};
    plan.selectors[clauses++] = static_cast<short>(filter);
  }
  return a_plan::one_or_two;
}

// C's personality is that of functions with clean-ups only: g++ names it for those of C++ too when it optimises at link
// time. The one that another library defines is that library's, as are the clean-ups that go on with its unwinder.
bool is_ours(unsigned personality) {
  return personality == reinterpret_cast<unsigned>(__gxx_personality_v0) ||
         personality == reinterpret_cast<unsigned>(__gcc_personality_v0);
}

// Returns false for a damaged table.
bool take_handling(const an_object &object, const a_frame_entry &entry, unsigned address, a_plan &plan) {
  plan.function = entry.start;
  plan.exception_table = reinterpret_cast<const byte *>(entry.exception_table);
  an_exception_table table(object.range, plan.exception_table, entry.start);
  if (table.is_damaged()) return false;
  const a_call_site site = table.find_call_site(address);
  if (table.is_damaged()) return false;
  plan.landing_pad = site.landing_pad;
  if (!site.is_covered) {
    plan.handling = a_plan::terminate;
  } else if (site.landing_pad == 0) {
    plan.handling = a_plan::none;
  } else if (!site.action) {
    plan.handling = a_plan::clean_up;
  } else {
    if (!table.check_actions(site.action)) return false;
    plan.action = site.action;
    plan.handling = take_clauses(table, plan);
  }
  return true;
}

}  // namespace

bool make_plan(unsigned address, bool interrupted, a_plan &plan, a_frame_rules &rules) {
  plan = {};
  plan.shape = a_plan::untabled;
  // A return address is behind the call, and may be behind the function.
  const unsigned instruction = interrupted ? address : address - 1;
  an_object object;
  if (!find_object(instruction, object)) return false;
  a_frame_entry entry;
  switch (find_frame_entry(object, instruction, entry)) {
    case a_lookup::found: break;
    case a_lookup::absent: return may_remember(object.map);
    case a_lookup::damaged: plan.shape = a_plan::damaged; return false;
  }
  if (!find_rules(object, entry, instruction, rules)) {
    plan.shape = a_plan::damaged;
    return false;
  }
  take_rules(entry, rules, plan);
  // Other languages' and libraries' tables are theirs to read.
  if (entry.exception_table && is_ours(entry.personality) && plan.shape != a_plan::outermost &&
      !take_handling(object, entry, instruction, plan)) {
    plan.shape = a_plan::damaged;
    return false;
  }
  return may_remember(object.map);
}

}  // namespace __zor
