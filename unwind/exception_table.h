// The exception table (LSDA) of a function of C++: for each of its calls the landing pad, and what the landing pad takes.
//
//   landing pads relative to | type table | call-site encoding | length of the call sites
//   call sites: (start, length, landing pad, action)...     action 0: clean-up only, else 1 + offset into the actions
//   actions:    (sleb filter, sleb next)...          filter 0: clean-up, > 0: type index, < 0: list of allowed types
//   types:      ..., type 2, type 1 | lists of uleb type indices, each ended by 0
#pragma once

#include "byte_reader.h"

namespace __zor {

struct a_call_site {
  bool is_covered;       // false: an exception must not leave this call
  unsigned landing_pad;  // 0: none
  const byte *action;    // null: clean-up only
};

class an_exception_table {
public:
  // `function` is where the function begins.
  an_exception_table(const a_range &range, const byte *table, unsigned function);

  bool is_damaged() const { return damaged_; }

  // For the call whose instruction holds `address`.
  a_call_site find_call_site(unsigned address);

  // Whether all that the action and those after it lead to can be read: then the functions below need not ask.
  bool check_actions(const byte *action) const;

  // The record of a type; null: any type.
  const void *type(unsigned index) const;

  // The list of allowed types of a negative filter: uleb indices, ended by 0.
  const byte *allowed_types(int filter) const { return at_distance(types_, ~static_cast<unsigned>(filter)); }

  // One step along a chain of actions: the filter of the action at `at`, which becomes the next or null.
  int next_action(const byte *&at) const;

  const a_range &range() const { return range_; }

private:
  bool read_type(unsigned index, unsigned &type) const;

  a_range range_;
  unsigned function_, landing_base_;
  byte type_encoding_, call_site_encoding_;
  const byte *types_;  // null: there are none
  const byte *call_sites_, *actions_;
  bool damaged_;
};

}  // namespace __zor
