// Function objects and their adaptors, pairs, iterator adaptors, auto_ptr and raw memory: what they give, printed and
// compared with the host's library.
// prints: 77 lines
#include <stdio.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// Prints numbers.
struct say {
  say() { printf("\n%d:", ++line); }
  const say &operator<<(long value) const { return printf(" %ld", value), *this; }
  static int line;
};
int say::line;

struct shape {
  explicit shape(int n) : size(n) { ++live; }
  shape(const shape &other) : size(other.size) { ++live; }
  virtual ~shape() { --live; }
  virtual int area() const { return size * size; }
  int grow() { return ++size; }
  int scaled(int by) const { return size * by; }
  void reset() { size = 0; }
  int size;
  static int live;
};
int shape::live;
struct line : public shape {
  explicit line(int n) : shape(n) {}
  int area() const { return 0; }
};
static int half(int i) { return i / 2; }
static int power(int base, int n) { return n == 0 ? 1 : base * power(base, n - 1); }
static void store(int value, int *place) { *place = value; }
struct comparable {
  int value;
  bool operator==(const comparable &other) const { return value == other.value; }
  bool operator<(const comparable &other) const { return value < other.value; }
};

static void functions() {
  say() << std::plus<int>()(3, 4) << std::minus<int>()(3, 4) << std::multiplies<int>()(3, 4)
        << std::divides<int>()(9, 4) << std::modulus<int>()(11, 4) << std::negate<int>()(9)
        << std::plus<std::string>()("a", "bc").size();
  for (int a = 0; a < 3; ++a)
    say() << std::logical_and<int>()(a, 2 - a) << std::logical_or<int>()(a, a / 2) << std::logical_not<int>()(a)
          << std::equal_to<int>()(a, 1) << std::not_equal_to<int>()(a, 1) << std::less<int>()(a, 1)
          << std::less_equal<int>()(a, 1) << std::greater<int>()(a, 1) << std::greater_equal<int>()(a, 1);
  int numbers[] = {1, 2, 3, 4, 5, 6}, areas[2], place = 0;
  say() << std::count_if(numbers, numbers + 6, std::bind2nd(std::less<int>(), 4))
        << std::count_if(numbers, numbers + 6, std::bind1st(std::less<int>(), 4))
        << std::count_if(numbers, numbers + 6, std::not1(std::bind2nd(std::less<int>(), 2.5)));
  std::sort(numbers, numbers + 6, std::not2(std::less_equal<int>()));
  std::transform(numbers, numbers + 6, numbers, std::bind1st(std::ptr_fun(power), 2));
  for (int i = 0; i < 6; ++i) say() << numbers[i];
  std::bind1st(std::ptr_fun(store), 5)(&place);
  shape square(3), several[] = {shape(1), shape(2)};
  line flat(7);
  shape *const all[] = {&square, &flat};
  std::transform(all, all + 2, areas, std::mem_fun(&shape::area));
  std::for_each(all, all + 2, std::mem_fun(&shape::grow));
  std::for_each(several, several + 2, std::mem_fun_ref(&shape::grow));
  std::for_each(several, several + 1, std::mem_fun_ref(&shape::reset));
  say() << place << std::ptr_fun(half)(90) << areas[0] << areas[1] << square.size << flat.size << several[0].size
        << several[1].size;
  say() << std::mem_fun(&shape::scaled)(&square, 3) << std::mem_fun_ref(&shape::scaled)(flat, 3)
        << std::bind2nd(std::mem_fun(&shape::scaled), 10)(&flat) << std::mem_fun_ref(&shape::area)(several[1]);
}

static void pairs() {
  typedef std::pair<int, std::string> pair;
  const pair all[] = {pair(1, "x"), pair(1, "y"), std::make_pair(2, "a"), pair(), pair(std::make_pair(short(1), "x"))};
  for (int i = 0; i < 25; ++i) {
    const pair &a = all[i / 5], &b = all[i % 5];
    say() << (a == b) << (a != b) << (a < b) << (a > b) << (a <= b) << (a >= b);
  }
  std::pair<long, double> wider(std::make_pair(short(3), 2.5f));
  wider = std::pair<char, int>('\4', 5);
  const comparable one = {1}, two = {2};
  using namespace std::rel_ops;
  say() << wider.first << long(wider.second) << (one != two) << (two > one) << (one <= two) << (two >= one)
        << (one > two) << (one >= two);
}

