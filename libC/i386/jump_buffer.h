// The one place that knows the C library's jump buffer (glibc, i386): ebx, esi, edi, ebp, and the stack pointer and the
// address, both rotated and xored with a guard that each process chooses.
//
// A throw leaves by its own jump: longjmp does work for thread cancellation that has no meaning here, and takes a third
// of a throw's time.
#pragma once

#include <setjmp.h>

#include "../sanitizer.h"

namespace __zor {

// Returns 1 from the _setjmp that filled the buffer.
[[noreturn]] inline void jump_to_buffer(jmp_buf buffer) {
#if PLX_ADDRESS_SANITIZER
  _longjmp(buffer, 1);  // the sanitizer must see the frames go
#else
  __asm__ volatile(
      "movl 16(%0), %%edx\n\t"
      "movl 20(%0), %%ecx\n\t"
      "rorl $9, %%edx\n\t"
      "rorl $9, %%ecx\n\t"
      "xorl %%gs:0x18, %%edx\n\t"
      "xorl %%gs:0x18, %%ecx\n\t"
      "movl (%0), %%ebx\n\t"
      "movl 4(%0), %%esi\n\t"
      "movl 8(%0), %%edi\n\t"
      "movl 12(%0), %%ebp\n\t"
      // From here on the frame that is jumped to counts as the caller: a debugger may look before the stack is there.
      ".cfi_remember_state\n\t"
      ".cfi_def_cfa 2, 0\n\t"
      ".cfi_same_value 3\n\t"
      ".cfi_same_value 5\n\t"
      ".cfi_same_value 6\n\t"
      ".cfi_same_value 7\n\t"
      ".cfi_register 8, 1\n\t"
      "movl %%edx, %%esp\n\t"
      "movl $1, %%eax\n\t"
      "jmp *%%ecx\n\t"
      ".cfi_restore_state"
      :
      : "a"(buffer));
  __builtin_unreachable();
#endif
}

// The stack pointer that the buffer holds.
inline unsigned stack_pointer_in(const jmp_buf buffer) {
  unsigned pointer = reinterpret_cast<const unsigned *>(buffer)[4];
  __asm__("rorl $9, %0\n\txorl %%gs:0x18, %0" : "+r"(pointer));
  return pointer;
}

}  // namespace __zor
