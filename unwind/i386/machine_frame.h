// A frame of the processor's stack: its registers as they are at a call in it, by their DWARF numbers.
#pragma once

#include "../../libC/frames.h"

// The C library's: the highest address of the stack that the kernel gave the process.
extern "C" void *__libc_stack_end;

namespace __zor {

enum a_register : unsigned char {
  register_eax,
  register_ecx,
  register_edx,
  register_ebx,
  register_esp,
  register_ebp,
  register_esi,
  register_edi,
  register_eip,  // the return address
  register_count
};

struct a_machine_frame {
  unsigned registers[register_count - 1];  // esp as it is after a return to the frame
  unsigned address;                        // the return address in the frame
};

// Whether a word may be read there: callers of a frame lie between its stack pointer and the end of the stack. That of
// the main thread ends highest in memory, so its end serves all.
inline bool is_on_stack(const a_machine_frame &frame, unsigned address) {
  const unsigned bottom = frame.registers[register_esp];
  const unsigned end = reinterpret_cast<unsigned>(__libc_stack_end);
  return address >= bottom && address < end && end - address >= sizeof(unsigned);
}

inline a_machine_frame frame_of(const a_saved_frame &saved) {
  return {{0, 0, 0, saved.ebx, reinterpret_cast<unsigned>(&saved.return_address + 1), saved.ebp, saved.esi, saved.edi},
          saved.return_address};
}

inline a_machine_frame frame_of(const a_landing &landing) {
  return {{0, 0, 0, landing.ebx, landing.esp, landing.ebp, landing.esi, landing.edi}, landing.address};
}

// Everything of the frame but where to go there.
inline void note_frame(a_landing &landing, const a_machine_frame &frame, unsigned arguments_size) {
  landing.ebx = frame.registers[register_ebx];
  landing.esi = frame.registers[register_esi];
  landing.edi = frame.registers[register_edi];
  landing.ebp = frame.registers[register_ebp];
  landing.esp = frame.registers[register_esp] + arguments_size;
  landing.address = frame.address;
}

}  // namespace __zor
