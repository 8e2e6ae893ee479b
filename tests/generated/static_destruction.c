/* Static objects and exit: the order of destructors and of functions given to atexit, records that come and go while
 * the list is processed, exit from inside a try block, the hooks of main and of a shared object that is unloaded.
 *
 * Each case is a process of its own, since most of them end it. */
#include "classes.h"
#include "heap.h"

/* At most one of these is registered at a time under each name. */
static void destroy(void *object, int flags) {
  printf(flags == 2 ? "~%s " : "~%s(bad flags) ", (const char *)object);
  fflush(stdout);
}
#define RECORD(name, object, destructor) static a_needed_destruction name = {0, object, destructor}
RECORD(record_a, (void *)"a", destroy);
RECORD(record_b, (void *)"b", destroy);
RECORD(record_c, (void *)"c", destroy);

static void say(const char *text) {
  fputs(text, stdout);
  fflush(stdout);
}
static void at_exit_f(void) { say("f "); }
static void at_exit_g(void) { say("g "); }
static void plain_c_function(void) { say("plain "); }
static void no_object(void) { say("no-object "); }

/* Both sorts in one order, newest first. */
static void newest_first(void) {
  _main();
  __record_needed_destruction(&record_a);
  if (__zor_std_atexit(at_exit_f) != 0) say("failed ");
  __record_needed_destruction(&record_b);
  if (__zor_std_atexit(at_exit_g) != 0) say("failed ");
  __record_needed_destruction(&record_c);
  exit(4);
}
static void by_return_of_the_library(void) {
  _main();
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&record_b);
  _Z4exiti(6);
}
static void by_pliv_exit(void) {
  __record_needed_destruction(&record_a); /* without _main: exit does it itself */
  __pliv_exit(7);
}
/* What the C library was told after _main runs before. */
static void with_the_c_library(void) {
  _main();
  atexit(plain_c_function);
  __record_needed_destruction(&record_a);
  exit(0);
}
static void without_object(void) {
  static a_needed_destruction plain, nothing;
  plain.destructor = (a_destructor)no_object;
  _main();
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&plain);
  __record_needed_destruction(&nothing); /* neither object nor destructor */
  exit(0);
}

#if HEAP_IS_COUNTED
/* Without memory for its record a function is refused, and the others still run. */
static void atexit_without_memory(void) {
  _main();
  __zor_std_atexit(at_exit_f);
  heap_fails_at = 0;
  if (__zor_std_atexit(at_exit_g) != -1) say("accepted ");
  heap_fails_at = -1;
  exit(0);
}
/* The record of a function is freed once it has run. */
static void records_are_freed(void) {
  int live;
  setvbuf(stdout, 0, _IONBF, 0);
  live = heap_live;
  __zor_std_atexit(at_exit_f);
  __zor_std_atexit(at_exit_g);
  __process_needed_destructions();
  say(heap_live == live ? "freed" : "leaked");
}
#endif

/* The link tells whether a record is registered, also that of the oldest one. */
static void link_field(void) {
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&record_b);
  if (!record_a.next || !record_b.next) say("unlinked ");
  if (record_b.next != &record_a) say("wrong-link ");
  __process_needed_destructions();
  if (record_a.next || record_b.next) say("linked ");
  __std__needed_destruction_list(); /* empty */
  __record_needed_destruction(&record_b);
  __call_dtors();
  __process_needed_destructions();
}

/* A destructor that registers: the new record is the newest. One that registers itself again runs again. */
static void register_c(void *object, int flags) {
  destroy(object, flags);
  __record_needed_destruction(&record_c);
  __zor_std_atexit(at_exit_f);
}
RECORD(record_registering, (void *)"registering", register_c);
static int lives = 3;
static void register_itself(void *object, int flags);
RECORD(record_phoenix, (void *)"phoenix", register_itself);
static void register_itself(void *object, int flags) {
  destroy(object, flags);
  if (--lives) __record_needed_destruction(&record_phoenix);
}
static void registered_while_processing(void) {
  _main();
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&record_registering);
  __record_needed_destruction(&record_phoenix);
  exit(0);
}

static void registered_twice(void) {
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&record_b);
  __record_needed_destruction(&record_b);
}
static void oldest_registered_twice(void) {
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&record_a);
}
static void main_twice(void) {
  _main();
  _main();
}
static void pure_virtual(void) { __pure_virtual_called(); }
static void marked(void) { __already_marked_for_destruction(); }
static void main_more_than_once(void) { __main_called_more_than_once(); }

