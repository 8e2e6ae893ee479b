// DWARF expressions, as unwind tables have them (DWARF 4, 2.5): of realigned frames, of signal frames, of the C library's
// assembly. What needs a debugger, a second frame or floating point is refused.

#include "frame_rules.h"

namespace __zor {
namespace {

enum an_operation : byte {
  op_addr = 0x03,
  op_deref = 0x06,
  op_const1u = 0x08,
  op_const1s,
  op_const2u,
  op_const2s,
  op_const4u,
  op_const4s,
  op_constu = 0x10,
  op_consts,
  op_dup,
  op_drop,
  op_over,
  op_pick,
  op_swap,
  op_rot,
  op_abs = 0x19,
  op_and,
  op_div,
  op_minus,
  op_mod,
  op_mul,
  op_neg,
  op_not,
  op_or,
  op_plus,
  op_plus_uconst,
  op_shl,
  op_shr,
  op_shra,
  op_xor,
  op_bra,
  op_eq,
  op_ge,
  op_gt,
  op_le,
  op_lt,
  op_ne,
  op_skip,
  op_lit0 = 0x30,
  op_reg0 = 0x50,
  op_breg0 = 0x70,
  op_bregx = 0x92,
  op_deref_size = 0x94,
  op_nop = 0x96
};

const unsigned stack_room = 32;
const unsigned most_steps = 1000;  // an expression may loop; one of a table never needs this

bool apply_two(unsigned operation, unsigned left, unsigned right, unsigned &result) {
  const int signed_left = static_cast<int>(left), signed_right = static_cast<int>(right);
  switch (operation) {
    case op_and: result = left & right; return true;
    case op_or: result = left | right; return true;
    case op_xor: result = left ^ right; return true;
    case op_plus: result = left + right; return true;
    case op_minus: result = left - right; return true;
    case op_mul: result = left * right; return true;
    case op_div:
      if (right == 0) return false;
      // The one quotient that overflows would trap.
      result = right == 0xFFFFFFFF ? -left : static_cast<unsigned>(signed_left / signed_right);
      return true;
    case op_mod:
      if (right == 0) return false;
      result = left % right;
      return true;
    case op_shl: result = right < 32 ? left << right : 0; return true;
    case op_shr: result = right < 32 ? left >> right : 0; return true;
    case op_shra: result = static_cast<unsigned>(signed_left >> (right < 32 ? right : 31)); return true;
    case op_eq: result = left == right; return true;
    case op_ne: result = left != right; return true;
    case op_ge: result = signed_left >= signed_right; return true;
    case op_gt: result = signed_left > signed_right; return true;
    case op_le: result = signed_left <= signed_right; return true;
    case op_lt: result = signed_left < signed_right; return true;
    default: return false;
  }
}

struct an_evaluation {
  unsigned stack[stack_room];
  unsigned depth;
  bool failed;

  void push(unsigned value) {
    if (depth == stack_room)
      failed = true;
    else
      stack[depth++] = value;
  }
  unsigned pop() {
    if (depth == 0) failed = true;
    return failed ? 0 : stack[--depth];
  }
  unsigned below(unsigned distance) {
    const unsigned place = depth - 1 - distance;
    if (place >= depth) failed = true;
    return failed ? 0 : stack[place % stack_room];
  }
};

}  // namespace

bool evaluate(const a_range &range, const byte *expression, const a_machine_frame &frame, unsigned initial,
              unsigned &value) {
  a_byte_reader prefix(range, expression);
  const unsigned length = prefix.uleb();
  if (prefix.failed() || !range.holds(prefix.at(), length)) return false;
  const a_range code = {prefix.at(), prefix.at() + length};
  a_byte_reader reader(code, code.start);
  an_evaluation on = {{initial}, 1, false};
  auto push_register = [&](unsigned reg, int offset) {
    if (reg > register_eip)
      on.failed = true;
    else
      on.push((reg == register_eip ? frame.address : frame.registers[reg]) + static_cast<unsigned>(offset));
  };
  auto push_word = [&](unsigned address, unsigned size) {
    if (on.failed || size > sizeof(unsigned) || !is_on_stack(frame, address)) return false;
    unsigned word = 0;
    __builtin_memcpy(&word, reinterpret_cast<const void *>(address), size);
    on.push(word);
    return true;
  };
  auto jump = [&](int distance) {
    const byte *target = reader.at() + distance;
    reader = a_byte_reader(code, target);
    if (target > code.end) reader.fail();
  };

  for (unsigned steps = 0; !reader.at_end(); ++steps) {
    if (steps == most_steps || on.failed) return false;
    const unsigned operation = reader.u8();
    if (operation >= op_lit0 && operation < op_lit0 + 32) {
      on.push(operation - op_lit0);
    } else if (operation >= op_reg0 && operation < op_reg0 + 32) {
      push_register(operation - op_reg0, 0);
    } else if (operation >= op_breg0 && operation < op_breg0 + 32) {
      push_register(operation - op_breg0, reader.sleb());
    } else {
      switch (operation) {
        case op_addr:
        case op_const4u:
        case op_const4s: on.push(reader.u32()); break;
        case op_const1u: on.push(reader.u8()); break;
        case op_const1s: on.push(reader.s8()); break;
        case op_const2u: on.push(reader.u16()); break;
        case op_const2s: on.push(reader.s16()); break;
        case op_constu: on.push(reader.uleb()); break;
        case op_consts: on.push(static_cast<unsigned>(reader.sleb())); break;
        case op_bregx: {
          const unsigned reg = reader.uleb();
          push_register(reg, reader.sleb());
          break;
        }
        case op_deref: {
          const unsigned address = on.pop();
          if (!push_word(address, sizeof(unsigned))) return false;
          break;
        }
        case op_deref_size: {
          const unsigned size = reader.u8(), address = on.pop();
          if (!push_word(address, size)) return false;
          break;
        }
        case op_dup: on.push(on.below(0)); break;
        case op_drop: on.pop(); break;
        case op_over: on.push(on.below(1)); break;
        case op_pick: on.push(on.below(reader.u8())); break;
        case op_swap: {
          const unsigned top = on.pop(), next = on.pop();
          on.push(top);
          on.push(next);
          break;
        }
        case op_rot: {
          const unsigned top = on.pop(), second = on.pop(), third = on.pop();
          on.push(top);
          on.push(third);
          on.push(second);
          break;
        }
        case op_abs: {
          const unsigned top = on.pop();
          on.push(static_cast<int>(top) < 0 ? -top : top);
          break;
        }
        case op_neg: on.push(-on.pop()); break;
        case op_not: on.push(~on.pop()); break;
        case op_plus_uconst: {
          const unsigned top = on.pop();
          on.push(top + reader.uleb());
          break;
        }
        case op_skip: jump(static_cast<int>(reader.s16())); break;
        case op_bra: {
          const int distance = static_cast<int>(reader.s16());
          if (on.pop()) jump(distance);
          break;
        }
        case op_nop: break;
        default: {
          const unsigned right = on.pop(), left = on.pop();
          unsigned result = 0;
          if (on.failed || !apply_two(operation, left, right, result)) return false;
          on.push(result);
        }
      }
    }
  }
  value = on.pop();
  return !on.failed && !reader.failed();
}

}  // namespace __zor
