// Searches where the rules are this library's own, for the empty pattern; patterns that make clumsy searches quadratic,
// and nothing read beyond the end.
// test-variants: -O1
#include <string>

#include "harness.h"

typedef std::string string;
typedef string::size_type size;

static void empty_patterns() {
  const string text("abcde"), nothing;
  const size npos = string::npos;
  CHECK(text.find("") == npos && text.find("", 2) == npos && text.find(nothing, 9) == npos && nothing.find("") == npos);
  CHECK(text.rfind("") == npos && text.rfind(nothing, 2) == npos && nothing.rfind("") == npos);
  CHECK(text.find("abc", 0, 0) == npos && text.rfind("abc", 4, 0) == npos);
  CHECK(text.find_first_of("") == npos && text.find_last_of("") == npos && text.find_first_not_of("", 5) == npos);
  CHECK(text.find_first_not_of("", 3) == 3 && text.find_last_not_of("", 3) == 3 && text.find_last_not_of("") == 4);
  CHECK(nothing.find_first_not_of("") == npos && nothing.find_last_not_of("") == npos);
  const std::basic_string<char, std::char_traits<char> > zeros("ab\0cd\0", 6);
  CHECK(zeros.find('\0') == 2 && zeros.find(string("\0c", 2)) == 2 && zeros.find_last_of(string("\0", 1)) == 5);
}

// 1 MB of one letter, and patterns of hundreds of thousands that differ in one place: quadratic work would take
// minutes.
static void patterns_that_nearly_match() {
  alarm(60);
  const string text(1000000, 'a');
  const size n = 200000, odd_places[] = {0, n / 2, n - 1};
  for (int i = 0; i < 3; ++i) {
    string what(n, 'a');
    what[odd_places[i]] = 'b';
    CHECK(text.find(what) == string::npos);
  }
  CHECK(text.find(string(n, 'a')) == 0);
  const string halves = string(500000, 'a') + 'b' + string(499999, 'a');
  CHECK_INT(halves.find(string(1000, 'a') + 'b'), 499000);
  CHECK_INT(halves.find('b' + string(1000, 'a')), 500000);
  string waves;
  while (waves.size() < 1000000) waves += '-' + string(63, 'a');
  CHECK(waves.find(waves.substr(0, 300000) + "b") == string::npos);
  // A match right where a search gives up on near misses and goes on another way.
  const string what = string(2500, 'a') + 'c' + string(2499, 'a');
  for (size before = 0; before < 80; ++before) CHECK_INT((string(before, 'a') + what).find(what), before);
  for (size misses = 0; misses < 12000; misses += 7)
    CHECK_INT((string(misses, 'a') + "aba" + string(300, 'x')).find("aba"), misses);
}

// The null character after a text is no part of it, and neither is what lies behind.
static void nothing_beyond_the_end() {
  for (size length = 1; length < 100; ++length) {
    string text(length, 'a');
    text.reserve(length + 1);
    CHECK(text.find(string("a\0", 2)) == string::npos && text.rfind(string("a\0", 2)) == string::npos);
    CHECK(text.find_first_of(string("\0", 1)) == string::npos && text.find('\0') == string::npos);
    text += 'b';
    text.erase(length);
    CHECK(text.find("ab") == string::npos && text.find('b') == string::npos);
  }
}

int main() {
  empty_patterns();
  nothing_beyond_the_end();
  patterns_that_nearly_match();
  return TEST_RESULT();
}
