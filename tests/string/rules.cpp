// What only this string promises: which error comes first and changes nothing, how often appending allocates, what
// shares and what is reserved. peer/operations.cpp has all that holds in any order of operations, and failed
// allocations.
// test-variants: -O1 | -O2 -std=gnu++20
#include "fail_allocation.h"

#include <stdexcept>

#include "string_check.h"

typedef std::string string;
static const string::size_type npos = string::npos;

// What an operation says when it throws, of a string that is alone, shared, or with a reference handed out; nothing may
// have changed then.
#define THROWS(error, what_text, expression)                                                        \
  for (int how = 0; how < 3; ++how) {                                                               \
    string text("0123456789"), empty, sharer(how == 1 ? text : empty);                              \
    if (how == 2) text[0] = '0';                                                                    \
    const __zor::b_str_ref *const rep = rep_of(text), before = *rep;                                \
    const char *said = "nothing";                                                                   \
    try {                                                                                           \
      (void)(expression);                                                                           \
    } catch (const error &e) { said = strcmp(e.what(), what_text) ? "else" : what_text; }           \
    CHECK_TEXT(said, what_text);                                                                    \
    CHECK(rep_of(text) == rep && memcmp(rep, &before, sizeof before) == 0 && text == "0123456789"); \
  }
#define RANGE(expression) THROWS(std::out_of_range, "Out of range exception occurred", expression)
#define LENGTH(expression) THROWS(std::length_error, "Length exception occurred", expression)
#define MEMORY(expression) THROWS(std::bad_alloc, "Allocation Failure", expression)

// Lengths; of two errors the position's comes first. Then those that no memory can hold, among them some whose capacity
// is no 32-bit number.
static void errors() {
  RANGE(text[11] = 'x');
  RANGE(const_cast<const string &>(text).at(10));
  RANGE(text.at(10) = 'x');
  RANGE(string(npos, 'a'));
  RANGE(string("abc", npos));
  RANGE(text.insert(11, npos, 'x'));
  RANGE(text.replace(11, 0, npos, 'x'));
  LENGTH(text.assign("x", npos));
  LENGTH(text.append("x", npos - 10));
  LENGTH(text.insert(0, "x", npos - 10));
  LENGTH(text.replace(1, 9, "x", npos));
  LENGTH(text.replace(0, 10, npos - 10, 'x'));
  LENGTH(__zor::_string_join("", npos - 15, "", 15));
  LENGTH(text.resize(npos));
  LENGTH(text.reserve(npos));
  MEMORY(string(npos - 1, 'x'));
  MEMORY(text.append(npos - 11, 'x'));
  MEMORY(text.reserve(0xFFFFFFE0u));
  MEMORY(empty.reserve(0x90000000u));
}

static void edges() {
  // Null pointers are empty texts, and with a count null characters; inserting nothing looks at no position, and an
  // empty text is found nowhere.
  const char *const null = 0;
  string text("abc");
  text.insert(99, "").insert(99, "x", 0).insert(99, 0, 'x').insert(99, null).replace(1, 1, null, 5).erase(2);
  CHECK(text == "ac" && (text = null).empty() && string(null, 3) == string(3, '\0') && string().max_size() == npos - 1);
  const string word("abcde");
  CHECK(word.find("") == npos && word.find("", 2) == npos && word.rfind("") == npos && word.rfind("abc", 4, 0) == npos);
  CHECK(word.find_first_not_of("", 5) == npos && string().find("") == npos && word[5] == 0 &&
        &(text = *&text) == &text);
  CHECK(std::char_traits<char>::lt('z', '\xE9') && !std::char_traits<char>::lt('\xE9', 'z'));
  // Growing by doubling; a source may include the string's own terminator, also where something stands behind it.
  const long before = allocation_calls;
  string grown, own(text = "0123456789");
  for (unsigned int n = 1; n <= 3000; ++n) grown += 'x';
  CHECK_INT(allocation_calls - before, 7);
  own.append(own).erase(10);
  own.insert(3, own.c_str() + 8, 3).insert(1, own.c_str() + own.size(), 1);
  CHECK(own == string("0") + '\0' + "1289" + '\0' + "3456789");
  CHECK(text.insert(3, text.c_str(), 11) == "0120123456789" + string(1, '\0') + "3456789");
}

static void sharing() {
  string first, text("abc");
  const unsigned int empties = count_of(first);
  {
    const string second, third = string(std::allocator<char>()), whole(text, 0, 3), less(text, 0, 2), tail(text, 1);
    CHECK(rep_of(second) == rep_of(first) && count_of(first) == empties + 2 && rep_of(string("")) != rep_of(first));
    CHECK(count_of(text) == 2 && less == "ab" && tail == "bc" && text.substr().data() == whole.data());
  }
  char &kept = text[1];
  const string part(text, 0, 9);
  kept = 'B';
  CHECK(count_of(first) == empties && part == "abc" && text == "aBc");
  for (unsigned int i = 0; i < 4; ++i) {
    static const unsigned int reserved[][2] = {{32, 32}, {40, 64}, {64, 64}, {0, 64}};
    text.reserve(reserved[i][0]);
    CHECK_INT(text.capacity(), reserved[i][1]);
  }
  string shared("shared");
  const string sharer(shared);
  for (unsigned int n = 40; n < 400; n += 21) {
    shared.reserve(n);
    CHECK(broken_invariant(shared) == 0 && shared.capacity() == n / 32 * 32 + 32 && sharer.data() == shared.data());
  }
  shared.resize(0);
  CHECK(shared.empty() && sharer == "shared");
  first.reserve(100);
  CHECK(rep_of(first) == null_rep() && string().capacity() == 128 && (first += "x").capacity() == 32);
#if __cplusplus >= 201103L
  string moved(static_cast<string &&>(text));
  text = static_cast<string &&>(moved);
  text.pop_back();
  CHECK(text + 's' == "aBs" && text.front() == 'a' && text.back() == 'B' && text.cend() - text.cbegin() == 2);
  static_assert(noexcept(string(static_cast<string &&>(moved))) && noexcept(text.find(first)), "cannot throw");
#endif
}

// 1 MB of one letter and patterns of hundreds of thousands that differ in one place: quadratic work would take minutes.
// Then a match right where a search gives up on near misses and goes on another way.
static void near_misses() {
  alarm(60);
  const string text(1000000, 'a'), rest = string(2500, 'a') + 'c' + string(2499, 'a');
  string waves;
  while (waves.size() < 1000000) waves += '-' + string(63, 'a');
  CHECK(waves.find(waves.substr(0, 300000) + "b") == npos);
  for (unsigned int i = 0; i < 3; ++i) {
    string what(200000, 'a');
    what[i * 99999] = 'b';
    CHECK(text.find(what) == npos && (text + what + text).find(what) == 1000000);
  }
  for (unsigned int before = 0; before < 12000; before += before < 80 ? 1 : 7) {
    if (before < 80) CHECK_INT((string(before, 'a') + rest).find(rest), before);
    CHECK_INT((string(before, 'a') + "aba" + string(300, 'x')).find("aba"), before);
  }
}

int main() {
  const long before = live_blocks;
  errors();
  edges();
  sharing();
  near_misses();
  CHECK_INT(live_blocks, before);
  return TEST_RESULT();
}
