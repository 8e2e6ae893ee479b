// How a landing pad is entered, and how it goes on: the registers of its frame, the exception in eax and the selector in
// edx (the C++ ABI for this processor).
#pragma once

#include "../../libC/eh_state.h"

// %ecx is the landing, %eax the exception.
#define PLX_LAND                \
  "movl 28(%ecx), %edx\n\t"     \
  "movl 4(%ecx), %ebx\n\t"      \
  "movl 8(%ecx), %esi\n\t"      \
  "movl 12(%ecx), %edi\n\t"     \
  "movl 16(%ecx), %ebp\n\t"     \
  "movl 20(%ecx), %esp\n\t"     \
  "jmp *24(%ecx)\n\t"

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
      PLX_LAND                           \
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
  __asm__ volatile(
      "movl 28(%1), %%edx\n\t"
      "movl 4(%1), %%ebx\n\t"
      "movl 8(%1), %%esi\n\t"
      "movl 12(%1), %%edi\n\t"
      "movl 16(%1), %%ebp\n\t"
      "movl 20(%1), %%esp\n\t"
      "jmp *24(%1)"
      :
      : "a"(exception), "c"(landing));
  __builtin_unreachable();
}

}  // namespace __zor
