/* Records of generated C, two of them registered while the program starts, as constructors of static objects are: an
 * initialiser for the streams, and an object that prints by the exported inserters. */
#include "life.h"

#include <plx/runtime.h>

typedef struct an_ostream an_ostream;
extern an_ostream _ZSt4cout;
void _ZNSt8ios_base4InitC1Ev(void *);
void _ZNSt8ios_base4InitD1Ev(void *);
an_ostream *_ZSt17__zor_insert_charRSoc(an_ostream *, int);
an_ostream *_ZSt21__zor_insert_c_stringRSoPKc(an_ostream *, const char *);

static void say(int sign, const char *name) {
  _ZSt17__zor_insert_charRSoc(&_ZSt4cout, sign);
  _ZSt21__zor_insert_c_stringRSoPKc(&_ZSt4cout, name);
  _ZSt17__zor_insert_charRSoc(&_ZSt4cout, '\n');
}
void began(const char *name) { say('+', name); }
void ended(const char *name) { say('-', name); }

static char initialiser, early_name[] = "c-early", record_name[] = "c-record";
static void destroy(void *object, int flags) {
  if (flags == 2) ended((const char *)object);
}
static void destroy_initialiser(void *it, int flags) {
  (void)flags;
  _ZNSt8ios_base4InitD1Ev(it);
}
static void function(void) { ended("c-function"); } /* called without arguments */
static void exit_function(void) { ended("c-atexit"); }
static a_needed_destruction records[] = {{0, &initialiser, destroy_initialiser}, {0, early_name, destroy},
                                         {0, record_name, destroy}, {0, 0, (a_destructor)function}};
__attribute__((__constructor__)) static void start(void) {
  _ZNSt8ios_base4InitC1Ev(&initialiser);
  __record_needed_destruction(&records[0]);
  began("c-early");
  __record_needed_destruction(&records[1]);
}
void c_registers(void) {
  began("c-record");
  __record_needed_destruction(&records[2]);
  began("c-atexit");
  __zor_std_atexit(exit_function);
  began("c-function");
  __record_needed_destruction(&records[3]);
}
