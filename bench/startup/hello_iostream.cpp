// Hello by the standard streams: what a program that includes <iostream> pays before it does anything, and for what it
// takes in.
#include <iostream>

int main() {
  std::cout << "hello, world" << std::endl;
  return 0;
}
