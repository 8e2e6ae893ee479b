// vector (1998, 23.2.4): elements side by side in one block.
//
//     storage_.first         last              limit
//     +---------------------+-----------------+
//     | elements            | spare           |
//     +---------------------+-----------------+
//
// A full vector grows to twice its size, an empty one to 10 elements. Elements that may be moved as bytes (numbers,
// pointers, strings, ...) are, and their block grows where it stands if it can. All others are copied. What a program
// does often is inline; what happens when the block is full is a call.
#ifndef PLX_VECTOR_H
#define PLX_VECTOR_H

#include <plx/sequence.h>

#if __cplusplus >= 201103L
#include <initializer_list>
#endif

namespace __zor {

// The block and its allocator. It frees the block, and does not know which elements live there.
template <class T, class A> class vector_storage : public A {
public:
  explicit vector_storage(const A &a) PLX_NOTHROW : A(a), first(0), last(0), limit(0) {}
  vector_storage(const A &a, size_t room) : A(a), first(0), last(0), limit(0) { take(room); }
  ~vector_storage() {
    if (first) this->deallocate(first, static_cast<size_t>(limit - first));
  }

  // Only in a storage without a block.
  void take(size_t room) {
    if (room > most()) sequence_length_error();
    if (room == 0) return;
    first = last = static_cast<T *>(A::allocate(room));
    limit = first + room;
  }

  // More elements would not fit, or their differences would not.
  size_t most() const PLX_NOTHROW {
    const size_t fit = A::max_size(), countable = 0x7FFFFFFFu / sizeof(T);
    return fit < countable ? fit : countable;
  }

  size_t size() const PLX_NOTHROW { return static_cast<size_t>(last - first); }
  size_t room() const PLX_NOTHROW { return static_cast<size_t>(limit - first); }

  void swap_blocks(vector_storage &other) PLX_NOTHROW {
    T *f = first, *l = last, *e = limit;
    first = other.first, last = other.last, limit = other.limit;
    other.first = f, other.last = l, other.limit = e;
  }

  T *first;
  T *last;
  T *limit;

private:
  vector_storage(const vector_storage &);
  vector_storage &operator=(const vector_storage &);
};

// A place of n elements that was opened between others by moving bytes. When not all of it is filled, it closes again.
template <class T, class A> class vector_gap {
public:
  vector_gap(vector_storage<T, A> &s, T *const &place, const size_t &n) : storage_(s), begin_(place), end_(place + n), at(place) {
    memmove(static_cast<void *>(end_), place, static_cast<size_t>(reinterpret_cast<char *>(s.last) - reinterpret_cast<char *>(place)));
    tail_ = static_cast<size_t>(s.last - place);
    s.last = place;  // what lies behind the gap has no owner meanwhile
  }
  ~vector_gap() {
    if (at != end_) {
      destroy_range(static_cast<A &>(storage_), begin_, at);
      at = begin_;
      memmove(static_cast<void *>(begin_), end_, tail_ * sizeof(T));
    }
    storage_.last = at + tail_;
  }

private:
  vector_gap(const vector_gap &);
  vector_gap &operator=(const vector_gap &);

  vector_storage<T, A> &storage_;
  T *begin_;
  T *end_;
  size_t tail_;

public:
  T *at;  // up to here it is filled
};

}  // namespace __zor

