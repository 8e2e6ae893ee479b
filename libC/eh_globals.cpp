// The state that generated code shares with the runtime.

#include "eh_state.h"

an_eh_stack_entry *__curr_eh_stack_entry;
unsigned short __eh_curr_region;
int __catch_clause_number;
void *__caught_object_address;

// Marks the exception-handling model and its version; it only has to exist.
int __ZOR_PLX_3_3_eh;
