// Who shares what, and when: counts, copies, references into the characters, and the capacities that follow from
// lengths alone.
// test-variants: -O0 | -O2 | -O2 -std=gnu++17

#include "string_check.h"

typedef std::string string;

static void empty_strings_share_one() {
  const string first;
  const unsigned int before = count_of(first);
  {
    string second, third;
    CHECK(rep_of(second) == rep_of(first) && rep_of(third) == rep_of(first));
    CHECK_INT(count_of(first), before + 2);
    CHECK_INT(second.capacity(), 32);
  }
  CHECK_INT(count_of(first), before);
  string text("abc");
  const string other(text);
  text.clear();
  CHECK(rep_of(text) == rep_of(first));
  CHECK_STRING(other, "abc");
  CHECK_INT(count_of(other), 1);

  string alone("abc");
  __zor::b_str_ref *rep = rep_of(alone);
  alone.clear();
  CHECK(rep_of(alone) == rep);
  CHECK_STRING(alone, "");

  CHECK(rep_of(string("")) != rep_of(first));
  CHECK_INT(count_of(string("")), 1);
}

static void copies_share() {
  const string source("shared text");
  {
    const string copied(source);
    string assigned;
    assigned = source;
    const string part(source, 0, 99), all(source.substr());
    CHECK_INT(count_of(source), 5);
    CHECK(rep_of(copied) == rep_of(part) && rep_of(all) == rep_of(assigned));
    const string &same = assigned;
    assigned = same;
    CHECK_INT(count_of(source), 5);
    assigned = "other";
    CHECK_INT(count_of(source), 4);
  }
  CHECK_INT(count_of(source), 1);
  const string part(source, 0, 10), tail(source, 1);
  CHECK_INT(count_of(source), 1);
  CHECK_STRING(part, "shared tex");
  CHECK_STRING(tail, "hared text");
}

static void references_end_sharing() {
  string a("abcdef");
  string b(a);
  b[0] = 'X';
  CHECK_STRING(a, "abcdef");
  CHECK_STRING(b, "Xbcdef");
  CHECK_INT(count_of(a), 1);
  CHECK(count_of(b) == unshareable);

  char &kept = b[1];
  const string c(b), d(b, 0, 100);
  string e;
  e = b;
  kept = 'Y';
  CHECK_STRING(b, "XYcdef");
  CHECK_STRING(c, "Xbcdef");
  CHECK_STRING(d, "Xbcdef");
  CHECK_STRING(e, "Xbcdef");
  CHECK_INT(count_of(c), 1);

  b.append("g");
  CHECK_INT(count_of(b), 1);
  const string f(b);
  CHECK(rep_of(f) == rep_of(b));

  CHECK(a[6] == 0);
  CHECK(count_of(a) == unshareable);

  string empty;
  CHECK(empty[0] == 0);
  CHECK(rep_of(empty) != null_rep());
  CHECK(count_of(empty) == unshareable);
  CHECK_INT(broken_invariant(empty), 0);
}

static void what_only_reads_keeps_sharing() {
  string a("abc");
  const string b(a);
  const string &view = a;
  CHECK(view[1] == 'b' && view.at(2) == 'c' && *view.begin() == 'a' && *view.rbegin() == 'c');
  CHECK(a.c_str() == b.data() && a.find('c') == 2 && a == b && view[3] == 0);
  CHECK_INT(count_of(a), 2);
  CHECK(*a.begin() == 'a');
  CHECK(count_of(a) == unshareable && count_of(b) == 1);
  string c(b);
  CHECK(c.at(0) == 'a');
  CHECK(count_of(c) == unshareable && count_of(b) == 1);
  string d(b);
  *d.rbegin() = 'x';
  CHECK_STRING(d, "abx");
  CHECK_STRING(b, "abc");
}

static void every_modifier_makes_shareable_again() {
  struct modifier {
    void (*run)(string &);
    const char *want;
  };
  struct all {
    static void assign(string &s) { s.assign("xy", 2); }
    static void assign_text(string &s) { s = "xy"; }
    static void assign_character(string &s) { s = 'x'; }
    static void append(string &s) { s.append("xy", 2); }
    static void append_nothing(string &s) { s.append("", 0); }
    static void push_back(string &s) { s.push_back('x'); }
    static void insert(string &s) { s.insert(1, "xy", 2); }
    static void erase(string &s) { s.erase(1, 1); }
    static void replace(string &s) { s.replace(1, 1, "xy", 2); }
    static void resize(string &s) { s.resize(1, 'x'); }
    static void clear(string &s) { s.clear(); }
  };
  const modifier modifiers[] = {{all::assign, "xy"},
                                {all::assign_text, "xy"},
                                {all::assign_character, "x"},
                                {all::append, "abcxy"},
                                {all::append_nothing, "abc"},
                                {all::push_back, "abcx"},
                                {all::insert, "axybc"},
                                {all::erase, "ac"},
                                {all::replace, "axyc"},
                                {all::resize, "a"},
                                {all::clear, ""}};
  for (unsigned int i = 0; i < sizeof modifiers / sizeof modifiers[0]; ++i) {
    string exposed("abc");
    exposed[0] = 'a';
    modifiers[i].run(exposed);
    CHECK_STRING(exposed, modifiers[i].want);
    CHECK_INT(count_of(exposed), 1);

    string shared("abc");
    const string other(shared);
    modifiers[i].run(shared);
    CHECK_STRING(shared, modifiers[i].want);
    CHECK_STRING(other, "abc");
    CHECK_INT(count_of(other), 1);
  }
}

