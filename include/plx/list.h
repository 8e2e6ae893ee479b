// list (1998, 23.2.2): a ring of nodes through the list object itself, which stands for end().
//
//       list              node              node
//     +------+          +------+          +-------+
//  +->| next |--------->| next |--------->| next  |--> back to the list
//     | prev |<---------| prev |<---------| prev  |
//     +------+          +------+          +-------+
//     | size |          | value|          | value |
//
// Nodes come from the node pool. sort works on an array of node pointers where it gets the memory for one, and relinks
// the ring once at the end: iterators stay with their elements, and a comparison that throws changes nothing.
#ifndef PLX_LIST_H
#define PLX_LIST_H

#include <plx/list_sort.h>
#include <plx/node_pool.h>
#include <plx/sequence.h>

#if __cplusplus >= 201103L
#include <initializer_list>
#endif

namespace __zor {

// Joins two nodes.
inline void list_link(list_links *before, list_links *after) PLX_NOTHROW {
  before->next = after;
  after->prev = before;
}

// Moves the nodes [first, last) in front of `at`, which is not among them.
inline void list_transfer(list_links *at, list_links *first, list_links *last) PLX_NOTHROW {
  list_links *const end = last->prev;
  list_link(first->prev, last);
  list_link(at->prev, first);
  list_link(end, at);
}

template <class T, class Reference, class Pointer> class list_iterator : public std::__iterator_of_std {
public:
  typedef T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef Pointer pointer;
  typedef Reference reference;
  typedef std::bidirectional_iterator_tag iterator_category;

  list_iterator() PLX_NOTHROW : node(0) {}
  explicit list_iterator(list_links *n) PLX_NOTHROW : node(n) {}
  template <class P> list_iterator(const list_iterator<T, T &, P> &other) PLX_NOTHROW : node(other.node) {}

  Reference operator*() const PLX_NOTHROW { return static_cast<list_node<T> *>(node)->value; }
  Pointer operator->() const PLX_NOTHROW { return __zor::address_of(static_cast<list_node<T> *>(node)->value); }
  list_iterator &operator++() PLX_NOTHROW {
    node = node->next;
    return *this;
  }
  list_iterator operator++(int) PLX_NOTHROW {
    list_iterator before = *this;
    node = node->next;
    return before;
  }
  list_iterator &operator--() PLX_NOTHROW {
    node = node->prev;
    return *this;
  }
  list_iterator operator--(int) PLX_NOTHROW {
    list_iterator before = *this;
    node = node->prev;
    return before;
  }

  list_links *node;
};

template <class T, class R, class P, class R2, class P2>
inline bool operator==(const list_iterator<T, R, P> &left, const list_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return left.node == right.node;
}
template <class T, class R, class P, class R2, class P2>
inline bool operator!=(const list_iterator<T, R, P> &left, const list_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return left.node != right.node;
}

}  // namespace __zor

