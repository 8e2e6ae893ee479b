// A static object that prints when it is built and when it is destroyed, and what the C file gives.
#ifndef SAYS_H
#define SAYS_H

#include <cstdio>
#include <iostream>
#include <new>

struct says {
  const char *name;
  explicit says(const char *n) : name(n) { std::cout << '+' << name << '\n'; }
  ~says() { std::cout << '-' << name << '\n'; }
};

union alignas_init {
  int word;
  char bytes[sizeof(std::ios_base::Init)];
};

extern "C" void c_record();

#endif
