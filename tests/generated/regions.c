/* Region tables: every flag of a record and the combinations that mean something, as one function that is left at one
 * of its regions. Order, nesting and try blocks are played by random/scenes. test-variants: -O0 | -O2 */
#include "classes.h"

static local one = {1}, two = {2}, array[4] = {{10}, {11}, {12}, {13}};
static char block[8];
static void *to_two = &two, *to_array = array, *to_block = block, *null, *word, *other_word, *to_other = &other_word;
static int high_flag = 0x10000, no_flag; /* a flag is 32 bits wide */
static void release(void *address) { trace(address == block ? "free" : "free-wrong"); }
static void release_sized(void *address, size_t bytes) {
  trace(address == block ? "free(%u)" : "free-wrong(%u)", (unsigned)bytes);
}
enum { ONE, TWO, ARRAY, TO_TWO, HIGH, NO, NOTHING, BLOCK, TO_BLOCK, TO_NULL, WORD, TO_OTHER, TO_ARRAY };
static void *addresses[] = {&one,  &two,      array, &to_two, &high_flag, &no_flag, 0,
                            block, &to_block, &null, &word,   &to_other,  &to_array};
static const an_array_record arrays[] = {{ARRAY, sizeof(local), 3}, {TO_ARRAY, 2 * sizeof(local), 2},
                                         {NOTHING, 4, 9},           {BLOCK, 24, 3},
                                         {TO_BLOCK, 48, 1},         {TO_NULL, 48, 1}};

#define END PLX_NO_REGION
#define CONDITIONAL PLX_REGION_CONDITIONAL
#define INDIRECT PLX_REGION_INDIRECT
#define DEALLOCATE PLX_REGION_DEALLOCATE
#define IN_ARRAY PLX_REGION_ARRAY
#define DESTROY DESTRUCTOR(local_destroy)
#define FREE (a_routine) release
#define FREE_SIZED (a_routine) release_sized
static const struct {
  a_region_record regions[4];
  unsigned short at;
  const char *want;
} cases[] = {
    {{{DESTROY, ONE, END, 0}}, END, ""},
    {{{DESTROY, ONE, END, 0}, {DESTROY, TWO, 0, 0}}, 0, "~1"},
    {{{DESTROY, ONE, END, 0}, {DESTROY, TWO, 0, 0}}, 1, "~2 ~1"},
    {{{DESTROY, ONE, 2, 0}, {DESTROY, TWO, END, 0}, {DESTROY, TO_TWO, 1, INDIRECT}}, 0, "~1 ~2 ~2"},
    {{{DESTROY, ONE, END, PLX_REGION_SUBOBJECT}}, 0, "~1:sub"},
    {{{DESTROY, ONE, END, CONDITIONAL}, {0, HIGH, 0, 0}}, 0, "~1"},
    {{{DESTROY, ONE, 2, CONDITIONAL}, {0, NO, 0, 0}, {DESTROY, TWO, END, 0}}, 0, "~2"},
    {{{DESTROY, NOTHING, END, CONDITIONAL | INDIRECT}, {0, NO, 0, 0}}, 0, ""},
    {{{DESTROY, TO_TWO, END, CONDITIONAL | INDIRECT}, {0, HIGH, 0, 0}}, 0, "~2"},
    {{{FREE, BLOCK, END, DEALLOCATE}, {FREE, TO_BLOCK, 0, DEALLOCATE | INDIRECT}}, 1, "free free"},
    {{{FREE, NOTHING, END, DEALLOCATE}, {FREE, TO_NULL, 0, DEALLOCATE | INDIRECT}}, 1, ""},
    {{{FREE_SIZED, 3, END, DEALLOCATE | IN_ARRAY}, {FREE_SIZED, 4, 0, DEALLOCATE | IN_ARRAY | INDIRECT}},
     1,
     "free(48) free(24)"},
    {{{FREE_SIZED, 2, END, DEALLOCATE | IN_ARRAY}, {FREE_SIZED, 5, 0, DEALLOCATE | IN_ARRAY | INDIRECT}}, 1, ""},
    {{{DESTROY, 0, END, IN_ARRAY}, {DESTROY, 2, 0, IN_ARRAY}}, 1, "~12 ~11 ~10"},
    {{{DESTROY, 1, END, IN_ARRAY | INDIRECT}, {DESTROY, 0, 0, IN_ARRAY}}, 0, "~12 ~10"},
    {{{0, WORD, END, PLX_REGION_CLEAR}, {0, TO_OTHER, 0, PLX_REGION_CLEAR | INDIRECT}}, 1, ""},
};

static NOINLINE void leave(const a_region_record *regions, unsigned short at) {
  FUNCTION(regions, addresses, arrays)
  CHECK_INT(__eh_curr_region, PLX_NO_REGION);
  REGION(at);
  throw_int(at);
  END_FUNCTION
}

int main(void) {
  unsigned i;
  for (i = 0; i < sizeof cases / sizeof *cases; ++i) {
    word = other_word = block;
    TRY(catch_int) leave(cases[i].regions, cases[i].at);
    HANDLERS CHECK_INT(*(int *)caught, cases[i].at);
    END_TRY
    CHECK_TRACE(cases[i].want);
    CHECK(__eh_curr_region == 0);
  }
  CHECK(word == 0 && other_word == 0);
  CHECK_QUIET();
  return TEST_RESULT();
}
