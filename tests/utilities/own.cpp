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
  explicit shape(int n) : size(n) {}
  int add(const int &n) { return size += n; }
  int size;
};
static bool is_empty(const std::string &text) { return text.empty(); }
static bool starts(const std::string &text, const std::string &with) { return text.compare(0, with.size(), with) == 0; }
static int half(int i) { return i / 2; }

static void functions() {
  // One order of all pointers, also of functions.
  char low, high;
  char *const x = &low, *const y = &high;
  CHECK(std::less<char *>()(x, y) != std::less<char *>()(y, x));
  CHECK(std::greater<char *>()(x, y) == std::less<char *>()(y, x));
  CHECK(std::less_equal<const char *>()(x, x) && std::greater_equal<char *>()(x, x) && !std::less<char *>()(x, x));
  CHECK(std::less<int (*)(int)>()(0, half));
  std::plus<int>::first_argument_type i = 3;
  std::negate<long>::argument_type l = i;
  std::less<int>::result_type b = l == 3;
  CHECK(b);
  // Functions of references, and a binder over a member that changes its object.
  const std::string words[] = {"", "one", "on", "two"};
  CHECK_INT(std::count_if(words, words + 4, std::not1(std::ptr_fun(is_empty))), 3);
  CHECK_INT(std::count_if(words, words + 4, std::bind2nd(std::ptr_fun(starts), "on")), 2);
  CHECK(!std::not2(std::ptr_fun(starts))("only", "on"));
  shape several[] = {shape(2), shape(3)};
  std::for_each(several, several + 2, std::bind2nd(std::mem_fun_ref(&shape::add), 5));
  CHECK(several[0].size == 7 && several[1].size == 8);
}

static void memory() {
  std::auto_ptr<int> one(new int(3)), other(one);
  CHECK(one.get() == 0 && *other == 3);
  std::allocator<std::string> strings;
  CHECK(std::allocator<int>() == std::allocator<char>() && strings.max_size() > 1000);
  CHECK(std::get_temporary_buffer<int>(-1).second == 0);
  bool thrown = false;
  try {
    strings.allocate(strings.max_size() + 1);
  } catch (const std::bad_alloc &) { thrown = true; }
  CHECK(thrown);
}

struct no_number {
  no_number() : value(3) {}
  int value;
};
typedef char array_of_digits[std::numeric_limits<unsigned char>::digits];

static void limits() {
  CHECK(!std::numeric_limits<no_number>::is_specialized && std::numeric_limits<no_number>::max().value == 3);
  CHECK(!std::numeric_limits<int>::is_modulo && std::numeric_limits<unsigned>::is_modulo &&
        !std::numeric_limits<bool>::is_modulo && sizeof(array_of_digits) == 8);
  // A signaling NaN has the bit clear that makes it quiet.
  const double signaling = std::numeric_limits<double>::signaling_NaN(),
               quiet = std::numeric_limits<double>::quiet_NaN();
  unsigned char bytes[2][8];
  memcpy(bytes[0], &signaling, 8);
  memcpy(bytes[1], &quiet, 8);
  CHECK((bytes[1][6] & 8) != 0 && bytes[0][7] == 0x7F && quiet != quiet);
#if __cplusplus >= 201103L
  static_assert(std::numeric_limits<int>::max() == INT_MAX && std::numeric_limits<const int>::digits == 31, "");
  static_assert(std::numeric_limits<int>::lowest() == INT_MIN && std::numeric_limits<double>::lowest() == -DBL_MAX, "");
  static_assert(std::numeric_limits<float>::max_digits10 == 9 && std::numeric_limits<long double>::max_digits10 == 21,
                "");
  CHECK_INT(std::numeric_limits<char32_t>::digits, 32);
#endif
}

int main() {
  functions();
  memory();
  limits();
  return TEST_RESULT();
}
