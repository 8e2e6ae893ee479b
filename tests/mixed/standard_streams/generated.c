/* A static object of generated C that prints by the exported inserters, as its compiler would have it: an initialiser
 * for the streams, then the object, each registered for its end. And a record whose destructor prints by stdio.
 */
#include <stdio.h>

#include <plx/runtime.h>

typedef struct an_ostream an_ostream;
extern an_ostream _ZSt4cout;
void _ZNSt8ios_base4InitC1Ev(char *);
void _ZNSt8ios_base4InitD1Ev(char *);
an_ostream *_ZNSolsEi(an_ostream *, int);
an_ostream *_ZSt17__zor_insert_charRSoc(an_ostream *, int);
an_ostream *_ZSt21__zor_insert_c_stringRSoPKc(an_ostream *, const char *);

void c_record(void);

static void destroy(void *object, int flags) {
  if (flags == 2) printf("-%s\n", (const char *)object);
}
static char name[] = "record";
static a_needed_destruction record = {0, name, destroy};

void c_record(void) { __record_needed_destruction(&record); }

static void say(int sign, const char *text) {
  _ZSt17__zor_insert_charRSoc(&_ZSt4cout, sign);
  _ZSt17__zor_insert_charRSoc(_ZNSolsEi(_ZSt21__zor_insert_c_stringRSoPKc(&_ZSt4cout, text), 42), '\n');
}

static char initialiser;
static char object[] = "generated";
static void destroy_initialiser(void *it, int flags) {
  (void)flags;
  _ZNSt8ios_base4InitD1Ev((char *)it);
}
static void destroy_object(void *it, int flags) {
  (void)flags;
  say('-', (const char *)it);
}
static a_needed_destruction records[2] = {{0, &initialiser, destroy_initialiser}, {0, object, destroy_object}};

__attribute__((__constructor__)) static void start(void) {
  _ZNSt8ios_base4InitC1Ev(&initialiser);
  __record_needed_destruction(&records[0]);
  say('+', object);
  __record_needed_destruction(&records[1]);
}