namespace std {

template <class T, class A = allocator<T> > class PLX_API vector {
  typedef __zor::vector_storage<T, A> storage;
  typedef typename __zor::element_traits<T, A>::plain plain;
  typedef typename __zor::element_traits<T, A>::relocatable relocatable;
  typedef typename __zor::truth<__zor::element_traits<T, A>::standard && __zor::is_scalar<T>::value>::type number;
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
  typedef __zor::pointer_iterator<T> iterator;
  typedef __zor::pointer_iterator<const T> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  // Construction, copying, destruction.

  explicit vector(const A &a = A()) PLX_NOTHROW : storage_(a) {}
  explicit vector(size_type n, const T &value = T(), const A &a = A()) : storage_(a, n) {
    storage_.last = __zor::make_filled(alloc(), storage_.first, n, value);
  }
  template <class Iterator> vector(Iterator first, Iterator last, const A &a = A()) : storage_(a) {
    initialize(first, last, typename __zor::is_integer<Iterator>::type());
  }
  vector(const vector &other) : storage_(other.storage_, other.size()) {
    storage_.last = __zor::make_copies(alloc(), storage_.first, cbegin_(other), cend_(other));
  }
  ~vector() { __zor::destroy_range(alloc(), storage_.first, storage_.last); }

  vector &operator=(const vector &other) {
    if (this != &other) assign_sized(cbegin_(other), cend_(other), other.size());
    return *this;
  }
#if __cplusplus >= 201103L
  vector(vector &&other) noexcept : storage_(other.get_allocator()) { storage_.swap_blocks(other.storage_); }
  vector &operator=(vector &&other) noexcept {
    vector taken(static_cast<vector &&>(other));
    swap(taken);
    return *this;
  }
  vector(initializer_list<T> list, const A &a = A()) : storage_(a) { initialize(list.begin(), list.end(), no()); }
  vector &operator=(initializer_list<T> list) {
    assign_sized(list.begin(), list.end(), list.size());
    return *this;
  }
  void assign(initializer_list<T> list) { assign_sized(list.begin(), list.end(), list.size()); }
#endif
  template <class Iterator> void assign(Iterator first, Iterator last) {
    assign_range(first, last, typename __zor::is_integer<Iterator>::type());
  }
  void assign(size_type n, const T &value) { assign_filled(n, value); }
  allocator_type get_allocator() const PLX_NOTHROW { return static_cast<const A &>(storage_); }

  // Iterators.

  iterator begin() PLX_NOTHROW { return iterator(storage_.first); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(storage_.first); }
  iterator end() PLX_NOTHROW { return iterator(storage_.last); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(storage_.last); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
  T *data() noexcept { return storage_.first; }
  const T *data() const noexcept { return storage_.first; }
#endif

  // Size.

  size_type size() const PLX_NOTHROW { return storage_.size(); }
  size_type max_size() const PLX_NOTHROW { return storage_.most(); }
  void resize(size_type n, T value = T()) {
    if (n > size())
      insert_filled(storage_.last, n - size(), value);
    else
      cut(storage_.first + n);
  }
  size_type capacity() const PLX_NOTHROW { return storage_.room(); }
  bool empty() const PLX_NOTHROW { return storage_.first == storage_.last; }
  void reserve(size_type n) {
    if (n > capacity()) {
      if (n > max_size()) __zor::sequence_length_error();
      grow(n, relocatable());
    }
  }

  // Elements.

  reference operator[](size_type n) PLX_NOTHROW { return storage_.first[n]; }
  const_reference operator[](size_type n) const PLX_NOTHROW { return storage_.first[n]; }
  reference at(size_type n) {
    if (n >= size()) __zor::sequence_out_of_range();
    return storage_.first[n];
  }
  const_reference at(size_type n) const {
    if (n >= size()) __zor::sequence_out_of_range();
    return storage_.first[n];
  }
  reference front() PLX_NOTHROW { return *storage_.first; }
  const_reference front() const PLX_NOTHROW { return *storage_.first; }
  reference back() PLX_NOTHROW { return storage_.last[-1]; }
  const_reference back() const PLX_NOTHROW { return storage_.last[-1]; }

  // Modifiers. What is inserted may be an element of this vector.

  void push_back(const T &value) { push_back(value, number()); }
  void pop_back() { storage_.destroy(--storage_.last); }

  iterator insert(iterator at, const T &value) {
    const difference_type n = at.base() - storage_.first;
    if (storage_.last == storage_.limit)
      insert_full(at.base(), value);
    else
      insert_one(at.base(), value, relocatable());
    return iterator(storage_.first + n);
  }
  void insert(iterator at, size_type n, const T &value) { insert_filled(at.base(), n, value); }
  template <class Iterator> void insert(iterator at, Iterator first, Iterator last) {
    insert_range(at.base(), first, last, typename __zor::is_integer<Iterator>::type());
  }
#if __cplusplus >= 201103L
  void insert(iterator at, initializer_list<T> list) { insert_sized(at.base(), list.begin(), list.end(), list.size()); }
#endif

  iterator erase(iterator at) { return erase(at, at + 1); }
  iterator erase(iterator first, iterator last) {
    if (first != last) close(first.base(), last.base(), relocatable());
    return first;
  }
  void swap(vector &other) PLX_NOTHROW { storage_.swap_blocks(other.storage_); }
  void clear() PLX_NOTHROW { cut(storage_.first); }

private:
  A &alloc() PLX_NOTHROW { return storage_; }
  static const T *cbegin_(const vector &v) PLX_NOTHROW { return v.storage_.first; }
  static const T *cend_(const vector &v) PLX_NOTHROW { return v.storage_.last; }

  // Destroys the elements from `at` on.
  void cut(T *at) {
    __zor::destroy_range(alloc(), at, storage_.last);
    storage_.last = at;
  }

  // The capacity with which `more` elements fit into a full vector.
  size_type grown(size_type more) const {
    const size_type n = size(), most = max_size();
    if (more > most - n) __zor::sequence_length_error();
    const size_type wanted = n == 0 ? 10 : n > most - n ? most : 2 * n;
    return wanted > most ? most : wanted < n + more ? n + more : wanted;
  }

  // ---- A new block of `room` elements, the elements moved there.

  void grow(size_type room, yes) {
    const size_type n = size();
    T *block = static_cast<T *>(__zor::grow_block(storage_.first, n * sizeof(T), room * sizeof(T)));
    storage_.first = block;
    storage_.last = block + n;
    storage_.limit = block + room;
  }
  void grow(size_type room, no) {
    storage made(storage_, room);
    made.last = __zor::make_copies(alloc(), made.first, cbegin_(*this), cend_(*this));
    become(made);
  }

  // Takes the other block; the old elements and block go.
  void become(storage &made) {
    made.swap_blocks(storage_);
    __zor::destroy_range(alloc(), made.first, made.last);
    made.last = made.first;
  }

  // Elements copied around something that is made first, so that the source may lie in this vector.
  class split {
  public:
    split(vector &v, T *at, size_type more) : made_(v.storage_, v.grown(more)), v_(v), at_(at) {
      begin_ = end_ = made_.first + (at - v.storage_.first);
    }
    ~split() { __zor::destroy_range(v_.alloc(), begin_, end_); }
    T *place() const { return begin_; }
    void made_up_to(T *end) { end_ = end; }
    void finish() {
      T *const first = made_.first;
      __zor::made_elements<T, A> before(v_.alloc(), first);
      for (const T *from = v_.storage_.first; from != at_; ++from) before.add(*from);
      end_ = __zor::make_copies(v_.alloc(), end_, static_cast<const T *>(at_), cend_(v_));
      before.keep();
      made_.last = end_;
      end_ = begin_;
      v_.become(made_);
    }

  private:
    storage made_;
    vector &v_;
    T *at_;
    T *begin_;
    T *end_;
  };

  // ---- One element.

  void push_back(const T &value, no) {
    if (__builtin_expect(storage_.last != storage_.limit, 1)) {
      storage_.construct(storage_.last, value);
      ++storage_.last;
    } else {
      insert_full(storage_.last, value);
    }
  }
  // One way of writing the element and the end: in a loop the end stays in a register.
  void push_back(const T &value, yes) {
    const T copy = value;
    T *at = storage_.last;
    if (__builtin_expect(at == storage_.limit, 0)) at = grow_for_one();
    *at = copy;
    storage_.last = at + 1;
  }
  __attribute__((__noinline__, __regparm__(3))) T *grow_for_one() {
    grow(grown(1), yes());
    return storage_.last;
  }

  __attribute__((__noinline__, __regparm__(3))) void insert_full(T *at, typename __zor::passed<T>::type value) {
    insert_full(at, value, relocatable());
  }

  void insert_full(T *at, const T &value, yes) {
    const size_type index = static_cast<size_type>(at - storage_.first);
    __zor::held_copy<T, A, plain> copy(alloc(), value);
    grow(grown(1), yes());
    at = storage_.first + index;
    __zor::slide_bytes(at + 1, at, storage_.last);
    copy.move_to(at);
    ++storage_.last;
  }
  void insert_full(T *at, const T &value, no) {
    split made(*this, at, 1);
    storage_.construct(made.place(), value);
    made.made_up_to(made.place() + 1);
    made.finish();
  }

  void insert_one(T *at, const T &value, yes) {
    __zor::held_copy<T, A, plain> copy(alloc(), value);
    __zor::slide_bytes(at + 1, at, storage_.last);
    copy.move_to(at);
    ++storage_.last;
  }
  void insert_one(T *at, const T &value, no) {
    if (at == storage_.last) {
      storage_.construct(at, value);
      ++storage_.last;
      return;
    }
    T copy(value);
    storage_.construct(storage_.last, storage_.last[-1]);
    ++storage_.last;
    for (T *to = storage_.last - 2; to != at; --to) *to = to[-1];
    *at = copy;
  }

  // ---- Several equal elements.

  void insert_filled(T *at, size_type n, const T &value) {
    if (n != 0) insert_filled(at, n, value, relocatable());
  }
  void insert_filled(T *at, size_type n, const T &value, yes) {
    const size_type index = static_cast<size_type>(at - storage_.first);
    __zor::held_copy<T, A, plain> copy(alloc(), value);
    if (n > free_room()) grow(grown(n), yes());
    fill_gap(storage_.first + index, n, copy.get(), plain());
  }
  void fill_gap(T *at, size_type n, const T &value, yes) {
    __zor::slide_bytes(at + n, at, storage_.last);
    __zor::make_filled(alloc(), at, n, value);
    storage_.last += n;
  }
  void fill_gap(T *at, size_type n, const T &value, no) {
    __zor::vector_gap<T, A> gap(storage_, at, n);
    for (; n != 0; --n, ++gap.at) storage_.construct(gap.at, value);
  }
  void insert_filled(T *at, size_type n, const T &value, no) {
    if (n > free_room()) {
      split made(*this, at, n);
      made.made_up_to(__zor::make_filled(alloc(), made.place(), n, value));
      made.finish();
      return;
    }
    const T copy(value);
    T *const end = storage_.last;
    const size_type tail = static_cast<size_type>(end - at);
    if (tail > n) {
      storage_.last = __zor::make_copies(alloc(), end, static_cast<const T *>(end - n), static_cast<const T *>(end));
      for (T *to = end, *from = end - n; from != at;) *--to = *--from;
    } else {
      storage_.last = __zor::make_filled(alloc(), end, n - tail, copy);
      storage_.last = __zor::make_copies(alloc(), storage_.last, static_cast<const T *>(at), static_cast<const T *>(end));
    }
    for (T *const filled = tail > n ? at + n : end; at != filled; ++at) *at = copy;
  }

  size_type free_room() const PLX_NOTHROW { return static_cast<size_type>(storage_.limit - storage_.last); }

  // ---- Ranges. Integers are a count and a value.

  template <class Integer> void insert_range(T *at, Integer n, Integer value, yes) {
    insert_filled(at, static_cast<size_type>(n), static_cast<T>(value));
  }
  template <class Iterator> void insert_range(T *at, Iterator first, Iterator last, no) {
    insert_range_by(at, first, last, typename iterator_traits<Iterator>::iterator_category());
  }
  // Elements that can be read only once are collected first, unless they go to the end.
  template <class Iterator> void insert_range_by(T *at, Iterator first, Iterator last, input_iterator_tag) {
    if (at == storage_.last) {
      const size_type n = size();
      trim_unless_kept added(*this, n);
      for (; first != last; ++first) push_back(*first);
      added.keep();
    } else {
      vector read(get_allocator());
      for (; first != last; ++first) read.push_back(*first);
      insert_sized(at, cbegin_(read), cend_(read), read.size());
    }
  }
  template <class Iterator> void insert_range_by(T *at, Iterator first, Iterator last, forward_iterator_tag) {
    insert_sized(at, first, last, static_cast<size_type>(std::distance(first, last)));
  }
  class trim_unless_kept {
  public:
    trim_unless_kept(vector &v, size_type n) : v_(v), n_(n), kept_(false) {}
    ~trim_unless_kept() {
      if (!kept_) v_.cut(v_.storage_.first + n_);
    }
    void keep() { kept_ = true; }

  private:
    vector &v_;
    size_type n_;
    bool kept_;
  };

  template <class Iterator> void insert_sized(T *at, Iterator first, Iterator last, size_type n) {
    if (n != 0) insert_sized(at, first, last, n, relocatable());
  }
  template <class Iterator> void insert_sized(T *at, Iterator first, Iterator last, size_type n, yes) {
    const size_type index = static_cast<size_type>(at - storage_.first);
    if (n > free_room()) grow(grown(n), yes());
    at = storage_.first + index;
    if (at == storage_.last) {
      storage_.last = __zor::make_copies(alloc(), at, first, last);
      return;
    }
    __zor::vector_gap<T, A> gap(storage_, at, n);
    gap.at = __zor::make_copies(alloc(), at, first, last);
  }
  template <class Iterator> void insert_sized(T *at, Iterator first, Iterator last, size_type n, no) {
    if (n > free_room()) {
      split made(*this, at, n);
      made.made_up_to(__zor::make_copies(alloc(), made.place(), first, last));
      made.finish();
      return;
    }
    T *const end = storage_.last;
    const size_type tail = static_cast<size_type>(end - at);
    if (tail > n) {
      storage_.last = __zor::make_copies(alloc(), end, static_cast<const T *>(end - n), static_cast<const T *>(end));
      for (T *to = end, *from = end - n; from != at;) *--to = *--from;
      for (; first != last; ++first, (void)++at) *at = *first;
    } else {
      Iterator middle = first;
      std::advance(middle, static_cast<difference_type>(tail));
      storage_.last = __zor::make_copies(alloc(), end, middle, last);
      storage_.last = __zor::make_copies(alloc(), storage_.last, static_cast<const T *>(at), static_cast<const T *>(end));
      for (; first != middle; ++first, (void)++at) *at = *first;
    }
  }

  template <class Integer> void initialize(Integer n, Integer value, yes) {
    storage_.take(static_cast<size_type>(n));
    storage_.last = __zor::make_filled(alloc(), storage_.first, static_cast<size_type>(n), static_cast<T>(value));
  }
  template <class Iterator> void initialize(Iterator first, Iterator last, no) {
    initialize_by(first, last, typename iterator_traits<Iterator>::iterator_category());
  }
  template <class Iterator> void initialize_by(Iterator first, Iterator last, forward_iterator_tag) {
    storage_.take(static_cast<size_type>(std::distance(first, last)));
    storage_.last = __zor::make_copies(alloc(), storage_.first, first, last);
  }
  template <class Iterator> void initialize_by(Iterator first, Iterator last, input_iterator_tag) {
    insert_range_by(storage_.last, first, last, input_iterator_tag());
  }

  // ---- Assignment.

  template <class Integer> void assign_range(Integer n, Integer value, yes) {
    assign_filled(static_cast<size_type>(n), static_cast<T>(value));
  }
  template <class Iterator> void assign_range(Iterator first, Iterator last, no) {
    assign_by(first, last, typename iterator_traits<Iterator>::iterator_category());
  }
  template <class Iterator> void assign_by(Iterator first, Iterator last, forward_iterator_tag) {
    assign_sized(first, last, static_cast<size_type>(std::distance(first, last)));
  }
  template <class Iterator> void assign_by(Iterator first, Iterator last, input_iterator_tag) {
    T *to = storage_.first;
    for (; first != last && to != storage_.last; ++first, (void)++to) *to = *first;
    cut(to);
    for (; first != last; ++first) push_back(*first);
  }
  void assign_filled(size_type n, const T &value) {
    if (n > capacity()) {
      storage made(storage_, n);
      made.last = __zor::make_filled(alloc(), made.first, n, value);
      become(made);
    } else if (n > size()) {
      const T copy(value);
      for (T *to = storage_.first; to != storage_.last; ++to) *to = copy;
      storage_.last = __zor::make_filled(alloc(), storage_.last, n - size(), copy);
    } else {
      const T copy(value);
      for (T *to = storage_.first, *const end = to + n; to != end; ++to) *to = copy;
      cut(storage_.first + n);
    }
  }
  template <class Iterator> void assign_sized(Iterator first, Iterator last, size_type n) {
    if (n > capacity()) {
      storage made(storage_, n);
      made.last = __zor::make_copies(alloc(), made.first, first, last);
      become(made);
    } else {
      assign_within(first, last, n,
                    typename __zor::truth<__zor::same_type<plain, yes>::value && __zor::is_array_of<Iterator, T>::value>::type());
    }
  }
  template <class Iterator> void assign_within(Iterator first, Iterator, size_type n, yes) {
    if (n != 0) memmove(static_cast<void *>(storage_.first), first, n * sizeof(T));
    storage_.last = storage_.first + n;
  }
  template <class Iterator> void assign_within(Iterator first, Iterator last, size_type n, no) {
    T *to = storage_.first;
    if (n > size()) {
      for (; to != storage_.last; ++first, (void)++to) *to = *first;
      storage_.last = __zor::make_copies(alloc(), storage_.last, first, last);
    } else {
      for (; first != last; ++first, (void)++to) *to = *first;
      cut(to);
    }
  }

  // ---- Erasure.

  void close(T *first, T *last, yes) {
    T *const end = storage_.last;
    __zor::destroy_range(alloc(), first, last);
    __zor::slide_bytes(first, last, end);
    storage_.last = first + (end - last);
  }
  void close(T *first, T *last, no) {
    for (; last != storage_.last; ++first, (void)++last) *first = *last;
    cut(first);
  }

  storage storage_;
};

template <class T, class A> inline bool operator==(const vector<T, A> &left, const vector<T, A> &right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin());
}
template <class T, class A> inline bool operator<(const vector<T, A> &left, const vector<T, A> &right) {
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
}
template <class T, class A> inline bool operator!=(const vector<T, A> &left, const vector<T, A> &right) {
  return !(left == right);
}
template <class T, class A> inline bool operator>(const vector<T, A> &left, const vector<T, A> &right) {
  return right < left;
}
template <class T, class A> inline bool operator>=(const vector<T, A> &left, const vector<T, A> &right) {
  return !(left < right);
}
template <class T, class A> inline bool operator<=(const vector<T, A> &left, const vector<T, A> &right) {
  return !(right < left);
}
template <class T, class A> inline void swap(vector<T, A> &left, vector<T, A> &right) PLX_NOTHROW { left.swap(right); }

}  // namespace std

#include <plx/vector_bool.h>

namespace std {

__extension__ extern template class PLX_API vector<long, allocator<long> >;
__extension__ extern template class PLX_API vector<char, allocator<char> >;
__extension__ extern template class PLX_API vector<void *, allocator<void *> >;

}  // namespace std

#endif
