// Function objects, their adaptors and their types; also functions that take references, and orders of unrelated
// pointers. Nothing here may warn in any dialect.
// test-variants: -O1 -Werror -std=gnu++98 | -O1 -Werror -std=gnu++11 | -O2 -Werror -std=gnu++17 | -O1 -Werror -std=gnu++20
#include <algorithm>
#include <functional>
#include <string>

#include "harness.h"

struct shape {
  explicit shape(int n) : size(n) {}
  virtual ~shape() {}
  virtual int area() const { return size * size; }
  int grow() { return ++size; }
  int scaled(int by) const { return size * by; }
  int add(const int &n) { return size += n; }
  void reset() { size = 0; }
  int size;
};

struct line : public shape {
  explicit line(int n) : shape(n) {}
  int area() const { return 0; }
};

static bool is_empty(const std::string &text) { return text.empty(); }
static bool starts(const std::string &text, const std::string &with) { return text.compare(0, with.size(), with) == 0; }
static int half(int i) { return i / 2; }
static int power(int base, int n) { return n == 0 ? 1 : base * power(base, n - 1); }
static void store(int value, int *place) { *place = value; }

static void test_operations() {
  CHECK_INT(std::plus<int>()(3, 4), 7);
  CHECK_INT(std::minus<int>()(3, 4), -1);
  CHECK_INT(std::multiplies<int>()(3, 4), 12);
  CHECK_INT(std::divides<int>()(9, 4), 2);
  CHECK_INT(std::modulus<int>()(9, 4), 1);
  CHECK_INT(std::negate<int>()(9), -9);
  CHECK(std::plus<std::string>()("a", "b") == "ab");
  CHECK(std::logical_and<int>()(2, 1) && !std::logical_and<int>()(2, 0));
  CHECK(std::logical_or<bool>()(false, true) && std::logical_not<int>()(0));
  for (int a = 0; a < 3; ++a) {
    CHECK(std::equal_to<int>()(a, 1) == (a == 1) && std::not_equal_to<int>()(a, 1) == (a != 1));
    CHECK(std::less<int>()(a, 1) == (a < 1) && std::less_equal<int>()(a, 1) == (a <= 1));
    CHECK(std::greater<int>()(a, 1) == (a > 1) && std::greater_equal<int>()(a, 1) == (a >= 1));
  }
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
}

static void test_negators_and_binders() {
  int numbers[] = {1, 2, 3, 4, 5, 6};
  CHECK_INT(std::count_if(numbers, numbers + 6, std::bind2nd(std::less<int>(), 4)), 3);
  CHECK_INT(std::count_if(numbers, numbers + 6, std::bind1st(std::less<int>(), 4)), 2);
  CHECK_INT(std::count_if(numbers, numbers + 6, std::not1(std::bind2nd(std::less<int>(), 2.5))), 5);
  std::sort(numbers, numbers + 6, std::not2(std::less_equal<int>()));
  CHECK(numbers[0] == 6 && numbers[5] == 1);
  std::transform(numbers, numbers + 6, numbers, std::bind1st(std::ptr_fun(power), 2));
  CHECK_INT(numbers[0], 64);
  CHECK_INT(std::ptr_fun(half)(9), 4);
  int place = 0;
  std::bind1st(std::ptr_fun(store), 5)(&place);
  CHECK_INT(place, 5);
#if !defined(__GLIBCXX__)  // whose adaptors take no functions of references
  const std::string words[] = {"", "one", "on", "two"};
  CHECK_INT(std::count_if(words, words + 4, std::not1(std::ptr_fun(is_empty))), 3);
  CHECK_INT(std::count_if(words, words + 4, std::bind2nd(std::ptr_fun(starts), "on")), 2);
  CHECK(!std::not2(std::ptr_fun(starts))("only", "on"));
#else
  CHECK(std::ptr_fun(is_empty)("") && std::ptr_fun(starts)("only", "on"));
#endif
}

static void test_members() {
  shape square(3);
  line flat(7);
  shape *const all[] = {&square, &flat};
  int areas[2];
  std::transform(all, all + 2, areas, std::mem_fun(&shape::area));
  CHECK(areas[0] == 9 && areas[1] == 0);
  std::for_each(all, all + 2, std::mem_fun(&shape::grow));
  CHECK(square.size == 4 && flat.size == 8);
  CHECK_INT(std::mem_fun(&shape::scaled)(&square, 3), 12);
  CHECK_INT(std::mem_fun_ref(&shape::scaled)(square, 3), 12);
  CHECK_INT(std::bind2nd(std::mem_fun(&shape::scaled), 10)(&flat), 80);
  shape several[] = {shape(1), shape(2)};
  std::for_each(several, several + 2, std::mem_fun_ref(&shape::grow));
  CHECK_INT(std::mem_fun_ref(&shape::area)(several[1]), 9);
  // A binder over a member that changes its object.
  std::for_each(several, several + 2, std::bind2nd(std::mem_fun_ref(&shape::add), 5));
  CHECK_INT(several[0].size, 7);
  std::for_each(several, several + 2, std::mem_fun_ref(&shape::reset));
  CHECK_INT(several[1].size, 0);
  const shape fixed(6);
  CHECK_INT(std::mem_fun(&shape::area)(&fixed), 36);
}

int main() {
  test_operations();
  test_negators_and_binders();
  test_members();
  return TEST_RESULT();
}
