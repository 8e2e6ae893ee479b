// What only this string promises: who shares what and when, capacities, which error comes first and changes nothing,
// and that each failed allocation of an operation changes nothing either. With operator new replaced every block comes
// from it, so the numbers of allocations are part of what is checked.
// test-variants: -O1 | -O2 -std=gnu++20
#include "fail_allocation.h"

#include <stdexcept>

#include "string_check.h"

typedef std::string string;
static const string::size_type npos = string::npos;

// Three ways for "0123456789" to be: alone, shared, with a reference handed out.
enum owner { alone, shared, exposed };
struct subject {
  string text, sharer;
  const __zor::b_str_ref *rep;
  unsigned int count;
  explicit subject(int how) : text("0123456789") {
    if (how == shared) sharer = text;
    if (how == exposed) text[0] = '0';
    rep = rep_of(text);
    count = rep->count;
  }
  bool unchanged() const {
    return rep_of(text) == rep && rep->count == count && text == "0123456789" && text.capacity() == 32 &&
           broken_invariant(text) == 0;
  }
};

// An operation with each of its allocations failing, for each owner: it takes so many ("011"), and leaves a text
// (changed, by itself), or the old one.
static void tried(void (*run)(string &), const char *allocations, bool changes, const char *name) {
  for (int how = 0; how < 3; ++how)
    for (int n = 0, failed = 1; failed; ++n) {
      const long before = live_blocks;
      {
        subject s(how);
        allocation_to_fail = n + 1;
        try {
          run(s.text);
          failed = 0;
        } catch (const std::bad_alloc &) {}
        allocation_to_fail = 0;
        bool good = (failed ? s.unchanged() : n == allocations[how] - '0') && broken_invariant(s.text) == 0;
        // Whoever shared has its own again, and the mark of references is gone.
        if (!failed && changes) good &= count_of(s.text) == 1 || rep_of(s.text) == null_rep();
        if (!failed && !changes) good &= s.text == "0123456789" && (how != exposed || count_of(s.text) == unshareable);
        if (how == shared) good &= s.sharer == "0123456789" && (failed || !changes || count_of(s.sharer) == 1);
        if (!good) fprintf(stderr, "%s, owner %d, allocation %d\n", name, how, n);
        CHECK(good);
      }
      CHECK_INT(live_blocks, before);
    }
}
#define TRY(allocations, changes, statement)             \
  do {                                                   \
    struct local {                                       \
      static void run(string &text) { statement; }       \
    };                                                   \
    tried(local::run, allocations, changes, #statement); \
  } while (0)

static void failures() {
  static const char large[] = "a text that is long enough to need more than the first block of a string, twice over";
  TRY("111", true, text.assign(large));
  TRY("010", true, text.assign("x"));
  TRY("111", true, text.append(large));
  TRY("010", true, text.insert(3, text.c_str(), 11));  // with its terminator
  TRY("010", true, text.push_back('x'));
  TRY("010", true, text.erase(2, 3));
  TRY("111", true, text.replace(2, 3, large));
  TRY("111", true, text.resize(200, 'x'));
  TRY("000", true, text.clear());
  TRY("010", true, text.append("", 0));
  TRY("111", false, text.reserve(200));
  TRY("001", false, string(text).size());
  TRY("222", false, (text + "-", '-' + text));
  TRY("000", false, text.insert(99, "").erase(10).replace(3, 0, "").resize(10));
  TRY("000", false, CHECK(const_cast<const string &>(text)[10] == 0 && text.find('3') == 3));
  TRY("000", false, text = *&text);
  // Growing by doubling.
  const long before = allocation_calls;
  string grown, own("0123456789");
  for (unsigned int n = 1; n <= 3000; ++n) grown += 'x';
  CHECK_INT(allocation_calls - before, 8);
  own.append(own).erase(10);  // something stands behind
  own.insert(3, own.c_str() + 8, 3).insert(1, own.c_str() + own.size(), 1);
  CHECK(own == string("0\00012"
                      "89\0003456789",
                      14));
}

#define THROWS(error, what_text, expression)                   \
  for (int how = 0; how < 3; ++how) {                          \
    subject s(how);                                            \
    string &text = s.text, empty;                              \
    const char *said = "nothing";                              \
    try {                                                      \
      (void)(expression), (void)text;                          \
    } catch (const error &e) {                                 \
      said = strcmp(e.what(), what_text) ? "else" : what_text; \
    }                                                          \
    CHECK_TEXT(said, what_text);                               \
    CHECK(s.unchanged());                                      \
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
  LENGTH(__zor::string_join("", npos - 15, "", 15));
  LENGTH(text.resize(npos));
  LENGTH(text.reserve(npos));
  MEMORY(string(npos - 1, 'x'));
  MEMORY(text.append(npos - 11, 'x'));
  MEMORY(text.reserve(0xFFFFFFE0u));
  MEMORY(empty.reserve(0x90000000u));
  // Null pointers are empty texts, and with a count null characters; inserting nothing looks at no position.
  const char *const null = 0;
  string text("abc");
  text.insert(99, "").insert(99, "x", 0).insert(99, 0, 'x').insert(99, null).replace(1, 1, null, 5);
  CHECK(text == "ac" && (text = null).empty() && string(null, 3) == string(3, '\0') && string().max_size() == npos - 1);
  CHECK(std::char_traits<char>::lt('z', '\xE9') && !std::char_traits<char>::lt('\xE9', 'z'));
}

static void sharing() {
  string first, text("abc");
  const unsigned int empties = count_of(first);
  {
    const string second, third = string(std::allocator<char>()), whole(text, 0, 3), less(text, 0, 2), tail(text, 1);
    CHECK(rep_of(second) == rep_of(first) && count_of(first) == empties + 2 && rep_of(string("")) != rep_of(first));
    CHECK(count_of(text) == 2 && less == "ab" && tail == "bc" && text.substr().data() == whole.data());
  }
  CHECK_INT(count_of(first), empties);
  char &kept = text[1];
  const string copied(text), part(text, 0, 9);
  kept = 'B';
  CHECK(copied == "abc" && part == "abc" && text == "aBc");
  for (unsigned int i = 0; i < 4; ++i) {
    static const unsigned int reserved[][2] = {{32, 32}, {40, 64}, {64, 64}, {0, 64}};
    text.reserve(reserved[i][0]);
    CHECK_INT(text.capacity(), reserved[i][1]);
  }
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

// Empty patterns, and null characters.
static void empty_patterns() {
  const string text("abcde"), zeros("ab\0cd\0", 6);
  const unsigned int found[] = {text.find(""),
                                text.find("", 2),
                                text.rfind(""),
                                text.rfind("abc", 4, 0),
                                string().find(""),
                                text.find_first_of(""),
                                text.find_last_of(""),
                                text.find_first_not_of("", 5),
                                text.find_first_not_of("", 3),
                                text.find_last_not_of("", 3),
                                text.find_last_not_of(""),
                                zeros.find('\0'),
                                text.find('\0'),
                                zeros.find(string("\0c", 2)),
                                zeros.find_last_of(string("\0", 1))};
  static const unsigned int want[] = {npos, npos, npos, npos, npos, npos, npos, npos, 3, 3, 4, 2, npos, 2, 5};
  for (unsigned int i = 0; i < 15; ++i) CHECK_INT(found[i], want[i]);
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
  failures();
  errors();
  sharing();
  empty_patterns();
  near_misses();
  CHECK_INT(live_blocks, before);
  return TEST_RESULT();
}
