// The frame of a function that called an entry point that throws, as that entry point saves it: the registers that a
// function must keep, below the return address. throw_entry.cpp makes it, and cxxabi/i386/.
#pragma once

namespace __zor {

struct a_saved_frame {
  unsigned ebx, esi, edi, ebp;
  unsigned return_address;
  unsigned arguments[3];
};

static_assert(sizeof(a_saved_frame) == 32, "four pushes below the return address");

// A function NAME that saves the frame of its caller and calls TARGET(const a_saved_frame *), a function of C with
// regparm, which never returns. The stack is aligned there as the ABI asks.
// clang-format off
#define PLX_ENTRY_THAT_THROWS(name, target)  \
  __asm__(                                   \
      ".text\n\t"                            \
      ".globl " name "\n\t"                  \
      ".type " name ", @function\n\t"        \
      ".p2align 4\n"                         \
      name ":\n\t"                           \
      ".cfi_startproc\n\t"                   \
      "pushl %ebp\n\t"                       \
      ".cfi_adjust_cfa_offset 4\n\t"         \
      ".cfi_rel_offset %ebp, 0\n\t"          \
      "pushl %edi\n\t"                       \
      ".cfi_adjust_cfa_offset 4\n\t"         \
      ".cfi_rel_offset %edi, 0\n\t"          \
      "pushl %esi\n\t"                       \
      ".cfi_adjust_cfa_offset 4\n\t"         \
      ".cfi_rel_offset %esi, 0\n\t"          \
      "pushl %ebx\n\t"                       \
      ".cfi_adjust_cfa_offset 4\n\t"         \
      ".cfi_rel_offset %ebx, 0\n\t"          \
      "movl %esp, %eax\n\t"                  \
      "subl $12, %esp\n\t"                   \
      ".cfi_adjust_cfa_offset 12\n\t"        \
      "call " target "\n\t"                  \
      "hlt\n\t"                              \
      ".cfi_endproc\n\t"                     \
      ".size " name ", . - " name "\n")

// clang-format on
}  // namespace __zor
