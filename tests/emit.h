/* What a compiler emits for try blocks, functions with objects, exception specifications and classes, as macros.
 *
 * They hold nothing but stores to the records and to the two globals, so that a test reads like the output of a
 * compiler and still fits on a page. Locals that change between setjmp and the handler are volatile or in an array
 * whose address the eh stack knows. */
#ifndef TESTS_EMIT_H
#define TESTS_EMIT_H

#include <plx/runtime.h>

#define NOINLINE __attribute__((__noinline__))

/* Blocks, each closed by its END. */
#define EMIT_ENTRY(entry, sort)         \
  {                                     \
    an_eh_stack_entry entry;            \
    entry.next = __curr_eh_stack_entry; \
    entry.kind = sort;                  \
    __curr_eh_stack_entry = &entry;
#define EMIT_END(entry)               \
  __curr_eh_stack_entry = entry.next; \
  }

/* Of a function that owns objects. */
#define FUNCTION(regions, addresses, arrays)                    \
  EMIT_ENTRY(function_entry, PLX_EH_FUNCTION)                   \
  function_entry.body.function.region_table = (regions);        \
  function_entry.body.function.object_addresses = (addresses);  \
  function_entry.body.function.array_table = (arrays);          \
  function_entry.body.function.saved_region = __eh_curr_region; \
  REGION(PLX_NO_REGION);
#define REGION(number) (__eh_curr_region = (number))
#define END_FUNCTION                                 \
  REGION(function_entry.body.function.saved_region); \
  EMIT_END(function_entry)

/* In handlers `clause` and `caught` tell which and what; between PARAMETER and HANDLER the parameter is initialised: an
 * exception from there terminates. */
#define TRY(clauses)                                      \
  EMIT_ENTRY(try_entry, PLX_EH_TRY_BLOCK)                 \
  try_entry.body.try_block.clause_list = (clauses);       \
  try_entry.body.try_block.handled_exception = 0;         \
  try_entry.body.try_block.try_region = __eh_curr_region; \
  if (setjmp(try_entry.body.try_block.jump_buffer) == 0) {
#define PARAMETER                           \
  }                                         \
  else {                                    \
    int clause = __catch_clause_number;     \
    void *caught = __caught_object_address; \
    (void)clause;                           \
    (void)caught;
#define HANDLER __exception_caught();
#define HANDLERS PARAMETER HANDLER
#define END_TRY           \
  __free_thrown_object(); \
  }                       \
  EMIT_END(try_entry)

#define SPECIFICATION(allowed)                          \
  EMIT_ENTRY(specification_entry, PLX_EH_SPECIFICATION) \
  specification_entry.body.specification.allowed_list = (allowed);
#define END_SPECIFICATION EMIT_END(specification_entry)

/* throw value; for a type without constructors. */
#define THROW(descriptor, type, flags, value)                                   \
  do {                                                                          \
    type *thrown = (type *)__throw_setup(&(descriptor), sizeof(type), (flags)); \
    *thrown = (value);                                                          \
    __throw();                                                                  \
  } while (0)

/* The descriptor and identity of a class. */
#define EMIT_CLASS(type, text, base_list) \
  static const char type##_identity = 0;  \
  static __attribute__((__unused__))      \
  const a_type_info_impl type = {PLX_TYPE_INFO_VTABLE, text, &type##_identity, base_list}

/* A region's routine. */
#define DESTRUCTOR(function) ((a_routine)(function))

#endif
