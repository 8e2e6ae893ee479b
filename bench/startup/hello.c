/* What a program in C takes at least: the C library alone. */
#include <stdio.h>

int main(void) {
  puts("hello, world");
  return 0;
}
