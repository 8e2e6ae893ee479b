/* Streams in generated C: cout << 42 by the exported inserters, with the initialiser and its destruction registered as
 * a compiler does; and a buffer of generated C whose overflow throws into the library. */
#include "emit.h"

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

int main(void) {
  test_child child = test_run_child(prints);
  CHECK_INT(child.status, 3);
  CHECK_TEXT(child.text, "42 printf and 2.5\nat the end");
  buffer_of_generated_code();
  return TEST_RESULT();
}
