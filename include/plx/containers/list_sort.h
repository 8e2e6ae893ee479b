// Sorting the nodes of a list through an array: a stable merge sort between two arrays, then one pass that relinks the
// ring. Numbers and pointers travel in the array beside their node, so that comparing them touches no node; of other
// elements the nodes that come next are fetched ahead, which links alone would not allow.
#ifndef PLX_LIST_SORT_H
#define PLX_LIST_SORT_H

#include <stddef.h>

#include <plx/base/config.h>
#include <plx/base/prefetch.h>
#include <plx/base/string_fwd.h>
#include <plx/base/type_properties.h>

namespace __zor {

struct _list_links {
  _list_links *_next;
  _list_links *_prev;
};

template <class _T> struct _list_node : public _list_links { _T value; };

struct _list_less {
  template <class _T> bool operator()(_T &_a, _T &_b) const { return _a < _b; }
};
struct _list_equal {
  template <class _T> bool operator()(_T &_a, _T &_b) const { return _a == _b; }
};

// Joins two nodes.
inline void _list_link(_list_links *_before, _list_links *_after) PLX_NOTHROW {
  _before->_next = _after;
  _after->_prev = _before;
}

// Moves the nodes [first, last) in front of `_at`, which is not among them.
inline void _list_transfer(_list_links *_at, _list_links *_first, _list_links *_last) PLX_NOTHROW {
  _list_links *const _end = _last->_prev;
  _list_link(_first->_prev, _last);
  _list_link(_at->_prev, _first);
  _list_link(_end, _at);
}

// A ring of nodes without an owner.
struct _list_ring : public _list_links {
  _list_ring() PLX_NOTHROW { _next = _prev = this; }
  bool empty() const PLX_NOTHROW { return _next == this; }
  void _move_before(_list_links *_at) PLX_NOTHROW {
    if (!empty()) _list_transfer(_at, _next, this);
  }

private:
  _list_ring(const _list_ring &);
  _list_ring &operator=(const _list_ring &);
};

// Merges the nodes of a sorted ring into another one, but for those that go behind all others; of equal elements those
// that are there come first. The sizes are right also when a comparison throws.
template <class _T, class _Compare>
void _list_merge_rings(_list_links *_into, size_t &_size, _list_links *_from, size_t &_from_size, _Compare &_before) {
  for (_list_links *_at = _into->_next; _at != _into && _from->_next != _from;) {
    _list_links *const _first = _from->_next;
    if (_before(static_cast<_list_node<_T> *>(_first)->value, static_cast<_list_node<_T> *>(_at)->value)) {
      _list_transfer(_at, _first, _first->_next);
      ++_size;
      --_from_size;
    } else {
      _at = _at->_next;
    }
  }
}

// Memory that is no operator new's: sorting does not fail for want of it. Null when there is none.
PLX_API void *_take_scratch(size_t _bytes) PLX_NOTHROW;
PLX_API void _give_scratch(void *_block) PLX_NOTHROW;

class _list_scratch {
public:
  explicit _list_scratch(size_t _bytes) PLX_NOTHROW
      : _block(_bytes <= sizeof _local_ ? _local_ : _take_scratch(_bytes)) {}
  ~_list_scratch() {
    if (_block != _local_) _give_scratch(_block);
  }
  void *const _block;

private:
  _list_scratch(const _list_scratch &);
  _list_scratch &operator=(const _list_scratch &);

  char _local_[1024] __attribute__((__aligned__(8)));
};

template <class _T> struct _list_keyed_entry {
  mutable _T _key;
  _list_links *_node;

  void set(_list_links *_n) {
    _key = static_cast<_list_node<_T> *>(_n)->value;
    _node = _n;
  }
  _T &value() const { return _key; }
  void _fetch() const {}
};

template <class _T> struct _list_plain_entry {
  _list_links *_node;

  void set(_list_links *_n) { _node = _n; }
  _T &value() const { return static_cast<_list_node<_T> *>(_node)->value; }
  void _fetch() const { __zor::_prefetch(__zor::_address_of(value())); }
};

// Strings in their own order: the first four characters are the key, and the rest is only looked at where they agree.
struct _list_string_entry {
  unsigned int _key;
  _list_links *_node;

