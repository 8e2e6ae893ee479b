// Copying and filling of texts that are long enough for the C library's functions.

#include "short_copy.h"

namespace __zor {

void copy_long(char *to, const char *from, unsigned n) { memcpy(to, from, n); }
void move_long(char *to, const char *from, unsigned n) { memmove(to, from, n); }
void fill_long(char *to, unsigned n, char c) { memset(to, c, n); }

}  // namespace __zor
