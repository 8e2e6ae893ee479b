// Reader of the exception tables (LSDA) that clang emits for setjmp/longjmp exceptions:
//
//   0xff | type encoding: 0 | uleb: type table offset | call-site encoding | uleb: call-site table length
//   call sites: (uleb landing pad, uleb action)...        action 0: cleanup only, else 1 + offset into the actions
//   actions:    (sleb type filter, sleb next)...          filter 0: cleanup, > 0: type index, < 0: allowed-types list
//   types:      ..., type 2, type 1 | lists of uleb type indices, each ended by 0
#pragma once

namespace __zor {

inline unsigned int read_uleb(const unsigned char *&at) {
  unsigned int value = *at++;
  if (value < 0x80) return value;
  value &= 0x7F;
  for (unsigned int shift = 7;; shift += 7) {
    const unsigned int byte = *at++;
    value |= (byte & 0x7F) << shift;
    if (byte < 0x80) return value;
  }
}

inline int read_sleb(const unsigned char *&at) {
  unsigned int value = 0, shift = 0, byte;
  do {
    byte = *at++;
    value |= (byte & 0x7F) << shift;
    shift += 7;
  } while (byte & 0x80);
  if (shift < 32 && (byte & 0x40)) value |= ~0u << shift;
  return static_cast<int>(value);
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
