/* Static objects and exit: the order of destructors and of functions given to atexit, records that come and go while the
 * list is processed, exit inside try blocks, a shared object that is unloaded. Each case is a process of its own. */
#include "classes.h"
#include "../heap.h"

static void say(const char *text) { fputs(text, stdout), fflush(stdout); }
static void destroy(void *object, int flags) { say((const char *)object), say(flags == 2 ? " " : "(bad flags) "); }
#define RECORD(name, destructor) static a_needed_destruction name = {0, (void *)#name, destructor}
RECORD(a, destroy);
RECORD(b, destroy);
RECORD(c, destroy);
static void f(void) { say("f "); }
static void g(void) { say("g "); }
#define RECORD_NOW(name) __record_needed_destruction(&name)

static void newest_first(void) {
  _main();
  RECORD_NOW(a);
  if (__zor_std_atexit(f)) say("failed ");
  RECORD_NOW(b);
  if (__zor_std_atexit(g)) say("failed ");
  RECORD_NOW(c);
  exit(4);
}
static void by_exit_of_cpp(void) { _main(), RECORD_NOW(a), RECORD_NOW(b), _Z4exiti(6); }
static void by_pliv_exit(void) { RECORD_NOW(a), __pliv_exit(7); } /* without _main: exit does it itself */
static void after_the_c_library(void) { _main(), atexit(g), RECORD_NOW(a), exit(0); }
static void without_object(void) {
  static a_needed_destruction plain = {0, 0, (a_destructor)g}, nothing;
  _main(), RECORD_NOW(a), RECORD_NOW(plain), RECORD_NOW(nothing), exit(0);
}
/* __call_ctors may be called often; the list is processed once. */
static void scheduled(void) {
  if (__dtor_processing_scheduled) say("early ");
  __call_ctors();
  if (!__dtor_processing_scheduled) say("not-scheduled ");
  __call_ctors(), _main(), RECORD_NOW(a), exit(0);
}
/* The link tells whether a record is registered, also that of the oldest one. */
static void link_field(void) {
  RECORD_NOW(a), RECORD_NOW(b);
  if (!a.next || b.next != &a) say("wrong-link ");
  __process_needed_destructions();
  if (a.next || b.next) say("linked ");
  __std__needed_destruction_list(); /* empty */
  RECORD_NOW(b), __call_dtors(), __process_needed_destructions();
}
static void registered_twice(void) { RECORD_NOW(a), RECORD_NOW(b), RECORD_NOW(b); }
static void oldest_twice(void) { RECORD_NOW(a), RECORD_NOW(a); }
static void main_twice(void) { _main(), _main(); }

/* A destructor that registers: the new record is the newest. One that registers itself again runs again. */
static void register_c(void *object, int flags) { destroy(object, flags), RECORD_NOW(c), __zor_std_atexit(f); }
RECORD(registering, register_c);
static int lives = 3;
static void register_itself(void *object, int flags);
RECORD(phoenix, register_itself);
static void register_itself(void *object, int flags) {
  destroy(object, flags);
  if (--lives) RECORD_NOW(phoenix);
}
static void registered_while_processing(void) { _main(), RECORD_NOW(a), RECORD_NOW(registering), RECORD_NOW(phoenix), exit(0); }

#if HEAP_IS_COUNTED
static void without_memory(void) {
  int live;
  _main();
  setvbuf(stdout, 0, _IONBF, 0);
  live = heap_live;
  __zor_std_atexit(f);
  heap_fails_at = 0;
  if (__zor_std_atexit(g) != -1) say("accepted ");
  heap_fails_at = -1;
  __zor_std_atexit(f);
  __process_needed_destructions(); /* frees the records */
  say(heap_live == live ? "freed" : "leaked");
}
#endif

static void terminated(void) { say("terminated"), _exit(3); }
static void throwing_function(void) { throw_int(1); }
static void throw_it(void *object, int flags) { destroy(object, flags), throw_int(1); }
RECORD(throwing, throw_it);
static void destructor_throws(void) { _main(), RECORD_NOW(a), RECORD_NOW(throwing), exit(0); }
static void function_throws(void) { _main(), RECORD_NOW(a), __zor_std_atexit(throwing_function), exit(0); }
static void catch_it(void *object, int flags) {
  TRY(catch_int) throw_int(1);
  HANDLERS destroy(object, flags);
  END_TRY
}
RECORD(catching, catch_it);
static void destructor_catches(void) {
  RECORD_NOW(a), RECORD_NOW(catching), __process_needed_destructions();
  say(__curr_eh_stack_entry ? "entries-left" : "done");
}
/* Exit inside a try block and a function with a local: neither handler nor local; what throws then finds no such block. */
static void look(void *object, int flags) {
  const an_eh_stack_entry *entry;
  destroy(object, flags);
  for (entry = __curr_eh_stack_entry; entry; entry = entry->next)
    if (entry->kind == PLX_EH_TRY_BLOCK && entry->body.try_block.clause_list == catch_fault) say("still-there ");
}
RECORD(looking, look);
static void inside(void (*leave)(int), int in_handler) {
  static const a_region_record regions[] = {{DESTRUCTOR(destroy), 0, PLX_NO_REGION, 0}};
  static void *addresses[] = {(void *)"local"};
  _main(), RECORD_NOW(throwing), RECORD_NOW(looking);
  TRY(catch_fault)
    FUNCTION(regions, addresses, 0)
      REGION(0);
      if (in_handler) throw_fault(1);
      leave(5);
    END_FUNCTION
  HANDLERS leave(5);
  END_TRY
}
static void in_try(void) { inside(_Z4exiti, 0); }
static void in_try_by_pliv(void) { inside(__pliv_exit, 0); }
static void in_handler(void) { inside(__pliv_exit, 1); }
static void processing_alone(int status) { (void)status, __eh_exit_processing(), say(__curr_eh_stack_entry ? "not-empty" : "empty"), _exit(0); }
static void entries_forgotten(void) { inside(processing_alone, 0); }

