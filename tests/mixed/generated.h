/* What a compiler would spell out in every function of generated C, as macros, for the C halves of the mixed tests:
 * function entries with their regions, try blocks with a clause list, specifications, throw expressions. What a macro
 * opens its END closes.
 */
#ifndef TESTS_MIXED_GENERATED_H
#define TESTS_MIXED_GENERATED_H

#include <plx/runtime.h>

/* A function with objects to destroy. Its regions are set by REGION(n) as objects come and go. */
#define FUNCTION(regions, addresses, arrays)                         \
  {                                                                  \
    an_eh_stack_entry function_entry;                                \
    function_entry.next = __curr_eh_stack_entry;                     \
    function_entry.kind = PLX_EH_FUNCTION;                           \
    function_entry.body.function.region_table = (regions);           \
    function_entry.body.function.object_addresses = (addresses);     \
    function_entry.body.function.array_table = (arrays);             \
    function_entry.body.function.saved_region = __eh_curr_region;    \
    __eh_curr_region = PLX_NO_REGION;                                \
    __curr_eh_stack_entry = &function_entry;

#define REGION(number) (__eh_curr_region = (number))

#define END_FUNCTION                                              \
    __eh_curr_region = function_entry.body.function.saved_region; \
    __curr_eh_stack_entry = function_entry.next;                  \
  }

/* TRY(clauses) body HANDLERS handlers END_TRY; in the handlers, `clause` and `caught` tell which and what. Between
 * PARAMETER and HANDLER the parameter is initialised: an exception from there terminates. */
#define TRY(clauses)                                              \
  {                                                               \
    an_eh_stack_entry try_entry;                                  \
    try_entry.next = __curr_eh_stack_entry;                       \
    try_entry.kind = PLX_EH_TRY_BLOCK;                            \
    try_entry.body.try_block.clause_list = (clauses);             \
    try_entry.body.try_block.handled_exception = 0;               \
    try_entry.body.try_block.try_region = __eh_curr_region;       \
    __curr_eh_stack_entry = &try_entry;                           \
    if (setjmp(try_entry.body.try_block.jump_buffer) == 0) {

#define PARAMETER                              \
    } else {                                   \
      int clause = __catch_clause_number;      \
      void *caught = __caught_object_address;  \
      (void)clause;                            \
      (void)caught;

#define HANDLER __exception_caught();

#define HANDLERS PARAMETER HANDLER

#define END_TRY                                   \
      __free_thrown_object();                     \
    }                                             \
    __curr_eh_stack_entry = try_entry.next;       \
  }

/* A function with an exception specification; null is throw (). */
#define SPECIFICATION(allowed)                                        \
  {                                                                   \
    an_eh_stack_entry specification_entry;                            \
    specification_entry.next = __curr_eh_stack_entry;                 \
    specification_entry.kind = PLX_EH_SPECIFICATION;                  \
    specification_entry.body.specification.allowed_list = (allowed);  \
    __curr_eh_stack_entry = &specification_entry;

#define END_SPECIFICATION                                \
    __curr_eh_stack_entry = specification_entry.next;    \
  }

/* throw value; for a type without constructors. */
#define THROW(descriptor, type, flags, value)                                   \
  do {                                                                          \
    type *thrown = (type *)__throw_setup(&(descriptor), sizeof(type), (flags)); \
    *thrown = (value);                                                          \
    __throw();                                                                  \
  } while (0)

#endif
