// How a tree compares a key that it looks for with those of its nodes. Any comparison is asked as the standard says.
// For the two usual ones more is known: integers and pointers in ascending order are equal or not at a glance, and
// strings leave their first 8 characters in the node as one number, so that most comparisons never leave the node.
//
//   before(s, k)   the key looked for goes before the node's key k
//   after(s, k)    the other way
//   ties(s, k)     with `_exact`: false means surely different, so that precedes() tells which side; true means that
//                  compare() must decide, as memcmp does
//
// With `_ties_cost` a comparison that may decide a tie is dear.
#ifndef PLX_TREE_ORDER_H
#define PLX_TREE_ORDER_H

#include <plx/base/config.h>
#include <plx/base/function_objects.h>
#include <plx/base/is_integer.h>
#include <plx/base/string_fwd.h>

namespace __zor {

// What a node keeps of its key besides the key itself.
struct _no_digest {};

template <class _Key, class _Compare> class _asked_order {
public:
  typedef _no_digest _digest;
  typedef _no _exact, _ties_cost;

  _asked_order(const _Key &_key, _Compare &_compare) : _key_(_key), _compare_(_compare) {}
  bool before(const _digest &, const _Key &_key) const { return _compare_(_key_, _key); }
  bool _after(const _digest &, const _Key &_key) const { return _compare_(_key, _key_); }
  void _keep(_digest &) const {}

private:
  _asked_order &operator=(const _asked_order &);

  const _Key &_key_;
  _Compare &_compare_;
};

template <class _Key> class _plain_order {
public:
  typedef _no_digest _digest;
  typedef _yes _exact;
  typedef _no _ties_cost;

  template <class _Compare> _plain_order(const _Key &_key, _Compare &) PLX_NOTHROW : _key_(_key) {}
  bool before(const _digest &, const _Key &_key) const PLX_NOTHROW { return _key_ < _key; }
  bool _after(const _digest &, const _Key &_key) const PLX_NOTHROW { return _key < _key_; }
  bool _ties(const _digest &, const _Key &_key) const PLX_NOTHROW { return _key_ == _key; }
  bool _precedes(const _digest &, const _Key &_key) const PLX_NOTHROW { return _key_ < _key; }
  static int compare(const _Key &) PLX_NOTHROW { return 0; }
  void _keep(_digest &) const PLX_NOTHROW {}

private:
  _Key _key_;
};

// The characters from the most significant byte down, and null characters behind them: numbers that are ordered as
// the strings are, but for the ties.
struct _string_digest {
  _unsigned_longest _first_characters;

  void _take(const char *_text, unsigned int _n) PLX_NOTHROW {
    unsigned int _high, _low = 0;
    if (_n >= 4) {
      _high = _load(_text);
      if (_n >= 8)
        _low = _load(_text + 4);
      else if (_n > 4)
        _low = _load(_text + _n - 4) << (64 - 8 * _n);
    } else {
      _high = _n > 0 ? _byte(_text[0]) << 24 : 0;
      if (_n > 1) _high |= _byte(_text[1]) << 16;
      if (_n > 2) _high |= _byte(_text[2]) << 8;
    }
    _first_characters = static_cast<_unsigned_longest>(_high) << 32 | _low;
  }

  static unsigned int _byte(char _c) PLX_NOTHROW { return static_cast<unsigned char>(_c); }
  static unsigned int _load(const char *_at) PLX_NOTHROW {
    unsigned int _word;
    __builtin_memcpy(&_word, _at, 4);
    return __builtin_bswap32(_word);
  }
};

template <class _String> class _string_order {
public:
  typedef _string_digest _digest;
  typedef _yes _exact, _ties_cost;

  template <class _Compare> _string_order(const _String &_key, _Compare &) PLX_NOTHROW : _key_(_key) {
    _digest_._take(_key.data(), _key.size());
  }
  bool before(const _digest &_of, const _String &_key) const PLX_NOTHROW {
    return _ties(_of, _key) ? compare(_key) < 0 : _precedes(_of, _key);
  }
  bool _after(const _digest &_of, const _String &_key) const PLX_NOTHROW {
    return _ties(_of, _key) ? compare(_key) > 0 : !_precedes(_of, _key);
  }
  bool _ties(const _digest &_of, const _String &) const PLX_NOTHROW {
    return _digest_._first_characters == _of._first_characters;
  }
  bool _precedes(const _digest &_of, const _String &) const PLX_NOTHROW {
    return _digest_._first_characters < _of._first_characters;
  }
  int compare(const _String &_key) const PLX_NOTHROW {
    const unsigned int _mine = _key_.size(), _other = _key.size();
    const unsigned int _shared = _mine < _other ? _mine : _other;
    if (_shared > 8) {
      const int _rest = _compare_rest(_key_.data(), _key.data(), _shared);
      if (_rest != 0) return _rest;
    }
    return _mine < _other ? -1 : _mine > _other;
  }
  void _keep(_digest &_in) const PLX_NOTHROW { _in = _digest_; }

private:
  _string_order &operator=(const _string_order &);

  // What follows the first 8 characters. Names are short: some words are compared before memcmp is called, the last one
  // where it overlaps the others.
  static int _compare_rest(const char *_mine, const char *_other, unsigned int _n) PLX_NOTHROW {
    for (unsigned int _at = 8; _at < _longest_inline; _at += 4) {
      if (_at + 4 > _n) _at = _n - 4;
      const unsigned int _a = _digest::_load(_mine + _at), _b = _digest::_load(_other + _at);
      if (_a != _b) return _a < _b ? -1 : 1;
      if (_at + 4 == _n) return 0;
    }
    return __builtin_memcmp(_mine + _longest_inline, _other + _longest_inline, _n - _longest_inline);
  }
  enum { _longest_inline = 40 };

  const _String &_key_;
  _digest _digest_;
};

template <class _Key, class _Compare, class _IsInteger> struct _tree_order_of {
  typedef _asked_order<_Key, _Compare> _type;
};
template <class _Key> struct _tree_order_of<_Key, std::less<_Key>, _yes> { typedef _plain_order<_Key> _type; };
template <class _A> struct _tree_order_of<std::basic_string<char, std::char_traits<char>, _A>,
                                          std::less<std::basic_string<char, std::char_traits<char>, _A> >, _no> {
  typedef _string_order<std::basic_string<char, std::char_traits<char>, _A> > _type;
};

template <class _Key, class _Compare> struct _tree_order {
  typedef typename _tree_order_of<_Key, _Compare, typename is_integer<_Key>::_type>::_type _type;
};

}  // namespace __zor

#endif
