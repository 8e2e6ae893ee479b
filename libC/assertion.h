// What the runtime checks of its callers and of itself. The values are printed as line numbers and belong to the
// contract: docs/reference.md tells what each means to a program.
#pragma once

namespace __zor {

enum a_broken_condition {
  piece_is_not_aligned = 342,
  piece_is_not_newest = 436,
  nothing_to_catch = 849,            // the head of the eh stack is no marker
  nothing_to_throw = 916,            // it is not this exception's
  unknown_kind_in_search = 1003,     // or what may not follow a try block without a list
  unknown_kind_in_unwinding = 1055,  // or a handler that goes on as a clean-up
  head_has_changed = 1099,           // while entries were unwound
  nothing_to_free = 1387,
  object_is_not_destroyed = 1399,
  is_never_called = 1449
};

// Prints the assertion message and aborts.
[[noreturn]] void assertion_failed(a_broken_condition condition);

// Terminates for a reason that is not the newest exception's; the text completes "plx: terminated: ".
[[noreturn]] void terminate_because(const char *reason);

}  // namespace __zor
