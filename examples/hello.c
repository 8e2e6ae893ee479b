/* A hello in generated C: what a compiler could emit for
 *
 *     void refuse(int code) { throw code; }
 *
 *     int main() {
 *       try {
 *         refuse(42);
 *       } catch (int code) {
 *         printf("hello from the handler: caught %d\n", code);
 *       }
 *     }
 *
 *   ./dev run examples/hello.c
 */
#include <plx/runtime.h>
#include <stdio.h>

static void refuse(int code) {
  int *object = (int *)__throw_setup(&__TI_i, sizeof *object, 0); /* storage for the exception: an int */
  *object = code;                                                 /* the object is constructed in it ... */
  __throw();                                                      /* ... and thrown; this never returns */
}

/* The clauses of the try block: catch (int). The last one says so. */
static const an_exception_type_specification clauses[] = {{&__TI_i, PLX_TYPE_LAST}};

int main(void) {
  an_eh_stack_entry entry;

  _main(); /* static objects and exit are set up first */

  /* try: link an entry onto the eh stack and remember this place. */
  entry.next = __curr_eh_stack_entry;
  entry.kind = PLX_EH_TRY_BLOCK;
  entry.body.try_block.clause_list = clauses;
  entry.body.try_block.handled_exception = 0;
  entry.body.try_block.try_region = __eh_curr_region;
  __curr_eh_stack_entry = &entry;

  if (setjmp(entry.body.try_block.jump_buffer) == 0) {
    refuse(42); /* the body */
  } else {
    /* catch (int code): the only clause, so __catch_clause_number is 1. */
    int code = *(int *)__caught_object_address;
    __exception_caught(); /* the parameter is initialised */
    printf("hello from the handler: caught %d\n", code);
    __free_thrown_object(); /* the handler's end */
  }
  __curr_eh_stack_entry = entry.next; /* the end of the try block, by either way */
  return 0;
}
