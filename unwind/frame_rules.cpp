// Runs the instructions of unwind tables (DWARF 4, 6.4.2, and the GNU ones) up to an address, and applies what they
// say.

#include "frame_rules.h"

namespace __zor {
namespace {

enum an_instruction : byte {
  // The operand is the low six bits.
  advance_loc = 0x40,
  offset = 0x80,
  restore = 0xC0,
  // All others.
  nop = 0x00,
  set_loc = 0x01,
  advance_loc1 = 0x02,
  advance_loc2 = 0x03,
  advance_loc4 = 0x04,
  offset_extended = 0x05,
  restore_extended = 0x06,
  undefined = 0x07,
  same_value = 0x08,
  in_register = 0x09,
  remember_state = 0x0A,
  restore_state = 0x0B,
  def_cfa = 0x0C,
  def_cfa_register = 0x0D,
  def_cfa_offset = 0x0E,
  def_cfa_expression = 0x0F,
  expression = 0x10,
  offset_extended_sf = 0x11,
  def_cfa_sf = 0x12,
  def_cfa_offset_sf = 0x13,
  val_offset = 0x14,
  val_offset_sf = 0x15,
  val_expression = 0x16,
  gnu_args_size = 0x2E,
  gnu_negative_offset_extended = 0x2F
};

const unsigned most_remembered = 8;

struct a_rule_machine {
  const an_object &object;
  const a_frame_entry &entry;
  a_frame_rules &rules;
  unsigned location;  // the address that the next rules begin to hold at
  a_rule initial[register_count];
  a_frame_rules remembered[most_remembered];
  unsigned remembered_count;

  // Registers that this runtime does not keep (x87, SSE) are read over.
  void set(unsigned reg, a_rule::a_kind kind, int offset, const byte *expression = nullptr) {
    if (reg < register_count) rules.registers[reg] = {kind, 0, offset, expression};
  }
  void set_cfa(unsigned reg, int offset) {
    rules.cfa = {a_rule::in_register, static_cast<byte>(reg < register_eip ? reg : +register_count), offset, nullptr};
  }

  const byte *block(a_byte_reader &reader) {
    const byte *start = reader.at();
    reader.skip(reader.uleb());
    return start;
  }

  // Runs until the location has passed `address`, or to the end.
  bool run(const a_range &instructions, unsigned address) {
    a_byte_reader reader({object.range.start, instructions.end}, instructions.start);
    while (!reader.at_end()) {
      const unsigned code = reader.u8();
      const unsigned low = code & 0x3F;
      switch (code & 0xC0) {
        case advance_loc:
          if (!advance(low, address)) return true;
          continue;
        case offset: set(low, a_rule::at_offset, factored(reader.uleb())); continue;
        case restore:
          if (low < register_count) rules.registers[low] = initial[low];
          continue;
      }
      switch (code) {
        case nop: break;
        case set_loc:
          location = reader.pointer(pointer_absolute);
          if (location > address) return !reader.failed();
          break;
        case advance_loc1:
          if (!advance(reader.u8(), address)) return !reader.failed();
          break;
        case advance_loc2:
          if (!advance(reader.u16(), address)) return !reader.failed();
          break;
        case advance_loc4:
          if (!advance(reader.u32(), address)) return !reader.failed();
          break;
        case offset_extended: {
          const unsigned reg = reader.uleb();
          set(reg, a_rule::at_offset, factored(reader.uleb()));
          break;
        }
        case offset_extended_sf: {
          const unsigned reg = reader.uleb();
          set(reg, a_rule::at_offset, factored(reader.sleb()));
          break;
        }
        case gnu_negative_offset_extended: {
          const unsigned reg = reader.uleb();
          set(reg, a_rule::at_offset, -factored(reader.uleb()));
          break;
        }
        case val_offset: {
          const unsigned reg = reader.uleb();
          set(reg, a_rule::is_offset, factored(reader.uleb()));
          break;
        }
        case val_offset_sf: {
          const unsigned reg = reader.uleb();
          set(reg, a_rule::is_offset, factored(reader.sleb()));
          break;
        }
        case restore_extended: {
          const unsigned reg = reader.uleb();
          if (reg < register_count) rules.registers[reg] = initial[reg];
          break;
        }
        case undefined: set(reader.uleb(), a_rule::undefined, 0); break;
        case same_value: set(reader.uleb(), a_rule::same, 0); break;
        case in_register: {
          const unsigned reg = reader.uleb(), other = reader.uleb();
          if (reg < register_count) {
            if (other >= register_eip) return false;
            rules.registers[reg] = {a_rule::in_register, static_cast<byte>(other), 0, nullptr};
          }
          break;
        }
        case remember_state:
          if (remembered_count == most_remembered) return false;
          remembered[remembered_count++] = rules;
          break;
        case restore_state: {
          if (remembered_count == 0) return false;
          const unsigned arguments_size = rules.arguments_size;
          rules = remembered[--remembered_count];
          rules.arguments_size = arguments_size;
          break;
        }
        case def_cfa: {
          const unsigned reg = reader.uleb();
          set_cfa(reg, static_cast<int>(reader.uleb()));
          break;
        }
        case def_cfa_sf: {
          const unsigned reg = reader.uleb();
          set_cfa(reg, factored(reader.sleb()));
          break;
        }
        case def_cfa_register: set_cfa(reader.uleb(), rules.cfa.offset); break;
        case def_cfa_offset: rules.cfa.offset = static_cast<int>(reader.uleb()); break;
        case def_cfa_offset_sf: rules.cfa.offset = factored(reader.sleb()); break;
        case def_cfa_expression: rules.cfa = {a_rule::is_expression, 0, 0, block(reader)}; break;
        case expression: {
          const unsigned reg = reader.uleb();
          set(reg, a_rule::at_expression, 0, block(reader));
          break;
        }
        case val_expression: {
          const unsigned reg = reader.uleb();
          set(reg, a_rule::is_expression, 0, block(reader));
          break;
        }
        case gnu_args_size: rules.arguments_size = reader.uleb(); break;
        default: return false;
      }
    }
    return !reader.failed();
  }

