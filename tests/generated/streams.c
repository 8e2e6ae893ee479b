/* Streams in generated C: cout << 42 by the exported inserters, with the initialiser and its destruction registered as
 * a compiler does; and buffers, a facet and a callback of generated C that throw into the library.
 * test-variants: -O1 | -O2 -static */
#include "classes.h"

typedef struct an_ostream an_ostream;
typedef struct a_streambuf {
  void *const *table;
  void *locale;
  char *areas[6];
  int room;
} a_streambuf;

extern an_ostream _ZSt4cout;
extern void *const _ZTVSt15basic_streambufIcSt11char_traitsIcEE[16];
extern const a_type_info_impl __TI_NSt8ios_base7failureE;
void _ZNSt8ios_base4InitC1Ev(char *);
void _ZNSt8ios_base4InitD1Ev(char *);
an_ostream *_ZNSolsEi(an_ostream *, int);
an_ostream *_ZNSolsEd(an_ostream *, double);
an_ostream *_ZSt17__zor_insert_charRSoc(an_ostream *, int);
an_ostream *_ZSt21__zor_insert_c_stringRSoPKc(an_ostream *, const char *);
an_ostream *_ZSt4endlIcSt11char_traitsIcEERSt13basic_ostreamIT_T0_ES6_(an_ostream *);
void _ZNSoC1EPSt15basic_streambufIcSt11char_traitsIcEE(void *, a_streambuf *);
void _ZNSoD1Ev(void *);
void _ZNSt15basic_streambufIcSt11char_traitsIcEEC2Ev(a_streambuf *);
void _ZNSt15basic_streambufIcSt11char_traitsIcEED2Ev(a_streambuf *);

typedef struct a_position {
  long offset;
  int state[2];
} a_position;
void _ZNSdC1EPSt15basic_streambufIcSt11char_traitsIcEE(void *, a_streambuf *);
void _ZNSdD1Ev(void *);
void *_ZNSo5writeEPKci(an_ostream *, const char *, int);
void *_ZNSo5flushEv(an_ostream *);
void *_ZNSo5seekpEli(an_ostream *, long, int);
int _ZNSi3getEv(void *);
int _ZNSi4peekEv(void *);
void *_ZNSi4readEPci(void *, char *, int);
int _ZNSi8readsomeEPci(void *, char *, int);
void *_ZNSi7putbackEc(void *, int);
int _ZNSi4syncEv(void *);
void *_ZNSi5seekgESt4fposI11__mbstate_tE(void *, a_position);

typedef struct a_facet {
  void *const *table;
  char deletable, mark[3];
  unsigned count;
} a_facet;
typedef struct a_locale {
  void *imp;
} a_locale;
extern void *const _ZTVSt7num_putIcSt19ostreambuf_iteratorIcSt11char_traitsIcEEE[10];
extern const unsigned _ZNSt7num_putIcSt19ostreambuf_iteratorIcSt11char_traitsIcEEE2idE;
const a_locale *_ZNSt6locale7classicEv(void);
void *_ZNSt6locale5_withERKS_PNS_5facetERKNS_2idE(const a_locale *, a_facet *, const unsigned *);
void _ZNSt6localeD1Ev(a_locale *);
a_locale _ZNSt9basic_iosIcSt11char_traitsIcEE5imbueERKSt6locale(void *, const a_locale *);
void _ZNSt8ios_base17register_callbackEPFvNS_5eventERS_iEi(void *, void (*)(int, void *, int), int);

static char initialiser;
static a_needed_destruction initialiser_record;
static void destroy_initialiser(void *object, int flags) {
  (void)flags;
  _ZNSt8ios_base4InitD1Ev((char *)object);
}
static void initialise(void) {
  _ZNSt8ios_base4InitC1Ev(&initialiser);
  initialiser_record.object = &initialiser;
  initialiser_record.destructor = destroy_initialiser;
  __record_needed_destruction(&initialiser_record);
}

static void prints(void) {
  initialise();
  _ZNSolsEi(&_ZSt4cout, 42);
  _ZSt17__zor_insert_charRSoc(&_ZSt4cout, ' ');
  printf("printf ");
  _ZNSolsEd(_ZSt21__zor_insert_c_stringRSoPKc(&_ZSt4cout, "and "), 2.5);
  _ZSt4endlIcSt11char_traitsIcEERSt13basic_ostreamIT_T0_ES6_(&_ZSt4cout);
  _ZSt21__zor_insert_c_stringRSoPKc(&_ZSt4cout, "at the end");
  exit(3);
}

