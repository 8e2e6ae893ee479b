/* What a compiler emits for try blocks, functions with objects, exception specifications and classes, as macros.
 *
 * The first ones hold nothing but stores to the records and to the two globals, so that a test reads like the output of
 * a compiler and still fits on a page. Locals that change between setjmp and the handler are volatile or in an array
 * whose address the eh stack knows. */
#ifndef TESTS_EMIT_H
#define TESTS_EMIT_H

#include <plx/runtime.h>

#if defined(__GNUC__)
#define NOINLINE __attribute__((__noinline__))
#define EMIT_UNUSED __attribute__((__unused__))
#else
#define NOINLINE
#define EMIT_UNUSED
#endif

/* try { ... } HANDLERS { ... } END_TRY. */
#define EMIT_TRY(entry, clauses)                                                                 \
  ((entry).next = __curr_eh_stack_entry, (entry).kind = PLX_EH_TRY_BLOCK,                        \
   (entry).body.try_block.clause_list = (clauses), (entry).body.try_block.handled_exception = 0, \
   (entry).body.try_block.try_region = __eh_curr_region, __curr_eh_stack_entry = &(entry));      \
  if (setjmp((entry).body.try_block.jump_buffer) == 0)
#define EMIT_HANDLERS else
#define EMIT_END_TRY(entry) (__curr_eh_stack_entry = (entry).next)

/* Entry to and exit from a function that owns objects. */
#define EMIT_FUNCTION(entry, regions, addresses, arrays)                                                 \
  ((entry).next = __curr_eh_stack_entry, (entry).kind = PLX_EH_FUNCTION,                                 \
   (entry).body.function.region_table = (regions), (entry).body.function.object_addresses = (addresses), \
   (entry).body.function.array_table = (arrays), (entry).body.function.saved_region = __eh_curr_region,  \
   __curr_eh_stack_entry = &(entry), __eh_curr_region = PLX_NO_REGION)
#define EMIT_LEAVE_FUNCTION(entry) \
  (__eh_curr_region = (entry).body.function.saved_region, __curr_eh_stack_entry = (entry).next)

/* Entry to and exit from a function with an exception specification. */
#define EMIT_SPECIFICATION(entry, allowed)                                    \
  ((entry).next = __curr_eh_stack_entry, (entry).kind = PLX_EH_SPECIFICATION, \
   (entry).body.specification.allowed_list = (allowed), __curr_eh_stack_entry = &(entry))
#define EMIT_LEAVE_SPECIFICATION(entry) (__curr_eh_stack_entry = (entry).next)

/* The same as blocks, each closed by its END. In handlers `clause` and `caught` tell which and what; between PARAMETER
 * and HANDLER the parameter is initialised: an exception from there terminates. */
#define FUNCTION(regions, addresses, arrays) \
  {                                          \
    an_eh_stack_entry function_entry;        \
    EMIT_FUNCTION(function_entry, regions, addresses, arrays);
#define REGION(number) (__eh_curr_region = (number))
#define END_FUNCTION                   \
  EMIT_LEAVE_FUNCTION(function_entry); \
  }
#define TRY(clauses)             \
  {                              \
    an_eh_stack_entry try_entry; \
    EMIT_TRY(try_entry, clauses) {
#define PARAMETER                           \
  }                                         \
  EMIT_HANDLERS {                           \
    int clause = __catch_clause_number;     \
    void *caught = __caught_object_address; \
    (void)clause;                           \
    (void)caught;
#define HANDLER __exception_caught();
#define HANDLERS PARAMETER HANDLER
#define END_TRY            \
  __free_thrown_object();  \
  }                        \
  EMIT_END_TRY(try_entry); \
  }
#define SPECIFICATION(allowed)             \
  {                                        \
    an_eh_stack_entry specification_entry; \
    EMIT_SPECIFICATION(specification_entry, allowed);
#define END_SPECIFICATION                        \
  EMIT_LEAVE_SPECIFICATION(specification_entry); \
  }

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
  static const a_type_info_impl type EMIT_UNUSED = {PLX_TYPE_INFO_VTABLE, text, &type##_identity, base_list}

/* A region's routine. */
#define DESTRUCTOR(function) ((a_routine)(function))

#endif
