// Another unwinder in the process (of a C library's thread exit, of a library that keeps a C++ library of its own to
// itself) and what it offers to a personality.
#pragma once

namespace __zor {

struct a_foreign_unwinder {
  unsigned (*get_ip)(void *context);
  unsigned (*get_cfa)(void *context);
  void (*set_ip)(void *context, unsigned address);
  void (*set_gr)(void *context, int reg, unsigned value);
  void (*resume)(void *exception);
};

// The unwinder that called from this address; null when it offers less. Valid to the end of the process.
const a_foreign_unwinder *find_foreign_unwinder(const void *caller);

// Where an exception that is not ours goes on after a clean-up of ours.
void (*foreign_resume())(void *exception);

}  // namespace __zor
