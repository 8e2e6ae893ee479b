// Braced lists of later dialects: range-for over a list, a function that takes one, and elements that are destroyed when
// the construction of a later one throws.
// test-variants: -O0 -std=gnu++11 | -O2 -std=gnu++20
#include <initializer_list>
#include <string>

#include "../harness.h"

struct counted {
  static int alive;
  explicit counted(int fail) {
    if (fail) throw fail;
    ++alive;
  }
  counted(const counted &) { ++alive; }
  ~counted() { --alive; }
};
int counted::alive = 0;

static int total(std::initializer_list<int> numbers) {
  int sum = 0;
  for (int number : numbers) sum += number;
  return sum;
}

static unsigned lengths(std::initializer_list<std::string> texts) {
  unsigned sum = 0;
  for (const std::string &text : texts) sum += text.size();
  return sum;
}

static size_t how_many(std::initializer_list<counted> objects) { return objects.size(); }

int main() {
  CHECK_INT(total({}), 0);
  CHECK_INT(total({1, 2, 3}), 6);
  CHECK_INT(lengths({"a", "bc", std::string(40, 'x')}), 43);
  for (const char *word : {"one", "two"}) trace(word);
  CHECK_TRACE("one two");

  CHECK_INT(how_many({counted(0), counted(0)}), 2);
  CHECK_INT(counted::alive, 0);
  try {
    how_many({counted(0), counted(0), counted(7)});
    CHECK(!"thrown");
  } catch (int code) {
    CHECK_INT(code, 7);
  }
  CHECK_INT(counted::alive, 0);
  return TEST_RESULT();
}
