// The standard streams from the first static constructor to the last destructor, in several files of C++ and one of
// generated C, mixed with stdio on the same output: everything arrives, in the order of the calls. Then what Init does.
// test-variants: -O0 | -O2 | -O2 -static
#include "says.h"

#include <cstdlib>
#include <string>

#include "../../harness.h"

static says of_main("main");
static void at_exit() { std::cout << "atexit" << std::endl; }

// After the last Init is gone, and the streams with it.
static void __attribute__((__destructor__)) after_all() {
  std::cout << "after " << 7 << std::hex << 255 << std::endl;
  std::printf("last\n");
}

static void run() {
  std::cout << "main is " << 4 << 2;
  std::printf(" printf ");
  std::cout << 'c';
  std::putchar('p');
  std::cerr << "<cerr>";  // flushes cout first
  std::clog << "<clog>";  // not flushed by itself, but stderr has no buffer
  std::fputs("\n", stdout);
  std::cout.write("block\n", 6);
  std::atexit(at_exit);
  c_record();
}

static const char *program;
static void in_own_process() { execl("/proc/self/exe", program, "run", (char *)0); }

static void erased(std::ios_base::event what, std::ios_base &stream, int) {
  if (what == std::ios_base::erase_event) trace(&stream == &std::cout ? "cout" : "other");
}

// The streams go with the last Init and come again with the next.
static void initialisation() {
  std::filebuf *const buffer = __vexil_fout;
  CHECK(std::cout.rdbuf() == buffer && std::cin.rdbuf() == __vexil_fin);
  CHECK(std::cerr.rdbuf() == __vexil_ferr && std::clog.rdbuf() == __vexil_ferr);
  CHECK(std::cin.tie() == &std::cout && std::cerr.tie() == &std::cout && std::clog.tie() == &std::cout);
  CHECK(!std::cout.tie());
  CHECK((std::cerr.flags() & std::ios_base::unitbuf) && !(std::clog.flags() & std::ios_base::unitbuf));
  const int count = std::ios_base::Init::init_cnt;
  CHECK_INT(count, 3 + 3);  // the library's and those of the three units here
  {
    std::ios_base::Init another;
    CHECK_INT(std::ios_base::Init::init_cnt, count + 1);
  }
  std::cout.register_callback(erased, 0);
  std::cerr.register_callback(erased, 0);
  std::cout.exceptions(std::ios_base::badbit);
  std::ios_base::Init::init_cnt = 1;
  alignas_init here;
  new (&here) std::ios_base::Init;
  reinterpret_cast<std::ios_base::Init *>(&here)->~Init();
  CHECK_TRACE("");
  reinterpret_cast<std::ios_base::Init *>(&here)->~Init();
  CHECK_TRACE("other cout");
  CHECK_INT(std::ios_base::Init::init_cnt, 0);
  CHECK(std::cout.good() && std::cout.exceptions() == 0);  // still to be used
  new (&here) std::ios_base::Init;
  CHECK(std::cout.rdbuf() == __vexil_fout && std::cout.good());
  std::ios_base::Init::init_cnt = count;
}

int main(int argc, char **argv) {
  program = argv[0];
  if (argc > 1) {
    run();
    return 0;
  }
  initialisation();
  const test_child child = test_run_child(in_own_process);
  CHECK_INT(child.status, 0);
  // The order of units is the linker's; the last that was built is the first to go.
  std::string built(child.text), gone;
  const std::string::size_type start = built.find("main is");
  CHECK(start != std::string::npos);
  built.erase(start == std::string::npos ? 0 : start);
  CHECK_INT(built.size(), strlen("+main\n+other\n+generated42\n"));
  while (!built.empty()) {
    const std::string::size_type last = built.rfind('+');
    if (last == std::string::npos) break;
    gone += '-' + built.substr(last + 1);
    built.erase(last);
  }
  const std::string want = "main is 42 printf cp<cerr><clog>\nblock\n-record\natexit\n" + gone + "after 7ff\nlast\n";
  CHECK_TEXT(child.text + (start == std::string::npos ? 0 : start), want.c_str());
  return TEST_RESULT();
}
