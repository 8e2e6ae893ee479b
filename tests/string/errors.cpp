// Misuse: which error, with which text, in which order the checks come, and that nothing was changed.
// test-variants: -O0 | -O2

#include <new>
#include <stdexcept>

#include "string_check.h"

typedef std::string string;

static const string::size_type npos = string::npos;
static const char range_text[] = "Out of range exception occurred";
static const char length_text[] = "Length exception occurred";

// Runs an expression that must throw, on `text` = "abc", alone, shared or unshareable; nothing may have changed.
#define CHECK_THROWS(error, error_text, expression)      \
  do {                                                   \
    for (int how = 0; how < 3; ++how) {                  \
      string text("abc");                                \
      string sharer;                                     \
      if (how == 1) sharer = text;                       \
      if (how == 2) text[0] = 'a';                       \
      const __zor::b_str_ref *rep = rep_of(text);        \
      const unsigned int count = rep->count;             \
      bool caught = false;                               \
      try {                                              \
        (void)(expression);                              \
      } catch (const error &e) {                         \
        caught = true;                                   \
        CHECK_TEXT(e.what(), error_text);                \
      }                                                  \
      CHECK(caught);                                     \
      CHECK(rep_of(text) == rep && rep->count == count); \
      CHECK_STRING(text, "abc");                         \
      CHECK_INT(text.capacity(), 32);                    \
    }                                                    \
  } while (0)

#define CHECK_RANGE(expression) CHECK_THROWS(std::out_of_range, range_text, expression)
#define CHECK_LENGTH(expression) CHECK_THROWS(std::length_error, length_text, expression)
#define CHECK_MEMORY(expression) CHECK_THROWS(std::bad_alloc, "Allocation Failure", expression)

static void positions() {
  char buffer[8];
  CHECK_RANGE(string(text, 4));
  CHECK_RANGE(text.substr(4, 1));
  CHECK_RANGE(text[4] = 'x');
  CHECK_RANGE(text.at(3) = 'x');
  CHECK_RANGE(static_cast<const string &>(text).at(3));
  CHECK_RANGE(text.insert(4, "x"));
  CHECK_RANGE(text.insert(4, 1, 'x'));
  CHECK_RANGE(text.insert(0, text, 4, 1));
  CHECK_RANGE(text.erase(4));
  CHECK_RANGE(text.erase(4, 0));
  CHECK_RANGE(text.replace(4, 0, "x"));
  CHECK_RANGE(text.replace(4, 0, ""));
  CHECK_RANGE(text.replace(4, 1, 1, 'x'));
  CHECK_RANGE(text.append(text, 4, 1));
  CHECK_RANGE(text.assign(text, 4, 1));
  CHECK_RANGE(text.copy(buffer, 1, 4));
  CHECK_RANGE(text.compare(4, 1, "x"));
  CHECK_RANGE(text.compare(0, 1, text, 4, 1));

  // Inserting nothing looks at no position.
  string text("abc");
  text.insert(99, "").insert(99, "x", 0).insert(99, 0, 'x').insert(99, static_cast<const char *>(0));
  CHECK_STRING(text, "abc");
}

static void lengths() {
  CHECK_RANGE(string(npos, 'a'));
  CHECK_RANGE(string("abc", npos));
  CHECK_LENGTH(text.assign("x", npos));
  CHECK_LENGTH(text.assign(npos, 'x'));
  CHECK_LENGTH(text.append("x", npos - 3));
  CHECK_LENGTH(text.append(npos, 'x'));
  CHECK_LENGTH(text.insert(0, "x", npos - 3));
  CHECK_LENGTH(text.insert(0, npos, 'x'));
  CHECK_RANGE(text.insert(9, npos, 'x'));
  CHECK_LENGTH(text.replace(1, 1, "x", npos));
  CHECK_LENGTH(text.replace(0, 0, npos - 3, 'x'));
  CHECK_RANGE(text.replace(9, 0, npos, 'x'));
  CHECK_LENGTH(text.resize(npos));
  CHECK_LENGTH(text.reserve(npos));
}

// Lengths that are allowed but that no memory can hold, among them those whose capacity is no 32-bit number.
static void more_than_memory() {
  const string::size_type most = string().max_size();
  CHECK_INT(most, 0xFFFFFFFEu);
  CHECK_MEMORY(string(most, 'x'));
  CHECK_MEMORY(string(0x80000000u, 'x'));
  CHECK_MEMORY(text.assign(most, 'x'));
  CHECK_MEMORY(text.append(npos - 4, 'x'));
  CHECK_MEMORY(text.insert(1, npos - 4, 'x'));
  CHECK_MEMORY(text.replace(1, 1, npos - 4, 'x'));
  CHECK_MEMORY(text.resize(most, 'x'));
  CHECK_MEMORY(text.reserve(0xFFFFFFE0u));
  CHECK_MEMORY(text.reserve(0x90000000u));
  bool caught = false;
  string empty;
  try {
    empty.reserve(most);
  } catch (const std::bad_alloc &) {
    caught = true;
  }
  CHECK(caught);
  CHECK_INT(broken_invariant(empty), 0);
}

static void null_pointers_are_empty() {
  const char *null = 0;
  CHECK_STRING(string(null), "");
  CHECK_INT(string(null, 3).size(), 3);
  string text("abc");
  CHECK_STRING(text.replace(1, 1, null, 0), "ac");
  text = null;
  CHECK_STRING(text, "");
}

int main() {
  positions();
  lengths();
  more_than_memory();
  null_pointers_are_empty();
  return TEST_RESULT();
}
