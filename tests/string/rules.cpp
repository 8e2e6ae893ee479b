// What only this string promises: who shares what and when, capacities, which error comes first and changes nothing,
// and that each failed allocation of an operation changes nothing either. With operator new replaced every block comes
// from it, so the numbers of allocations are part of what is checked.
// test-variants: -O1 | -O2 -std=gnu++20
#include "fail_allocation.h"

#include <new>
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

// ---- Operations, with the number of allocations for each owner and what they leave

static const char large[] = "a text that is long enough to need more than the first block of a string, twice over";

static void operate(int which, string &text) {
  const string &view = text;
  switch (which) {
    case 0: text.assign(large); break;
    case 1: text.assign("x"); break;
    case 2: text.append(large); break;
    case 3: text.insert(3, text.c_str(), 10); break;
    case 4: text.push_back('x'); break;
    case 5: text.insert(3, large); break;
    case 6: text.insert(3, 1, 'x'); break;
    case 7: text.erase(2, 3); break;
    case 8: text.replace(2, 3, large); break;
    case 9: text.resize(200, 'x'); break;
    case 10: text.clear(); break;
    case 11: text = 'x'; break;
    case 12: text.insert(text.begin(), 'x'); break;
    case 13: text.assign(large, large + 60); break;
    case 14: text.append("", 0); break;
    // What leaves no change, or only reads.
    case 15: text.reserve(200); break;
    case 16: text[0] = '0'; break;
    case 17: *text.begin() = '0'; break;
    case 18: string(text).size(); break;
    case 19: text.substr(2, 4); break;
    case 20: text + "-", '-' + text; break;
    case 21: string(view.rbegin(), view.rend()).size(); break;
    case 22: text.insert(99, "").erase(10).replace(3, 0, "").resize(10); break;
    case 23: CHECK(view[10] == 0 && view.at(9) == '9' && *view.begin() == '0' && view.find('3') == 3); break;
    case 24: text = text; break;
  }
}
static const struct {
  int allocations[3];
  const char *want;  // null: unchanged
} operations[] = {{{1, 1, 1}, large},
                  {{0, 1, 0}, "x"},
                  {{1, 1, 1}, ""},
                  {{0, 1, 0}, "01201234567893456789"},
                  {{0, 1, 0}, "0123456789x"},
                  {{1, 1, 1}, ""},
                  {{0, 1, 0}, "012x3456789"},
                  {{0, 1, 0}, "0156789"},
                  {{1, 1, 1}, ""},
                  {{1, 1, 1}, ""},
                  {{0, 0, 0}, ""},
                  {{0, 1, 0}, "x"},
                  {{0, 1, 0}, "x0123456789"},
                  {{1, 1, 1}, ""},
                  {{0, 1, 0}, "0123456789"},
                  {{1, 1, 1}, 0},
                  {{0, 1, 0}, 0},
                  {{0, 1, 0}, 0},
                  {{0, 0, 1}, 0},
                  {{1, 1, 1}, 0},
                  {{2, 2, 2}, 0},
                  {{1, 1, 1}, 0},
                  {{0, 0, 0}, 0},
                  {{0, 0, 0}, 0},
                  {{0, 0, 0}, 0}};

static void every_operation() {
  for (int which = 0; which < static_cast<int>(sizeof operations / sizeof *operations); ++which)
    for (int how = 0; how < 3; ++how)
      for (int n = 1;; ++n) {
        const long before = live_blocks;
        bool failed = false;
        {
          subject s(how);
          allocation_to_fail = n;
          try {
            operate(which, s.text);
          } catch (const std::bad_alloc &) {
            failed = true;
          }
          const bool to_come = allocation_to_fail != 0;
          allocation_to_fail = 0;
          bool good = failed != to_come && broken_invariant(s.text) == 0 && broken_invariant(s.sharer) == 0;
          const char *const want = operations[which].want;
          if (failed) good = good && s.unchanged();
          if (!failed && want) {
            // Whoever shared has its own again, and the mark of references is gone.
            good = good && (!*want || s.text == want) &&
                   (which == 12 || count_of(s.text) == 1 || rep_of(s.text) == null_rep());
            if (how == shared) good = good && s.sharer == "0123456789" && count_of(s.sharer) == 1;
          } else if (!want) {
            good = good && s.text == "0123456789" && (how != exposed || (count_of(s.text) == unshareable));
          }
          if (!failed) good = good && n == operations[which].allocations[how] + 1;
          if (!good)
            fprintf(stderr, "operation %d, owner %d, allocation %d%s\n", which, how, n, failed ? " failed" : "");
          CHECK(good);
        }
        CHECK_INT(live_blocks, before);
        if (!failed) break;
      }
  // Growing by doubling: a handful of blocks, where steps of 32 would take a hundred.
  const long before = allocation_calls;
  string grown;
  for (unsigned int n = 1; n <= 3000; ++n) grown += 'x';
  CHECK(allocation_calls - before > 3 && allocation_calls - before < 10 && grown.find_first_not_of('x') == npos);
}