  bool advance(unsigned delta, unsigned address) {
    location += delta * entry.code_alignment;
    return location <= address;
  }
  int factored(unsigned operand) const {
    return static_cast<int>(operand * static_cast<unsigned>(entry.data_alignment));
  }
};

bool read_word(const a_machine_frame &frame, unsigned address, unsigned &value) {
  if (!is_on_stack(frame, address)) return false;
  __builtin_memcpy(&value, reinterpret_cast<const void *>(address), sizeof value);
  return true;
}

}  // namespace

bool find_rules(const an_object &object, const a_frame_entry &entry, unsigned address, a_frame_rules &rules) {
  rules = {};
  rules.range = object.range;
  a_rule_machine machine = {object, entry, rules, entry.start, {}, {}, 0};
  if (!machine.run(entry.common_instructions, 0xFFFFFFFF)) return false;
  __builtin_memcpy(machine.initial, rules.registers, sizeof machine.initial);
  machine.location = entry.start;
  if (!machine.run(entry.instructions, address)) return false;
  return rules.cfa.kind == a_rule::is_expression ||
         (rules.cfa.kind == a_rule::in_register && rules.cfa.reg < register_eip);
}

bool find_cfa(const a_frame_rules &rules, const a_machine_frame &frame, unsigned &cfa) {
  if (rules.cfa.kind == a_rule::is_expression) return evaluate(rules.range, rules.cfa.expression, frame, 0, cfa);
  cfa = frame.registers[rules.cfa.reg] + static_cast<unsigned>(rules.cfa.offset);
  return true;
}

bool step_by_rules(const a_frame_rules &rules, unsigned cfa, a_machine_frame &frame) {
  unsigned values[register_count];
  for (unsigned i = 0; i < register_count; ++i) {
    const a_rule &rule = rules.registers[i];
    const unsigned beside_cfa = cfa + static_cast<unsigned>(rule.offset);
    unsigned value = i < register_eip ? frame.registers[i] : 0;
    switch (rule.kind) {
      case a_rule::same:
      case a_rule::undefined: break;
      case a_rule::at_offset:
        if (!read_word(frame, beside_cfa, value)) return false;
        break;
      case a_rule::is_offset: value = beside_cfa; break;
      case a_rule::in_register: value = frame.registers[rule.reg]; break;
      case a_rule::at_expression:
        if (!evaluate(rules.range, rule.expression, frame, cfa, value) || !read_word(frame, value, value)) return false;
        break;
      case a_rule::is_expression:
        if (!evaluate(rules.range, rule.expression, frame, cfa, value)) return false;
        break;
    }
    values[i] = value;
  }
  // Unless the table says otherwise the stack pointer after the return is the CFA itself.
  if (rules.registers[register_esp].kind == a_rule::same) values[register_esp] = cfa;
  for (unsigned i = 0; i < register_eip; ++i) frame.registers[i] = values[i];
  frame.address = values[register_eip];
  return true;
}

}  // namespace __zor
