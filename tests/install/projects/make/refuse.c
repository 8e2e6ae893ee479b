/* What a compiler would make of a function that throws 42 and a handler for int. */
#include <plx/runtime.h>
#include <stdio.h>

static void refuse(void) {
  int *object = (int *)__throw_setup(&__TI_i, sizeof *object, 0);
  *object = 42;
  __throw();
}

static const an_exception_type_specification clauses[] = {{&__TI_i, PLX_TYPE_LAST}};

int main(void) {
  an_eh_stack_entry entry;
  volatile int caught = 0;
  _main();
  entry.next = __curr_eh_stack_entry;
  entry.kind = PLX_EH_TRY_BLOCK;
  entry.body.try_block.clause_list = clauses;
  entry.body.try_block.handled_exception = 0;
  entry.body.try_block.try_region = __eh_curr_region;
  __curr_eh_stack_entry = &entry;
  if (setjmp(entry.body.try_block.jump_buffer) == 0) {
    refuse();
  } else {
    caught = *(int *)__caught_object_address;
    __exception_caught();
    __free_thrown_object();
  }
  __curr_eh_stack_entry = entry.next;
  return caught == 42 ? 0 : 1;
}