// ---- Errors

#define CHECK_THROWS(error, error_text, expression) \
  do {                                              \
    for (int how = 0; how < 3; ++how) {             \
      subject s(how);                               \
      string &text TEST_UNUSED = s.text;            \
      bool caught = false;                          \
      try {                                         \
        (void)(expression);                         \
      } catch (const error &e) {                    \
        caught = true;                              \
        CHECK_TEXT(e.what(), error_text);           \
      }                                             \
      CHECK(caught &&s.unchanged());                \
    }                                               \
  } while (0)
#define CHECK_RANGE(expression) CHECK_THROWS(std::out_of_range, "Out of range exception occurred", expression)
#define CHECK_LENGTH(expression) CHECK_THROWS(std::length_error, "Length exception occurred", expression)
#define CHECK_MEMORY(expression) CHECK_THROWS(std::bad_alloc, "Allocation Failure", expression)

static void errors() {
  char buffer[8];
  CHECK_RANGE(string(text, 11));
  CHECK_RANGE(text[11] = 'x');
  CHECK_RANGE(text.at(10) = 'x');
  CHECK_RANGE(static_cast<const string &>(text).at(10));
  CHECK_RANGE(text.insert(11, "x"));
  CHECK_RANGE(text.insert(11, 1, 'x'));
  CHECK_RANGE(text.insert(0, text, 11, 1));
  CHECK_RANGE(text.erase(11, 0));
  CHECK_RANGE(text.replace(11, 0, ""));
  CHECK_RANGE(text.replace(11, 1, 1, 'x'));
  CHECK_RANGE(text.append(text, 11, 1));
  CHECK_RANGE(text.assign(text, 11, 1));
  CHECK_RANGE(text.copy(buffer, 1, 11));
  CHECK_RANGE(text.compare(0, 1, text, 11, 1));
  // Lengths; of two errors the position's comes first.
  CHECK_RANGE(string(npos, 'a'));
  CHECK_RANGE(string("abc", npos));
  CHECK_LENGTH(text.assign("x", npos));
  CHECK_LENGTH(text.assign(npos, 'x'));
  CHECK_LENGTH(text.append("x", npos - 10));
  CHECK_LENGTH(text.insert(0, "x", npos - 10));
  CHECK_RANGE(text.insert(11, npos, 'x'));
  CHECK_LENGTH(text.replace(1, 9, "x", npos));
  CHECK_LENGTH(text.replace(0, 0, npos - 10, 'x'));
  CHECK_LENGTH(text.replace(0, 10, npos - 10, 'x'));
  CHECK_RANGE(text.replace(11, 0, npos, 'x'));
  CHECK_LENGTH(text.resize(npos));
  CHECK_LENGTH(text.reserve(npos));
  // Lengths that are allowed but that no memory can hold, among them those whose capacity is no 32-bit number.
  CHECK_INT(string().max_size(), 0xFFFFFFFEu);
  CHECK_MEMORY(string(npos - 1, 'x'));
  CHECK_MEMORY(text.assign(npos - 1, 'x'));
  CHECK_MEMORY(text.append(npos - 11, 'x'));
  CHECK_MEMORY(text.insert(1, npos - 11, 'x'));
  CHECK_MEMORY(text.replace(1, 1, npos - 11, 'x'));
  CHECK_MEMORY(text.resize(npos - 1, 'x'));
  CHECK_MEMORY(text.reserve(0xFFFFFFE0u));
  CHECK_MEMORY(string().reserve(0x90000000u));

  // Null pointers are empty texts, and with a count null characters; inserting nothing looks at no position.
  const char *const null = 0;
  string text("abc");
  text.insert(99, "").insert(99, "x", 0).insert(99, 0, 'x').insert(99, null).replace(1, 1, null, 5);
  CHECK_STRING(text, "ac");
  CHECK_STRING(text = null, "");
  CHECK(std::char_traits<char>::lt('z', '\xE9') && !std::char_traits<char>::lt('\xE9', 'z'));
  CHECK(string(null).empty() && string(null, 3) == string(3, '\0'));
}