/* __call_ctors may be called often; the list is processed once. */
static void scheduled(void) {
  if (__dtor_processing_scheduled) say("early ");
  __call_ctors();
  if (!__dtor_processing_scheduled) say("not-scheduled ");
  __call_ctors();
  _main();
  __record_needed_destruction(&record_a);
  exit(0);
}

static void terminated(void) {
  say("terminated");
  _exit(3);
}
static void throwing(void *object, int flags) {
  destroy(object, flags);
  throw_int(1);
}
RECORD(record_throwing, (void *)"throwing", throwing);
static void function_throws(void) { throw_int(1); }
static void destructor_throws(void) {
  _ZSt13set_terminatePFvvE(terminated);
  _main();
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&record_throwing);
  exit(0);
}
static void atexit_function_throws(void) {
  _ZSt13set_terminatePFvvE(terminated);
  _main();
  __record_needed_destruction(&record_a);
  __zor_std_atexit(function_throws);
  exit(0);
}
static void throws_and_catches(void *object, int flags) {
  an_eh_stack_entry entry;
  EMIT_TRY(entry, catch_int) { throw_int(1); }
  EMIT_HANDLERS {
    __exception_caught();
    destroy(object, flags);
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
}
RECORD(record_catching, (void *)"catching", throws_and_catches);
static void destructor_catches(void) {
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&record_catching);
  __process_needed_destructions();
  say(__curr_eh_stack_entry ? "entries-left" : "done");
}

/* exit inside a try block and a function with a local: neither handler nor local; a destructor that throws then does
 * not find that try block. */
static an_eh_stack_entry try_entry, function_entry;
static void look_at_stack(void *object, int flags) {
  const an_eh_stack_entry *entry;
  destroy(object, flags);
  for (entry = __curr_eh_stack_entry; entry; entry = entry->next)
    if (entry == &try_entry || entry == &function_entry) say("still-there ");
}
RECORD(record_looking, (void *)"looking", look_at_stack);
static void inside_a_try(void (*leave)(int)) {
  static const a_region_record regions[] = {{DESTRUCTOR(destroy), 0, PLX_NO_REGION, 0}};
  static void *addresses[] = {(void *)"local"};
  _ZSt13set_terminatePFvvE(terminated);
  _main();
  __record_needed_destruction(&record_throwing);
  __record_needed_destruction(&record_looking);
  EMIT_TRY(try_entry, catch_all) {
    EMIT_FUNCTION(function_entry, regions, addresses, 0);
    __eh_curr_region = 0;
    leave(5);
  }
  EMIT_HANDLERS { say("caught "); }
}
static void exit_in_try(void) { inside_a_try(_Z4exiti); }
static void pliv_exit_in_try(void) { inside_a_try(__pliv_exit); }
static void exit_in_handler(void) {
  _main();
  __record_needed_destruction(&record_looking);
  EMIT_TRY(try_entry, catch_int) { throw_int(1); }
  EMIT_HANDLERS {
    __exception_caught();
    __pliv_exit(5);
  }
}
static void exit_processing_alone(void) {
  EMIT_TRY(try_entry, catch_all) {
    __eh_exit_processing();
    say(__curr_eh_stack_entry ? "not-empty" : "empty");
  }
  EMIT_HANDLERS { say("caught "); }
}

/* The ranges of an unloaded object: code in the first, data in the second, each by its own rule. */
static char data[64];
static a_needed_destruction in_data[4];
static const void *code(void (*function)(void)) {
  const void *address;
  memcpy(&address, &function, sizeof address);
  return address;
}
static void other_destroy(void *object, int flags) {
  (void)object;
  printf(flags == 2 ? "other " : "other(bad flags) ");
}
static void list(const char *title) {
  printf("%s:", title);
  __process_needed_destructions();
  printf("\n");
}
static void fill(void) {
  int i;
  for (i = 0; i < 4; ++i) {
    in_data[i].next = 0;
    in_data[i].object = (void *)"xyzw";
    in_data[i].destructor = destroy;
  }
  in_data[1].object = data + 16;
  in_data[1].destructor = other_destroy;
  __record_needed_destruction(&in_data[0]);
  __record_needed_destruction(&in_data[1]);
  __record_needed_destruction(&record_a);
  __record_needed_destruction(&in_data[2]);
  __zor_std_atexit(at_exit_f);
}
static void ranges(void) {
  memset(data, 'd', sizeof data - 1);
  fill();
  __process_shared_object_destruction(0, 0, 0, 0);
  __process_shared_object_destruction(data, 0, data, 0);
  __process_shared_object_destruction(data, 16, data, 16);            /* ends before the object */
  __process_shared_object_destruction(in_data, sizeof in_data, 0, 0); /* records count in the second range only */
  list("none");
  fill();
  __process_shared_object_destruction(data + 16, 1, 0, 0);
  list("object-1");
  fill();
  __process_shared_object_destruction(0, 0, data, 17);
  list("object-2");
  fill();
  __process_shared_object_destruction(0, 0, in_data, sizeof in_data);
  list("record");
  fill();
  __process_shared_object_destruction(code((void (*)(void))other_destroy), 1, 0, 0);
  list("destructor-1");
  fill();
  __process_shared_object_destruction(0, 0, code((void (*)(void))destroy), 1);
  list("destructor-2");
  fill();
  __process_shared_object_destruction(code(at_exit_f), 1, 0, 0);
  list("function");
}

