// How a landing pad is entered, and how it goes on: the registers of its frame, the exception in eax and the selector in
// edx (the C++ ABI for this processor).
#pragma once

#include "../../libC/eh_state.h"

// %ecx is the landing, %eax the exception; `r` is what a register's name begins with.
//
// While the registers are loaded, some are the old frame's and some the new one's. A debugger or profiler that looks then
// is told that the caller is the frame that is landed in, and finds its registers (DWARF's 3, 6, 7, 5) in the landing.
// What it takes for a return address, 8, is a byte behind the landing pad's first: it looks one byte before that.
#define PLX_LAND(r)                                         \
  ".cfi_remember_state\n\t"                                 \
  ".cfi_escape 0x0f, 3, 0x71, 20, 0x06\n\t"                 \
  ".cfi_escape 0x10, 3, 2, 0x71, 4\n\t"                     \
  ".cfi_escape 0x10, 6, 2, 0x71, 8\n\t"                     \
  ".cfi_escape 0x10, 7, 2, 0x71, 12\n\t"                    \
  ".cfi_escape 0x10, 5, 2, 0x71, 16\n\t"                    \
  ".cfi_escape 0x16, 8, 5, 0x71, 24, 0x06, 0x31, 0x22\n\t"  \
  "movl 28(" r "ecx), " r "edx\n\t"                         \
  "movl 4(" r "ecx), " r "ebx\n\t"                          \
  "movl 8(" r "ecx), " r "esi\n\t"                          \
  "movl 12(" r "ecx), " r "edi\n\t"                         \
  "movl 16(" r "ecx), " r "ebp\n\t"                         \
  "movl 20(" r "ecx), " r "esp\n\t"                         \
  "jmp *24(" r "ecx)\n\t"                                   \
  ".cfi_restore_state\n\t"

// The function that ends a clean-up. It steps from one recorded landing to the next and knows nothing but the header: to
// reach a variable of the library would take longer than all the rest. What is not as usual goes to
// __zor_resume_slowly(exception), what is not ours to __zor_resume_foreign(exception).
#define PLX_UNWIND_RESUME(name)          \
  __asm__(                               \
      ".text\n\t"                        \
      ".globl " name "\n\t"              \
      ".type " name ", @function\n\t"    \
      ".p2align 4\n"                     \
      name ":\n\t"                       \
      ".cfi_startproc\n\t"               \
      "movl 4(%esp), %eax\n\t"           \
      "cmpl $0x33584C50, (%eax)\n\t"     \
      "jne 2f\n\t"                       \
      "cmpl $0x002B2B43, 4(%eax)\n\t"    \
      "jne 2f\n\t"                       \
      "movl 12(%eax), %ecx\n\t"          \
      "addl $44, %ecx\n\t"               \
      "cmpb $0, (%ecx)\n\t"              \
      "jne 1f\n\t"                       \
      "movl %ecx, 12(%eax)\n\t"          \
      PLX_LAND("%")                      \
      "1:\n\t"                           \
      "subl $12, %esp\n\t"               \
      ".cfi_adjust_cfa_offset 12\n\t"    \
      "call __zor_resume_slowly\n\t"     \
      "hlt\n"                            \
      "2:\n\t"                           \
      ".cfi_adjust_cfa_offset -12\n\t"   \
      "subl $12, %esp\n\t"               \
      ".cfi_adjust_cfa_offset 12\n\t"    \
      "call __zor_resume_foreign\n\t"    \
      "hlt\n\t"                          \
      ".cfi_endproc\n\t"                 \
      ".size " name ", . - " name "\n")

namespace __zor {

[[noreturn]] inline void land(an_exception_header *exception, a_landing *landing) {
  exception->landed = landing;
  __asm__ volatile(PLX_LAND("%%") : : "a"(exception), "c"(landing));
  __builtin_unreachable();
}

}  // namespace __zor
