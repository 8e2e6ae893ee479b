/* Generated C that uses setjmp and longjmp for purposes of its own, around and below its try blocks.
 */
#include "jumps.h"

#include "emit.h"

jmp_buf place;

static const an_exception_type_specification int_clause[] = {{&__TI_i, PLX_TYPE_LAST}};

void c_throws_int(int n) { THROW(__TI_i, int, 0, n); }

void c_jumps(int depth) {
  TRY(int_clause)
    if (depth == 0) longjmp(place, 3);
    c_jumps(depth - 1);
  HANDLERS
  END_TRY
}

int c_sets(callback next) {
  volatile int calls = 0;
  int code = setjmp(place);
  if (calls == 0) {
    calls = 1;
    next();
  }
  return code;
}

int c_sets_then_throws(callback next) {
  volatile int calls = 0;
  volatile int result = -1;
  TRY(int_clause)
    setjmp(place);
    if (calls == 0) {
      calls = 1;
      next();
    }
    c_throws_int(40 + calls);
  HANDLERS
    result = *(int *)caught;
  END_TRY
  return result;
}
