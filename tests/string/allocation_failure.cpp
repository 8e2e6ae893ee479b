// Every operation of a string that allocates, with each of its allocations failing: the string and those that share
// with it are as before, and nothing is leaked. With operator new replaced every block must come from it, so the
// numbers of allocations are part of what is checked.
// test-variants: -O1 | -O2 -std=gnu++17

#include "../fail_allocation.h"
#include "string_check.h"

typedef std::string string;

static const char long_text[] = "a text that is long enough to need more than the first block of a string, twice over";

// Three ways for a string to be: alone, shared, unshareable.
enum owner { alone, shared, exposed };

template <owner how> struct subject {
  string text, sharer;
  const __zor::b_str_ref *rep;
  unsigned int count;
  subject() : text("0123456789") {
    if (how == shared) sharer = text;
    if (how == exposed) text[0] = '0';
    rep = rep_of(text);
    count = rep->count;
  }
  void check_unchanged(bool failed) {
    CHECK_INT(broken_invariant(text), 0);
    CHECK_INT(broken_invariant(sharer), 0);
    if (how == shared) CHECK_TEXT(sharer.c_str(), "0123456789");
    if (!failed) return;
    CHECK_TEXT(text.c_str(), "0123456789");
    CHECK(rep_of(text) == rep && rep->count == count);
    CHECK_INT(text.capacity(), 32);
  }
};

#define CASE(name, expression)                                 \
  template <owner how> struct name : subject<how> {            \
    void run() {                                               \
      string &text = this->text;                               \
      expression;                                              \
    }                                                          \
    void check(bool failed) { this->check_unchanged(failed); } \
  }

// What is big enough needs a block however the string is owned; what is small only when it is shared.
CASE(assigning, text.assign(long_text));
CASE(assigning_little, text.assign("x"));
CASE(appending, text.append(long_text));
CASE(inserting_itself, text.insert(3, text.c_str(), 10));
CASE(pushing, text.push_back('x'));
CASE(inserting, text.insert(3, long_text));
CASE(inserting_little, text.insert(3, 1, 'x'));
CASE(erasing, text.erase(2, 3));
CASE(replacing, text.replace(2, 3, long_text));
CASE(resizing, text.resize(200, 'x'));
CASE(reserving, text.reserve(200));
CASE(clearing, text.clear());
CASE(referring, text[0] = '0');
CASE(iterating, *text.begin() = '0');
CASE(copying, const string other(text));
CASE(taking_a_part, const string other(text.substr(2, 4)));
CASE(joining, const string half(text + "-"); const string other(half + text));
CASE(copying_a_range, const string &view = text; const string other(view.rbegin(), view.rend()));
CASE(assigning_a_range, text.assign(long_text, long_text + 60));
CASE(inserting_at_an_iterator, text.insert(text.begin(), 'x'));

// A loop of steps does not roll back as a whole: the strings are sound, not unchanged.
struct growing {
  string text;
  void run() {
    for (int i = 0; i < 3000; ++i) text += 'x';
  }
  void check(bool) {
    CHECK_INT(broken_invariant(text), 0);
    CHECK_INT(text.find_first_not_of('x'), -1);
  }
};

// The number of allocations for alone, shared and unshareable.
#define CHECK_EACH(name, when_alone, when_shared, when_exposed)  \
  CHECK_INT(fail_each_allocation<name<alone> >(), when_alone);   \
  CHECK_INT(fail_each_allocation<name<shared> >(), when_shared); \
  CHECK_INT(fail_each_allocation<name<exposed> >(), when_exposed)

int main() {
  const long before = live_blocks;
  CHECK_EACH(assigning, 1, 1, 1);
  CHECK_EACH(assigning_little, 0, 1, 0);
  CHECK_EACH(appending, 1, 1, 1);
  CHECK_EACH(inserting_itself, 0, 1, 0);
  CHECK_EACH(pushing, 0, 1, 0);
  CHECK_EACH(inserting, 1, 1, 1);
  CHECK_EACH(inserting_little, 0, 1, 0);
  CHECK_EACH(erasing, 0, 1, 0);
  CHECK_EACH(replacing, 1, 1, 1);
  CHECK_EACH(resizing, 1, 1, 1);
  CHECK_EACH(reserving, 1, 1, 1);
  CHECK_EACH(clearing, 0, 0, 0);
  CHECK_EACH(referring, 0, 1, 0);
  CHECK_EACH(iterating, 0, 1, 0);
  CHECK_EACH(copying, 0, 0, 1);
  CHECK_EACH(taking_a_part, 1, 1, 1);
  CHECK_EACH(joining, 2, 2, 2);
  CHECK_EACH(copying_a_range, 1, 1, 1);
  CHECK_EACH(assigning_a_range, 1, 1, 1);
  CHECK_EACH(inserting_at_an_iterator, 0, 1, 0);
  // Growing by doubling: a handful of blocks, where steps of 32 would take a hundred.
  const int blocks = fail_each_allocation<growing>();
  CHECK(blocks > 3 && blocks < 10);
  CHECK_INT(live_blocks, before);
  return TEST_RESULT();
}