namespace std {

template <class T, class A = allocator<T> > class PLX_API list : private A {
  typedef __zor::list_links links;
  typedef __zor::list_node<T> node;
  typedef __zor::node_source<node, A> source;
  typedef typename __zor::element_traits<T, A>::plain plain;
  typedef __zor::yes yes;
  typedef __zor::no no;

public:
  typedef T value_type;
  typedef A allocator_type;
  typedef typename A::size_type size_type;
  typedef typename A::difference_type difference_type;
  typedef typename A::reference reference;
  typedef typename A::const_reference const_reference;
  typedef typename A::pointer pointer;
  typedef typename A::const_pointer const_pointer;
  typedef __zor::list_iterator<T, T &, T *> iterator;
  typedef __zor::list_iterator<T, const T &, const T *> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  // Construction, copying, destruction.

  explicit list(const A &a = A()) PLX_NOTHROW : A(a) { reset(); }
  explicit list(size_type n, const T &value = T(), const A &a = A()) : A(a) {
    reset();
    insert(end(), n, value);
  }
  template <class Iterator> list(Iterator first, Iterator last, const A &a = A()) : A(a) {
    reset();
    insert(end(), first, last);
  }
  list(const list &other) : A(other) {
    reset();
    insert_each(&head_, other.begin(), other.end());
  }
  ~list() { give_all(); }

  list &operator=(const list &other) {
    if (this != &other) assign_each(other.begin(), other.end());
    return *this;
  }
#if __cplusplus >= 201103L
  list(list &&other) noexcept : A(other) {
    reset();
    swap_rings(other);
  }
  list &operator=(list &&other) noexcept {
    list taken(static_cast<list &&>(other));
    swap(taken);
    return *this;
  }
  list(initializer_list<T> values, const A &a = A()) : A(a) {
    reset();
    insert_each(&head_, values.begin(), values.end());
  }
  list &operator=(initializer_list<T> values) {
    assign_each(values.begin(), values.end());
    return *this;
  }
  void assign(initializer_list<T> values) { assign_each(values.begin(), values.end()); }
  void insert(iterator at, initializer_list<T> values) { insert_each(at.node, values.begin(), values.end()); }
#endif
  template <class Iterator> void assign(Iterator first, Iterator last) {
    assign_range(first, last, typename __zor::is_integer<Iterator>::type());
  }
  void assign(size_type n, const T &value) {
    links *at = head_.next;
    for (; n != 0 && at != &head_; --n, at = at->next) value_of(at) = value;
    // The value may lie among the elements that go.
    if (n != 0)
      insert(end(), n, value);
    else
      erase(iterator(at), end());
  }
  allocator_type get_allocator() const PLX_NOTHROW { return static_cast<const A &>(*this); }

  // Iterators.

  iterator begin() PLX_NOTHROW { return iterator(head_.next); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(head_.next); }
  iterator end() PLX_NOTHROW { return iterator(&head_); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(const_cast<links *>(&head_)); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
#endif

  // Size and ends.

  bool empty() const PLX_NOTHROW { return size_ == 0; }
  size_type size() const PLX_NOTHROW { return size_; }
  size_type max_size() const PLX_NOTHROW { return static_cast<size_type>(-1) / sizeof(node); }
  void resize(size_type n, T value = T()) {
    if (n >= size_) {
      insert(end(), n - size_, value);
      return;
    }
    links *at = &head_;
    for (size_type gone = size_ - n; gone != 0; --gone) at = at->prev;
    erase(iterator(at), end());
  }
  reference front() PLX_NOTHROW { return value_of(head_.next); }
  const_reference front() const PLX_NOTHROW { return value_of(head_.next); }
  reference back() PLX_NOTHROW { return value_of(head_.prev); }
  const_reference back() const PLX_NOTHROW { return value_of(head_.prev); }

  // Modifiers.

  void push_front(const T &value) { hook(head_.next, make(value)); }
  void pop_front() { give(unhook(head_.next)); }
  void push_back(const T &value) { hook(&head_, make(value)); }
  void pop_back() { give(unhook(head_.prev)); }

  iterator insert(iterator at, const T &value) {
    node *made = make(value);
    hook(at.node, made);
    return iterator(made);
  }
  void insert(iterator at, size_type n, const T &value) {
    if (n > max_size() - size_) __zor::sequence_length_error();
    __zor::cleanup<chain> made(*this);
    for (; n != 0; --n) made.get().add(value);
    made.get().hook_before(at.node);
  }
  template <class Iterator> void insert(iterator at, Iterator first, Iterator last) {
    insert_range(at, first, last, typename __zor::is_integer<Iterator>::type());
  }
  iterator erase(iterator at) {
    links *const next = at.node->next;
    give(unhook(at.node));
    return iterator(next);
  }
  iterator erase(iterator first, iterator last) {
    if (first == begin() && last == end()) {
      clear();
      return last;
    }
    while (first != last) first = erase(first);
    return last;
  }
  void swap(list &other) PLX_NOTHROW { swap_rings(other); }
  void clear() PLX_NOTHROW {
    give_all();
    reset();
  }

  // Operations that move nodes. On the list itself splicing all and merging do nothing.

  void splice(iterator at, list &other) {
    if (this == &other || other.empty()) return;
    __zor::list_transfer(at.node, other.head_.next, &other.head_);
    size_ += other.size_;
    other.size_ = 0;
  }
  void splice(iterator at, list &other, iterator which) {
    if (at == which || at.node == which.node->next) return;
    __zor::list_transfer(at.node, which.node, which.node->next);
    --other.size_;
    ++size_;
  }
  void splice(iterator at, list &other, iterator first, iterator last) {
    if (first == last || at == first || at == last) {
      if (this == &other || first == last) return;
    }
    if (this != &other) {
      size_type n = 0;
      for (links *each = first.node; each != last.node; each = each->next) ++n;
      other.size_ -= n;
      size_ += n;
    }
    __zor::list_transfer(at.node, first.node, last.node);
  }

  // What is removed waits until the end: the value may be one of the elements.
  void remove(const T &value) {
    list removed(get_allocator());
    for (iterator at = begin(); at != end();) {
      const iterator each = at++;
      if (*each == value) removed.splice(removed.end(), *this, each);
    }
  }
  template <class Predicate> void remove_if(Predicate matches) {
    list removed(get_allocator());
    for (iterator at = begin(); at != end();) {
      const iterator each = at++;
      if (matches(*each)) removed.splice(removed.end(), *this, each);
    }
  }
  void unique() { unique(__zor::list_equal()); }
  template <class Equal> void unique(Equal equal) {
    if (empty()) return;
    for (links *kept = head_.next; kept->next != &head_;) {
      if (equal(value_of(kept), value_of(kept->next)))
        give(unhook(kept->next));
      else
        kept = kept->next;
    }
  }
  void merge(list &other) { merge(other, __zor::list_less()); }
  template <class Compare> void merge(list &other, Compare before) {
    if (this == &other) return;
    links *at = head_.next;
    while (at != &head_ && !other.empty()) {
      links *const first = other.head_.next;
      if (before(value_of(first), value_of(at))) {
        __zor::list_transfer(at, first, first->next);
        --other.size_;
        ++size_;
      } else {
        at = at->next;
      }
    }
    splice(end(), other);
  }
  void reverse() PLX_NOTHROW {
    links *at = &head_;
    do {
      links *const next = at->next;
      at->next = at->prev;
      at->prev = next;
      at = next;
    } while (at != &head_);
  }
  void sort() { sort(__zor::list_less()); }
  template <class Compare> void sort(Compare before) {
    if (size_ < 2) return;
    if (!__zor::list_sort_by_array<T>(&head_, size_, before)) sort_by_bins(before);
  }

private:
  static T &value_of(links *at) PLX_NOTHROW { return static_cast<node *>(at)->value; }
  static const T &value_of(const links *at) PLX_NOTHROW { return static_cast<const node *>(at)->value; }

  void reset() PLX_NOTHROW {
    head_.next = head_.prev = &head_;
    size_ = 0;
  }

  // ---- Nodes.

  // Memory for a node whose element is being made.
  class raw_node {
  public:
    explicit raw_node(const A &a) : allocator_(a), node_(source::take(a)) {}
    ~raw_node() {
      if (node_) source::give(allocator_, node_);
    }
    node *get() const { return node_; }
    node *keep() {
      node *const kept = node_;
      node_ = 0;
      return kept;
    }

  private:
    raw_node(const raw_node &);
    raw_node &operator=(const raw_node &);

    const A &allocator_;
    node *node_;
  };

  node *make(const T &value) { return make(value, plain()); }
  node *make(const T &value, yes) {
    node *const made = source::take(alloc());
    A::construct(__zor::address_of(made->value), value);
    return made;
  }
  node *make(const T &value, no) {
    raw_node made(alloc());
    A::construct(__zor::address_of(made.get()->value), value);
    return made.keep();
  }
  void give(links *at) {
    A::destroy(__zor::address_of(value_of(at)));
    source::give(alloc(), static_cast<node *>(at));
  }
  const A &alloc() const PLX_NOTHROW { return *this; }

  // All nodes go; the links of the list stay as they are.
  void give_all() {
    if (size_ == 0) return;
    if (__zor::same_type<typename __zor::element_traits<T, A>::trivially_destroyed, yes>::value &&
        source::give_chain(alloc(), static_cast<node *>(head_.next), static_cast<node *>(head_.prev)))
      return;
    for (links *at = head_.next; at != &head_;) {
      links *const next = at->next;
      give(at);
      at = next;
    }
  }

  void hook(links *at, node *made) PLX_NOTHROW {
    links *const before = at->prev;
    made->next = at;
    made->prev = before;
    before->next = made;
    at->prev = made;
    ++size_;
  }
  links *unhook(links *at) PLX_NOTHROW {
    __zor::list_link(at->prev, at->next);
    --size_;
    return at;
  }

  // New nodes that are not in a list yet, and go unless they get there.
  class chain {
  public:
    explicit chain(const list &owner) : owner_(const_cast<list &>(owner)), n_(0) { head_.next = head_.prev = &head_; }
    ~chain() {
      for (links *at = head_.next; at != &head_;) {
        links *const next = at->next;
        owner_.give(at);
        at = next;
      }
    }
    void add(const T &value) {
      node *const made = owner_.make(value);
      __zor::list_link(head_.prev, made);
      __zor::list_link(made, &head_);
      ++n_;
    }
    void hook_before(links *at) PLX_NOTHROW {
      if (n_ == 0) return;
      __zor::list_transfer(at, head_.next, &head_);
      owner_.size_ += n_;
      n_ = 0;
    }

  private:
    chain(const chain &);
    chain &operator=(const chain &);

    list &owner_;
    links head_;
    size_type n_;
  };

  template <class Integer> void insert_range(iterator at, Integer n, Integer value, yes) {
    insert(at, static_cast<size_type>(n), static_cast<T>(value));
  }
  template <class Iterator> void insert_range(iterator at, Iterator first, Iterator last, no) {
    insert_each(at.node, first, last);
  }
  template <class Iterator> void insert_each(links *at, Iterator first, Iterator last) {
    __zor::cleanup<chain> made(*this);
    for (; first != last; ++first) made.get().add(*first);
    made.get().hook_before(at);
  }
  template <class Integer> void assign_range(Integer n, Integer value, yes) {
    assign(static_cast<size_type>(n), static_cast<T>(value));
  }
  template <class Iterator> void assign_range(Iterator first, Iterator last, no) { assign_each(first, last); }
  template <class Iterator> void assign_each(Iterator first, Iterator last) {
    links *at = head_.next;
    for (; first != last && at != &head_; (void)++first, at = at->next) value_of(at) = *first;
    if (first == last)
      erase(iterator(at), end());
    else
      insert_each(&head_, first, last);
  }

  // Exchanges the rings: each list object takes the other's place in the other's ring.
  void swap_rings(list &other) PLX_NOTHROW {
    if (this == &other) return;
    const links mine = head_, its = other.head_;
    const size_type n = size_;
    adopt(its, other.size_);
    other.adopt(mine, n);
  }
  void adopt(const links &ring, size_type n) PLX_NOTHROW {
    reset();
    if (n == 0) return;
    __zor::list_link(&head_, ring.next);
    __zor::list_link(ring.prev, &head_);
    size_ = n;
  }

  // ---- Sorting without memory: elements are carried into bins of 1, 2, 4, ... elements. Whatever happens, all of them
  // are in the list again at the end.

  class bins {
  public:
    explicit bins(list &whole) : whole_(whole) {}
    ~bins() {
      whole_.splice(whole_.end(), carry);
      for (int i = 0; i < 64; ++i) whole_.splice(whole_.end(), bin[i]);
    }
    list carry;
    list bin[64];

  private:
    list &whole_;
  };
  template <class Compare> __attribute__((__noinline__)) void sort_by_bins(Compare before) {
    bins sorted(*this);
    int used = 0;
    while (!empty()) {
      sorted.carry.splice(sorted.carry.begin(), *this, begin());
      int i = 0;
      for (; i < used && !sorted.bin[i].empty(); ++i) {
        sorted.bin[i].merge(sorted.carry, before);
        sorted.carry.swap(sorted.bin[i]);
      }
      sorted.carry.swap(sorted.bin[i]);
      if (i == used && used < 63) ++used;
    }
    for (int i = 1; i <= used; ++i) {
      sorted.bin[i].merge(sorted.bin[i - 1], before);
    }
    splice(end(), sorted.bin[used]);
  }

  links head_;
  size_type size_;
};

template <class T, class A> inline bool operator==(const list<T, A> &left, const list<T, A> &right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin());
}
template <class T, class A> inline bool operator<(const list<T, A> &left, const list<T, A> &right) {
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
}
template <class T, class A> inline bool operator!=(const list<T, A> &left, const list<T, A> &right) {
  return !(left == right);
}
template <class T, class A> inline bool operator>(const list<T, A> &left, const list<T, A> &right) {
  return right < left;
}
template <class T, class A> inline bool operator>=(const list<T, A> &left, const list<T, A> &right) {
  return !(left < right);
}
template <class T, class A> inline bool operator<=(const list<T, A> &left, const list<T, A> &right) {
  return !(right < left);
}
template <class T, class A> inline void swap(list<T, A> &left, list<T, A> &right) PLX_NOTHROW { left.swap(right); }

__extension__ extern template class PLX_API list<int, allocator<int> >;
__extension__ extern template class PLX_API list<char, allocator<char> >;

}  // namespace std

#endif
