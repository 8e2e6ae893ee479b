// Offsets among the characters of a buffer that holds all of them.
#pragma once

namespace __zor {

// The offset that base + off means, in 0 .. last; -1 for any other.
inline long within(long base, long off, long last) {
  const long long at = static_cast<long long>(base) + off;
  return 0 <= at && at <= last ? static_cast<long>(at) : -1;
}

}  // namespace __zor
