// Sorting the nodes of a list through an array: a stable merge sort between two arrays, then one pass that relinks the
// ring. Numbers and pointers travel in the array beside their node, so that comparing them touches no node; of other
// elements the nodes that come next are fetched ahead, which links alone would not allow.
#ifndef PLX_LIST_SORT_H
#define PLX_LIST_SORT_H

#include <stddef.h>

#include <plx/config.h>
#include <plx/string_fwd.h>
#include <plx/type_properties.h>

namespace __zor {

struct list_links {
  list_links *next;
  list_links *prev;
};

template <class T> struct list_node : public list_links {
  T value;
};

struct list_less {
  template <class T> bool operator()(const T &a, const T &b) const { return a < b; }
};
struct list_equal {
  template <class T> bool operator()(const T &a, const T &b) const { return a == b; }
};

// Memory that is no operator new's: sorting does not fail for want of it. Null when there is none.
PLX_API void *take_scratch(size_t bytes) PLX_NOTHROW;
PLX_API void give_scratch(void *block) PLX_NOTHROW;

class list_scratch {
public:
  explicit list_scratch(size_t bytes) PLX_NOTHROW : block(bytes <= sizeof local_ ? local_ : take_scratch(bytes)) {}
  ~list_scratch() {
    if (block != local_) give_scratch(block);
  }
  void *const block;

private:
  list_scratch(const list_scratch &);
  list_scratch &operator=(const list_scratch &);

  char local_[1024] __attribute__((__aligned__(8)));
};

template <class T> struct list_keyed_entry {
  T key;
  list_links *node;

  void set(list_links *n) {
    key = static_cast<list_node<T> *>(n)->value;
    node = n;
  }
  const T &value() const { return key; }
  void fetch() const {}
};

template <class T> struct list_plain_entry {
  list_links *node;

  void set(list_links *n) { node = n; }
  const T &value() const { return static_cast<list_node<T> *>(node)->value; }
  void fetch() const { __builtin_prefetch(&static_cast<list_node<T> *>(node)->value); }
};

// Strings in their own order: the first four characters are the key, and the rest is only looked at where they agree.
struct list_string_entry {
  unsigned int key;
  list_links *node;

  template <class String> void set_string(list_links *n, const String &text) {
    const unsigned int length = text.size();
    const char *const data = text.data();
    key = 0;
    for (unsigned int i = 0; i < 4; ++i) key = key << 8 | (i < length ? static_cast<unsigned char>(data[i]) : 0u);
    node = n;
  }
};
template <class String> struct list_string_entry_of : public list_string_entry {
  void set(list_links *n) { set_string(n, static_cast<list_node<String> *>(n)->value); }
  const String &value() const { return static_cast<list_node<String> *>(node)->value; }
  void fetch() const {}
};

template <class T, class Compare, bool scalar> struct list_entry { typedef list_plain_entry<T> type; };
template <class T, class Compare> struct list_entry<T, Compare, true> { typedef list_keyed_entry<T> type; };
template <class C, class A> struct list_entry<std::basic_string<C, std::char_traits<C>, A>, list_less, false> {
  typedef list_string_entry_of<std::basic_string<C, std::char_traits<C>, A> > type;
};

template <class Entry, class Compare> inline bool list_before(const Entry &a, const Entry &b, Compare &before) {
  return before(a.value(), b.value());
}
template <class String>
inline bool list_before(const list_string_entry_of<String> &a, const list_string_entry_of<String> &b, list_less &) {
  return a.key != b.key ? a.key < b.key : a.value() < b.value();
}

enum { list_run = 8, list_fetched_ahead = 4 };

// Merges [left, middle) and [middle, right) into `to`; of equal elements those of the left come first.
template <class Entry, class Compare>
inline void list_merge(const Entry *left, const Entry *middle, const Entry *right, Entry *to, Compare &before) {
  const Entry *a = left, *b = middle;
  if (a != middle && b != right && !__zor::list_before(*b, middle[-1], before)) {
    // In order already.
    while (a != right) *to++ = *a++;
    return;
  }
  while (a != middle && b != right) {
    // The arrays have list_fetched_ahead entries more than there are elements, so these exist.
    a[list_fetched_ahead].fetch();
    b[list_fetched_ahead].fetch();
    const bool from_right = __zor::list_before(*b, *a, before);
    const Entry *const chosen = from_right ? b : a;
    *to++ = *chosen;
    b += from_right;
    a += !from_right;
  }
  while (a != middle) *to++ = *a++;
  while (b != right) *to++ = *b++;
}

template <class Entry, class Compare> inline void list_sort_run(Entry *first, Entry *last, Compare &before) {
  for (Entry *each = first + 1; each < last; ++each) {
    const Entry moved = *each;
    Entry *to = each;
    for (; to != first && __zor::list_before(moved, to[-1], before); --to) *to = to[-1];
    *to = moved;
  }
}

// False: no memory, nothing was done.
template <class T, class Compare> bool list_sort_by_array(list_links *head, size_t n, Compare &before) {
  typedef typename list_entry<T, Compare, is_scalar<T>::value>::type entry;
  const size_t room = n + list_fetched_ahead;
  if (room > 0x7FFFFFFFu / (2 * sizeof(entry))) return false;
  list_scratch scratch(2 * room * sizeof(entry));
  if (!scratch.block) return false;
  entry *from = static_cast<entry *>(scratch.block), *to = from + room;

  entry *filled = from;
  for (list_links *node = head->next; node != head; node = node->next, ++filled) filled->set(node);
  for (int i = 0; i < list_fetched_ahead; ++i) {
    filled[i].set(head->next);
    to[n + static_cast<size_t>(i)].set(head->next);
  }

  for (size_t i = 0; i < n; i += list_run) __zor::list_sort_run(from + i, from + (n - i < list_run ? n : i + list_run), before);
  for (size_t run = list_run; run < n; run *= 2) {
    for (size_t i = 0; i < n;) {
      const size_t middle = n - i > run ? i + run : n;
      const size_t end = n - middle > run ? middle + run : n;
      __zor::list_merge(from + i, from + middle, from + end, to + i, before);
      i = end;
    }
    entry *const other = from;
    from = to;
    to = other;
  }

  list_links *last = head;
  for (size_t i = 0; i < n; ++i) {
    list_links *const node = from[i].node;
    last->next = node;
    node->prev = last;
    last = node;
  }
  last->next = head;
  head->prev = last;
  return true;
}

}  // namespace __zor

#endif
