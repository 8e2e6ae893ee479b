// auto_ptr, allocator, raw storage, temporary buffers, pairs, insert and reverse iterators. Nothing here may warn in any
// dialect.
// test-variants: -O1 -Werror -std=gnu++98 | -O1 -Werror -std=gnu++11 | -O2 -Werror -std=gnu++17 | -O1 -Werror -std=gnu++20
#include <functional>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "harness.h"

static int live;
struct base {
  base() : value(1) { ++live; }
  base(const base &other) : value(other.value) { ++live; }
  virtual ~base() { --live; }
  base &operator=(const base &other) {
    value = other.value;
    return *this;
  }
  int value;
};
struct derived : public base {};

static std::auto_ptr<derived> made() { return std::auto_ptr<derived>(new derived); }
static int value_of_sunk(std::auto_ptr<base> object) { return object->value; }
static std::auto_ptr<base> passed(std::auto_ptr<base> object) { return object; }

static void test_auto_ptr() {
  {
    std::auto_ptr<derived> first(made());
    CHECK_INT(live, 1);
    std::auto_ptr<derived> second(first);
    CHECK(first.get() == 0 && second.get() != 0);
    first = second;
    CHECK(first.get() != 0 && second.get() == 0);
    std::auto_ptr<base> general(first);
    CHECK(first.get() == 0 && general->value == 1 && (*general).value == 1);
    general = made();
    CHECK_INT(live, 1);
    general = second;
    CHECK(general.get() == 0);
    CHECK_INT(live, 0);
    std::auto_ptr<base> from_temporary(made());
    CHECK_INT(value_of_sunk(from_temporary), 1);
    CHECK(from_temporary.get() == 0);
    CHECK_INT(live, 0);
    std::auto_ptr<base> back(passed(passed(std::auto_ptr<base>(new base))));
    CHECK_INT(live, 1);
    base *const taken = back.release();
    CHECK(back.get() == 0);
    back.reset(taken);
    back.reset(taken);
    CHECK_INT(live, 1);
    back.reset();
    CHECK_INT(live, 0);
    back = std::auto_ptr<base>(new derived);
    std::auto_ptr<const base> fixed(back);
    CHECK_INT(fixed->value, 1);
    std::auto_ptr<base> &itself = general;
    general.reset(new base);
    general = itself;
    CHECK_INT(live, 2);
  }
  CHECK_INT(live, 0);
}

static void test_raw_storage() {
  std::pair<base *, std::ptrdiff_t> buffer = std::get_temporary_buffer<base>(4);
  CHECK_INT(buffer.second, 4);
  const base source[3];
  live = 0;
  std::raw_storage_iterator<base *, base> out(buffer.first);
  for (int i = 0; i < 2; ++i) *out++ = source[i];
  *out = source[2];
  CHECK_INT(live, 3);
  ++out;
  std::uninitialized_fill(buffer.first + 3, buffer.first + 4, source[0]);
  CHECK_INT(live, 4);
  for (int i = 0; i < 4; ++i) buffer.first[i].~base();
  std::return_temporary_buffer(buffer.first);
  CHECK(std::get_temporary_buffer<int>(0).first == 0 && std::get_temporary_buffer<int>(-1).second == 0);
  live = 3;  // `source` goes

  std::allocator<std::string> strings;
  std::string *const place = strings.allocate(2);
  strings.construct(place, "text");
  CHECK(*strings.address(*place) == "text");
  strings.destroy(place);
  strings.deallocate(place, 2);
  CHECK(std::allocator<int>() == std::allocator<char>() && strings.max_size() > 1000);
  bool thrown = false;
  try {
    strings.allocate(strings.max_size() + 1);
  } catch (const std::bad_alloc &) {
    thrown = true;
  }
  CHECK(thrown);

  // What makes scalars must convert as a constructor does.
  short numbers[4];
  const double reals[] = {1.5, -2.5, 3};
  std::uninitialized_copy(reals, reals + 3, numbers);
  std::uninitialized_fill_n(numbers + 3, 1, 7L);
  CHECK(numbers[1] == -2 && numbers[3] == 7);
  const char *const texts[] = {"a", "b"};
  std::string *const made_texts = strings.allocate(4);
  CHECK(std::uninitialized_copy(texts, texts + 2, made_texts) == made_texts + 2);
  std::uninitialized_fill_n(made_texts + 2, 2, "c");
  CHECK(made_texts[1] == "b" && made_texts[3] == "c");
  for (int i = 0; i < 4; ++i) strings.destroy(made_texts + i);
  strings.deallocate(made_texts, 4);
}

struct comparable {
  int value;
  bool operator==(const comparable &other) const { return value == other.value; }
  bool operator<(const comparable &other) const { return value < other.value; }
};

static void test_pairs() {
  const std::pair<int, std::string> a(1, "x"), b(1, "y"), c(std::make_pair(1, "x"));
  CHECK(a == c && a != b && a < b && b > a && a <= c && b >= a && !(b < a));
  const std::pair<int, int> zero;
  CHECK(zero.first == 0 && zero.second == 0);
  std::pair<long, double> wider(std::make_pair(short(3), 2.5f));
  wider = std::pair<char, int>('\4', 5);
  CHECK(wider.first == 4 && wider.second == 5.0);
  const comparable one = {1}, two = {2};
  using namespace std::rel_ops;
  CHECK(one != two && two > one && one <= two && two >= one);
  std::string left = "left", right = "right";
  std::swap(left, right);
  CHECK(left == "right");
}

static void test_iterators() {
  std::list<int> values;
  std::copy(values.begin(), values.end(), std::back_inserter(values));
  const int digits[] = {1, 2, 3};
  std::copy(digits, digits + 3, std::back_inserter(values));
  std::copy(digits, digits + 3, std::front_inserter(values));
  std::list<int>::iterator at = values.begin();
  std::advance(at, 3);
  std::copy(digits, digits + 3, std::inserter(values, at));
  const int want[] = {3, 2, 1, 1, 2, 3, 1, 2, 3};
  CHECK(values.size() == 9 && std::equal(values.begin(), values.end(), want));
  CHECK_INT(std::distance(values.begin(), values.end()), 9);
  std::advance(at, -5);
  CHECK_INT(*at, 2);
  // Growing while its elements are inserted one by one.
  std::vector<int> grown(1, 8);
  std::copy(digits, digits + 3, std::inserter(grown, grown.begin()));
  CHECK(grown.size() == 4 && grown[2] == 3 && grown[3] == 8);

  typedef std::reverse_iterator<const int *> reverse;
  const reverse first(want + 9), last(want);
  CHECK(*first == 3 && first[2] == 1 && last - first == 9 && first < last && last > first && first + 9 == last);
  CHECK(*(first + 1) == 2 && *(1 + first) == 2 && *(last - 1) == 3 && first != last && first <= first && last >= first);
  reverse step = first;
  CHECK(*step++ == 3 && *++step == 1 && *step-- == 1 && *--step == 3 && step.base() == want + 9);
  step += 3;
  CHECK(step - first == 3);
  step -= 3;
  CHECK(step == first);
  std::iterator_traits<const int *>::value_type value = 3;
  value = 4;
  CHECK_INT(value, 4);
}

int main() {
  test_auto_ptr();
  test_raw_storage();
  test_pairs();
  test_iterators();
  return TEST_RESULT();
}
