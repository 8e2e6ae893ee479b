/* Static objects and exit: the order of destructors and of functions given to atexit, records that come and go while
 * the list is processed, exit inside try blocks, a shared object that is unloaded. Each case is a process of its own.
 */
#include "classes.h"
#include "../heap.h"

static void say(const char *text) {
  fputs(text, stdout);
  fflush(stdout);
}
static void destroy(void *object, int flags) {
  say((const char *)object);
  say(flags == 2 ? " " : "(bad flags) ");
}
#define RECORD(name, destructor) static a_needed_destruction name = {0, (void *)#name, destructor}
RECORD(a, destroy);
RECORD(b, destroy);
RECORD(c, destroy);
static void f(void) { say("f "); }
static void g(void) { say("g "); }
static a_needed_destruction plain = {0, 0, (a_destructor)g}, nothing;

/* Destructors that register: the new record is the newest. One that registers itself again runs again. */
static void register_c(void *object, int flags) {
  destroy(object, flags);
  __record_needed_destruction(&c);
  __zor_std_atexit(f);
}
RECORD(registering, register_c);
static int lives = 3;
static void register_itself(void *object, int flags);
RECORD(phoenix, register_itself);
static void register_itself(void *object, int flags) {
  destroy(object, flags);
  if (--lives) __record_needed_destruction(&phoenix);
}
static void throwing_function(void) { throw_int(1); }
static void throw_it(void *object, int flags) {
  destroy(object, flags);
  if (__curr_eh_stack_entry->next) say("exit-left-entries ");
  throw_int(1);
}
RECORD(throwing, throw_it);

/* What a case does, a letter each; behind `(` in a try block and a function with a local, behind `!` in its handler. */
static void perform(const char *actions);
static void perform_inside(const char *actions) {
  static const a_region_record regions[] = {{DESTRUCTOR(destroy), 0, PLX_NO_REGION, 0}};
  static void *addresses[] = {(void *)"local"};
  TRY(catch_fault)
  FUNCTION(regions, addresses, 0)
  REGION(0);
  perform(actions);
  END_FUNCTION
  HANDLERS perform(strchr(actions, '!') + 1);
  END_TRY
}
static void perform(const char *actions) {
  static const char letters[] = "abcnortx";
  static a_needed_destruction *const records[] = {&a, &b, &c, &nothing, &plain, &registering, &throwing, &phoenix};
  for (; *actions; ++actions) {
    const char *const letter = strchr(letters, *actions);
    if (letter) __record_needed_destruction(records[letter - letters]);
    switch (*actions) {
      case 'm': _main(); break;
      case 'M': __call_ctors(); break;
      case 'D': __call_dtors(); break;
      case 'P': __process_needed_destructions(); break;
      case 'S': __std__needed_destruction_list(); break;
      case 'E': __eh_exit_processing(); break;
      case 'f': __zor_std_atexit(f); break;
      case 'g': __zor_std_atexit(g); break;
      case 'w': __zor_std_atexit(throwing_function); break;
      case 'G': atexit(g); break;
      case 'L': say(a.next ? b.next == &a ? "linked " : "alone " : "unlinked "); break;
      case '?': say(__dtor_processing_scheduled ? "scheduled " : "not-scheduled "); break;
      case 'e': say(__curr_eh_stack_entry ? "not-empty " : "empty "); break;
      case 'X': exit(4);
      case 'C': _Z4exiti(6);
      case 'V': __pliv_exit(7);
      case 'Q': _exit(0);
      case '(': perform_inside(actions + 1); return;
      case '!': throw_fault(1);
    }
  }
}

#if HEAP_IS_COUNTED
static void without_memory(void) {
  int live;
  setvbuf(stdout, 0, _IONBF, 0);
  live = heap_live;
  __zor_std_atexit(f);
  heap_fails_at = 0;
  if (__zor_std_atexit(g) != -1) say("accepted ");
  heap_fails_at = -1;
  __process_needed_destructions(); /* frees the record */
  say(heap_live == live ? "freed" : "leaked");
}
#endif

