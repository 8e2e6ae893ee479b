// deque (1998, 23.2.1): blocks of 20 elements, reached through a map of pointers to them.
//
//     map      [ . | . | 0 | 1 | 2 | . | . | . ]      used entries in the middle, spare ones at both ends
//                        |   |   |
//                        v   |   +--> block 2 [ e e e e . . . ]    finish_: the place behind the last element;
//      block 0 [ . . . e e ] |                                     its block always has that place
//      start_: an entry and  +--> block 1 [ e e e e e e e ]
//      an offset there
//
// An empty deque has neither map nor block until the first element comes. That one goes into the middle of its block.
#ifndef PLX_DEQUE_H
#define PLX_DEQUE_H

#include <plx/node_pool.h>
#include <plx/sequence.h>

#if __cplusplus >= 201103L
#include <initializer_list>
#endif

namespace __zor {

enum { deque_block = 20 };

// The map of a deque without one: an entry that leads to no elements.
template <class T> struct deque_nothing {
  static T *entry;
};
template <class T> T *deque_nothing<T>::entry = reinterpret_cast<T *>(4096);

template <class T, class Reference, class Pointer> class deque_iterator : public std::__iterator_of_std {
public:
  typedef T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef Pointer pointer;
  typedef Reference reference;
  typedef std::random_access_iterator_tag iterator_category;

  deque_iterator() PLX_NOTHROW : cur(0), last(0), node(0) {}
  deque_iterator(T *c, T **n) PLX_NOTHROW : cur(c), last(*n + deque_block), node(n) {}
  template <class P> deque_iterator(const deque_iterator<T, T &, P> &other) PLX_NOTHROW
      : cur(other.cur), last(other.last), node(other.node) {}

  Reference operator*() const PLX_NOTHROW { return *cur; }
  Pointer operator->() const PLX_NOTHROW { return cur; }
  Reference operator[](difference_type n) const PLX_NOTHROW { return *(*this + n); }

  deque_iterator &operator++() PLX_NOTHROW {
    if (++cur == last) enter(node + 1, 0);
    return *this;
  }
  deque_iterator operator++(int) PLX_NOTHROW {
    deque_iterator before = *this;
    ++*this;
    return before;
  }
  deque_iterator &operator--() PLX_NOTHROW {
    if (cur == last - deque_block) enter(node - 1, deque_block);
    --cur;
    return *this;
  }
  deque_iterator operator--(int) PLX_NOTHROW {
    deque_iterator before = *this;
    --*this;
    return before;
  }
  deque_iterator &operator+=(difference_type n) PLX_NOTHROW {
    n += cur - (last - deque_block);
    if (n >= 0) {
      const unsigned int blocks = static_cast<unsigned int>(n) / deque_block;
      enter(node + blocks, n - static_cast<difference_type>(blocks * deque_block));
    } else {
      const unsigned int blocks = (static_cast<unsigned int>(-(n + 1)) / deque_block) + 1;
      enter(node - blocks, n + static_cast<difference_type>(blocks * deque_block));
    }
    return *this;
  }
  deque_iterator &operator-=(difference_type n) PLX_NOTHROW { return *this += -n; }
  deque_iterator operator+(difference_type n) const PLX_NOTHROW {
    deque_iterator moved = *this;
    return moved += n;
  }
  deque_iterator operator-(difference_type n) const PLX_NOTHROW {
    deque_iterator moved = *this;
    return moved += -n;
  }

  T *cur;
  T *last;  // the end of its block
  T **node;

private:
  void enter(T **n, difference_type offset) PLX_NOTHROW {
    node = n;
    T *const first = *n;
    cur = first + offset;
    last = first + deque_block;
  }
};

template <class T, class R, class P, class R2, class P2>
inline bool operator==(const deque_iterator<T, R, P> &left, const deque_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return left.cur == right.cur;
}
template <class T, class R, class P, class R2, class P2>
inline bool operator!=(const deque_iterator<T, R, P> &left, const deque_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return left.cur != right.cur;
}
template <class T, class R, class P, class R2, class P2>
inline bool operator<(const deque_iterator<T, R, P> &left, const deque_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return left.node == right.node ? left.cur < right.cur : left.node < right.node;
}
template <class T, class R, class P, class R2, class P2>
inline bool operator>(const deque_iterator<T, R, P> &left, const deque_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return right < left;
}
template <class T, class R, class P, class R2, class P2>
inline bool operator<=(const deque_iterator<T, R, P> &left, const deque_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return !(right < left);
}
template <class T, class R, class P, class R2, class P2>
inline bool operator>=(const deque_iterator<T, R, P> &left, const deque_iterator<T, R2, P2> &right) PLX_NOTHROW {
  return !(left < right);
}
template <class T, class R, class P, class R2, class P2>
inline std::ptrdiff_t operator-(const deque_iterator<T, R, P> &left, const deque_iterator<T, R2, P2> &right)
    PLX_NOTHROW {
  return (left.node - right.node) * deque_block + (left.cur - left.last) - (right.cur - right.last);
}
template <class T, class R, class P>
inline deque_iterator<T, R, P> operator+(std::ptrdiff_t n, const deque_iterator<T, R, P> &at) PLX_NOTHROW {
  return at + n;
}

// Algorithms walk the blocks.
template <class T, class R, class P> struct segmented_iterator_traits<deque_iterator<T, R, P> > {
  typedef yes is_segmented;
  typedef T **segment_iterator;
  typedef P local_iterator;
  typedef deque_iterator<T, R, P> iterator;

  static segment_iterator segment(const iterator &at) PLX_NOTHROW { return at.node; }
  static local_iterator local(const iterator &at) PLX_NOTHROW { return at.cur; }
  static local_iterator begin(segment_iterator block) PLX_NOTHROW { return *block; }
  static local_iterator end(segment_iterator block) PLX_NOTHROW { return *block + deque_block; }
  static iterator compose(segment_iterator block, local_iterator at) PLX_NOTHROW {
    const std::ptrdiff_t offset = at - *block;
    if (offset == deque_block) return iterator(block[1], block + 1);
    return iterator(*block + offset, block);
  }
};

// One value, as often as wanted: filling is copying from here.
template <class T> class repeated_value {
public:
  typedef T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef const T *pointer;
  typedef const T &reference;
  typedef std::random_access_iterator_tag iterator_category;

  repeated_value(const T &value, size_t at) PLX_NOTHROW : value_(&value), at_(at) {}
  const T &operator*() const PLX_NOTHROW { return *value_; }
  repeated_value &operator++() PLX_NOTHROW {
    ++at_;
    return *this;
  }
  repeated_value &operator+=(difference_type n) PLX_NOTHROW {
    at_ += static_cast<size_t>(n);
    return *this;
  }
  bool operator==(const repeated_value &other) const PLX_NOTHROW { return at_ == other.at_; }
  bool operator!=(const repeated_value &other) const PLX_NOTHROW { return at_ != other.at_; }

private:
  const T *value_;
  size_t at_;
};

}  // namespace __zor

