// The six searches against plain loops: small alphabets so that near misses are frequent, texts long enough for every
// wide path and at every alignment, patterns that make clumsy searches quadratic, and the empty pattern.
// test-variants: -O1 | -O2 -std=gnu++17

#include <time.h>

#include <string>

#include "../harness.h"

typedef std::string string;
typedef string::size_type size;

static unsigned int state = 7;
static unsigned int random_below(unsigned int limit) {
  state = state * 1664525u + 1013904223u;
  return (state >> 8) % limit;
}

struct naive {
  static bool in(const string &set, char c) {
    for (size i = 0; i < set.size(); ++i)
      if (set[i] == c) return true;
    return false;
  }
  static size find(const string &text, const string &what, size pos) {
    if (what.empty()) return string::npos;
    for (; pos <= text.size() && what.size() <= text.size() - pos; ++pos)
      if (memcmp(text.data() + pos, what.data(), what.size()) == 0) return pos;
    return string::npos;
  }
  static size rfind(const string &text, const string &what, size pos) {
    size found = string::npos;
    for (size at = 0; (at = find(text, what, at)) != string::npos && at <= pos; ++at) found = at;
    return found;
  }
  static size first(const string &text, const string &set, size pos, bool want) {
    for (; pos < text.size(); ++pos)
      if (in(set, text[pos]) == want) return pos;
    return string::npos;
  }
  static size last(const string &text, const string &set, size pos, bool want) {
    size found = string::npos;
    for (size i = 0; i < text.size() && i <= pos; ++i)
      if (in(set, text[i]) == want) found = i;
    return found;
  }
};

static void agree(const string &text, const string &what, size pos) {
  const size got[] = {text.find(what, pos),
                      text.rfind(what, pos),
                      text.find_first_of(what, pos),
                      text.find_last_of(what, pos),
                      text.find_first_not_of(what, pos),
                      text.find_last_not_of(what, pos)};
  const size want[] = {naive::find(text, what, pos),         naive::rfind(text, what, pos),
                       naive::first(text, what, pos, true),  naive::last(text, what, pos, true),
                       naive::first(text, what, pos, false), naive::last(text, what, pos, false)};
  static const char *const names[] = {
      "find", "rfind", "find_first_of", "find_last_of", "find_first_not_of", "find_last_not_of"};
  for (int i = 0; i < 6; ++i) {
    if (got[i] == want[i]) continue;
    fprintf(stderr, "%s(\"%s\", %u) in %u characters: ", names[i], what.c_str(), pos, text.size());
    CHECK_INT(got[i], want[i]);
  }
}

static string random_text(size n, unsigned int alphabet, char base) {
  string made;
  for (size i = 0; i < n; ++i) made += static_cast<char>(base + static_cast<int>(random_below(alphabet)));
  return made;
}

static void random_searches() {
  for (int run = 0; run < 6000; ++run) {
    const unsigned int alphabet = run % 3 == 0 ? 2 : run % 3 == 1 ? 4 : 200;
    const char base = run % 2 ? 'a' : static_cast<char>(0xC0);
    const size length = random_below(run % 8 == 0 ? 600 : 70);
    const string whole = random_text(length, alphabet, base);
    const string text(whole, random_below(static_cast<unsigned int>(length) + 1));
    string what = random_text(random_below(run % 5 == 0 ? 40 : 6), alphabet, base);
    if (random_below(2) && !text.empty()) what = text.substr(random_below(text.size()), random_below(40));
    if (what.size() > 1 && random_below(2)) what[random_below(what.size())] = base;
    agree(text, what, random_below(4) ? random_below(text.size() + 3) : string::npos);
    agree(text, what, 0);
  }
  CHECK_INT(test_failures, 0);
}

// One match at every place of a text, with every pattern length: where wide steps begin and end.
static void a_match_everywhere() {
  for (size length = 1; length < 140; length += length < 70 ? 1 : 13) {
    for (size n = 1; n <= length && n < 40; n += n < 6 ? 1 : 7) {
      for (size at = 0; at + n <= length; ++at) {
        string text(length, '.');
        string what(n, '#');
        text.replace(at, n, what);
        if (text.find(what) != at || text.rfind(what) != at) CHECK_INT(text.find(what), at);
        if (text.find_first_of("?#!*+") != at || text.find_last_of("?#!*+") != at + n - 1) CHECK(!"first_of, last_of");
        if (text.find_first_not_of(".,;:-") != at || text.find_last_not_of(".,;:-") != at + n - 1)
          CHECK(!"first_not_of, last_not_of");
        what[n / 2] = '%';
        if (text.find(what) != string::npos || text.rfind(what) != string::npos) CHECK(!"near miss");
      }
    }
  }
  CHECK_INT(test_failures, 0);
}

