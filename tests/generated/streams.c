/* Streams in generated C: cout << 42 by the exported inserters, with the initialiser and its destruction registered as a
 * compiler does; and a buffer and a callback of generated C that throw into the library.
 * test-variants: -O1 | -O2 -static */
#include "classes.h"

typedef struct an_ostream an_ostream;
typedef struct a_streambuf {
  void *const *table;
  void *locale;
  char *areas[6];
} a_streambuf;
typedef struct a_position {
  long offset;
  int state[2];
} a_position;
typedef struct a_locale {
  void *imp;
} a_locale;

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
void _ZNSt15basic_streambufIcSt11char_traitsIcEEC2Ev(a_streambuf *);
void _ZNSt15basic_streambufIcSt11char_traitsIcEED2Ev(a_streambuf *);
void _ZNSdC1EPSt15basic_streambufIcSt11char_traitsIcEE(void *, a_streambuf *);
void _ZNSdD1Ev(void *);
void *_ZNSo5flushEv(an_ostream *);
int _ZNSi3getEv(void *);
void *_ZNSi4readEPci(void *, char *, int);
void *_ZNSi5seekgESt4fposI11__mbstate_tE(void *, a_position);
const a_locale *_ZNSt6locale7classicEv(void);
void _ZNSt6localeD1Ev(a_locale *);
a_locale _ZNSt9basic_iosIcSt11char_traitsIcEE5imbueERKSt6locale(void *, const a_locale *);
void _ZNSt8ios_base17register_callbackEPFvNS_5eventERS_iEi(void *, void (*)(int, void *, int), int);

static char initialiser;
static void destroy_initialiser(void *object, int flags) { (void)flags, _ZNSt8ios_base4InitD1Ev((char *)object); }
static a_needed_destruction record = {0, &initialiser, destroy_initialiser};
static void prints(void) {
  _ZNSt8ios_base4InitC1Ev(&initialiser);
  __record_needed_destruction(&record);
  _ZSt17__zor_insert_charRSoc(_ZNSolsEi(&_ZSt4cout, 42), ' ');
  printf("printf ");
  _ZNSolsEd(_ZSt21__zor_insert_c_stringRSoPKc(&_ZSt4cout, "and "), 2.5);
  _ZSt4endlIcSt11char_traitsIcEERSt13basic_ostreamIT_T0_ES6_(&_ZSt4cout);
  _ZSt21__zor_insert_c_stringRSoPKc(&_ZSt4cout, "at the end");
  exit(3);
}

/* basic_ios, the virtual base: its offset stands three words before the table's functions. */
static int *ios_word(void *stream, int offset) { return (int *)((char *)stream + (*(const int **)stream)[-3] + offset); }
enum { state = 28, exceptions = 36, badbit = 1 };

/* A stream for both directions: the output part lies behind the input part's two words. */
static an_ostream *output_of(char *stream) { return (an_ostream *)(stream + 8); }
static char place[8];
static void insert(char *s) { _ZNSolsEi(output_of(s), 5); }
static void flush(char *s) { _ZNSo5flushEv(output_of(s)); }
static void get(char *s) { _ZNSi3getEv(s); }
static void read_block(char *s) { _ZNSi4readEPci(s, place, 2); }
static void seek_input(char *s) {
  const a_position start = {0, {0, 0}};
  _ZNSi5seekgESt4fposI11__mbstate_tE(s, start);
}
static void imbue(char *s) {
  a_locale old = _ZNSt9basic_iosIcSt11char_traitsIcEE5imbueERKSt6locale(ios_word(s, 0), _ZNSt6locale7classicEv());
  _ZNSt6localeD1Ev(&old);
}
/* Stands for each virtual operation of a buffer: whatever its parameters, it does not return. Slot 0 is a callback. */
static int thrower_slot;
static void throws(void) { throw_fault(thrower_slot); }
static void throwing_callback(int event, void *stream, int index) { (void)event, (void)stream, throw_fault(index); }
static const struct {
  void (*operation)(char *);
  int slot, state;
} cases[] = {{seek_input, 7, 1}, {flush, 8, 1}, {read_block, 10, 1}, {get, 12, 5}, {insert, 15, 1}, {imbue, 4, 0}, {imbue, 0, 0}};

static void operations(void) {
  static const an_exception_type_specification clauses[] = {{&__TI_NSt8ios_base7failureE, 0}, {&type_fault, PLX_TYPE_LAST}};
  volatile unsigned i;
  for (i = 0; i < 2 * sizeof cases / sizeof *cases; ++i) {
    void *table[16];
    int storage[64];
    char want[16];
    a_streambuf buffer;
    volatile int result = 0;
    const int mask = i % 2, passes = cases[i / 2].state == 0;
    _ZNSt15basic_streambufIcSt11char_traitsIcEEC2Ev(&buffer);
    memcpy(table, _ZTVSt15basic_streambufIcSt11char_traitsIcEE, sizeof table);
    thrower_slot = cases[i / 2].slot;
    if (thrower_slot) *(void (**)(void))&table[thrower_slot] = throws;
    buffer.table = table + 2;
    _ZNSdC1EPSt15basic_streambufIcSt11char_traitsIcEE(storage, &buffer);
    if (!thrower_slot) _ZNSt8ios_base17register_callbackEPFvNS_5eventERS_iEi(ios_word(storage, 0), throwing_callback, 0);
    *ios_word(storage, exceptions) = mask;
    TRY(clauses) cases[i / 2].operation((char *)storage);
    HANDLERS result = clause;
    END_TRY
    CHECK_INT(result, passes ? 2 : mask);
    CHECK_INT(*ios_word(storage, state), cases[i / 2].state);
    sprintf(want, "~e%d", thrower_slot);
    CHECK_TRACE(want);
    _ZNSdD1Ev(storage); /* the callback throws again, which ends there */
    CHECK_TRACE(thrower_slot ? "" : "~e0");
    CHECK_QUIET();
    buffer.table = _ZTVSt15basic_streambufIcSt11char_traitsIcEE + 2;
    _ZNSt15basic_streambufIcSt11char_traitsIcEED2Ev(&buffer);
  }
}

int main(void) {
  const test_child child = test_run_child(prints);
  CHECK_INT(child.status, 3);
  CHECK_TEXT(child.text, "42 printf and 2.5\nat the end");
  operations();
  return TEST_RESULT();
}