static int throwing_overflow(a_streambuf *self, int c) {
  if (self->room == 0) throw_fault(c);
  trace("%c", c);
  --self->room;
  return c;
}

/* basic_ios, the virtual base: its offset stands three words before the table's functions. */
static int *ios_word(void *stream, int offset) {
  const int *table = *(const int **)stream;
  return (int *)((char *)stream + table[-3] + offset);
}
enum { state = 28, exceptions = 36, badbit = 1 };

static void buffer_of_generated_code(void) {
  static const an_exception_type_specification clauses[] = {{&__TI_NSt8ios_base7failureE, 0},
                                                            {&type_fault, PLX_TYPE_LAST}};
  void *table[16];
  int storage[64];
  a_streambuf buffer;
  an_eh_stack_entry entry;
  volatile int clause = 0;
  an_ostream *const out = (an_ostream *)storage;
  _ZNSt15basic_streambufIcSt11char_traitsIcEEC2Ev(&buffer);
  memcpy(table, _ZTVSt15basic_streambufIcSt11char_traitsIcEE, sizeof table);
  *(int (**)(a_streambuf *, int)) & table[15] = throwing_overflow;
  buffer.table = table + 2;
  buffer.room = 4;
  _ZNSoC1EPSt15basic_streambufIcSt11char_traitsIcEE(storage, &buffer);
  _ZNSolsEi(_ZSt17__zor_insert_charRSoc(out, 'x'), -1);
  CHECK_TRACE("x - 1");
  CHECK_INT(*ios_word(storage, state), 0);
  _ZSt21__zor_insert_c_stringRSoPKc(out, "yz");
  CHECK_TRACE("y ~e122"); /* z was thrown, and ended in the library */
  CHECK_INT(*ios_word(storage, state), badbit);
  *ios_word(storage, state) = 0;
  *ios_word(storage, exceptions) = badbit;
  EMIT_TRY(entry, clauses) { _ZNSolsEi(out, 5); }
  EMIT_HANDLERS {
    clause = __catch_clause_number;
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  CHECK_INT(clause, 1);
  CHECK_TRACE("~e53");
  _ZNSoD1Ev(storage);
  buffer.table = _ZTVSt15basic_streambufIcSt11char_traitsIcEE + 2;
  _ZNSt15basic_streambufIcSt11char_traitsIcEED2Ev(&buffer);
  CHECK_QUIET();
}

/* Runs an operation of a stream and returns which clause caught: 1 for failure, 2 for the fault; 0 for none. */
static int clause_that_caught(void (*operation)(char *), char *stream) {
  static const an_exception_type_specification clauses[] = {{&__TI_NSt8ios_base7failureE, 0},
                                                            {&type_fault, PLX_TYPE_LAST}};
  an_eh_stack_entry entry;
  volatile int clause = 0;
  EMIT_TRY(entry, clauses) { operation(stream); }
  EMIT_HANDLERS {
    clause = __catch_clause_number;
    __exception_caught();
    __free_thrown_object();
  }
  EMIT_END_TRY(entry);
  return clause;
}

/* A stream for both directions: the output part lies behind the input part's two words. */
static an_ostream *output_of(char *stream) { return (an_ostream *)(stream + 8); }
static char place[8];
static void insert(char *s) { _ZNSolsEi(output_of(s), 5); }
static void write_block(char *s) { _ZNSo5writeEPKci(output_of(s), "ab", 2); }
static void flush(char *s) { _ZNSo5flushEv(output_of(s)); }
static void seek_output(char *s) { _ZNSo5seekpEli(output_of(s), 1, 1); }
static void get(char *s) { _ZNSi3getEv(s); }
static void peek(char *s) { _ZNSi4peekEv(s); }
static void read_block(char *s) { _ZNSi4readEPci(s, place, 2); }
static void read_some(char *s) { _ZNSi8readsomeEPci(s, place, 2); }
static void put_back(char *s) { _ZNSi7putbackEc(s, 'x'); }
static void synchronise(char *s) { _ZNSi4syncEv(s); }
static void seek_input(char *s) {
  const a_position start = {0, {0, 0}};
  _ZNSi5seekgESt4fposI11__mbstate_tE(s, start);
}
static void imbue(char *s) {
  a_locale old = _ZNSt9basic_iosIcSt11char_traitsIcEE5imbueERKSt6locale(ios_word(s, 0), _ZNSt6locale7classicEv());
  _ZNSt6localeD1Ev(&old);
}

/* Stands for each virtual operation of a buffer or facet: whatever its parameters, it does not return. */
static int thrower_slot;
static void throws(void) { throw_fault(thrower_slot); }
static void throwing_callback(int event, void *stream, int index) {
  (void)event;
  (void)stream;
  throw_fault(index);
}

static void every_operation(void) {
  static const struct {
    void (*operation)(char *);
    int slot, state;
  } cases[] = {{seek_output, 6, 1}, {seek_input, 7, 1},   {flush, 8, 1},   {synchronise, 8, 1},
               {read_some, 9, 1},   {read_block, 10, 1},  {peek, 11, 1},   {get, 12, 1 | 4},
               {put_back, 13, 1},   {write_block, 14, 1}, {insert, 15, 1}, {imbue, 4, 0}};
  unsigned i;
  int mask;
  for (i = 0; i < sizeof cases / sizeof *cases; ++i)
    for (mask = 0; mask < 2; ++mask) {
      void *table[16];
      int storage[64];
      char want[16];
      a_streambuf buffer;
      const int passes = cases[i].state == 0;
      _ZNSt15basic_streambufIcSt11char_traitsIcEEC2Ev(&buffer);
      memcpy(table, _ZTVSt15basic_streambufIcSt11char_traitsIcEE, sizeof table);
      thrower_slot = cases[i].slot;
      *(void (**)(void)) & table[thrower_slot] = throws;
      buffer.table = table + 2;
      _ZNSdC1EPSt15basic_streambufIcSt11char_traitsIcEE(storage, &buffer);
      *ios_word(storage, exceptions) = mask;
      CHECK_INT(clause_that_caught(cases[i].operation, (char *)storage), passes ? 2 : mask);
      CHECK_INT(*ios_word(storage, state), cases[i].state);
      sprintf(want, "~e%d", thrower_slot);
      CHECK_TRACE(want);
      CHECK_QUIET();
      _ZNSdD1Ev(storage);
      buffer.table = _ZTVSt15basic_streambufIcSt11char_traitsIcEE + 2;
      _ZNSt15basic_streambufIcSt11char_traitsIcEED2Ev(&buffer);
    }
}

/* A facet's do_put(long), and a callback. */
static void facet_and_callback(void) {
  void *table[10];
  int storage[64];
  a_streambuf buffer;
  a_facet facet = {0, 0, {0, 0, 0}, 0};
  a_locale with_facet, old;
  _ZNSt15basic_streambufIcSt11char_traitsIcEEC2Ev(&buffer);
  memcpy(table, _ZTVSt7num_putIcSt19ostreambuf_iteratorIcSt11char_traitsIcEEE, sizeof table);
  thrower_slot = 5;
  *(void (**)(void)) & table[thrower_slot] = throws;
  facet.table = table + 2;
  with_facet.imp = _ZNSt6locale5_withERKS_PNS_5facetERKNS_2idE(
      _ZNSt6locale7classicEv(), &facet, &_ZNSt7num_putIcSt19ostreambuf_iteratorIcSt11char_traitsIcEEE2idE);
  _ZNSdC1EPSt15basic_streambufIcSt11char_traitsIcEE(storage, &buffer);
  old = _ZNSt9basic_iosIcSt11char_traitsIcEE5imbueERKSt6locale(ios_word(storage, 0), &with_facet);
  _ZNSt6localeD1Ev(&old);
  _ZNSt6localeD1Ev(&with_facet);
  CHECK_INT(clause_that_caught(insert, (char *)storage), 0);
  CHECK_INT(*ios_word(storage, state), badbit);
  CHECK_TRACE("~e5");
  _ZNSt8ios_base17register_callbackEPFvNS_5eventERS_iEi(ios_word(storage, 0), throwing_callback, 6);
  CHECK_INT(clause_that_caught(imbue, (char *)storage), 2);
  CHECK_TRACE("~e6");
  _ZNSdD1Ev(storage); /* the callback throws again, which ends there */
  CHECK_TRACE("~e6");
  CHECK_INT(facet.count, 0);
  _ZNSt15basic_streambufIcSt11char_traitsIcEED2Ev(&buffer);
  CHECK_QUIET();
}

int main(void) {
  test_child child = test_run_child(prints);
  CHECK_INT(child.status, 3);
  CHECK_TEXT(child.text, "42 printf and 2.5\nat the end");
  buffer_of_generated_code();
  every_operation();
  facet_and_callback();
  return TEST_RESULT();
}
