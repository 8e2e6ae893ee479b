// list: random runs of what all sequences have, nodes that move between two lists and within them, and sorts of every
// length around a run, also without memory for it; printed and compared with the host's library.
// prints: 20059 lines
// test-variants: -O1 | -O2 -std=gnu++20
#include "../sequence_operations.h"

#include <functional>

static bool has_scratch;
static int asked;
#ifdef PLX_CONFIG_H
namespace __zor {
void *_take_scratch(size_t bytes) PLX_NOTHROW { return ++asked, has_scratch ? malloc(bytes) : 0; }
void _give_scratch(void *block) PLX_NOTHROW { free(block); }
}  // namespace __zor
static const int least_asked = 40;
#else
static const int least_asked = 0;
#endif

static bool odd(const tracked &e) { return e.key % 2 != 0; }
static bool near(const tracked &a, const tracked &b) { return b.key - a.key < 2 && a.key - b.key < 2; }
static bool greater(const tracked &a, const tracked &b) { return b < a; }

// Equal keys are told apart by their ranks.
static void moving_nodes() {
  std::list<tracked> both[2];
  for (int i = 0; i < 12000; ++i) {
    const unsigned int which = random_below(2), kind = random_below(13);
    has_scratch = random_below(2);
    std::list<tracked> &a = both[which], &b = random_below(3) ? both[1 - which] : a;
    const int to = static_cast<int>(random_below(static_cast<unsigned int>(a.size()) + 1)), n = size_of(b);
    const int first = static_cast<int>(random_below(static_cast<unsigned int>(n) + 1));
    const int last = first + static_cast<int>(random_below(static_cast<unsigned int>(n - first) + 1));
    const tracked key(static_cast<int>(random_below(8)), i % 1000);
    switch (kind) {
      case 0: a.push_front(key); break;
      case 1:
        if (&a != &b) a.splice(place(a, to), b);
        break;
      case 2:
        if (first != n) a.splice(place(a, to), b, place(b, first));
        break;
      case 3:
        if (&a != &b || to < first || to >= last) a.splice(place(a, to), b, place(b, first), place(b, last));
        break;
      case 4:  // the value is one of those that go
        if (!a.empty()) a.remove(*place(a, to == size_of(a) ? 0 : to));
        break;
      case 5: a.remove_if(odd); break;
      case 6: a.unique(); break;
      case 7: a.unique(near); break;
      case 8: a.reverse(); break;
      case 9:
      case 10:
        kind == 9 ? a.sort() : a.sort(greater);
        if (&a == &b) break;
        kind == 9 ? b.sort() : b.sort(greater);
        kind == 9 ? a.merge(b) : a.merge(b, greater);
        break;
      case 11: a.swap(b); break;
      default: a.push_back(key);
    }
    while (both[0].size() + both[1].size() > 350) (a.empty() ? b : a).pop_back();
    printf("%d, %u: %u of %u, %u of %u\n", i, kind, unsigned(both[0].size()), hash_of(both[0]),
           unsigned(both[1].size()), hash_of(both[1]));
  }
}

// Runs, keys that travel beside the nodes, and strings with common beginnings.
static void sorting() {
  for (unsigned int n = 0; n < 2500; n = n < 40 ? n + 1 : n * 5 / 4) {
    std::list<tracked> elements;
    std::list<int> numbers;
    std::list<std::string> texts;
    for (unsigned int i = 0; i < n; ++i) {
      const unsigned int key = random_below(n / 3 + 1);
      elements.push_back(tracked(static_cast<int>(key), static_cast<int>(i)));
      numbers.push_back(static_cast<int>(key * 2654435761u));
      texts.push_back(std::string(random_below(6), static_cast<char>(key * 37)) + static_cast<char>(key));
    }
    has_scratch = n % 2;
    elements.sort(), texts.sort(), numbers.sort();
    printf("%u: %u %u %u", n, hash_of(elements), hash_of(texts), hash_of(numbers));
    has_scratch = !has_scratch;
    texts.sort(std::greater<std::string>()), numbers.sort(std::greater<int>());
    printf(" %u %u\n", hash_of(texts), hash_of(numbers));
  }
}

int main() {
  random_run<std::list<int> >("numbers", 2000), random_run<std::list<std::string> >("texts", 2000);
  random_run<std::list<tracked> >("elements", 4000);
  moving_nodes();
  sorting();
  CHECK(asked >= least_asked && tracked::live == 0);
  return test_failures != 0;
}
