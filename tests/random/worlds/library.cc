// The passages of random programs through frames of a library, the same with plx and with the host's: a comparison, a
// stream buffer, a facet, an element, the C library's sorting.
#include <algorithm>
#include <cstdlib>
#include <locale>
#include <ostream>
#include <set>
#include <streambuf>
#include <vector>

typedef int (*function)(int);

extern "C" void passage_trace(const char *what, int value);

namespace {

// Calls the function the first time that it is asked; libraries differ in how often they ask.
struct call {
  function f;
  int d, result;
  call(function g, int e) : f(g), d(e), result(0) {}
  void once() {
    const function g = f;
    f = 0;
    if (g) result = g(d);
  }
};

struct less {
  call *first;
  explicit less(call *c) : first(c) {}
  bool operator()(int a, int b) const {
    first->once();
    return a < b;
  }
};

struct buffer : std::streambuf {
  call *first;
  explicit buffer(call *c) : first(c) {}

protected:
  virtual int overflow(int c) {
    first->once();
    return c == -1 ? 0 : c;
  }
};

struct names : std::numpunct<char> {
  call *first;
  explicit names(call *c) : first(c) {}

protected:
  virtual std::string do_truename() const {
    first->once();
    return "so";
  }
};

struct element {
  call *first;
  int left;
  explicit element(call *c) : first(c), left(0) {}
  element(const element &other) : first(other.first) {
    if (++const_cast<element &>(other).left == 2) first->once();
    passage_trace("p-copied", 0);
  }
  // Whether an exception is in flight then, libraries see differently.
  ~element() { passage_trace("p-destroyed", 0); }
};

call *compared;
extern "C" int compare(const void *a, const void *b) {
  call *const first = compared;
  compared = 0;
  if (first) first->once();
  return *static_cast<const int *>(a) - *static_cast<const int *>(b);
}

}  // namespace

extern "C" int passage_of_library(int kind, function f, int d) {
  call first(f, d);
  int numbers[] = {3, 1, 2, 5, 4};
  switch (kind) {
    case 5: std::sort(numbers, numbers + 5, less(&first)); break;
    case 6: {
      std::set<int, less> set((less(&first)));
      set.insert(numbers, numbers + 5);
      break;
    }
    case 7: {
      std::vector<element> elements(3, element(&first));
      break;
    }
    case 8: {
      buffer to(&first);
      std::ostream stream(&to);
      // A stream keeps the exception, a buffer lets it pass.
      if (d % 2) to.sputn("text", 4);
      else stream << d;
      passage_trace("p-state", stream.rdstate());
      break;
    }
    case 9: {
      call never(0, 0);
      buffer to(&never);
      std::ostream stream(&to);
      stream.imbue(std::locale(std::locale::classic(), new names(&first)));
      stream << std::boolalpha;
      std::use_facet<std::num_put<char> >(stream.getloc()).put(&to, stream, ' ', true);
      break;
    }
    case 10:
      compared = &first;
      std::qsort(numbers, 5, sizeof(int), compare);
      break;
    default:
      compared = &first;
      std::bsearch(numbers, numbers, 5, sizeof(int), compare);
      break;
  }
  return first.result;
}
