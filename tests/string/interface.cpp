// The class of 1998 as a program uses it: every overload is reachable and unambiguous, ranges of all kinds of
// iterators, traits of one's own, and all of it instantiated as a whole.
// test-variants: -O0 | -O1 | -O2 -std=gnu++11 | -O1 -std=gnu++20

#include <ctype.h>

#include <stdexcept>

#include "string_check.h"

typedef std::string string;

// Letters of either case are equal.
struct caseless : std::char_traits<char> {
  static bool eq(char a, char b) { return toupper(a) == toupper(b); }
  static bool lt(char a, char b) { return toupper(a) < toupper(b); }
  static int compare(const char *a, const char *b, size_t n) {
    for (; n != 0; ++a, ++b, --n)
      if (!eq(*a, *b)) return lt(*a, *b) ? -1 : 1;
    return 0;
  }
  static const char *find(const char *s, size_t n, char c) {
    for (; n != 0; ++s, --n)
      if (eq(*s, c)) return s;
    return 0;
  }
};
typedef std::basic_string<char, caseless> caseless_string;

template class std::basic_string<char, caseless>;
template class std::allocator<int>;
template class std::reverse_iterator<string::iterator>;
template class std::reverse_iterator<string::const_iterator>;

static void traits_of_ones_own() {
  const caseless_string a("Hello World"), b("hELLO wORLD");
  CHECK(a == b && !(a < b) && a.compare("HELLO WORLD") == 0);
  CHECK_INT(a.find("WORLD"), 6);
  CHECK_INT(a.find('O'), 4);
  CHECK_INT(a.rfind("L"), 9);
  CHECK_INT(a.find_first_of("WX"), 6);
  CHECK_INT(a.find_last_not_of("DLR"), 7);
  CHECK(a.find("") == caseless_string::npos);
  caseless_string c;
  CHECK((a + b).size() == 22 && c.empty());
}

// An input iterator: one pass, and it may throw.
struct digits {
  typedef std::input_iterator_tag iterator_category;
  typedef char value_type;
  typedef ptrdiff_t difference_type;
  typedef const char *pointer;
  typedef char reference;
  int at, bad;
  digits(int a, int b) : at(a), bad(b) {}
  char operator*() const {
    if (at == bad) throw std::range_error("bad digit");
    return static_cast<char>('0' + at);
  }
  digits &operator++() {
    ++at;
    return *this;
  }
  bool operator!=(const digits &other) const { return at != other.at; }
};

static void ranges() {
  const char letters[] = "abcdef";
  const int codes[] = {72, 105};
  const string by_pointers(letters, letters + 3);
  CHECK_STRING(by_pointers, "abc");
  CHECK_STRING(string(by_pointers.begin() + 1, by_pointers.end()), "bc");
  CHECK_STRING(string(by_pointers.rbegin(), by_pointers.rend()), "cba");
  CHECK_STRING(string(codes, codes + 2), "Hi");
  CHECK_STRING(string(digits(0, -1), digits(9, -1)), "012345678");
  CHECK_STRING(string(3, 65), "AAA");

  string text("0123456789");
  text.append(letters, letters + 2).append(2, 66);
  CHECK_STRING(text, "0123456789abBB");
  text.append(text.begin(), text.begin() + 2);
  CHECK_STRING(text, "0123456789abBB01");
  text.assign(text.begin() + 8, text.end() - 4);
  CHECK_STRING(text, "89ab");
  text.assign(2, 67);
  CHECK_STRING(text, "CC");
  text = "0123";
  text.insert(text.begin() + 1, text.rbegin(), text.rend());
  CHECK_STRING(text, "03210123");
  text.insert(text.end(), 2, 68);
  text.insert(text.begin(), digits(4, -1), digits(6, -1));
  CHECK_STRING(text, "4503210123DD");
  text.replace(text.begin(), text.begin() + 2, text.end() - 2, text.end());
  CHECK_STRING(text, "DD03210123DD");
  text.replace(text.begin() + 2, text.end() - 2, 3, 45);
  CHECK_STRING(text, "DD---DD");
  text.replace(text.begin() + 1, text.end() - 1, digits(1, -1), digits(3, -1));
  CHECK_STRING(text, "D12D");
  text.replace(text.begin(), text.begin(), text.begin(), text.end());
  CHECK_STRING(text, "D12DD12D");

  for (int how = 0; how < 5; ++how) {
    bool caught = false;
    try {
      const digits first(0, 7), last(9, 7);
      if (how == 0) string made(first, last);
      if (how == 1) text.append(first, last);
      if (how == 2) text.assign(first, last);
      if (how == 3) text.insert(text.begin(), first, last);
      if (how == 4) text.replace(text.begin(), text.end(), first, last);
    } catch (const std::range_error &) {
      caught = true;
    }
    CHECK(caught);
    CHECK_STRING(text, "D12DD12D");
  }
}

