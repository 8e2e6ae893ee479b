// The numbers of exception tables that take more than one byte.

#include "exception_table.h"

namespace __zor {
namespace {

// Seven bits a byte, the lowest first; the last byte has its top bit clear. Returns the bits read.
unsigned int read_groups(const unsigned char **at, unsigned int &value) {
  unsigned int shift = 0, byte;
  value = 0;
  do {
    byte = *(*at)++;
    if (shift < 32) value |= (byte & 0x7F) << shift;
    shift += 7;
  } while (byte & 0x80);
  return shift;
}

}  // namespace

unsigned int read_long_uleb(const unsigned char **at) {
  unsigned int value;
  read_groups(at, value);
  return value;
}

int read_long_sleb(const unsigned char **at) {
  unsigned int value;
  const unsigned int bits = read_groups(at, value);
  if (bits < 32 && ((*at)[-1] & 0x40)) value |= ~0u << bits;
  return static_cast<int>(value);
}

}  // namespace __zor