/* The ranges of an unloaded object: code in the first, data in the second, each by its own rule. */
static char data[64];
static a_needed_destruction in_data[4];
static void other_destroy(void *object, int flags) { (void)object, say(flags == 2 ? "other " : "other(bad flags) "); }
static const char *code(void (*function)(void)) {
  const char *address;
  return memcpy(&address, &function, sizeof address), address;
}
static void ranges(void) {
  const char *const destructor = code((void (*)(void))other_destroy), *const records = (const char *)in_data;
  const struct {
    const char *start1;
    unsigned size1;
    const char *start2;
    unsigned size2;
  } ranges[] = {{0, 0, 0, 0}, {data, 0, data, 0}, {data, 16, data, 16}, {data + 17, 40, data + 17, 40}, {records, sizeof in_data, 0, 0},
                {data + 16, 1, 0, 0}, {0, 0, data, 17}, {0, 0, records, sizeof in_data}, {destructor, 1, 0, 0},
                {destructor - 1, 1, destructor + 1, 1}, {0, 0, destructor, 1}, {code(f), 1, 0, 0}};
  unsigned i, k;
  for (i = 0; i < sizeof ranges / sizeof *ranges; ++i) {
    for (k = 0; k < 4; ++k) {
      in_data[k].next = 0;
      in_data[k].object = k == 1 ? data + 16 : (char *)"xyzw" + k;
      in_data[k].destructor = k == 1 ? other_destroy : destroy;
    }
    RECORD_NOW(in_data[0]), RECORD_NOW(in_data[1]), RECORD_NOW(a), RECORD_NOW(in_data[2]), __zor_std_atexit(f);
    __process_shared_object_destruction(ranges[i].start1, ranges[i].size1, ranges[i].start2, ranges[i].size2);
    say("| "), __process_needed_destructions(), say("\n");
  }
}
/* What a destructor of the unloaded object registers belongs to it too. */
static void register_in_data(void *object, int flags) { (void)object, destroy((void *)"first", flags), RECORD_NOW(in_data[3]); }
static void registered_while_unloading(void) {
  in_data[0].object = in_data[3].object = (void *)"3";
  in_data[0].destructor = register_in_data;
  in_data[3].destructor = destroy;
  RECORD_NOW(in_data[0]), RECORD_NOW(b), __process_shared_object_destruction(0, 0, in_data, sizeof in_data);
  say("unloaded ");
  if (in_data[0].next || in_data[3].next) say("linked ");
  __process_needed_destructions();
}
static void unloading_throws(void) { RECORD_NOW(throwing), __process_shared_object_destruction(0, 0, &throwing, sizeof throwing); }

static const struct {
  void (*body)(void);
  int status;
  const char *text;
} cases[] = {{newest_first, 4, "c g b f a "}, {by_exit_of_cpp, 6, "b a "}, {by_pliv_exit, 7, "a "},
    {after_the_c_library, 0, "g a "}, {without_object, 0, "g a "}, {scheduled, 0, "a "}, {link_field, 0, "b a b "},
    {registered_twice, -SIGABRT, ""}, {oldest_twice, -SIGABRT, ""}, {main_twice, -SIGABRT, ""},
    {registered_while_processing, 0, "phoenix phoenix phoenix registering f c a "},
#if HEAP_IS_COUNTED
    {without_memory, 0, "f f freed"},
#endif
    {destructor_throws, 3, "throwing terminated"}, {function_throws, 3, "terminated"},
    {destructor_catches, 0, "catching a done"}, {in_try, 3, "looking throwing terminated"},
    {in_try_by_pliv, 3, "looking throwing terminated"}, {in_handler, 3, "local looking throwing terminated"},
    {entries_forgotten, 0, "empty"},
    {ranges, 0, "| f zw a other xyzw \n| f zw a other xyzw \n| f zw a other xyzw \n| f zw a other xyzw \n| f zw a other xyzw \n"
                "other | f zw a xyzw \nother | f zw a xyzw \nzw other xyzw | f a \nother | f zw a xyzw \n"
                "| f zw a other xyzw \nother | f zw a xyzw \nf | zw a other xyzw \n"},
    {registered_while_unloading, 0, "first 3 unloaded b "}, {unloading_throws, 3, "throwing terminated"}};

int main(void) {
  unsigned i;
  _ZSt13set_terminatePFvvE(terminated);
  for (i = 0; i < sizeof cases / sizeof *cases; ++i) {
    const test_child child = test_run_child(cases[i].body);
    CHECK_INT(child.status, cases[i].status);
    CHECK_TEXT(child.text, cases[i].text);
  }
  return TEST_RESULT();
}