// Sets of every size, of all 256 characters, and characters that differ in one bit only.
static void every_character() {
  for (int c = 0; c < 256; ++c) {
    const string text(37, static_cast<char>(c));
    string others;
    for (int o = 0; o < 256; ++o)
      if (o != c) others += static_cast<char>(o);
    string one_bit;
    for (int bit = 1; bit < 256; bit *= 2) one_bit += static_cast<char>(c ^ bit);
    if (text.find_first_of(others) != string::npos || text.find_first_not_of(others) != 0) CHECK_INT(c, -1);
    if (text.find_first_of(one_bit) != string::npos || text.find_last_not_of(one_bit) != 36) CHECK_INT(c, -2);
    const string all = others + static_cast<char>(c);
    if (text.find_first_of(all) != 0 || text.find_first_not_of(all) != string::npos) CHECK_INT(c, -3);
    if (text.find(static_cast<char>(c), 5) != 5 || text.rfind(static_cast<char>(c), 5) != 5) CHECK_INT(c, -4);
  }
  const string with_null("ab\0cd\0", 6);
  CHECK_INT(with_null.find('\0'), 2);
  CHECK_INT(with_null.find(string("\0c", 2)), 2);
  CHECK_INT(with_null.find_last_of(string("\0", 1)), 5);
  CHECK_INT(with_null.find("cd"), 3);
  CHECK(with_null.find_first_of("") == string::npos);
}

// An empty pattern is never found, and an empty set holds no character.
static void empty_patterns() {
  const string text("abcde"), nothing;
  CHECK(text.find("") == string::npos && text.find("", 2) == string::npos && text.find(nothing, 9) == string::npos);
  CHECK(text.rfind("") == string::npos && text.rfind(nothing, 2) == string::npos);
  CHECK(nothing.find("") == string::npos && nothing.rfind("") == string::npos);
  CHECK(text.find_first_of("") == string::npos && text.find_last_of("") == string::npos);
  CHECK_INT(text.find_first_not_of("", 3), 3);
  CHECK_INT(text.find_last_not_of("", 3), 3);
  CHECK_INT(text.find_last_not_of(""), 4);
  CHECK(text.find_first_not_of("", 5) == string::npos);
  CHECK(nothing.find_first_not_of("") == string::npos && nothing.find_last_not_of("") == string::npos);
  CHECK(text.find("abc", 0, 0) == string::npos && text.rfind("abc", 4, 0) == string::npos);
  CHECK_INT(text.find("cde!", 0, 3), 2);
  CHECK(text.find("cde!") == string::npos && text.find("e", 5) == string::npos && text.find("e", 99) == string::npos);
  CHECK_INT(text.rfind("ab"), 0);
  CHECK_INT(text.rfind("de", 99), 3);
}

// What makes comparing at every place quadratic must stay far from it: 1 MB of one letter, and a pattern of half a
// million that differs in its middle or at an end. Quadratic work would take minutes.
static void patterns_that_nearly_match() {
  const string text(1000000, 'a');
  const size n = 200000;
  const clock_t start = clock();
  const size odd_places[] = {0, n / 2, n - 1};
  for (int i = 0; i < 3; ++i) {
    string what(n, 'a');
    what[odd_places[i]] = 'b';
    CHECK(text.find(what) == string::npos);
  }
  CHECK(text.find(string(n, 'a')) == 0);
  string halves = string(500000, 'a') + 'b' + string(499999, 'a');
  CHECK_INT(halves.find(string(1000, 'a') + 'b'), 499000);
  CHECK_INT(halves.find('b' + string(1000, 'a')), 500000);
  string waves;
  while (waves.size() < 1000000) waves += '-' + string(63, 'a');
  CHECK(waves.find(waves.substr(0, 300000) + "b") == string::npos);
  CHECK((clock() - start) / CLOCKS_PER_SEC < 20);
}

// A match right where a search gives up on near misses and goes on another way.
static void a_match_after_near_misses() {
  const string what = string(2500, 'a') + 'c' + string(2499, 'a');
  for (size before = 0; before < 80; ++before) CHECK_INT((string(before, 'a') + what).find(what), before);
}

// The null character after a text is no part of it, and neither is what lies behind.
static void nothing_beyond_the_end() {
  for (size length = 1; length < 100; ++length) {
    string text(length, 'a');
    text.reserve(length + 1);
    CHECK(text.find(string("a\0", 2)) == string::npos);
    CHECK(text.rfind(string("a\0", 2)) == string::npos);
    CHECK(text.find_first_of(string("\0", 1)) == string::npos);
    text += 'b';
    text.erase(length);
    CHECK(text.find("ab") == string::npos);
  }
}

int main() {
  random_searches();
  a_match_after_near_misses();
  nothing_beyond_the_end();
  a_match_everywhere();
  every_character();
  empty_patterns();
  patterns_that_nearly_match();
  return TEST_RESULT();
}