  template <class _String> void _set_string(_list_links *_n, const _String &_text) {
    const unsigned int _length = _text.size();
    const char *const _data = _text.data();
    _key = 0;
    for (unsigned int _i = 0; _i < 4; ++_i)
      _key = _key << 8 | (_i < _length ? static_cast<unsigned char>(_data[_i]) : 0u);
    _node = _n;
  }
};
template <class _String> struct _list_string_entry_of : public _list_string_entry {
  void set(_list_links *_n) { _set_string(_n, static_cast<_list_node<_String> *>(_n)->value); }
  const _String &value() const { return static_cast<_list_node<_String> *>(_node)->value; }
  void _fetch() const {}
};

template <class _T, class _Compare, bool _scalar> struct _list_entry { typedef _list_plain_entry<_T> _type; };
template <class _T, class _Compare> struct _list_entry<_T, _Compare, true> { typedef _list_keyed_entry<_T> _type; };
template <class _Ct, class _A>
struct _list_entry<std::basic_string<_Ct, std::char_traits<_Ct>, _A>, _list_less, false> {
  typedef _list_string_entry_of<std::basic_string<_Ct, std::char_traits<_Ct>, _A> > _type;
};

template <class _Entry, class _Compare>
inline bool _list_before(const _Entry &_a, const _Entry &_b, _Compare &_before) {
  return _before(_a.value(), _b.value());
}
template <class _String> inline bool _list_before(const _list_string_entry_of<_String> &_a,
                                                  const _list_string_entry_of<_String> &_b, _list_less &) {
  return _a._key != _b._key ? _a._key < _b._key : _a.value() < _b.value();
}

enum { _list_run = 8, _list_fetched_ahead = 4 };

// Merges [left, middle) and [middle, right) into `_to`; of equal elements those of the left come first.
template <class _Entry, class _Compare> inline void _list_merge(const _Entry *_left, const _Entry *_middle,
                                                                const _Entry *_right, _Entry *_to, _Compare &_before) {
  const _Entry *_a = _left, *_b = _middle;
  if (_a != _middle && _b != _right && !__zor::_list_before(*_b, _middle[-1], _before)) {
    // In order already.
    while (_a != _right) *_to++ = *_a++;
    return;
  }
  while (_a != _middle && _b != _right) {
    // The arrays have _list_fetched_ahead entries more than there are elements, so these exist.
    _a[_list_fetched_ahead]._fetch();
    _b[_list_fetched_ahead]._fetch();
    const bool _from_right = __zor::_list_before(*_b, *_a, _before);
    const _Entry *const _chosen = _from_right ? _b : _a;
    *_to++ = *_chosen;
    _b += _from_right;
    _a += !_from_right;
  }
  while (_a != _middle) *_to++ = *_a++;
  while (_b != _right) *_to++ = *_b++;
}

template <class _Entry, class _Compare> inline void _list_sort_run(_Entry *_first, _Entry *_last, _Compare &_before) {
  for (_Entry *_each = _first + 1; _each < _last; ++_each) {
    const _Entry _moved = *_each;
    _Entry *_to = _each;
    for (; _to != _first && __zor::_list_before(_moved, _to[-1], _before); --_to) *_to = _to[-1];
    *_to = _moved;
  }
}

// Without memory: nodes are carried into bins of 1, 2, 4, ... nodes. Whatever happens, all are in the ring again at the
// end.
template <class _T> class _list_bins {
public:
  explicit _list_bins(_list_links *_whole) PLX_NOTHROW : _whole_(_whole) {}
  ~_list_bins() {
    _carry._move_before(_whole_);
    for (int _i = 0; _i < 32; ++_i) _bin[_i]._move_before(_whole_);
  }
  _list_ring _carry;
  _list_ring _bin[32];

private:
  _list_bins(const _list_bins &);
  _list_bins &operator=(const _list_bins &);

  _list_links *_whole_;
};
template <class _T, class _Compare>
inline void _list_merge_bin(_list_ring &_into, _list_ring &_from, _Compare &_before) {
  size_t _uncounted = 0;
  __zor::_list_merge_rings<_T>(&_into, _uncounted, &_from, _uncounted, _before);
  _from._move_before(&_into);
}
template <class _T, class _Compare> PLX_NOINLINE void _list_sort_by_bins(_list_links *_whole, _Compare &_before) {
  _list_bins<_T> _sorted(_whole);
  int _used = 0;
  while (_whole->_next != _whole) {
    _list_transfer(&_sorted._carry, _whole->_next, _whole->_next->_next);
    int _i = 0;
    for (; _i < _used && !_sorted._bin[_i].empty(); ++_i) {
      // Those in the bin came first.
      __zor::_list_merge_bin<_T>(_sorted._bin[_i], _sorted._carry, _before);
      _sorted._bin[_i]._move_before(&_sorted._carry);
    }
    _sorted._carry._move_before(&_sorted._bin[_i]);
    if (_i == _used && _used < 31) ++_used;
  }
  for (int _i = 1; _i <= _used; ++_i) __zor::_list_merge_bin<_T>(_sorted._bin[_i], _sorted._bin[_i - 1], _before);
}

// False: no memory, nothing was done.
template <class _T, class _Compare> bool _list_sort_by_array(_list_links *_head, size_t _n, _Compare &_before) {
  typedef typename _list_entry<_T, _Compare, _is_scalar<_T>::value>::_type _entry;
  const size_t _room = _n + _list_fetched_ahead;
  if (_room > 0x7FFFFFFFu / (2 * sizeof(_entry))) return false;
  _list_scratch _scratch(2 * _room * sizeof(_entry));
  if (!_scratch._block) return false;
  _entry *_from = static_cast<_entry *>(_scratch._block), *_to = _from + _room;

  _entry *_filled = _from;
  for (_list_links *_node = _head->_next; _node != _head; _node = _node->_next, ++_filled) _filled->set(_node);
  for (int _i = 0; _i < _list_fetched_ahead; ++_i) {
    _filled[_i].set(_head->_next);
    _to[_n + static_cast<size_t>(_i)].set(_head->_next);
  }

  for (size_t _i = 0; _i < _n; _i += _list_run)
    __zor::_list_sort_run(_from + _i, _from + (_n - _i < _list_run ? _n : _i + _list_run), _before);
  for (size_t _run = _list_run; _run < _n; _run *= 2) {
    for (size_t _i = 0; _i < _n;) {
      const size_t _middle = _n - _i > _run ? _i + _run : _n;
      const size_t _end = _n - _middle > _run ? _middle + _run : _n;
      __zor::_list_merge(_from + _i, _from + _middle, _from + _end, _to + _i, _before);
      _i = _end;
    }
    _entry *const _other = _from;
    _from = _to;
    _to = _other;
  }

  _list_links *_last = _head;
  for (size_t _i = 0; _i < _n; ++_i) {
    _list_links *const _node = _from[_i]._node;
    _last->_next = _node;
    _node->_prev = _last;
    _last = _node;
  }
  _last->_next = _head;
  _head->_prev = _last;
  return true;
}

}  // namespace __zor

#endif
