/* Handlers: exceptions that leave them, live inside them or are thrown again, with the reference counts in between.
 * Every object that was thrown is destroyed exactly once, when its last reference goes.
 * test-variants: -O0 | -O1 | -O2 | -O1 -static */
#include "classes.h"

#define HANDLED(entry) ((entry).body.try_block.handled_exception)

/* The caught exception dies before the locals of the handler that it leaves. */
static NOINLINE void leaving_a_handler(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(local_destroy), 1, 0, 0}};
  local a, b;
  void *addresses[2];
  an_eh_stack_entry function, entry;
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = &a;
  addresses[1] = &b;
  local_construct(&a, 1);
  __eh_curr_region = 0;
  EMIT_TRY(entry, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    local_construct(&b, 2);
    __eh_curr_region = 1;
    throw_fault(2);
  }
  EMIT_END_TRY(entry);
  EMIT_LEAVE_FUNCTION(function);
}

static NOINLINE void caught(void (*body)(void)) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { body(); }
  EMIT_HANDLERS {
    __exception_caught();
    trace("caught-%d", caught_fault_id());
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* The same with the next handler in the same function: what the handler constructed lies below its try block. */
static NOINLINE void leaving_to_the_same_function(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry function, outer, inner;
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = &a;
  EMIT_TRY(outer, catch_fault) {
    EMIT_TRY(inner, catch_fault) { throw_fault(1); }
    EMIT_HANDLERS {
      __exception_caught();
      local_construct(&a, 1);
      __eh_curr_region = 0;
      throw_fault(2);
    }
    EMIT_END_TRY(inner);
  }
  EMIT_HANDLERS {
    __exception_caught();
    trace("caught-%d", caught_fault_id());
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
  EMIT_LEAVE_FUNCTION(function);
}

/* A handler inside a handler, both left at once: the inner exception dies first. */
static NOINLINE void leaving_two_handlers(void) {
  an_eh_stack_entry outer, inner;
  EMIT_TRY(outer, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(inner, catch_fault) { throw_fault(2); }
    EMIT_HANDLERS {
      __exception_caught();
      throw_fault(3);
    }
  }
}

/* The same, left by the inner exception itself: that one lives on. */
static NOINLINE void rethrow_out_of_two_handlers(void) {
  an_eh_stack_entry outer, inner;
  EMIT_TRY(outer, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(inner, catch_fault) { throw_fault(2); }
    EMIT_HANDLERS {
      __exception_caught();
      __rethrow();
    }
  }
}

/* Handlers that end in order: each destroys its own exception. */
static NOINLINE void handler_in_handler(int depth) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(depth); }
  EMIT_HANDLERS {
    void *object = __caught_object_address;
    __exception_caught();
    CHECK_INT(((fault *)object)->id, depth);
    if (depth < 5) handler_in_handler(depth + 1);
    CHECK_INT(((fault *)object)->alive, FAULT_ALIVE);
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* throw; through three handlers: the references of the source, which is destroyed at the end of the last. */
static NOINLINE void rethrow_in_depth(void) {
  an_eh_stack_entry outer, middle, inner;
  a_throw_stack_entry *volatile source;
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(middle, catch_fault) {
      EMIT_TRY(inner, catch_fault) { throw_fault(1); }
      EMIT_HANDLERS {
        source = HANDLED(inner);
        __exception_caught();
        CHECK_INT(source->reference_count, 1);
        __rethrow();
      }
    }
    EMIT_HANDLERS {
      a_throw_stack_entry *again = HANDLED(middle);
      CHECK(again != source && again->source == source && again->next == source);
      CHECK_INT(again->is_rethrow, 1);
      CHECK(again->object == source->object && again->type == source->type);
      CHECK(__caught_object_address == source->object);
      CHECK_INT(source->reference_count, 1);
      CHECK_INT(source->released, 1);
      CHECK_INT(source->destroyed, 0);
      __exception_caught();
      trace("middle");
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    CHECK(HANDLED(outer)->source == source);
    CHECK_INT(source->reference_count, 1);
    __exception_caught();
    trace("outer");
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

/* __internal_rethrow takes the marker off by itself, so it is called with the marker still there. */
static void internal_rethrow(void) {
  an_eh_stack_entry outer, middle, inner;
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(middle, catch_fault) {
      EMIT_TRY(inner, catch_fault) { throw_fault(1); }
      EMIT_HANDLERS {
        trace("inner");
        __internal_rethrow();
      }
    }
    EMIT_HANDLERS {
      trace("middle");
      __exception_caught();
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    a_throw_stack_entry *last = HANDLED(outer), *first = last->source;
    CHECK(first != 0 && first->source == 0);
    CHECK(last->next != 0 && last->next->source == first && last->next->next == first);
    CHECK_INT(first->reference_count, 1);
    CHECK_INT(last->next->released, 1);
    CHECK_INT(last->released, 0);
    __exception_caught();
    trace("outer");
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

/* Thrown again twice from one handler, each time caught inside it; then the handler goes on with its exception. */
static NOINLINE void throw_again(void) { __rethrow(); }
static NOINLINE void rethrow_and_stay(void) {
  an_eh_stack_entry outer, inner;
  volatile int i;
  EMIT_TRY(outer, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    a_throw_stack_entry *volatile source = HANDLED(outer);
    __exception_caught();
    for (i = 0; i < 2; ++i) {
      EMIT_TRY(inner, catch_fault) { throw_again(); }
      EMIT_HANDLERS {
        CHECK_INT(source->reference_count, 2);
        CHECK_INT(source->released, 0);
        __exception_caught();
        trace("again-%d", caught_fault_id());
        __free_thrown_object();
      }
      EMIT_END_TRY(inner);
      CHECK_INT(source->reference_count, 1);
      CHECK_INT(source->destroyed, 0);
    }
    trace("end");
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

/* throw; after an inner handler has ended means the outer exception. */
static NOINLINE void rethrow_after_inner_handler(void) {
  an_eh_stack_entry outer, inner;
  EMIT_TRY(outer, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(inner, catch_fault) { throw_fault(2); }
    EMIT_HANDLERS {
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(inner);
    __rethrow();
  }
}

/* An exception caught inside the handler of a rethrow: three entries, two objects. */
static NOINLINE void new_exception_in_rethrow_handler(void) {
  an_eh_stack_entry outer, inner, last;
  EMIT_TRY(outer, catch_fault) {
    EMIT_TRY(inner, catch_fault) { throw_fault(1); }
    EMIT_HANDLERS {
      __exception_caught();
      __rethrow();
    }
  }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(last, catch_fault) { throw_fault(2); }
    EMIT_HANDLERS {
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(last);
    trace("outer");
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}

/* A handler that calls the failed function again meets a try block at the same stack address. */
static an_eh_stack_entry same_address;
static NOINLINE void fails(int id) {
  EMIT_TRY(same_address, catch_double) { throw_fault(id); }
  EMIT_HANDLERS { CHECK(0); }
}
static NOINLINE void retried(void) {
  an_eh_stack_entry first, second, third;
  EMIT_TRY(first, catch_fault) { fails(1); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(second, catch_fault) { fails(2); }
    EMIT_HANDLERS {
      CHECK_INT(caught_fault_id(), 2);
      __exception_caught();
      EMIT_TRY(third, catch_fault) { fails(3); }
      EMIT_HANDLERS {
        __exception_caught();
        trace("third");
        __free_thrown_object();
      }
      EMIT_END_TRY(third);
      trace("second");
      __free_thrown_object();
    }
    EMIT_END_TRY(second);
    trace("first");
    __free_thrown_object();
  }
  EMIT_END_TRY(first);
}
static NOINLINE void retried_and_left(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { fails(1); }
  EMIT_HANDLERS {
    __exception_caught();
    fails(2);
  }
}
/* The exception in flight outlives the reuse of its context by a rethrow. */
static NOINLINE void retried_by_rethrow(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { fails(1); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(same_address, catch_double) { __rethrow(); }
    EMIT_HANDLERS { CHECK(0); }
  }
}

/* The destructor of an exception throws and handles one of its own. Its object stays until it is done. */
static void busy_destroy(void *object, int flags) {
  fault *self = (fault *)object;
  an_eh_stack_entry entry;
  volatile int i;
  CHECK_INT(self->alive, FAULT_ALIVE);
  for (i = 0; i < 2; ++i) {
    EMIT_TRY(entry, catch_fault) { throw_fault(10 + i); }
    EMIT_HANDLERS {
      CHECK_INT(caught_fault_id(), 10 + i);
      __exception_caught();
      CHECK(__caught_object_address != (void *)self);
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
    CHECK_INT(self->alive, FAULT_ALIVE);
  }
  fault_destroy(object, flags);
}
static NOINLINE void throw_busy(int id) {
  fault_construct(__throw_setup_dtor(&type_fault, sizeof(fault), 0, busy_destroy), id);
  __throw();
}
static NOINLINE void busy_at_handlers_end(void) {
  an_eh_stack_entry outer, entry;
  EMIT_TRY(outer, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    EMIT_TRY(entry, catch_fault) { throw_busy(2); }
    EMIT_HANDLERS {
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
    trace("outer");
    __free_thrown_object();
  }
  EMIT_END_TRY(outer);
}
static NOINLINE void busy_when_left(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_busy(1); }
  EMIT_HANDLERS {
    __exception_caught();
    throw_fault(2);
  }
}
/* The same one level down: the destructor's own exception has such a destructor too. */
static void busier_destroy(void *object, int flags) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_busy(2); }
  EMIT_HANDLERS {
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  fault_destroy(object, flags);
}
static NOINLINE void busier(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) {
    fault_construct(__throw_setup_dtor(&type_fault, sizeof(fault), 0, busier_destroy), 1);
    __throw();
  }
  EMIT_HANDLERS {
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* The destructor of a thrown object that throws at the handler's end: the exception goes on from there. */
static void failing_destroy(void *object, int flags) {
  fault_destroy(object, flags);
  throw_fault(9);
}
static NOINLINE void destructor_fails_at_end(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) {
    fault_construct(__throw_setup_dtor(&type_fault, sizeof(fault), 0, failing_destroy), 1);
    __throw();
  }
  EMIT_HANDLERS {
    __exception_caught();
    trace("end");
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* A destructor that unwinding runs throws again what is handled: not what that unwinding has already ended. */
static void rethrowing_destroy(void *object, int flags) {
  an_eh_stack_entry entry;
  (void)object;
  (void)flags;
  EMIT_TRY(entry, catch_fault) { __rethrow(); }
  EMIT_HANDLERS {
    __exception_caught();
    trace("again-%d", caught_fault_id());
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}
static NOINLINE void left_with_rethrowing_local(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(rethrowing_destroy), 0, PLX_NO_REGION, 0}};
  void *addresses[1];
  an_eh_stack_entry function, entry;
  EMIT_FUNCTION(function, regions, addresses, 0);
  addresses[0] = 0;
  __eh_curr_region = 0;
  EMIT_TRY(entry, catch_fault) { throw_fault(1); }
  EMIT_HANDLERS {
    __exception_caught();
    throw_fault(2);
  }
  EMIT_END_TRY(entry);
  EMIT_LEAVE_FUNCTION(function);
}
static NOINLINE void rethrow_while_unwinding(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_fault) { throw_fault(7); }
  EMIT_HANDLERS {
    __exception_caught();
    caught(left_with_rethrowing_local);
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

/* A thrown pointer has no destructor to run, even when one is given. */
static NOINLINE void pointer_with_destructor(void) {
  static fault object;
  static const an_exception_type_specification clauses[] = {{&type_fault, PLX_TYPE_POINTER | PLX_TYPE_LAST}};
  an_eh_stack_entry entry;
  EMIT_TRY(entry, clauses) {
    *(fault **)__throw_setup_dtor(&type_fault, sizeof(fault *), PLX_TYPE_POINTER, fault_destroy) = &object;
    __throw();
  }
  EMIT_HANDLERS {
    CHECK(*(fault **)__caught_object_address == &object);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

static void terminated(void) {
  printf("terminated uncaught=%d", _ZSt18uncaught_exceptionv());
  fflush(stdout);
  _exit(3);
}

/* The copy of a catch parameter fails: the marker is still there. Nothing is unwound. */
static void parameter_copy_fails(void) {
  static const a_region_record regions[] = {{DESTRUCTOR(local_destroy), 0, PLX_NO_REGION, 0}};
  local a;
  void *addresses[1];
  an_eh_stack_entry outer, function, entry;
  _ZSt13set_terminatePFvvE(terminated);
  EMIT_TRY(outer, catch_all) {
    EMIT_FUNCTION(function, regions, addresses, 0);
    addresses[0] = &a;
    a.id = 1;
    __eh_curr_region = 0;
    EMIT_TRY(entry, catch_fault) { throw_fault(1); }
    EMIT_HANDLERS { throw_int(5); }
  }
  EMIT_HANDLERS { printf("caught"); }
}

/* throw; before the parameter is initialised leaves the handler with the marker still there. */
static void rethrow_too_early(void) {
  an_eh_stack_entry outer, entry;
  _ZSt13set_terminatePFvvE(terminated);
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(entry, catch_int) { throw_int(1); }
    EMIT_HANDLERS { __rethrow(); }
  }
  EMIT_HANDLERS { printf("caught"); }
}

static void rethrow_of_nothing(void) {
  _ZSt13set_terminatePFvvE(terminated);
  __rethrow();
}

/* Nor is an exception that has come to the end of its handler one that can be thrown again. */
static void rethrow_too_late(void) {
  an_eh_stack_entry outer, entry;
  _ZSt13set_terminatePFvvE(terminated);
  EMIT_TRY(outer, catch_all) {
    EMIT_TRY(entry, catch_all) { throw_int(1); }
    EMIT_HANDLERS {
      __exception_caught();
      __free_thrown_object();
    }
    EMIT_END_TRY(entry);
    __rethrow();
  }
  EMIT_HANDLERS { printf("caught"); }
}

int main(void) {
  caught(leaving_a_handler);
  CHECK_TRACE("+1 +2 ~e1 ~2 ~1 caught-2 ~e2");
  leaving_to_the_same_function();
  CHECK_TRACE("+1 ~e1 ~1 caught-2 ~e2");
  caught(leaving_two_handlers);
  CHECK_TRACE("~e2 ~e1 caught-3 ~e3");
  caught(rethrow_out_of_two_handlers);
  CHECK_TRACE("~e1 caught-2 ~e2");
  handler_in_handler(1);
  CHECK_TRACE("~e5 ~e4 ~e3 ~e2 ~e1");
  CHECK_QUIET();

  rethrow_in_depth();
  CHECK_TRACE("middle outer ~e1");
  internal_rethrow();
  CHECK_TRACE("inner middle outer ~e1");
  rethrow_and_stay();
  CHECK_TRACE("again-1 again-1 end ~e1");
  caught(rethrow_after_inner_handler);
  CHECK_TRACE("~e2 caught-1 ~e1");
  new_exception_in_rethrow_handler();
  CHECK_TRACE("~e2 outer ~e1");
  CHECK_QUIET();

  retried();
  CHECK_TRACE("third ~e3 second ~e2 first ~e1");
  caught(retried_and_left);
  CHECK_TRACE("~e1 caught-2 ~e2");
  caught(retried_by_rethrow);
  CHECK_TRACE("caught-1 ~e1");
  CHECK_QUIET();

  busy_at_handlers_end();
  CHECK_TRACE("~e10 ~e11 ~e2 outer ~e1");
  caught(busy_when_left);
  CHECK_TRACE("~e10 ~e11 ~e1 caught-2 ~e2");
  busier();
  CHECK_TRACE("~e10 ~e11 ~e2 ~e1");
  caught(destructor_fails_at_end);
  CHECK_TRACE("end ~e1 caught-9 ~e9");
  CHECK_QUIET();

  rethrow_while_unwinding();
  CHECK_TRACE("~e1 again-7 caught-2 ~e2 ~e7");
  pointer_with_destructor();
  CHECK_TRACE("");
  CHECK_QUIET();

  CHECK_ENDS(parameter_copy_fails, 3, "terminated uncaught=1");
  CHECK_ENDS(rethrow_too_early, 3, "terminated uncaught=1");
  CHECK_ENDS(rethrow_of_nothing, 3, "terminated uncaught=1");
  CHECK_ENDS(rethrow_too_late, 3, "terminated uncaught=1");
  return TEST_RESULT();
}
