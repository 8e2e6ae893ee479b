// Reader of the exception tables (LSDA) that clang emits for setjmp/longjmp exceptions:
//
//   0xff | type encoding: 0 | uleb: type table offset | call-site encoding | uleb: call-site table length
//   call sites: (uleb landing pad, uleb action)...        action 0: cleanup only, else 1 + offset into the actions
//   actions:    (sleb type filter, sleb next)...          filter 0: cleanup, > 0: type index, < 0: allowed-types list
//   types:      ..., type 2, type 1 | lists of uleb type indices, each ended by 0
#pragma once

namespace __zor {

// The readers take the one-byte case inline: it is nearly every number in these tables. The others get a copy of the
// position, so that the position itself stays in a register.
unsigned int read_long_uleb(const unsigned char **at);
int read_long_sleb(const unsigned char **at);

inline unsigned int read_uleb(const unsigned char *&at) {
  if (__builtin_expect(*at < 0x80, 1)) return *at++;
  const unsigned char *copy = at;
  const unsigned int value = read_long_uleb(&copy);
  at = copy;
  return value;
}

inline int read_sleb(const unsigned char *&at) {
  if (__builtin_expect(*at < 0x80, 1)) {
    const int byte = *at++;
    return byte < 0x40 ? byte : byte - 0x80;
  }
  const unsigned char *copy = at;
  const int value = read_long_sleb(&copy);
  at = copy;
  return value;
}

struct an_exception_table {
  explicit an_exception_table(const unsigned char *at) {
    ++at;  // landing pads have no common start
    const bool has_types = *at++ != 0xFF;
    const unsigned int offset = has_types ? read_uleb(at) : 0;
    types = reinterpret_cast<const void *const *>(at + offset);
    ++at;  // the call-site encoding says udata4, the records are uleb all the same
    const unsigned int length = read_uleb(at);
    call_sites = at;
    actions = at + length;
  }

  const void *type(unsigned int index) const { return types[-static_cast<int>(index)]; }
  const unsigned char *allowed_list(int filter) const {
    return reinterpret_cast<const unsigned char *>(types) - filter - 1;
  }

  const void *const *types;
  const unsigned char *call_sites;
  const unsigned char *actions;
};

}  // namespace __zor