static void integers_and_iterators_are_told_apart() {
  string text("abc");
  text.insert(0, 1, 'x').insert(0, 2, 'y');
  CHECK_STRING(text, "yyxabc");
  text.erase(0, 2).erase(1);
  CHECK_STRING(text, "x");
  text.insert(text.begin(), 'w');
  CHECK(*text.insert(text.begin() + 1, '-') == '-');
  text.insert(text.end(), 3, '!');
  CHECK_STRING(text, "w-x!!!");
  string::iterator next = text.erase(text.begin());
  CHECK(next == text.begin() && *next == '-');
  next = text.erase(text.begin() + 2, text.end());
  CHECK(next == text.end());
  CHECK_STRING(text, "-x");
  text.replace(0, 1, 2, 'z')
      .replace(text.begin(), text.begin() + 1, "ab")
      .replace(0, 2, string("<"))
      .replace(text.begin(), text.begin() + 1, string("[["))
      .replace(text.begin(), text.begin() + 1, "({", 1);
  CHECK_STRING(text, "([zx");
  text.replace(text.begin(), text.end(), 2, 'q').replace(0, 1, "xyz", 1, 2);
  CHECK_STRING(text, "yzq");
  const string::const_iterator from_iterator = text.begin();
  CHECK(from_iterator == text.begin() && text.end() - from_iterator == 3 && 1 + from_iterator < text.end());
}

static void operators() {
  const string a("a"), b("b");
  CHECK_STRING(a + b, "ab");
  CHECK_STRING(a + "b" + 'c' + b, "abcb");
  CHECK_STRING("x" + a, "xa");
  CHECK_STRING('x' + a + string("y") + "z", "xayz");
  CHECK_STRING(string("1") + string("2"), "12");
  CHECK(a == "a" && "a" == a && a != b && a != "b" && "b" != a && a < b && a < "b" && "a" < b && b > a && b > "a" &&
        "b" > a && a <= a && a <= "a" && "a" <= a && b >= a && b >= "a" && "b" >= a);
  CHECK(!(a == "ab") && a < "ab" && "ab" > a && string("a\0b", 3) != "a" && string("a\0b", 3) > "a");
  CHECK(string("\xE9") > "z" && string("\xE9").compare("z") > 0 && string("") < "\1");
  string c(a), d("dd");
  c += b;
  c += "c";
  c += 'd';
  swap(c, d);
  CHECK_STRING(c, "dd");
  CHECK_STRING(d, "abcd");
  c = 'x';
  d = "y";
  c.swap(d);
  CHECK_STRING(c, "y");
  CHECK_STRING(d, "x");
}

static void comparing_parts() {
  const string text("hello world");
  CHECK(text.compare("hello") > 0 && text.compare(0, 5, "hello") == 0 && text.compare(6, 99, string("world")) == 0);
  CHECK(text.compare(0, 5, "help", 3) > 0 && text.compare(0, 3, "help", 3) == 0);
  CHECK(text.compare(6, 5, string("a world"), 2, 5) == 0 && text.compare(11, 1, "") == 0 && text.compare("z") < 0);
}

static void the_rest() {
  char buffer[4] = "---";
  const string text("abcdef");
  CHECK_INT(text.copy(buffer, 2), 2);
  CHECK_TEXT(buffer, "ab-");
  CHECK_INT(text.copy(buffer, 3, 5), 1);
  CHECK_TEXT(buffer, "fb-");
  CHECK(text.get_allocator() == std::allocator<char>());
  CHECK_STRING(string(text, 2), "cdef");
  CHECK_STRING(string(text, 2, 2), "cd");
  CHECK_STRING(string("abcdef", 2), "ab");
  CHECK_STRING(string(3, 'x'), "xxx");
  CHECK_STRING(string(std::allocator<char>()), "");
  CHECK_STRING(string(string().append(text, 1, 2).append("x").append(1, 'y')), "bcxy");
  CHECK_STRING(string(string().assign(text, 4, 9).assign(text)), "abcdef");
  CHECK_STRING(string(string("ad").insert(1, text, 1, 2).insert(0, string("<"))), "<abcd");
  const string::size_type &none = string::npos;
  CHECK(none == 0xFFFFFFFFu);
  string text2("xyz");
  text2.resize(5);
  CHECK(text2 == string("xyz\0\0", 5));
  text2.resize(1);
  CHECK_STRING(text2, "x");
  string all;
  for (string::const_reverse_iterator i = text.rbegin(); i != text.rend(); ++i) all += *i;
  CHECK_STRING(all, "fedcba");
  for (string::iterator i = all.begin(); i < all.end(); i += 2) *i = '.';
  CHECK_STRING(all, ".e.c.a");
}

#if __cplusplus >= 201103L
static void later_dialects() {
  string from("a string that is moved");
  string to(static_cast<string &&>(from));
  CHECK_STRING(to, "a string that is moved");
  CHECK_STRING(from, "");
  from = "again";
  to = static_cast<string &&>(from);
  CHECK_STRING(to, "again");
  CHECK_INT(broken_invariant(from), 0);
  int sum = 0;
  for (char &c : to) c = static_cast<char>(c + 1);
  for (char c : static_cast<const string &>(to)) sum += c;
  CHECK_STRING(to, "bhbjo");
  CHECK_INT(sum, 'b' + 'h' + 'b' + 'j' + 'o');
  to.front() = '<';
  to.back() = '>';
  to.pop_back();
  CHECK_STRING(to, "<hbj");
  static_assert(noexcept(string(static_cast<string &&>(from))) && noexcept(to.find(from)) && noexcept(to == from),
                "what cannot throw says so");
}
#else
static void later_dialects() {}
#endif

int main() {
  traits_of_ones_own();
  ranges();
  integers_and_iterators_are_told_apart();
  operators();
  comparing_parts();
  the_rest();
  later_dialects();
  return TEST_RESULT();
}