static void iterators() {
  std::list<int> values;
  const int digits[] = {1, 2, 3}, want[] = {3, 2, 1, 1, 2, 3, 1, 2, 3};
  std::copy(digits, digits + 3, std::back_inserter(values));
  std::copy(digits, digits + 3, std::front_inserter(values));
  std::list<int>::iterator at = values.begin();
  std::advance(at, 3);
  std::copy(digits, digits + 3, std::inserter(values, at));
  std::vector<int> grown(1, 8);  // grows while its elements are inserted one by one
  std::copy(digits, digits + 3, std::inserter(grown, grown.begin()));
  values.insert(values.end(), grown.begin(), grown.end());
  for (std::list<int>::iterator each = values.begin(); each != values.end(); ++each) say() << *each;
  std::advance(at, -5);
  say() << *at << std::distance(values.begin(), values.end());

  typedef std::reverse_iterator<const int *> reverse;
  const reverse first(want + 9), last(want);
  say() << *first << first[2] << last - first << *(first + 1) << (first < last) << (first > last) << (first <= last)
        << (first >= last) << (first == last) << (first != last) << (first + 9 == last) << *(1 + first) << *(last - 1);
  reverse step = first;
  say() << *step++;
  say() << *++step;
  say() << *step--;
  say() << *--step << (step += 3) - first << (step -= 2).base() - want;
}

typedef std::auto_ptr<shape> owner;
static std::auto_ptr<line> made() { return std::auto_ptr<line>(new line(5)); }
static int area_of_sunk(owner object) { return object->area() + object->size; }
static owner passed(owner object) { return object; }
static void owners() {
  const int before = shape::live;
  std::auto_ptr<line> first(made()), second(first);
  say() << (first.get() == 0) << (second.get() != 0) << shape::live - before;
  first = second;
  owner general(first);
  say() << (first.get() == 0) << (second.get() == 0) << general->size << (*general).size;
  general = made();
  say() << shape::live - before;
  general = second;
  say() << (general.get() == 0) << shape::live - before;
  owner from_temporary(made());
  const int area = area_of_sunk(from_temporary);
  say() << area << (from_temporary.get() == 0) << shape::live - before;
  owner back(passed(passed(owner(new shape(3)))));
  shape *const taken = back.release();
  say() << (back.get() == 0) << shape::live - before;
  back.reset(taken), back.reset(taken);
  owner &itself = back;
  back = itself;
  say() << back->size << shape::live - before;
  back = owner(new line(4));
  std::auto_ptr<const shape> fixed(back);
  say() << fixed->size << shape::live - before;
  fixed.reset(), back.reset();
  say() << shape::live - before;
}

static void raw_memory() {
  std::pair<shape *, std::ptrdiff_t> buffer = std::get_temporary_buffer<shape>(4);
  {
    const shape source[] = {shape(1), shape(2), shape(3)};
    const int before = shape::live;
    std::raw_storage_iterator<shape *, shape> out(buffer.first);
    for (int i = 0; i < 2; ++i) *out++ = source[i];
    *out = source[2];
    ++out;
    say() << shape::live - before;
    std::uninitialized_fill(buffer.first + 3, buffer.first + 4, source[1]);
    for (int i = 0; i < 4; ++i) say() << buffer.first[i].size;
    for (int i = 0; i < 4; ++i) buffer.first[i].~shape();
  }
  std::return_temporary_buffer(buffer.first);
  say() << (std::get_temporary_buffer<int>(0).first == 0);
  std::allocator<std::string> strings;
  std::string *const place = strings.allocate(5);
  strings.construct(place, "text");
  const char *const texts[] = {"a", "bc"};
  say() << std::uninitialized_copy(texts, texts + 2, place + 1) - place;
  std::uninitialized_fill_n(place + 3, 2, "def");
  for (int i = 0; i < 5; ++i) printf("%s ", strings.address(place[i])->c_str()), strings.destroy(place + i);
  strings.deallocate(place, 5);
  // What makes scalars must convert as a constructor does.
  short numbers[4];
  const double reals[] = {1.5, -2.5, 3};
  std::uninitialized_copy(reals, reals + 3, numbers);
  std::uninitialized_fill_n(numbers + 3, 1, 7L);
  say() << numbers[1] << numbers[3];
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
