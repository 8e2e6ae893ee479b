/* Random programs: try blocks, handlers, rethrows, interrupted throws, specifications, arrays and destructors that
 * throw and catch, nested at random. No trace is foretold; what must hold of all of them is checked: every object that
 * came to be dies exactly once, a handler's object lives as long as the handler, both stacks end as they began.
 *
 * With arguments: the number of the first program and how many. test-variants: -O0 | -O2 */
#include "classes.h"

/* Every object has a number of its own. */
enum { MOST = 5000 };
static unsigned char alive[MOST];
static int objects, fuel;

typedef struct item {
  int number;
} item;

static void item_construct(void *object) {
  ((item *)object)->number = objects;
  alive[objects++] = 1;
}
static void item_end(void *object) {
  const int number = ((item *)object)->number;
  CHECK(number >= 0 && number < objects && alive[number] == 1);
  alive[number] = 2;
  ((item *)object)->number = -1;
}

static unsigned long seed;
static int chance(int limit) {
  seed = (seed * 1103515245ul + 12345ul) & 0x7FFFFFFFul;
  return (int)((seed >> 8) % (unsigned)limit);
}

EMIT_CLASS(base, "base", 0);
static const a_base_class_spec derived_bases[] = {{&base, 0, PLX_BASE_PUBLIC | PLX_BASE_LAST}};
EMIT_CLASS(derived, "derived", derived_bases);
EMIT_CLASS(other, "other", 0);
static const a_type_info_impl *const types[] = {&base, &derived, &other};
static const an_exception_type_specification catch_base[] = {{&base, PLX_TYPE_LAST}};
static const an_exception_type_specification catch_other[] = {{&other, PLX_TYPE_LAST}};
static const an_exception_type_specification catch_two[] = {{&other, 0}, {&derived, PLX_TYPE_LAST}};
static const an_exception_type_specification *const lists[] = {catch_base, catch_other, catch_two, catch_all};

static void run(int depth);

/* Something that lets nothing out. */
static NOINLINE void contained(int depth) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_all) { run(depth); }
  EMIT_HANDLERS {
    const item *object = (const item *)__caught_object_address;
    __exception_caught();
    CHECK(alive[object->number] == 1);
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}

static int handlers; /* that run now: outside of them nothing can be thrown again */

/* Destructors hide the handlers they run in, lest they throw out of reach what they do not handle themselves. */
static void busy_end(int depth) {
  const int before = handlers;
  if (chance(4) || depth <= 0) return;
  handlers = 0;
  contained(depth - 1);
  handlers = before;
}
static void item_destroy(void *object, int flags) {
  CHECK_INT(flags, 2);
  busy_end(2);
  item_end(object);
}
static void element_destroy(void *object, int flags) { item_destroy(object, flags); }
static void element_construct(void *object, int a, int b, int c, int d, int e, int f, int g, int h) {
  CHECK(!(a | b | c | d | e | f | g | h));
  if (chance(3) == 0) run(1);
  item_construct(object);
}

static NOINLINE void thrown(int depth) {
  const a_type_info_impl *type = types[chance(3)];
  void *object = __throw_setup_dtor(type, 4 << chance(10), 0, item_destroy);
  if (chance(3) == 0) run(depth - 1);
  item_construct(object);
  __throw();
}

static NOINLINE void handled(int depth) {
  an_eh_stack_entry entry;
  volatile int before = handlers;
  EMIT_TRY(entry, lists[chance(4)]) { run(depth - 1); }
  EMIT_HANDLERS {
    const item *object = (const item *)__caught_object_address;
    const int number = object->number;
    __exception_caught();
    handlers = before + 1;
    CHECK(alive[number] == 1);
    run(depth - 1);
    CHECK(alive[number] == 1 && object->number == number);
    CHECK(entry.body.try_block.handled_exception->destroyed == 0);
    if (chance(3) == 0) __rethrow();
    handlers = before;
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK(entry.next == __curr_eh_stack_entry);
}

static NOINLINE void with_objects(int depth) {
  static const a_region_record regions[] = {{DESTRUCTOR(item_destroy), 0, PLX_NO_REGION, 0},
                                            {DESTRUCTOR(element_destroy), 0, 0, PLX_REGION_ARRAY}};
  static const an_array_record arrays[] = {{1, sizeof(item), 3}};
  item one, several[3];
  void *addresses[2];
  an_eh_stack_entry entry;
  EMIT_FUNCTION(entry, regions, addresses, arrays);
  addresses[0] = &one;
  addresses[1] = several;
  item_construct(&one);
  __eh_curr_region = 0;
  __vec_new_eh(several, 3, sizeof(item), element_construct, element_destroy);
  __eh_curr_region = 1;
  run(depth - 1);
  CHECK_INT(__eh_curr_region, 1);
  __eh_curr_region = 0;
  __vec_delete(several, 3, sizeof(item), element_destroy, 0);
  __eh_curr_region = PLX_NO_REGION;
  item_destroy(&one, 2);
  EMIT_LEAVE_FUNCTION(entry);
}

static NOINLINE void specified(int depth) {
  an_eh_stack_entry entry;
  EMIT_SPECIFICATION(entry, chance(3) ? lists[chance(3)] : 0);
  run(depth - 1);
  EMIT_LEAVE_SPECIFICATION(entry);
}
static void not_expected(void) {
  CHECK(!__curr_eh_stack_entry || __curr_eh_stack_entry->kind != PLX_EH_IN_PROGRESS || handlers == 0);
  if (chance(2)) contained(2);
  if (chance(3) == 0) __rethrow();
  thrown(1);
}

static void run(int depth) {
  int count = 1 + chance(3);
  while (count-- > 0 && depth > 0 && fuel > 0 && objects < MOST - 100) {
    --fuel;
    switch (chance(9)) {
      case 0:
      case 1:
        thrown(depth);
        break;
      case 2:
      case 3:
      case 4:
        handled(depth);
        break;
      case 5:
      case 6:
        with_objects(depth);
        break;
      case 7:
        specified(depth);
        break;
      case 8:
        if (handlers && chance(2)) __rethrow();
        break;
    }
  }
}

/* A throw at the end sees an empty throw stack below it. */
static void nothing_left(void) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_int) { throw_int(1); }
  EMIT_HANDLERS {
    CHECK(entry.body.try_block.handled_exception->next == 0);
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK(__curr_eh_stack_entry == 0);
  CHECK_INT(__eh_curr_region, 0);
}

int main(int count, char **words) {
  const unsigned long first = count > 1 ? strtoul(words[1], 0, 10) : 1;
  const unsigned long programs = count > 2 ? strtoul(words[2], 0, 10) : 20000;
  unsigned long program;
  _ZSt14set_unexpectedPFvvE(not_expected);
  for (program = first; program < first + programs && test_failures == 0; ++program) {
    int i;
    seed = program * 7919ul;
    objects = 0;
    handlers = 0;
    fuel = 200;
    contained(8);
    for (i = 0; i < objects; ++i)
      if (alive[i] != 2) CHECK_INT(alive[i], 2);
    nothing_left();
    if (test_failures) fprintf(stderr, "in program %lu\n", program);
  }
  CHECK_QUIET();
  return TEST_RESULT();
}
