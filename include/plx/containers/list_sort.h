// Sorting the nodes of a list through an array: a stable merge sort between two arrays, then one pass that relinks the
// ring. Numbers and pointers travel in the array beside their node, so that comparing them touches no node; of other
// elements the nodes that come next are fetched ahead, which links alone would not allow.
#ifndef PLX_LIST_SORT_H
#define PLX_LIST_SORT_H

#include <stddef.h>

#include <plx/base/config.h>
#include <plx/base/string_fwd.h>
#include <plx/base/type_properties.h>

namespace __zor {

struct list_links {
  list_links *next;
  list_links *_prev;
};

template <class _T> struct list_node : public list_links { _T value; };

struct list_less {
  template <class _T> bool operator()(_T &_a, _T &_b) const { return _a < _b; }
};
struct list_equal {
  template <class _T> bool operator()(_T &_a, _T &_b) const { return _a == _b; }
};

// Joins two nodes.
inline void list_link(list_links *_before, list_links *_after) PLX_NOTHROW {
  _before->next = _after;
  _after->_prev = _before;
}

// Moves the nodes [first, last) in front of `_at`, which is not among them.
inline void list_transfer(list_links *_at, list_links *_first, list_links *_last) PLX_NOTHROW {
  list_links *const _end = _last->_prev;
  list_link(_first->_prev, _last);
  list_link(_at->_prev, _first);
  list_link(_end, _at);
}

// A ring of nodes without an owner.
struct list_ring : public list_links {
  list_ring() PLX_NOTHROW { next = _prev = this; }
  bool empty() const PLX_NOTHROW { return next == this; }
  void _move_before(list_links *_at) PLX_NOTHROW {
    if (!empty()) list_transfer(_at, next, this);
  }

private:
  list_ring(const list_ring &);
  list_ring &operator=(const list_ring &);
};

// Merges the nodes of a sorted ring into another one, but for those that go behind all others; of equal elements those
// that are there come first. The sizes are right also when a comparison throws.
template <class _T, class _Compare>
void list_merge_rings(list_links *_into, size_t &_size, list_links *_from, size_t &_from_size, _Compare &_before) {
  for (list_links *_at = _into->next; _at != _into && _from->next != _from;) {
    list_links *const _first = _from->next;
    if (_before(static_cast<list_node<_T> *>(_first)->value, static_cast<list_node<_T> *>(_at)->value)) {
      list_transfer(_at, _first, _first->next);
      ++_size;
      --_from_size;
    } else {
      _at = _at->next;
    }
  }
}

// Memory that is no operator new's: sorting does not fail for want of it. Null when there is none.
PLX_API void *take_scratch(size_t _bytes) PLX_NOTHROW;
PLX_API void give_scratch(void *_block) PLX_NOTHROW;

class list_scratch {
public:
  explicit list_scratch(size_t _bytes) PLX_NOTHROW : _block(_bytes <= sizeof _local_ ? _local_ : take_scratch(_bytes)) {
  }
  ~list_scratch() {
    if (_block != _local_) give_scratch(_block);
  }
  void *const _block;

private:
  list_scratch(const list_scratch &);
  list_scratch &operator=(const list_scratch &);

  char _local_[1024] __attribute__((__aligned__(8)));
};

template <class _T> struct list_keyed_entry {
  mutable _T _key;
  list_links *_node;

  void set(list_links *_n) {
    _key = static_cast<list_node<_T> *>(_n)->value;
    _node = _n;
  }
  _T &value() const { return _key; }
  void _fetch() const {}
};

template <class _T> struct list_plain_entry {
  list_links *_node;

  void set(list_links *_n) { _node = _n; }
  _T &value() const { return static_cast<list_node<_T> *>(_node)->value; }
  void _fetch() const { __builtin_prefetch(__zor::address_of(value())); }
};

// Strings in their own order: the first four characters are the key, and the rest is only looked at where they agree.
struct list_string_entry {
  unsigned int _key;
  list_links *_node;