/* The ranges of an unloaded object: code in the first, data in the second, each by its own rule. */
static char data[64];
static a_needed_destruction in_data[4];
static void other_destroy(void *object, int flags) {
  (void)object;
  say(flags == 2 ? "other " : "other(bad flags) ");
}
static const char *code(void (*function)(void)) {
  void (*volatile hidden)(void) = function; /* compilers would reckon with the function's bounds */
  return (const char *)(size_t)hidden;
}
static void ranges(void) {
  const char *const destructor = code((void (*)(void))other_destroy), *const in_range = (const char *)in_data;
  const struct {
    const char *start1;
    unsigned size1;
    const char *start2;
    unsigned size2;
  } rows[] = {{0, 0, 0, 0},
              {data, 16, data, 16},
              {in_range, sizeof in_data, 0, 0},
              {data + 16, 1, 0, 0},
              {0, 0, data, 17},
              {0, 0, in_range, sizeof in_data},
              {destructor, 1, destructor + 1, 1},
              {0, 0, destructor, 1},
              {code(f), 1, 0, 0}};
  unsigned i, k;
  for (i = 0; i < sizeof rows / sizeof *rows; ++i) {
    for (k = 0; k < 4; ++k) {
      in_data[k].next = 0;
      in_data[k].object = k == 1 ? data + 16 : (char *)"xyzw" + k;
      in_data[k].destructor = k == 1 ? other_destroy : destroy;
    }
    __record_needed_destruction(&in_data[0]);
    __record_needed_destruction(&in_data[1]);
    __record_needed_destruction(&a);
    __record_needed_destruction(&in_data[2]);
    __zor_std_atexit(f);
    __process_shared_object_destruction(rows[i].start1, rows[i].size1, rows[i].start2, rows[i].size2);
    say("| ");
    __process_needed_destructions();
    say("\n");
  }
}
/* What a destructor of the unloaded object registers belongs to it too. */
static void register_in_data(void *object, int flags) {
  (void)object;
  destroy((void *)"first", flags);
  __record_needed_destruction(&in_data[3]);
}
static void registered_while_unloading(void) {
  in_data[0].object = in_data[3].object = (void *)"3";
  in_data[0].destructor = register_in_data;
  in_data[3].destructor = destroy;
  __record_needed_destruction(&in_data[0]);
  __record_needed_destruction(&b);
  __process_shared_object_destruction(0, 0, in_data, sizeof in_data);
  say(in_data[0].next || in_data[3].next ? "linked " : "unloaded ");
  __process_needed_destructions();
}
static const struct {
  const char *actions;
  void (*body)(void);
  int status;
  const char *text;
} cases[] = {
    /* clang-format off */
    {"mafbgcX", 0, 4, "c g b f a "}, {"mabC", 0, 6, "b a "}, {"aV", 0, 7, "a "}, /* V does without _main */
    {"mGaX", 0, 4, "g a "}, {"manoX", 0, 4, "g a "}, {"?M?MmaX", 0, 4, "not-scheduled scheduled a "},
    {"abLPLSbDP", 0, 0, "linked b a unlinked b "}, {"abb", 0, -SIGABRT, ""}, {"aa", 0, -SIGABRT, ""}, {"mm", 0, -SIGABRT, ""},
    {"marxX", 0, 4, "phoenix phoenix phoenix registering f c a "}, {"matX", 0, 3, "throwing terminated"},
    {"mawX", 0, 3, "terminated"}, {"mt(C", 0, 3, "throwing terminated"},
    {"mt(V", 0, 3, "throwing terminated"}, {"mt(!V", 0, 3, "local throwing terminated"},
    {"m(EeQ", 0, 0, "empty "},
/* clang-format on */
#if HEAP_IS_COUNTED
    {"m", without_memory, 0, "f freed"},
#endif
    {"", ranges, 0,
     "| f zw a other xyzw \n| f zw a other xyzw \n| f zw a other xyzw \nother | f zw a xyzw \n"
     "other | f zw a xyzw \nzw other xyzw | f a \nother | f zw a xyzw \nother | f zw a xyzw \nf | zw a other xyzw \n"},
    {"", registered_while_unloading, 0, "first 3 unloaded b "},
};

static unsigned current;
static void play(void) {
  perform(cases[current].actions);
  if (cases[current].body) cases[current].body();
}
static void terminated(void) {
  say("terminated");
  _exit(3);
}
int main(void) {
  _ZSt13set_terminatePFvvE(terminated);
  for (; current < sizeof cases / sizeof *cases; ++current) {
    const test_child child = test_run_child(play);
    CHECK_INT(child.status, cases[current].status);
    CHECK_TEXT(child.text, cases[current].text);
  }
  return TEST_RESULT();
}
