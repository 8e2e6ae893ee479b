// The unwind tables of a program or shared object (.eh_frame and its index, .eh_frame_hdr): which entry describes the
// function at an address, and what the entry says before its instructions begin.
#pragma once

#include "byte_reader.h"

namespace __zor {

// A loaded object, as far as its tables need it.
struct an_object {
  a_range range;      // all of it
  const byte *index;  // .eh_frame_hdr; null: it has no tables
  void *map;          // the dynamic linker's handle of it
};

// Returns false where no object is.
bool find_object(unsigned address, an_object &object);

// A function's entry (FDE) with what its common part (CIE) says.
struct a_frame_entry {
  unsigned start, end;  // the function's code
  a_range common_instructions, instructions;
  unsigned code_alignment;
  int data_alignment;
  unsigned return_column;
  unsigned personality;      // 0: none
  unsigned exception_table;  // 0: none
  bool is_signal_frame;
};

enum class a_lookup { found, absent, damaged };

a_lookup find_frame_entry(const an_object &object, unsigned address, a_frame_entry &entry);

}  // namespace __zor
