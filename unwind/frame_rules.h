// What an unwind table says of one address: where the frame's canonical address (CFA) is, and how the caller's
// registers are found from it.
#pragma once

#include "frame_table.h"
#include "i386/machine_frame.h"

namespace __zor {

struct a_rule {
  enum a_kind : unsigned char {
    same,           // as in this frame
    undefined,      // lost; of the return address: there is no caller
    at_offset,      // in memory at CFA + offset
    is_offset,      // CFA + offset
    in_register,    // in register + offset; of the CFA: the usual form
    at_expression,  // in memory where the expression says
    is_expression,  // what the expression says
  };

  a_kind kind;
  byte reg;
  int offset;
  const byte *expression;  // its length, then its bytes
};

struct a_frame_rules {
  a_rule cfa;
  a_rule registers[register_count];
  unsigned arguments_size;  // bytes pushed for the call in progress, which a landing takes off
  a_range range;            // of the object, for expressions
};

// The rules in force for the instruction at `address`. Returns false when the table is damaged.
bool find_rules(const an_object &object, const a_frame_entry &entry, unsigned address, a_frame_rules &rules);

// The frame's CFA by any rule.
bool find_cfa(const a_frame_rules &rules, const a_machine_frame &frame, unsigned &cfa);

// Turns a frame into its caller's by any rules.
bool step_by_rules(const a_frame_rules &rules, unsigned cfa, a_machine_frame &frame);

// The value of a DWARF expression over the frame's registers. `initial` is what lies on its stack at the start.
bool evaluate(const a_range &range, const byte *expression, const a_machine_frame &frame, unsigned initial,
              unsigned &value);

}  // namespace __zor
