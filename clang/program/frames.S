# Entering and leaving a frame that has something to clean up or to catch. In the program, not in the shared object:
# every such call pays for these, and here they reach the head of the eh stack directly.
#
# A function context (clang/frame.h) holds an eh stack entry at offset 16: its link, then its kind.

        .set    FOREIGN_FRAME, 0xC1

        .text

# void _Unwind_SjLj_Register(a_function_context *): makes the frame the head of the eh stack.
        .globl  _Unwind_SjLj_Register
        .hidden _Unwind_SjLj_Register
        .type   _Unwind_SjLj_Register, @function
        .p2align 4
_Unwind_SjLj_Register:
        movl    4(%esp), %eax
        movl    __curr_eh_stack_entry, %ecx
        movl    $FOREIGN_FRAME, 20(%eax)
        movl    %ecx, 16(%eax)
        addl    $16, %eax
        movl    %eax, __curr_eh_stack_entry
        ret
        .size   _Unwind_SjLj_Register, . - _Unwind_SjLj_Register

# void _Unwind_SjLj_Unregister(a_function_context *): the frame is the head of the eh stack; takes it off.
        .globl  _Unwind_SjLj_Unregister
        .hidden _Unwind_SjLj_Unregister
        .type   _Unwind_SjLj_Unregister, @function
        .p2align 4
_Unwind_SjLj_Unregister:
        movl    4(%esp), %eax
        movl    16(%eax), %eax
        movl    %eax, __curr_eh_stack_entry
        ret
        .size   _Unwind_SjLj_Unregister, . - _Unwind_SjLj_Unregister

        .section .note.GNU-stack, "", @progbits
