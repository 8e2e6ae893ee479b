// A hello in C++: throws a standard exception through a function that owns a string, and catches it by its base class.
//
//   ./dev run examples/hello.cpp [NAME]
#include <cstdio>
#include <stdexcept>
#include <string>

static void greet(const std::string &name) {
  std::string text = "hello, " + name;
  if (name.empty()) throw std::invalid_argument("nobody to greet: give a name as the argument");
  std::printf("%s\n", text.c_str());
}

int main(int argc, char **argv) {
  try {
    greet(argc > 1 ? argv[1] : "");
  } catch (const std::exception &error) {
    std::printf("caught: %s\n", error.what());
  }
  return 0;
}
