// Function objects and their adaptors, pairs, iterator adaptors, auto_ptr and raw memory: what they give, printed and
// compared with the host's library.
// prints: 308 lines
#include <stdio.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "../../random.h"

// Prints numbers, in a line of its own.
struct say {
  say() { printf("\n"); }
  template <class It> say(It first, It last) {
    for (printf("\n"); first != last; ++first) *this << *first;
  }
  const say &operator<<(long value) const { return printf(" %ld", value), *this; }
};

struct shape {
  explicit shape(int n) : size(n) { ++live; }
  shape(const shape &other) : size(other.size) { ++live; }
  virtual ~shape() { --live; }
  int area() const { return size * size; }
  int grow() { return ++size; }
  int scaled(int by) const { return size * by; }
  operator long() const { return size; }
  int size;
  static int live;
};
int shape::live;
struct line : shape {
  explicit line(int n) : shape(n) {}
};
static int power(int base, int n) { return n == 0 ? 1 : base * power(base, n - 1); }
static void store(int value, int *place) { *place = value; }

static void functions() {
  for (int i = 0; i < 20; ++i) {
    const int a = i / 4 - 2, b = i % 4 + 1;
    say() << std::plus<int>()(a, b) << std::minus<int>()(a, b) << std::multiplies<int>()(a, b)
          << std::divides<int>()(a, b) << std::modulus<int>()(a, b) << std::negate<int>()(a)
          << std::logical_and<int>()(a, b - 1) << std::logical_or<int>()(a, b - 1) << std::logical_not<int>()(a)
          << std::equal_to<int>()(a, b) << std::not_equal_to<int>()(a, b) << std::less<int>()(a, b)
          << std::less_equal<int>()(a, b) << std::greater<int>()(a, b) << std::greater_equal<int>()(a, b)
          << std::bind2nd(std::less<int>(), 1.5)(a) << std::bind1st(std::minus<int>(), 1.5)(a)
          << std::not1(std::bind2nd(std::less<int>(), b))(a) << std::not2(std::less<int>())(a, b);
  }
  int numbers[] = {1, 2, 3, 4, 5, 6}, place = 0;
  std::transform(numbers, numbers + 6, numbers, std::bind1st(std::ptr_fun(power), 2));
  std::bind1st(std::ptr_fun(store), 5)(&place);
  shape square(3), several[] = {shape(1), shape(2)};
  line flat(7);
  shape *const all[] = {&square, &flat};
  std::transform(all, all + 2, numbers, std::mem_fun(&shape::area));
  std::for_each(all, all + 2, std::mem_fun(&shape::grow));
  std::for_each(several, several + 2, std::mem_fun_ref(&shape::grow));
  say(numbers, numbers + 6) << place << several[0] << several[1] << square << flat
                            << std::mem_fun(&shape::scaled)(&square, 3) << std::mem_fun_ref(&shape::scaled)(flat, 3)
                            << std::mem_fun_ref(&shape::area)(several[1])
                            << std::bind2nd(std::mem_fun(&shape::scaled), 10)(&flat);
}

static void pairs() {
  typedef std::pair<int, std::string> pair;
  const pair all[] = {pair(1, "x"), pair(1, "y"), std::make_pair(2, "a"), pair(), std::make_pair(short(1), "x")};
  for (int i = 0; i < 25; ++i) {
    const pair &a = all[i / 5], &b = all[i % 5];
    say() << (a == b) << (a != b) << (a < b) << (a > b) << (a <= b) << (a >= b) << std::rel_ops::operator!=(a, b)
          << std::rel_ops::operator>(a, b) << std::rel_ops::operator<=(a, b) << std::rel_ops::operator>=(a, b);
  }
}

static void iterators() {
  std::list<int> values;
  const int digits[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  std::copy(digits, digits + 3, std::back_inserter(values));
  std::copy(digits, digits + 3, std::front_inserter(values));
  std::list<int>::iterator at = values.begin();
  std::advance(at, 3);
  std::copy(digits, digits + 3, std::inserter(values, at));
  std::vector<int> grown(1, 8);  // grows while its elements are inserted one by one
  std::copy(digits, digits + 3, std::inserter(grown, grown.begin()));
  std::advance(at, -5);
  say(grown.begin(), grown.end());
  say(values.begin(), values.end()) << *at << std::distance(values.begin(), values.end());
  typedef std::reverse_iterator<const int *> reverse;
  const reverse first(digits + 9), last(digits);
  for (int i = 0; i < 8; ++i) {
    reverse a = first + i, b = i % 3 + first, c = a;
    say(a, last) << first[i] << last - a << *(last - i - 1) << (a < b) << (a > b) << (a <= b) << (a >= b) << (a == b)
                 << (a != b);
    const long steps[] = {*c++, *--c, *++c, *c--, (c += 1).base() - digits, (c -= 1).base() - digits};
    say(steps, steps + 6);
  }
}

typedef std::auto_ptr<shape> owner;
static std::auto_ptr<line> made() { return std::auto_ptr<line>(new line(5)); }
static owner passed(owner object) { return object; }
static void owners() {
  owner all[3];
  std::auto_ptr<line> special, other;
  for (int round = 0; round < 60; ++round) {
    owner &to = all[random_below(3)], &from = all[random_below(3)];
    switch (random_below(8)) {
      case 0: to = from; break;
      case 1: to.reset(from.release()); break;
      case 2: to = made(); break;
      case 3: to.reset(new line(round)); break;
      case 4: to = passed(passed(from)); break;
      case 5: to.reset(to.get()); break;
      case 6: to = special, special = other, other = made(); break;
      default: std::auto_ptr<const shape> taken(from);
    }
    say() << (special.get() == 0) << (other.get() ? other->size : 0) << shape::live;
    for (int i = 0; i < 3; ++i) say() << (all[i].get() ? (*all[i]).size : 0);
  }
}

static void raw_memory() {
  const std::pair<shape *, std::ptrdiff_t> buffer = std::get_temporary_buffer<shape>(4);
  const shape source[] = {shape(1), shape(2), shape(3)};
  std::raw_storage_iterator<shape *, shape> out(buffer.first);
  *out++ = source[0], *out = source[1], *++out = source[2];
  std::uninitialized_fill(buffer.first + 3, buffer.first + 4, source[1]);
  say(buffer.first, buffer.first + 4) << shape::live << (std::get_temporary_buffer<int>(0).first == 0);
  for (int i = 0; i < 4; ++i) buffer.first[i].~shape();
  std::return_temporary_buffer(buffer.first);
  // What is made must be converted as by a constructor.
  std::allocator<std::string> strings;
  std::string *const place = strings.allocate(4);
  const char *const text = "a";
  short numbers[2];
  const double real = -2.5;
  strings.construct(place, "text");
  std::uninitialized_copy(&text, &text + 1, place + 1);
  std::uninitialized_fill_n(place + 2, 2, "def");
  std::uninitialized_copy(&real, &real + 1, numbers);
  std::uninitialized_fill_n(numbers + 1, 1, 7L);
  say(numbers, numbers + 2);
  for (int i = 0; i < 4; ++i) printf("%s ", strings.address(place[i])->c_str()), strings.destroy(place + i);
  strings.deallocate(place, 4);
}

int main() {
  functions();
  pairs();
  iterators();
  owners();
  raw_memory();
  say() << shape::live;
  printf("\n");
  return 0;
}