static void what_changes_nothing_leaves_the_mark() {
  string a("abc");
  a[0] = 'a';
  a.insert(99, "");
  a.erase(3);
  a.resize(3);
  a.reserve(100);
  CHECK(count_of(a) == unshareable);
  string b(10, 'x');
  const string c(b);
  b.resize(10);
  b.erase(10, 5);
  b.insert(0, 0, 'x');
  CHECK(rep_of(b) == rep_of(c));
}

static void capacities_follow_the_size_rule() {
  CHECK_INT(string(31, 'x').capacity(), 32);
  CHECK_INT(string(32, 'x').capacity(), 64);
  CHECK_INT(string("x").capacity(), 32);
  string text("abc");
  text.reserve(32);
  CHECK_INT(text.capacity(), 32);
  text.reserve(40);
  CHECK_INT(text.capacity(), 64);
  text.reserve(64);
  CHECK_INT(text.capacity(), 64);
  text.reserve(65);
  CHECK_INT(text.capacity(), 96);
  text.reserve();
  CHECK_INT(text.capacity(), 96);

  // In place the capacity stays, inserting sets it anew, and a copy made by erasing keeps it.
  text = "abcdef";
  CHECK_INT(text.capacity(), 96);
  const string other(text);
  string erased(text);
  erased.erase(1, 2);
  CHECK_INT(erased.capacity(), 96);
  CHECK_STRING(erased, "adef");
  string inserted(other);
  inserted.insert(0, "x");
  CHECK_INT(inserted.capacity(), 32);
  erased.insert(0, "x");
  CHECK_INT(erased.capacity(), 32);

  string full(31, 'x');
  full.resize(32, 'y');
  CHECK_INT(full.capacity(), 32);
  CHECK_INT(broken_invariant(full), 0);
  full.push_back('z');
  CHECK_INT(full.capacity(), 64);
  CHECK_STRING(full, "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxyz");

  // The capacity counts what was asked for, however much room a growing string keeps.
  string grown;
  for (unsigned int n = 1; n <= 5000; ++n) {
    grown += 'x';
    if (grown.capacity() != (n & ~31u) + 32) CHECK_INT(grown.capacity(), (n & ~31u) + 32);
    if (int broken = broken_invariant(grown)) CHECK_INT(broken, 0);
  }
}

static void reserving_is_for_all_that_share() {
  string a("abc");
  const string b(a), c(a);
  a.reserve(5000);
  CHECK(rep_of(a) == rep_of(b) && rep_of(b) == rep_of(c));
  CHECK_INT(b.capacity(), 5024);
  CHECK_INT(count_of(c), 3);
  CHECK_STRING(c, "abc");
  string d(b);
  d.reserve(20000);
  CHECK_INT(b.capacity(), 20032);
  CHECK_STRING(b, "abc");
  a.append("d");
  CHECK_STRING(a, "abcd");
  CHECK_INT(a.capacity(), 32);

  // A block on its own is given back with its representation, whoever goes last.
  string *last = new string("shared");
  {
    string other(*last);
    other.reserve(100);
  }
  last->reserve(200);
  last->append(1000, 'x');
  CHECK_INT(last->size(), 1006);
  CHECK_INT(broken_invariant(*last), 0);
  delete last;

  string empty;
  empty.reserve(100);
  CHECK(rep_of(empty) == null_rep());
  CHECK_INT(string().capacity(), 128);
  empty += "x";
  CHECK_STRING(empty, "x");
  CHECK_INT(empty.capacity(), 32);
}

int main() {
  empty_strings_share_one();
  copies_share();
  references_end_sharing();
  what_only_reads_keeps_sharing();
  every_modifier_makes_shareable_again();
  what_changes_nothing_leaves_the_mark();
  capacities_follow_the_size_rule();
  reserving_is_for_all_that_share();
  return TEST_RESULT();
}
