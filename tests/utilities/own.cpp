// Function objects, auto_ptr and numeric_limits where plx's own rules or those of later dialects hold. Nothing here may
// warn in any dialect.
// test-variants: -O1 -Werror -std=gnu++98 | -O1 -Werror -std=c++98 | -O1 -Werror -std=gnu++11 | -O2 -Werror -std=gnu++20
#include <algorithm>
#include <cfloat>
#include <climits>
#include <functional>
#include <limits>
#include <memory>
#include <string>

#include "harness.h"

struct shape {
  int size;
  int add(const int &n) { return size += n; }
};
static bool starts(const std::string &text, const std::string &with) { return text.compare(0, with.size(), with) == 0; }

static void functions() {
  // One order of all pointers, also of functions.
  char low, high;
  const bool rises = std::less<char *>()(&low, &high);
  CHECK(rises != std::less<char *>()(&high, &low) && rises == std::greater<char *>()(&high, &low));
  CHECK(std::less_equal<char *>()(&low, &low) && std::greater_equal<char *>()(&low, &low));
  CHECK(std::less<void (*)()>()(0, functions));
  // Functions of references, and a binder over a member that changes its object.
  const std::string words[] = {"", "one", "on", "two"};
  CHECK_INT(std::count_if(words, words + 4, std::bind2nd(std::ptr_fun(starts), "on")), 2);
  CHECK(!std::not2(std::ptr_fun(starts))("only", "on"));
  shape several[] = {{2}, {3}};
  std::for_each(several, several + 2, std::bind2nd(std::mem_fun_ref(&shape::add), 5));
  CHECK(several[0].size == 7 && several[1].size == 8);
}

int main() {
  functions();
  std::allocator<std::string> strings;
  CHECK(std::allocator<int>() == std::allocator<char>() && std::get_temporary_buffer<int>(-1).second == 0);
  try {
    strings.allocate(strings.max_size() + 1);
    CHECK(!"allocated");
  } catch (const std::bad_alloc &) {}
  CHECK(!std::numeric_limits<shape>::is_specialized && !std::numeric_limits<int>::is_modulo);
#if __cplusplus >= 201103L
  static_assert(std::numeric_limits<int>::lowest() == INT_MIN && std::numeric_limits<double>::lowest() == -DBL_MAX, "");
  static_assert(std::numeric_limits<float>::max_digits10 == 9 && std::numeric_limits<const int>::digits == 31, "");
#endif
  return TEST_RESULT();
}
