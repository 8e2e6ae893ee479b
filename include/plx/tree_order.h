// How a tree compares a key that it looks for with those of its nodes. Any comparison is asked as the standard says. For
// the two usual ones more is known: integers and pointers in ascending order are equal or not at a glance, and strings
// leave their first 8 characters in the node as one number, so that most comparisons never leave the node.
//
//   before(s, k)   the key looked for goes before the node's key k
//   after(s, k)    the other way
//   ties(s, k)     with `exact`: false means surely different, so that precedes() tells which side; true means that
//                  compare() must decide, as memcmp does
#ifndef PLX_TREE_ORDER_H
#define PLX_TREE_ORDER_H

#include <plx/config.h>
#include <plx/function_objects.h>
#include <plx/is_integer.h>
#include <plx/string_fwd.h>

namespace __zor {

// What a node keeps of its key besides the key itself.
struct no_digest {};

template <class Key, class Compare> class asked_order {
public:
  typedef no_digest digest;
  typedef no exact;

  asked_order(const Key &key, Compare &compare) : key_(key), compare_(compare) {}
  bool before(const digest &, const Key &key) const { return compare_(key_, key); }
  bool after(const digest &, const Key &key) const { return compare_(key, key_); }
  void keep(digest &) const {}

private:
  asked_order &operator=(const asked_order &);

  const Key &key_;
  Compare &compare_;
};

template <class Key> class plain_order {
public:
  typedef no_digest digest;
  typedef yes exact;

  template <class Compare> plain_order(const Key &key, Compare &) PLX_NOTHROW : key_(key) {}
  bool before(const digest &, const Key &key) const PLX_NOTHROW { return key_ < key; }
  bool after(const digest &, const Key &key) const PLX_NOTHROW { return key < key_; }
  bool ties(const digest &, const Key &key) const PLX_NOTHROW { return key_ == key; }
  bool precedes(const digest &, const Key &key) const PLX_NOTHROW { return key_ < key; }
  static int compare(const Key &) PLX_NOTHROW { return 0; }
  void keep(digest &) const PLX_NOTHROW {}

private:
  Key key_;
};

// The characters from the most significant byte down, and null characters behind them: numbers that are ordered as
// the strings are, but for the ties.
struct string_digest {
  unsigned_longest first_characters;

  void take(const char *text, unsigned int n) PLX_NOTHROW {
    unsigned int high, low = 0;
    if (n >= 4) {
      high = load(text);
      if (n >= 8)
        low = load(text + 4);
      else if (n > 4)
        low = load(text + n - 4) << (64 - 8 * n);
    } else {
      high = n > 0 ? byte(text[0]) << 24 : 0;
      if (n > 1) high |= byte(text[1]) << 16;
      if (n > 2) high |= byte(text[2]) << 8;
    }
    first_characters = static_cast<unsigned_longest>(high) << 32 | low;
  }

  static unsigned int byte(char c) PLX_NOTHROW { return static_cast<unsigned char>(c); }
  static unsigned int load(const char *at) PLX_NOTHROW {
    unsigned int word;
    __builtin_memcpy(&word, at, 4);
    return __builtin_bswap32(word);
  }
};

template <class String> class string_order {
public:
  typedef string_digest digest;
  typedef yes exact;

  template <class Compare> string_order(const String &key, Compare &) PLX_NOTHROW : key_(key) {
    digest_.take(key.data(), key.size());
  }
  bool before(const digest &of, const String &key) const PLX_NOTHROW {
    return ties(of, key) ? compare(key) < 0 : precedes(of, key);
  }
  bool after(const digest &of, const String &key) const PLX_NOTHROW {
    return ties(of, key) ? compare(key) > 0 : !precedes(of, key);
  }
  bool ties(const digest &of, const String &) const PLX_NOTHROW {
    return digest_.first_characters == of.first_characters;
  }
  bool precedes(const digest &of, const String &) const PLX_NOTHROW {
    return digest_.first_characters < of.first_characters;
  }
  int compare(const String &key) const PLX_NOTHROW {
    const unsigned int mine = key_.size(), other = key.size();
    const unsigned int shared = mine < other ? mine : other;
    if (shared > 8) {
      const int rest = compare_rest(key_.data(), key.data(), shared);
      if (rest != 0) return rest;
    }
    return mine < other ? -1 : mine > other;
  }
  void keep(digest &in) const PLX_NOTHROW { in = digest_; }

private:
  string_order &operator=(const string_order &);

  // What follows the first 8 characters. Names are short: some words are compared before memcmp is called, the last one
  // where it overlaps the others.
  static int compare_rest(const char *mine, const char *other, unsigned int n) PLX_NOTHROW {
    for (unsigned int at = 8; at < longest_inline; at += 4) {
      if (at + 4 > n) at = n - 4;
      const unsigned int a = digest::load(mine + at), b = digest::load(other + at);
      if (a != b) return a < b ? -1 : 1;
      if (at + 4 == n) return 0;
    }
    return __builtin_memcmp(mine + longest_inline, other + longest_inline, n - longest_inline);
  }
  enum { longest_inline = 40 };

  const String &key_;
  digest digest_;
};

template <class Key, class Compare, class IsInteger> struct tree_order_of {
  typedef asked_order<Key, Compare> type;
};
template <class Key> struct tree_order_of<Key, std::less<Key>, yes> {
  typedef plain_order<Key> type;
};
template <class A>
struct tree_order_of<std::basic_string<char, std::char_traits<char>, A>,
                     std::less<std::basic_string<char, std::char_traits<char>, A> >, no> {
  typedef string_order<std::basic_string<char, std::char_traits<char>, A> > type;
};

template <class Key, class Compare> struct tree_order {
  typedef typename tree_order_of<Key, Compare, typename is_integer<Key>::type>::type type;
};

}  // namespace __zor

#endif