namespace std {

template <class T, class A = allocator<T> > class PLX_API deque : private A {
  typedef __zor::deque_nothing<T> nothing;
  typedef __zor::node_source<T, A, __zor::deque_block> source;
  typedef typename A::template rebind<T *>::other map_allocator;
  typedef typename __zor::element_traits<T, A>::plain plain;
  typedef typename __zor::element_traits<T, A>::trivially_destroyed trivially_destroyed;
  typedef typename __zor::truth<__zor::element_traits<T, A>::standard && __zor::is_scalar<T>::value>::type number;
  typedef __zor::yes yes;
  typedef __zor::no no;
  enum { block = __zor::deque_block };

public:
  typedef T value_type;
  typedef A allocator_type;
  typedef typename A::size_type size_type;
  typedef typename A::difference_type difference_type;
  typedef typename A::reference reference;
  typedef typename A::const_reference const_reference;
  typedef typename A::pointer pointer;
  typedef typename A::const_pointer const_pointer;
  typedef __zor::deque_iterator<T, T &, T *> iterator;
  typedef __zor::deque_iterator<T, const T &, const T *> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  // Construction, copying, destruction.

  explicit deque(const A &a = A()) PLX_NOTHROW : A(a) { reset(); }
  explicit deque(size_type n, const T &value = T(), const A &a = A()) : A(a) {
    reset();
    __zor::cleanup<unfinished> guard(*this);
    insert(end(), n, value);
    guard.get().finish();
  }
  template <class Iterator> deque(Iterator first, Iterator last, const A &a = A()) : A(a) {
    reset();
    __zor::cleanup<unfinished> guard(*this);
    insert(end(), first, last);
    guard.get().finish();
  }
  deque(const deque &other) : A(other) {
    reset();
    __zor::cleanup<unfinished> guard(*this);
    insert_sized(end(), other.begin(), other.end(), other.size());
    guard.get().finish();
  }
  ~deque() { give_all(); }

  deque &operator=(const deque &other) {
    if (this != &other) assign_sized(other.begin(), other.end(), other.size());
    return *this;
  }
#if __cplusplus >= 201103L
  deque(deque &&other) noexcept : A(other) {
    reset();
    swap(other);
  }
  deque &operator=(deque &&other) noexcept {
    deque taken(static_cast<deque &&>(other));
    swap(taken);
    return *this;
  }
  deque(initializer_list<T> values, const A &a = A()) : deque(values.begin(), values.end(), a) {}
  deque &operator=(initializer_list<T> values) {
    assign_sized(values.begin(), values.end(), values.size());
    return *this;
  }
  void assign(initializer_list<T> values) { assign_sized(values.begin(), values.end(), values.size()); }
  void insert(iterator at, initializer_list<T> values) {
    insert_sized(at, values.begin(), values.end(), values.size());
  }
#endif
  template <class Iterator> void assign(Iterator first, Iterator last) {
    assign_range(first, last, typename __zor::is_integer<Iterator>::type());
  }
  void assign(size_type n, const T &value) {
    const T copy(value);
    assign_sized(repeated(copy, 0), repeated(copy, n), n);
  }
  allocator_type get_allocator() const PLX_NOTHROW { return static_cast<const A &>(*this); }

  // Iterators.

  iterator begin() PLX_NOTHROW { return iterator(*start_node_ + start_offset_, start_node_); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(*start_node_ + start_offset_, start_node_); }
  iterator end() PLX_NOTHROW { return iterator(finish_, finish_node_); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(finish_, finish_node_); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
#endif

  // Size.

  size_type size() const PLX_NOTHROW {
    return static_cast<size_type>((finish_node_ - start_node_) * block + (finish_ - *finish_node_)) - static_cast<size_type>(start_offset_);
  }
  size_type max_size() const PLX_NOTHROW {
    const size_type fit = A::max_size(), countable = 0x7FFFFFFFu / sizeof(T);
    return fit < countable ? fit : countable;
  }
  void resize(size_type n, T value = T()) {
    const size_type now = size();
    if (n > now)
      insert_sized(end(), repeated(value, now), repeated(value, n), n - now);
    else
      cut_back(begin() + static_cast<difference_type>(n));
  }
  bool empty() const PLX_NOTHROW { return finish_ == *start_node_ + start_offset_; }

  // Elements.

  reference operator[](size_type n) PLX_NOTHROW { return *element(n); }
  const_reference operator[](size_type n) const PLX_NOTHROW { return *element(n); }
  reference at(size_type n) {
    if (n >= size()) __zor::sequence_out_of_range();
    return *element(n);
  }
  const_reference at(size_type n) const {
    if (n >= size()) __zor::sequence_out_of_range();
    return *element(n);
  }
  reference front() PLX_NOTHROW { return (*start_node_)[start_offset_]; }
  const_reference front() const PLX_NOTHROW { return (*start_node_)[start_offset_]; }
  reference back() PLX_NOTHROW { return *last_element(); }
  const_reference back() const PLX_NOTHROW { return *last_element(); }

  // Modifiers. What is inserted may be an element of this deque.

  void push_front(const T &value) { push_front(value, number()); }
  void push_back(const T &value) { push_back(value, number()); }
  void pop_front() {
    A::destroy(*start_node_ + start_offset_);
    unsigned long next = start_offset_ + 1;
    if (__builtin_expect(next == block, 0)) {
      source::give(alloc(), *start_node_);
      ++start_node_;
      next = 0;
    }
    start_offset_ = next;
  }
  void pop_back() {
    if (finish_ == *finish_node_) {
      source::give(alloc(), *finish_node_);
      --finish_node_;
      finish_limit_ = finish_ = *finish_node_ + (block - 1);
    } else {
      --finish_;
    }
    A::destroy(finish_);
  }

  iterator insert(iterator at, const T &value) {
    const difference_type index = at - begin();
    if (index == 0) {
      push_front(value);
    } else if (at == end()) {
      push_back(value);
    } else {
      const T copy(value);
      if (static_cast<size_type>(index) < size() / 2) {
        push_front(front());
        const iterator first = begin();
        std::copy(first + 2, first + index + 1, first + 1);
      } else {
        push_back(back());
        const iterator last = end();
        std::copy_backward(begin() + index, last - 2, last - 1);
      }
      *element(static_cast<size_type>(index)) = copy;
    }
    return begin() + index;
  }
  void insert(iterator at, size_type n, const T &value) {
    const T copy(value);
    insert_sized(at, repeated(copy, 0), repeated(copy, n), n);
  }
  template <class Iterator> void insert(iterator at, Iterator first, Iterator last) {
    insert_range(at, first, last, typename __zor::is_integer<Iterator>::type());
  }
  iterator erase(iterator at) { return erase(at, at + 1); }
  iterator erase(iterator first, iterator last) {
    const difference_type index = first - begin(), n = last - first;
    if (n == 0) return first;
    if (static_cast<size_type>(index) < (size() - static_cast<size_type>(n)) / 2) {
      std::copy_backward(begin(), first, last);
      cut_front(begin() + n);
    } else {
      std::copy(last, end(), first);
      cut_back(end() - n);
    }
    return begin() + index;
  }
  void swap(deque &other) PLX_NOTHROW {
    std::swap(map_, other.map_);
    std::swap(map_end_, other.map_end_);
    std::swap(start_node_, other.start_node_);
    std::swap(start_offset_, other.start_offset_);
    std::swap(finish_, other.finish_);
    std::swap(finish_limit_, other.finish_limit_);
    std::swap(finish_node_, other.finish_node_);
  }
  void clear() PLX_NOTHROW { cut_back(begin()); }

private:
  typedef __zor::repeated_value<T> repeated;

  const A &alloc() const PLX_NOTHROW { return *this; }

  void reset() PLX_NOTHROW {
    map_ = 0;
    map_end_ = &nothing::entry + 1;
    start_node_ = finish_node_ = &nothing::entry;
    start_offset_ = 0;
    finish_ = finish_limit_ = nothing::entry;
  }
  T *element(size_type n) const PLX_NOTHROW {
    n += start_offset_;
    const size_type blocks = n / block;
    return start_node_[blocks] + (n - blocks * block);
  }
  T *last_element() const PLX_NOTHROW {
    return finish_ == *finish_node_ ? finish_node_[-1] + (block - 1) : finish_ - 1;
  }
  void set_finish(T *at, T **node) PLX_NOTHROW {
    finish_ = at;
    finish_node_ = node;
    finish_limit_ = *node + (block - 1);
  }

  // ---- The map.

  size_type map_size() const PLX_NOTHROW { return static_cast<size_type>(map_end_ - map_); }

  T **take_map(size_type n) {
    map_allocator a(alloc());
    return a.allocate(n);
  }
  void give_map() PLX_NOTHROW {
    if (!map_) return;
    map_allocator a(alloc());
    a.deallocate(map_, map_size());
  }

  // The first allocation: a map of two entries, and a block in the second.
  void begin_in_middle() {
    __zor::cleanup<new_block> first(*this);
    map_ = take_map(2);
    map_end_ = map_ + 2;
    start_node_ = map_ + 1;
    *start_node_ = first.get().keep();
    start_offset_ = block / 2;
    set_finish(*start_node_ + block / 2, start_node_);
  }

  class new_block {
  public:
    explicit new_block(const deque &d) : deque_(d), block_(source::take(d.alloc())) {}
    ~new_block() {
      if (block_) source::give(deque_.alloc(), block_);
    }
    T *get() const PLX_NOTHROW { return block_; }
    T *keep() PLX_NOTHROW {
      T *const kept = block_;
      block_ = 0;
      return kept;
    }

  private:
    new_block(const new_block &);
    new_block &operator=(const new_block &);
    const deque &deque_;
    T *block_;
  };

  // Makes sure that n entries are free in front of the used ones, or behind them. The new map has twice the used
  // entries; a map that is large enough is used again.
  void reserve_entries(size_type n, bool in_front) {
    const size_type before = static_cast<size_type>(start_node_ - map_);
    const size_type used = static_cast<size_type>(finish_node_ - start_node_) + 1;
    if (n <= (in_front ? before : map_size() - before - used)) return;
    size_type wanted = 2 * used;
    if (wanted - wanted / 4 < used + n) wanted = 2 * (used + n);
    const bool reused = wanted <= map_size();
    T **const made = reused ? map_ : take_map(wanted);
    if (reused) wanted = map_size();
    T **const start = made + (in_front ? wanted - used - wanted / 4 : wanted / 4);
    memmove(static_cast<void *>(start), start_node_, used * sizeof(T *));
    if (!reused) {
      give_map();
      map_ = made;
      map_end_ = made + wanted;
    }
    start_node_ = start;
    finish_node_ = start + (used - 1);
  }

  // ---- Blocks for elements to come: they go again unless they are kept.

  class new_blocks {
  public:
    // At the back from finish_node_ on, or at the front from start_node_ on.
    new_blocks(const deque &d, const size_type &n, const bool &in_front)
        : deque_(const_cast<deque &>(d)), node_(0), n_(0), in_front_(in_front) {
      deque_.reserve_entries(n, in_front);
      node_ = in_front ? deque_.start_node_ : deque_.finish_node_;
    }
    ~new_blocks() {
      for (; n_ != 0; --n_) source::give(deque_.alloc(), *entry(n_));
    }
    void add() {
      *entry(n_ + 1) = source::take(deque_.alloc());
      ++n_;
    }
    void keep() PLX_NOTHROW { n_ = 0; }

  private:
    new_blocks(const new_blocks &);
    new_blocks &operator=(const new_blocks &);
    T **entry(size_type i) const PLX_NOTHROW { return in_front_ ? node_ - i : node_ + i; }

    deque &deque_;
    T **node_;
    size_type n_;
    bool in_front_;
  };

  // Pushing numbers has one way of writing the element and the end, so that in a loop the end stays in a register. What
  // comes once in 20 pushes is a template, so that the program has it itself also where the library carries the deque:
  // its pool is nearer than the library's.

  void push_back(const T &value, yes) {
    const T copy = value;
    T *at = finish_, *next = at + 1;
    if (__builtin_expect(at == finish_limit_, 0)) {
      next = next_block<T>();
      if (at == nothing::entry) at = next++;
    }
    *at = copy;
    finish_ = next;
  }
  // Where the next element but one goes; in an empty deque, the next.
  template <class> __attribute__((__noinline__, __regparm__(1))) T *next_block() {
    if (__builtin_expect(finish_node_ + 1 == map_end_, 0)) {
      if (!map_) {
        begin_in_middle();
        return finish_;
      }
      reserve_entries(1, false);
    }
    T *const made = source::take(alloc());
    *++finish_node_ = made;
    finish_limit_ = made + (block - 1);
    return made;
  }
  void push_back(const T &value, no) {
    if (__builtin_expect(finish_ != finish_limit_, 1)) {
      A::construct(finish_, value);
      ++finish_;
    } else {
      push_back_before_new(value);
    }
  }
  __attribute__((__noinline__)) void push_back_before_new(const T &value) {
    if (!map_) {
      begin_in_middle();
      push_back(value);
      return;
    }
    if (finish_node_ + 1 == map_end_) reserve_entries(1, false);
    new_block made(*this);
    A::construct(finish_, value);
    finish_node_[1] = made.keep();
    set_finish(finish_node_[1], finish_node_ + 1);
  }

  void push_front(const T &value, yes) {
    const T copy = value;
    if (__builtin_expect(start_offset_ == 0, 0)) previous_block<T>();
    const unsigned long offset = start_offset_ - 1;
    (*start_node_)[offset] = copy;
    start_offset_ = offset;
  }
  template <class> __attribute__((__noinline__, __regparm__(1))) void previous_block() {
    if (__builtin_expect(start_node_ == map_, 0)) {
      reserve_entries(1, true);
    } else if (__builtin_expect(!map_, 0)) {
      begin_in_middle();
      return;
    }
    T *const made = source::take(alloc());
    *--start_node_ = made;
    start_offset_ = block;
  }
  void push_front(const T &value, no) {
    if (__builtin_expect(start_offset_ != 0, 1)) {
      A::construct(*start_node_ + (start_offset_ - 1), value);
      --start_offset_;
    } else {
      push_front_into_new(value);
    }
  }
  __attribute__((__noinline__)) void push_front_into_new(const T &value) {
    if (!map_) {
      begin_in_middle();
      push_front(value);
      return;
    }
    if (start_node_ == map_) reserve_entries(1, true);
    new_block made(*this);
    A::construct(made.get() + (block - 1), value);
    *--start_node_ = made.keep();
    start_offset_ = block - 1;
  }

  // ---- Destroying.

  void destroy_between(T *first, T **node, T *last, T **last_node, yes) PLX_NOTHROW {
    (void)first, (void)node, (void)last, (void)last_node;
  }
  void destroy_between(T *first, T **node, T *last, T **last_node, no) {
    for (; node != last_node; first = *++node) __zor::destroy_range(static_cast<A &>(*this), first, *node + block);
    __zor::destroy_range(static_cast<A &>(*this), first, last);
  }
  void destroy_between(const iterator &first, const iterator &last) {
    destroy_between(first.cur, first.node, last.cur, last.node, trivially_destroyed());
  }
  void cut_back(iterator at) {
    destroy_between(at, end());
    for (T **node = finish_node_; node != at.node; --node) source::give(alloc(), *node);
    if (map_) set_finish(at.cur, at.node);
  }
  void cut_front(iterator at) {
    destroy_between(begin(), at);
    for (T **node = start_node_; node != at.node; ++node) source::give(alloc(), *node);
    start_node_ = at.node;
    start_offset_ = static_cast<size_type>(at.cur - *at.node);
  }
  void give_all() {
    if (!map_) return;
    destroy_between(begin(), end());
    for (T **node = start_node_; node <= finish_node_; ++node) source::give(alloc(), *node);
    give_map();
  }

  // Gives up what a constructor did so far.
  class unfinished {
  public:
    explicit unfinished(const deque &d) : deque_(const_cast<deque *>(&d)) {}
    ~unfinished() {
      if (!deque_) return;
      deque_->give_all();
      deque_->reset();
    }
    void finish() PLX_NOTHROW { deque_ = 0; }

  private:
    unfinished(const unfinished &);
    unfinished &operator=(const unfinished &);
    deque *deque_;
  };

  // ---- Ranges. Elements are made at the nearer end, and those between are assigned.

  // Elements that were made from a place on; they go unless they are kept.
  class made_range {
  public:
    made_range(deque &d, const iterator &first) : at(first), deque_(d), first_(first) {}
    ~made_range() { deque_.destroy_between(first_, at); }
    template <class Iterator> void add(Iterator first, const Iterator &last) {
      for (; first != last; ++first, (void)++at) deque_.A::construct(at.cur, *first);
    }
    void keep() { first_ = at; }
    iterator at;

  private:
    made_range(const made_range &);
    made_range &operator=(const made_range &);
    deque &deque_;
    iterator first_;
  };

  template <class Integer> void insert_range(iterator at, Integer n, Integer value, yes) {
    insert(at, static_cast<size_type>(n), static_cast<T>(value));
  }
  template <class Iterator> void insert_range(iterator at, Iterator first, Iterator last, no) {
    insert_by(at, first, last, typename iterator_traits<Iterator>::iterator_category());
  }
  template <class Iterator> void insert_by(iterator at, Iterator first, Iterator last, input_iterator_tag) {
    deque read(get_allocator());
    for (; first != last; ++first) read.push_back(*first);
    if (empty())
      swap(read);
    else
      insert_sized(at, read.begin(), read.end(), read.size());
  }
  template <class Iterator> void insert_by(iterator at, Iterator first, Iterator last, forward_iterator_tag) {
    insert_sized(at, first, last, static_cast<size_type>(std::distance(first, last)));
  }

  template <class Iterator> void insert_sized(iterator at, Iterator first, Iterator last, size_type n) {
    if (n == 0) return;
    if (n > max_size() - size()) __zor::sequence_length_error();
    const size_type index = static_cast<size_type>(at - begin());
    if (!map_) begin_in_middle();
    if (index < size() / 2)
      insert_near_front(index, first, last, n);
    else
      insert_near_back(index, first, last, n);
  }

  template <class Iterator> void insert_near_back(size_type index, Iterator first, Iterator last, size_type n) {
    const size_type room = static_cast<size_type>(finish_limit_ - finish_);
    const size_type blocks = n <= room ? 0 : (n - room + block - 1) / block;
    const bool in_front = false;
    __zor::cleanup<new_blocks> added(*this, blocks, in_front);
    for (size_type i = 0; i < blocks; ++i) added.get().add();

    const difference_type count = static_cast<difference_type>(n);
    const iterator at = begin() + static_cast<difference_type>(index), end_before = end();
    const iterator end_after = end_before + count;
    const difference_type tail = end_before - at;
    made_range made(*this, end_before);
    if (tail > count) {
      made.add(end_before - count, end_before);
      made.keep();
      added.get().keep();
      set_finish(end_after.cur, end_after.node);
      std::copy_backward(at, end_before - count, end_before);
      assign_each(at, first, last);
    } else {
      Iterator middle = first;
      std::advance(middle, tail);
      made.add(middle, last);
      made.add(at, end_before);
      made.keep();
      added.get().keep();
      set_finish(end_after.cur, end_after.node);
      assign_each(at, first, middle);
    }
  }

  template <class Iterator> void insert_near_front(size_type index, Iterator first, Iterator last, size_type n) {
    const size_type blocks = n <= start_offset_ ? 0 : (n - start_offset_ + block - 1) / block;
    const bool in_front = true;
    __zor::cleanup<new_blocks> added(*this, blocks, in_front);
    for (size_type i = 0; i < blocks; ++i) added.get().add();

    const difference_type count = static_cast<difference_type>(n), head = static_cast<difference_type>(index);
    const iterator begin_before = begin(), at = begin_before + head, begin_after = begin_before - count;
    made_range made(*this, begin_after);
    if (head >= count) {
      made.add(begin_before, begin_before + count);
      made.keep();
      added.get().keep();
      set_start(begin_after);
      std::copy(begin_before + count, at, begin_before);
      assign_each(at - count, first, last);
    } else {
      Iterator middle = first;
      std::advance(middle, count - head);
      made.add(begin_before, at);
      made.add(first, middle);
      made.keep();
      added.get().keep();
      set_start(begin_after);
      assign_each(begin_before, middle, last);
    }
  }

  void set_start(const iterator &at) PLX_NOTHROW {
    start_node_ = at.node;
    start_offset_ = static_cast<size_type>(at.cur - *at.node);
  }
  template <class Iterator> static void assign_each(iterator at, Iterator first, const Iterator &last) {
    for (; first != last; ++first, (void)++at) *at = *first;
  }

  // ---- Assignment.

  template <class Integer> void assign_range(Integer n, Integer value, yes) {
    assign(static_cast<size_type>(n), static_cast<T>(value));
  }
  template <class Iterator> void assign_range(Iterator first, Iterator last, no) {
    assign_by(first, last, typename iterator_traits<Iterator>::iterator_category());
  }
  template <class Iterator> void assign_by(Iterator first, Iterator last, forward_iterator_tag) {
    assign_sized(first, last, static_cast<size_type>(std::distance(first, last)));
  }
  template <class Iterator> void assign_by(Iterator first, Iterator last, input_iterator_tag) {
    iterator at = begin();
    for (; first != last && at != end(); ++first, (void)++at) *at = *first;
    cut_back(at);
    for (; first != last; ++first) push_back(*first);
  }
  template <class Iterator> void assign_sized(Iterator first, Iterator last, size_type n) {
    const size_type now = size();
    iterator at = begin();
    if (n <= now) {
      for (; first != last; ++first, (void)++at) *at = *first;
      cut_back(at);
    } else {
      for (size_type i = 0; i < now; ++i, (void)++first, (void)++at) *at = *first;
      insert_sized(end(), first, last, n - now);
    }
  }

  T **map_;  // null until the first element comes
  T **map_end_;
  T **start_node_;
  unsigned long start_offset_;  // of a type that no element access can change: it may stay in a register
  T *finish_;
  T *finish_limit_;  // the last place of finish_'s block: filling it takes a new block
  T **finish_node_;
};

template <class T, class A> inline bool operator==(const deque<T, A> &left, const deque<T, A> &right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin());
}
template <class T, class A> inline bool operator<(const deque<T, A> &left, const deque<T, A> &right) {
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
}
template <class T, class A> inline bool operator!=(const deque<T, A> &left, const deque<T, A> &right) {
  return !(left == right);
}
template <class T, class A> inline bool operator>(const deque<T, A> &left, const deque<T, A> &right) {
  return right < left;
}
template <class T, class A> inline bool operator>=(const deque<T, A> &left, const deque<T, A> &right) {
  return !(left < right);
}
template <class T, class A> inline bool operator<=(const deque<T, A> &left, const deque<T, A> &right) {
  return !(right < left);
}
template <class T, class A> inline void swap(deque<T, A> &left, deque<T, A> &right) PLX_NOTHROW { left.swap(right); }

__extension__ extern template class PLX_API deque<int, allocator<int> >;
__extension__ extern template class PLX_API deque<char, allocator<char> >;

}  // namespace std

#endif
