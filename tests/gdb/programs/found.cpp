// A little of everything, to see whether the printers and commands are there. The comments are the transcript that
// tests/gdb/transcript.py runs.
#include <stdexcept>
#include <string>
#include <vector>

void stop() { __asm__ volatile(""); }
static void (*volatile to_stop)() = stop;

struct local {
  ~local() {}
};
static local at_exit;

static __attribute__((__noinline__)) void catches(int depth) {
  local one;
  try {
    if (depth == 0) throw std::out_of_range("far");
    catches(depth - 1);
  } catch (std::logic_error &) {
    to_stop();
  }
}

int main() {
  std::vector<std::string> words(2, "word");
  catches(1);
  //> plx throw-stack
  //= #0   std::out_of_range at 0xN, handled, references 1
  //=         "far"
  //> plx eh-stack 2
  //= #0   0xN  C++ frame in catches at found.cpp: to_stop();
  //=         cleanup
  //= #1   0xN  C++ frame in catches at found.cpp: catches(depth - 1);
  //=         catch std::logic_error
  //=         cleanup
  //= (more entries)
  //> plx destructions 1
  //= #0   0xN  object 0xN <at_exit>, local::~local()
  //= (more entries)
  //> up
  //> up
  //> output words
  //= std::vector of 2, capacity 2 = {"word", "word"}
}