  template <class _String> void _set_string(list_links *_n, const _String &_text) {
    const unsigned int _length = _text.size();
    const char *const _data = _text.data();
    _key = 0;
    for (unsigned int _i = 0; _i < 4; ++_i)
      _key = _key << 8 | (_i < _length ? static_cast<unsigned char>(_data[_i]) : 0u);
    _node = _n;
  }
};
template <class _String> struct list_string_entry_of : public list_string_entry {
  void set(list_links *_n) { _set_string(_n, static_cast<list_node<_String> *>(_n)->value); }
  const _String &value() const { return static_cast<list_node<_String> *>(_node)->value; }
  void _fetch() const {}
};

template <class _T, class _Compare, bool _scalar> struct list_entry { typedef list_plain_entry<_T> _type; };
template <class _T, class _Compare> struct list_entry<_T, _Compare, true> { typedef list_keyed_entry<_T> _type; };
template <class _Ct, class _A> struct list_entry<std::basic_string<_Ct, std::char_traits<_Ct>, _A>, list_less, false> {
  typedef list_string_entry_of<std::basic_string<_Ct, std::char_traits<_Ct>, _A> > _type;
};

template <class _Entry, class _Compare> inline bool list_before(const _Entry &_a, const _Entry &_b, _Compare &_before) {
  return _before(_a.value(), _b.value());
}
template <class _String>
inline bool list_before(const list_string_entry_of<_String> &_a, const list_string_entry_of<_String> &_b, list_less &) {
  return _a._key != _b._key ? _a._key < _b._key : _a.value() < _b.value();
}

enum { list_run = 8, list_fetched_ahead = 4 };

// Merges [left, middle) and [middle, right) into `_to`; of equal elements those of the left come first.
template <class _Entry, class _Compare> inline void list_merge(const _Entry *_left, const _Entry *_middle,
                                                               const _Entry *_right, _Entry *_to, _Compare &_before) {
  const _Entry *_a = _left, *_b = _middle;
  if (_a != _middle && _b != _right && !__zor::list_before(*_b, _middle[-1], _before)) {
    // In order already.
    while (_a != _right) *_to++ = *_a++;
    return;
  }
  while (_a != _middle && _b != _right) {
    // The arrays have list_fetched_ahead entries more than there are elements, so these exist.
    _a[list_fetched_ahead]._fetch();
    _b[list_fetched_ahead]._fetch();
    const bool _from_right = __zor::list_before(*_b, *_a, _before);
    const _Entry *const _chosen = _from_right ? _b : _a;
    *_to++ = *_chosen;
    _b += _from_right;
    _a += !_from_right;
  }
  while (_a != _middle) *_to++ = *_a++;
  while (_b != _right) *_to++ = *_b++;
}

template <class _Entry, class _Compare> inline void list_sort_run(_Entry *_first, _Entry *_last, _Compare &_before) {
  for (_Entry *_each = _first + 1; _each < _last; ++_each) {
    const _Entry _moved = *_each;
    _Entry *_to = _each;
    for (; _to != _first && __zor::list_before(_moved, _to[-1], _before); --_to) *_to = _to[-1];
    *_to = _moved;
  }
}

// Without memory: nodes are carried into bins of 1, 2, 4, ... nodes. Whatever happens, all are in the ring again at the
// end.
template <class _T> class list_bins {
public:
  explicit list_bins(list_links *_whole) PLX_NOTHROW : _whole_(_whole) {}
  ~list_bins() {
    _carry._move_before(_whole_);
    for (int _i = 0; _i < 32; ++_i) _bin[_i]._move_before(_whole_);
  }
  list_ring _carry;
  list_ring _bin[32];

private:
  list_bins(const list_bins &);
  list_bins &operator=(const list_bins &);

  list_links *_whole_;
};
template <class _T, class _Compare> inline void list_merge_bin(list_ring &_into, list_ring &_from, _Compare &_before) {
  size_t _uncounted = 0;
  __zor::list_merge_rings<_T>(&_into, _uncounted, &_from, _uncounted, _before);
  _from._move_before(&_into);
}
template <class _T, class _Compare>
PLX_NOINLINE void list_sort_by_bins(list_links *_whole, _Compare &_before) {
  list_bins<_T> _sorted(_whole);
  int _used = 0;
  while (_whole->next != _whole) {
    list_transfer(&_sorted._carry, _whole->next, _whole->next->next);
    int _i = 0;
    for (; _i < _used && !_sorted._bin[_i].empty(); ++_i) {
      // Those in the bin came first.
      __zor::list_merge_bin<_T>(_sorted._bin[_i], _sorted._carry, _before);
      _sorted._bin[_i]._move_before(&_sorted._carry);
    }
    _sorted._carry._move_before(&_sorted._bin[_i]);
    if (_i == _used && _used < 31) ++_used;
  }
  for (int _i = 1; _i <= _used; ++_i) __zor::list_merge_bin<_T>(_sorted._bin[_i], _sorted._bin[_i - 1], _before);
}

// False: no memory, nothing was done.
template <class _T, class _Compare> bool list_sort_by_array(list_links *_head, size_t _n, _Compare &_before) {
  typedef typename list_entry<_T, _Compare, is_scalar<_T>::value>::_type _entry;
  const size_t _room = _n + list_fetched_ahead;
  if (_room > 0x7FFFFFFFu / (2 * sizeof(_entry))) return false;
  list_scratch _scratch(2 * _room * sizeof(_entry));
  if (!_scratch._block) return false;
  _entry *_from = static_cast<_entry *>(_scratch._block), *_to = _from + _room;

  _entry *_filled = _from;
  for (list_links *_node = _head->next; _node != _head; _node = _node->next, ++_filled) _filled->set(_node);
  for (int _i = 0; _i < list_fetched_ahead; ++_i) {
    _filled[_i].set(_head->next);
    _to[_n + static_cast<size_t>(_i)].set(_head->next);
  }

  for (size_t _i = 0; _i < _n; _i += list_run)
    __zor::list_sort_run(_from + _i, _from + (_n - _i < list_run ? _n : _i + list_run), _before);
  for (size_t _run = list_run; _run < _n; _run *= 2) {
    for (size_t _i = 0; _i < _n;) {
      const size_t _middle = _n - _i > _run ? _i + _run : _n;
      const size_t _end = _n - _middle > _run ? _middle + _run : _n;
      __zor::list_merge(_from + _i, _from + _middle, _from + _end, _to + _i, _before);
      _i = _end;
    }
    _entry *const _other = _from;
    _from = _to;
    _to = _other;
  }

  list_links *_last = _head;
  for (size_t _i = 0; _i < _n; ++_i) {
    list_links *const _node = _from[_i]._node;
    _last->next = _node;
    _node->_prev = _last;
    _last = _node;
  }
  _last->next = _head;
  _head->_prev = _last;
  return true;
}

}  // namespace __zor

#endif
