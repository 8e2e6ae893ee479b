// The smallest program that uses what the library is for: a string, a throw, a catch. Its size, its start-up time and
// its dynamic relocations are what a program pays before it does anything.
#include <cstdio>
#include <stdexcept>
#include <string>

static void greet(const std::string &name) {
  if (name.empty()) throw std::runtime_error("nobody to greet");
  std::printf("hello, %s\n", name.c_str());
}

int main(int argc, char **argv) {
  try {
    greet(argc > 1 ? argv[1] : "");
  } catch (const std::exception &error) {
    std::printf("caught: %s\n", error.what());
  }
  return 0;
}