// ---- Sharing and capacity

static void sharing() {
  const string first;
  const unsigned int empties = count_of(first);
  {
    const string second, third = string(std::allocator<char>());
    CHECK(rep_of(second) == rep_of(first) && count_of(first) == empties + 2 && second.capacity() == 32);
    string other("abc");
    const string holder(other);
    other.clear();
    CHECK(rep_of(other) == rep_of(first) && count_of(holder) == 1);
    CHECK(rep_of(string("")) != rep_of(first));
    CHECK(other[0] == 0 && rep_of(other) != null_rep() && count_of(other) == unshareable);
  }
  CHECK_INT(count_of(first), empties);

  string a("shared text");
  {
    const string copied(a), part(a, 0, 11), all(a.substr()), less(a, 0, 10), tail(a, 1);
    string assigned;
    assigned = a;
    CHECK_INT(count_of(a), 5);
    CHECK_STRING(less, "shared tex");
    CHECK_STRING(tail, "hared text");
    CHECK(a.data() == part.c_str() && a == all);
    CHECK_INT(count_of(a), 5);
  }
  CHECK_INT(count_of(a), 1);
  // References end sharing, for those who copy later too, and a modifier begins it again.
  const string b(a);
  char &kept = a[1];
  const string c(a), d(a, 0, 100);
  string e;
  e = a;
  kept = 'H';
  CHECK(b == "shared text" && c == b && d == b && e == b && a == "sHared text" && count_of(c) == 1);
  a.append("s");
  const string f(a);
  CHECK(rep_of(f) == rep_of(a));
  *a.rbegin() = 'S';
  CHECK(f == "sHared texts" && a == "sHared textS" && a[12] == 0);
#if __cplusplus >= 201103L
  string moved(static_cast<string &&>(a));
  a = static_cast<string &&>(moved);
  CHECK(a == "sHared textS" && a.front() == 's' && a.back() == 'S' && *a.cbegin() == 's' &&
        a.cend() - a.cbegin() == 12);
  a.pop_back();
  CHECK(a + 's' + f == "sHared textssHared texts");
  static_assert(noexcept(string(static_cast<string &&>(moved))) && noexcept(a.find(f)) && noexcept(a == f),
                "what cannot throw says so");
#endif
}

static void capacities() {
  string text("abc");
  static const unsigned int reserved[][2] = {{32, 32}, {40, 64}, {64, 64}, {65, 96}, {0, 96}};
  for (int i = 0; i < 5; ++i) {
    text.reserve(reserved[i][0]);
    CHECK_INT(text.capacity(), reserved[i][1]);
  }
  CHECK(string(31, 'x').capacity() == 32 && string(32, 'x').capacity() == 64);
  // Reserving is for all that share, once more when the block is not the first any more; whoever goes last gives it
  // back.
  string *const a = new string("abc");
  {
    string b(*a), c(b);
    c.reserve(5000);
    CHECK(rep_of(*a) == rep_of(c) && a->capacity() == 5024 && count_of(b) == 3);
    b.reserve(20000);
    CHECK(a->capacity() == 20032 && broken_invariant(b) == 0);
    b += 'd';
    CHECK(b == "abcd" && b.capacity() == 32);
  }
  a->reserve(30000);
  a->append(1000, 'x').append(a->data(), 1003);
  CHECK(a->size() == 2006 && a->compare(1003, 4, "abcx") == 0 && broken_invariant(*a) == 0);
  delete a;
  string empty;
  empty.reserve(100);
  CHECK(rep_of(empty) == null_rep() && string().capacity() == 128);
  empty += "x";
  CHECK_INT(empty.capacity(), 32);
}

int main() {
  const long before = live_blocks;
  every_operation();
  errors();
  sharing();
  capacities();
  CHECK_INT(live_blocks, before);
  return TEST_RESULT();
}
