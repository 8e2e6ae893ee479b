// Listed differences that no other test has a place for: nested specifications that the compiler merges, functions that
// void * takes, and small ones of streams.
// test-variants: -O0 | -O2
#include <exception>
#include <fstream>
#include <sstream>
#include <strstream>

#include <plx/runtime.h>

#include "../buffers.h"
#include "../harness.h"

// The inner specification allows what the first report throws, the outer what the second throws. Merged, as from -O1
// on, only the outer one may be left, and what it gets from the handler is not allowed there.
static void translate() {
  static int reports;
  if (++reports == 2) throw "text";
  throw 1;
}
static inline void inner() throw(int, long) { throw 1.5; }
static void outer() throw(const char *) { inner(); }
static void violate_both() {
  std::set_unexpected(translate);
  try {
    outer();
  } catch (const char *) { puts("two reports"); }
}

static void pointer_to_function() {
  static const char identity = 0;
  static const a_type_info_impl type = {PLX_TYPE_INFO_VTABLE, "void ()", &identity, 0};
  try {
    *static_cast<void (**)()>(__throw_setup(&type, sizeof(void *), PLX_TYPE_POINTER)) = pointer_to_function;
    __throw();
  } catch (void *function) { CHECK(function == reinterpret_cast<void *>(pointer_to_function)); }
}

static void streams() {
  std::ostringstream out;
  out << static_cast<std::streambuf *>(0);
  CHECK_INT(out.rdstate(), std::ios::failbit);
  std::istringstream in("12 x");
  int n = 0, ends[2];
  in.ignore(1) >> n;
  CHECK(n == 2 && in.gcount() == 0 && in.rdbuf()->pubseekoff(3, std::ios::beg, std::ios::in | std::ios::out) == 3);
  CHECK_INT(in.get(), 'x');
  CHECK(pipe(ends) == 0 && write(ends[1], "ab", 2) == 2);
  std::filebuf buffer(fdopen(ends[0], "r"));
  std::istream from(&buffer);
  char text[] = "abcdef";
  CHECK(from.get() == 'a' && from.readsome(text, 2) == 0 && from.rdstate() == std::ios::eofbit);
  close(ends[1]);
  scripted one_by_one;
  std::ostream puts(&one_by_one);
  puts << "abc" << 'd' << 42;
  CHECK_INT(one_by_one.calls[overflows], 6);
  CHECK_INT(one_by_one.calls[xsputns], 0);
  std::strstreambuf array(text, 3, text + 3);
  CHECK(array.sbumpc() == 'a' && array.sputbackc('x') == -1 && array.sputbackc('a') == 'a');
  CHECK_TEXT(text, "abcdef");
}

int main() {
  streams();
  const test_child child = test_run_child(violate_both);
  CHECK_TEXT(child.text, child.status == 0 ? "two reports\n" : "plx: uncaught exception of type int\n");
  pointer_to_function();
  return TEST_RESULT();
}