/* What a destructor of the unloaded object registers belongs to it too. */
static void register_in_data(void *object, int flags) {
  (void)object;
  destroy((void *)"first", flags);
  __record_needed_destruction(&in_data[3]);
}
static void registered_while_unloading(void) {
  in_data[0].object = (void *)"0";
  in_data[0].destructor = register_in_data;
  in_data[3].object = (void *)"3";
  in_data[3].destructor = destroy;
  __record_needed_destruction(&in_data[0]);
  __record_needed_destruction(&record_b);
  __process_shared_object_destruction(0, 0, in_data, sizeof in_data);
  say("unloaded ");
  if (in_data[0].next || in_data[3].next) say("linked ");
  __process_needed_destructions();
}
static void unloading_throws(void) {
  _ZSt13set_terminatePFvvE(terminated);
  __record_needed_destruction(&record_throwing);
  __process_shared_object_destruction(0, 0, &record_throwing, sizeof record_throwing);
}

static void check_case(void (*body)(void), int status, const char *text, int line) {
  const test_child child = test_run_child(body);
  test_report_int(child.status, status, __FILE__, line, "how the process ends");
  test_report_text(child.text, text, __FILE__, line, "what it writes");
}
#define CHECK_CASE(body, status, text) check_case(body, status, text, __LINE__)

int main(void) {
  CHECK_CASE(newest_first, 4, "~c g ~b f ~a ");
  CHECK_CASE(by_return_of_the_library, 6, "~b ~a ");
  CHECK_CASE(by_pliv_exit, 7, "~a ");
  CHECK_CASE(with_the_c_library, 0, "plain ~a ");
  CHECK_CASE(without_object, 0, "no-object ~a ");
#if HEAP_IS_COUNTED
  CHECK_CASE(atexit_without_memory, 0, "f ");
  CHECK_CASE(records_are_freed, 0, "g f freed");
#endif
  CHECK_CASE(link_field, 0, "~b ~a ~b ");
  CHECK_CASE(registered_while_processing, 0, "~phoenix ~phoenix ~phoenix ~registering f ~c ~a ");

  CHECK_CASE(registered_twice, -SIGABRT, "");
  CHECK_CASE(oldest_registered_twice, -SIGABRT, "");
  CHECK_CASE(main_twice, -SIGABRT, "");
  CHECK_CASE(pure_virtual, -SIGABRT, "");
  CHECK_CASE(marked, -SIGABRT, "");
  CHECK_CASE(main_more_than_once, -SIGABRT, "");
  CHECK_CASE(scheduled, 0, "~a ");

  CHECK_CASE(destructor_throws, 3, "~throwing terminated");
  CHECK_CASE(atexit_function_throws, 3, "terminated");
  CHECK_CASE(destructor_catches, 0, "~catching ~a done");
  CHECK_CASE(exit_in_try, 3, "~looking ~throwing terminated");
  CHECK_CASE(pliv_exit_in_try, 3, "~looking ~throwing terminated");
  CHECK_CASE(exit_in_handler, 5, "~looking ");
  CHECK_CASE(exit_processing_alone, 0, "empty");

  CHECK_CASE(ranges, 0,
             "none:f ~xyzw ~a other ~xyzw \n"
             "other object-1:f ~xyzw ~a ~xyzw \n"
             "other object-2:f ~xyzw ~a ~xyzw \n"
             "~xyzw other ~xyzw record:f ~a \n"
             "other destructor-1:f ~xyzw ~a ~xyzw \n"
             "~xyzw ~a ~xyzw destructor-2:f other \n"
             "f function:~xyzw ~a other ~xyzw \n");
  CHECK_CASE(registered_while_unloading, 0, "~first ~3 unloaded ~b ");
  CHECK_CASE(unloading_throws, 3, "~throwing terminated");
  return TEST_RESULT();
}
