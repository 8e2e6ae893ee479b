// A C library that keeps the host's C++ library, and its unwinder, behind its interface.
#include <cstdio>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

typedef void (*callback)(int);
struct noisy {
  int n;
  ~noisy() { std::printf("~foreign%d ", n); }
};
struct at_end {
  ~at_end() { std::printf("the library ends\n"); }
};
static at_end end;

extern "C" {
int foreign_inside(int n, callback f) {
  std::vector<std::string> lines;
  for (int i = 0; i < n; ++i) {
    std::ostringstream line;
    line << "line " << i;
    lines.push_back(line.str());
  }
  try {
    lines.at(n);
  } catch (std::out_of_range &) {
    noisy local = {n};
    f(n);
    try {
      throw std::runtime_error(lines.back());
    } catch (std::exception &e) {
      std::cout << e.what() << std::flush << ' ';
    }
  }
  return lines.size();
}
void foreign_passes(callback f, int n) {
  noisy local = {n};
  try {
    f(n);
  } catch (int) {
    std::printf("foreign got int ");
  } catch (std::exception &e) {
    std::printf("foreign got %s ", e.what());
  }
}
void foreign_throws(int n) {
  if (n == 1) throw std::runtime_error("theirs");
  throw n;
}
void foreign_catches(callback f, int n) {
  try {
    f(n);
  } catch (std::runtime_error &e) {
    std::printf("foreign caught %s ", e.what());
  } catch (int k) {
    std::printf("foreign caught %d ", k);
  }
}
}
