// The C++ half: ordinary C++ that is called by generated C and calls it. Exceptions cross in both directions, and each
// destroys what it passes, C++ objects and C objects alike, in true nesting order.
//
//   two_worlds FILE      any text file
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>

#include "worlds.h"

// Thrown here, caught in generated C by its name.
class strange_line : public std::runtime_error {
public:
  explicit strange_line(const std::string &message) : std::runtime_error(message) {}
};

// Thrown here, known to nobody else: it passes through generated C and is caught in main.
struct enough {
  int number;
};

static const int longest = 72;
static int stop_at = 0;  // the line at which inspect_line has had enough
static int live_inspections = 0;

// A local whose destruction can be seen.
class inspection {
public:
  explicit inspection(int number) : number_(number) { ++live_inspections; }
  ~inspection() {
    --live_inspections;
    if (number_ == stop_at) std::printf("  [C++] inspection of line %d destroyed\n", number_);
  }

private:
  int number_;
};

extern "C" void inspect_line(const char *text, int number) {
  inspection local(number);
  const std::string line(text);
  if (number == stop_at) {
    enough stop = {number};
    throw stop;
  }
  char place[32];
  std::sprintf(place, "line %d ", number);
  if (line.size() > longest) throw std::length_error(place + ("is too long: " + line.substr(0, 40)) + "...");
  for (std::string::size_type i = 0; i < line.size(); ++i) {
    unsigned char character = line[i];
    if (character < ' ' || character > '~')
      throw strange_line(place + std::string("has a tab or another character that is not plain"));
  }
}

extern "C" const char *what_of(const void *exception) { return static_cast<const std::exception *>(exception)->what(); }

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FILE\n", argv[0]);
    return 2;
  }
  const char *path = argv[1];
  try {
    std::printf("generated C calls C++, which throws; generated C catches\n");
    survey(path);

    std::printf("C++ throws through generated C; C++ catches\n");
    try {
      stop_at = 3;
      survey(path);
      std::printf("  [C++] the file has fewer than 3 lines\n");
    } catch (const enough &stop) {
      std::printf("  [C++] caught enough: stopped at line %d\n", stop.number);
    }
    stop_at = 0;

    std::printf("C++ calls generated C, which throws; C++ catches\n");
    try {
      require_short_lines(path, longest);
      std::printf("  [C++] no line is longer than %d\n", longest);
    } catch (const long_line &line) {
      std::printf("  [C++] caught long_line: line %d has %d characters\n", line.number, line.length);
    }

    std::printf("the same, caught by the base class\n");
    try {
      require_short_lines(path, 0);
    } catch (const finding &line) {
      std::printf("  [C++] caught finding: line %d is the first that is not empty\n", line.number);
    }

    std::printf("generated C throws an int from a constructor\n");
    try {
      survey("/nowhere/to/be/found");
    } catch (int code) {
      std::printf("  [C++] caught int: %s\n", std::strerror(code));
    }
  } catch (int code) {
    std::printf("  [C++] %s: %s\n", path, std::strerror(code));
    return 1;
  }
  std::printf("inspections still alive: %d\n", live_inspections);
  return live_inspections == 0 ? 0 : 1;
}
