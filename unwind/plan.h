// What a throw needs at one return address, found out once and remembered: where the caller's registers are, and what
// the exception table says of the call.
//
// Most frames need only the first lines: their CFA is a register and an offset, and what they saved lies right below
// it. The rest of a plan is read where an exception lands.
#pragma once

#include "exception_table.h"
#include "frame_rules.h"
#include "i386/machine_frame.h"

namespace __zor {

struct a_clause {
  const void *type;              // null: any
  const char *library_identity;  // of the library's descriptor of the type; null: there is none
};

struct a_plan {
  unsigned address;  // the return address; 0: not in use
  a_plan *caller;    // the plan that the walk needed next, last time: only a guess, and never null

  enum a_shape : byte {
    plain,      // as above
    realigned,  // by `rules`, but for the CFA, which lies in memory at a register and an offset
    general,    // by `rules`
    outermost,  // there is no caller
    untabled,   // no table describes the code
    damaged     // a table does, and cannot be read
  } shape;
  enum a_handling : byte {
    none,
    terminate,   // an exception must not leave the call
    clean_up,    // land, whatever the exception is
    one_or_two,  // `clauses`, if they take the exception
    one_or_two_and_clean_up,
    actions  // the table's decide
  } handling;
  byte cfa_register;
  bool caller_is_interrupted;  // a signal frame: the caller was at the very instruction
  int cfa_offset;
  signed char saved[4];  // of ebx, esi, edi, ebp: words from the CFA; 0: in the register still
  short selectors[2];    // that the clauses land with; 0: there is no clause
  unsigned landing_pad;
  unsigned arguments_size;
  a_clause clauses[2];
  const byte *action;
  unsigned function;  // for the exception table
  const byte *exception_table;
  a_frame_rules *rules;

  // As most frames are: plain, and nothing to land at. One look at two fields.
  bool is_passed() const { return *reinterpret_cast<const unsigned short *>(&shape) == 0; }
  // What it leads to has been checked.
  an_exception_table table() const { return {everywhere, exception_table, function}; }
};
static_assert(sizeof(a_plan) == 64, "one line of the cache");
static_assert(a_plan::plain == 0 && a_plan::none == 0 && offsetof(a_plan, handling) == offsetof(a_plan, shape) + 1 &&
                  offsetof(a_plan, shape) % 2 == 0,
              "is_passed looks at both at once");

// The plan of a return address; never null. It is valid until the next call.
a_plan *find_plan(unsigned address);

// Others must not be led to one that is not.
bool is_remembered(const a_plan *plan);

// The plan of an address at which a signal came.
a_plan *find_plan_of_interrupted(unsigned address);

// Makes the plan anew; returns whether it may be remembered: the code cannot go away, or says when it does.
bool make_plan(unsigned address, bool interrupted, a_plan &plan, a_frame_rules &rules);

// Code was unloaded.
void forget_plans();

// Whose code may be remembered: see objects.cpp. An object is named by an address in it.
void note_object(const void *image);
void forget_object(const void *image);
bool may_remember(void *map);

}  // namespace __zor
