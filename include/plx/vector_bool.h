// vector<bool> (1998, 23.2.5): one bit for each element, in words of 32, the first in the lowest bit. The bits behind the
// last element, in the block's used words, are zero, so that ranges are compared and counted by words.
#ifndef PLX_VECTOR_BOOL_H
#define PLX_VECTOR_BOOL_H

#include <plx/vector.h>

namespace __zor {

enum { bits_per_word = 32 };

class bit_reference {
public:
  bit_reference() PLX_NOTHROW : word_(0), mask_(0) {}
  bit_reference(unsigned int *word, unsigned int mask) PLX_NOTHROW : word_(word), mask_(mask) {}
#if __cplusplus >= 201103L
  bit_reference(const bit_reference &) = default;
#endif

  operator bool() const PLX_NOTHROW { return (*word_ & mask_) != 0; }
  bit_reference &operator=(bool value) PLX_NOTHROW {
    if (value)
      *word_ |= mask_;
    else
      *word_ &= ~mask_;
    return *this;
  }
  bit_reference &operator=(const bit_reference &other) PLX_NOTHROW { return *this = static_cast<bool>(other); }
  bool operator==(const bit_reference &other) const PLX_NOTHROW { return static_cast<bool>(*this) == static_cast<bool>(other); }
  bool operator<(const bit_reference &other) const PLX_NOTHROW { return !static_cast<bool>(*this) && static_cast<bool>(other); }
  void flip() PLX_NOTHROW { *word_ ^= mask_; }

private:
  unsigned int *word_;
  unsigned int mask_;
};

// Exchanges bits, not references.
inline void swap(bit_reference a, bit_reference b) PLX_NOTHROW {
  const bool value = a;
  a = b;
  b = value;
}

// A place among bits: Reference is bit_reference, or bool for the constant one.
template <class Reference, class Pointer> class bit_iterator : public std::__iterator_of_std {
public:
  typedef bool value_type;
  typedef std::ptrdiff_t difference_type;
  typedef Pointer pointer;
  typedef Reference reference;
  typedef std::random_access_iterator_tag iterator_category;

  bit_iterator() PLX_NOTHROW : word(0), bit(0) {}
  bit_iterator(unsigned int *w, unsigned int b) PLX_NOTHROW : word(w), bit(b) {}
  template <class P> bit_iterator(const bit_iterator<bit_reference, P> &other) PLX_NOTHROW : word(other.word), bit(other.bit) {}

  Reference operator*() const PLX_NOTHROW { return Reference(bit_reference(word, 1u << bit)); }
  Reference operator[](difference_type n) const PLX_NOTHROW { return *(*this + n); }

  bit_iterator &operator++() PLX_NOTHROW {
    if (++bit == bits_per_word) ++word, bit = 0;
    return *this;
  }
  bit_iterator operator++(int) PLX_NOTHROW {
    bit_iterator before = *this;
    ++*this;
    return before;
  }
  bit_iterator &operator--() PLX_NOTHROW {
    if (bit-- == 0) --word, bit = bits_per_word - 1;
    return *this;
  }
  bit_iterator operator--(int) PLX_NOTHROW {
    bit_iterator before = *this;
    --*this;
    return before;
  }
  bit_iterator &operator+=(difference_type n) PLX_NOTHROW {
    n += static_cast<difference_type>(bit);
    // Division that rounds down, also for negative distances.
    word += n >> 5;
    bit = static_cast<unsigned int>(n) % bits_per_word;
    return *this;
  }
  bit_iterator &operator-=(difference_type n) PLX_NOTHROW { return *this += -n; }
  bit_iterator operator+(difference_type n) const PLX_NOTHROW {
    bit_iterator moved = *this;
    return moved += n;
  }
  bit_iterator operator-(difference_type n) const PLX_NOTHROW {
    bit_iterator moved = *this;
    return moved -= n;
  }

  unsigned int *word;
  unsigned int bit;
};

template <class R, class P, class R2, class P2>
inline bool operator==(const bit_iterator<R, P> &left, const bit_iterator<R2, P2> &right) PLX_NOTHROW {
  return left.word == right.word && left.bit == right.bit;
}
template <class R, class P, class R2, class P2>
inline bool operator!=(const bit_iterator<R, P> &left, const bit_iterator<R2, P2> &right) PLX_NOTHROW {
  return !(left == right);
}
template <class R, class P, class R2, class P2>
inline bool operator<(const bit_iterator<R, P> &left, const bit_iterator<R2, P2> &right) PLX_NOTHROW {
  return left.word < right.word || (left.word == right.word && left.bit < right.bit);
}
template <class R, class P, class R2, class P2>
inline bool operator>(const bit_iterator<R, P> &left, const bit_iterator<R2, P2> &right) PLX_NOTHROW {
  return right < left;
}
template <class R, class P, class R2, class P2>
inline bool operator<=(const bit_iterator<R, P> &left, const bit_iterator<R2, P2> &right) PLX_NOTHROW {
  return !(right < left);
}
template <class R, class P, class R2, class P2>
inline bool operator>=(const bit_iterator<R, P> &left, const bit_iterator<R2, P2> &right) PLX_NOTHROW {
  return !(left < right);
}
template <class R, class P, class R2, class P2>
inline std::ptrdiff_t operator-(const bit_iterator<R, P> &left, const bit_iterator<R2, P2> &right) PLX_NOTHROW {
  return (left.word - right.word) * bits_per_word + static_cast<std::ptrdiff_t>(left.bit) -
         static_cast<std::ptrdiff_t>(right.bit);
}
template <class R, class P>
inline bit_iterator<R, P> operator+(std::ptrdiff_t n, const bit_iterator<R, P> &at) PLX_NOTHROW {
  return at + n;
}

// ---- Runs of bits within words ---------------------------------------------------------------------------------------

inline unsigned int words_for_bits(size_t n) PLX_NOTHROW { return static_cast<unsigned int>(n / 32 + (n % 32 != 0)); }

// The n lowest bits, n < 32.
inline unsigned int low_bits(unsigned int n) PLX_NOTHROW { return (1u << n) - 1; }

// 32 bits from bit position `at` on; with fewer than `left` wanted no word behind them is read.
inline unsigned int bits_at(const unsigned int *words, size_t at, size_t left) PLX_NOTHROW {
  const unsigned int shift = at % 32;
  const unsigned int low = words[at / 32] >> shift;
  return shift == 0 || left <= 32 - shift ? low : low | words[at / 32 + 1] << (32 - shift);
}

inline void put_bits(unsigned int *word, unsigned int mask, unsigned int bits) PLX_NOTHROW {
  *word = (*word & ~mask) | (bits & mask);
}

inline void fill_bits(unsigned int *words, size_t at, size_t n, bool value) PLX_NOTHROW {
  const unsigned int bits = value ? ~0u : 0u;
  while (n != 0) {
    const unsigned int shift = at % 32;
    const unsigned int step = n < 32 - shift ? static_cast<unsigned int>(n) : 32 - shift;
    const unsigned int mask = (step == 32 ? ~0u : low_bits(step)) << shift;
    put_bits(words + at / 32, mask, bits);
    at += step;
    n -= step;
  }
}

// Copies n bits to lower or equal positions of the same words, or between different ones.
inline void copy_bits(unsigned int *to, size_t to_at, const unsigned int *from, size_t from_at, size_t n) PLX_NOTHROW {
  while (n != 0) {
    const unsigned int shift = to_at % 32;
    const unsigned int step = n < 32 - shift ? static_cast<unsigned int>(n) : 32 - shift;
    const unsigned int mask = (step == 32 ? ~0u : low_bits(step)) << shift;
    put_bits(to + to_at / 32, mask, bits_at(from, from_at, step) << shift);
    to_at += step;
    from_at += step;
    n -= step;
  }
}

// Moves n bits up to higher positions of the same words.
inline void move_bits_up(unsigned int *words, size_t to, size_t from, size_t n) PLX_NOTHROW {
  while (n != 0) {
    const unsigned int end = (to + n) % 32 != 0 ? static_cast<unsigned int>((to + n) % 32) : 32u;
    const unsigned int step = n < end ? static_cast<unsigned int>(n) : end;
    n -= step;
    const size_t at = to + n;
    const unsigned int mask = (step == 32 ? ~0u : low_bits(step)) << at % 32;
    put_bits(words + at / 32, mask, bits_at(words, from + n, step) << at % 32);
  }
}

}  // namespace __zor

namespace std {

template <class A> class PLX_API vector<bool, A> {
  typedef typename A::template rebind<unsigned int>::other word_allocator;
  typedef __zor::vector_storage<unsigned int, word_allocator> storage;

public:
  typedef bool value_type;
  typedef A allocator_type;
  typedef size_t size_type;
  typedef ptrdiff_t difference_type;
  typedef __zor::bit_reference reference;
  typedef bool const_reference;
  typedef __zor::bit_iterator<__zor::bit_reference, __zor::bit_reference *> iterator;
  typedef __zor::bit_iterator<bool, const bool *> const_iterator;
  typedef iterator pointer;
  typedef const_iterator const_pointer;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  explicit vector(const A &a = A()) PLX_NOTHROW : words_(word_allocator(a)), size_(0) {}
  explicit vector(size_type n, const bool &value = bool(), const A &a = A())
      : words_(word_allocator(a), words_of(n)), size_(0) {
    append(n, value);
  }
  template <class Iterator> vector(Iterator first, Iterator last, const A &a = A())
      : words_(word_allocator(a)), size_(0) {
    insert_range(0, first, last, typename __zor::is_integer<Iterator>::type());
  }
  vector(const vector &other) : words_(other.words_, words_of(other.size_)), size_(0) { copy_words(other); }
  ~vector() {}

  vector &operator=(const vector &other) {
    if (this == &other) return *this;
    if (other.size_ > capacity()) {
      vector copy(other);
      swap(copy);
    } else {
      copy_words(other);
    }
    return *this;
  }
#if __cplusplus >= 201103L
  vector(vector &&other) noexcept : words_(static_cast<const word_allocator &>(other.words_)), size_(0) { swap(other); }
  vector &operator=(vector &&other) noexcept {
    vector taken(static_cast<vector &&>(other));
    swap(taken);
    return *this;
  }
  vector(initializer_list<bool> list, const A &a = A()) : words_(word_allocator(a)), size_(0) {
    insert(end(), list.begin(), list.end());
  }
  vector &operator=(initializer_list<bool> list) {
    assign(list.begin(), list.end());
    return *this;
  }
#endif
  template <class Iterator> void assign(Iterator first, Iterator last) {
    assign_range(first, last, typename __zor::is_integer<Iterator>::type());
  }
  void assign(size_type n, const bool &value) {
    const bool copy = value;
    clear();
    append(n, copy);
  }
  allocator_type get_allocator() const { return allocator_type(words_); }

  iterator begin() PLX_NOTHROW { return place(0); }
  const_iterator begin() const PLX_NOTHROW { return place(0); }
  iterator end() PLX_NOTHROW { return place(size_); }
  const_iterator end() const PLX_NOTHROW { return place(size_); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
#endif

  size_type size() const PLX_NOTHROW { return size_; }
  size_type max_size() const PLX_NOTHROW {
    const size_type words = words_.most();
    return words > 0x7FFFFFFFu / 32 ? 0x7FFFFFFFu : words * 32;
  }
  void resize(size_type n, bool value = false) {
    if (n > size_)
      append(n - size_, value);
    else
      cut(n);
  }
  size_type capacity() const PLX_NOTHROW { return words_.room() * 32; }
  bool empty() const PLX_NOTHROW { return size_ == 0; }
  void reserve(size_type n) {
    if (n > max_size()) __zor::sequence_length_error();
    if (n > capacity()) grow(n);
  }

  reference operator[](size_type n) PLX_NOTHROW { return reference(words_.first + n / 32, 1u << n % 32); }
  const_reference operator[](size_type n) const PLX_NOTHROW { return (words_.first[n / 32] >> n % 32 & 1) != 0; }
  reference at(size_type n) {
    if (n >= size_) __zor::sequence_out_of_range();
    return (*this)[n];
  }
  const_reference at(size_type n) const {
    if (n >= size_) __zor::sequence_out_of_range();
    return (*this)[n];
  }
  reference front() PLX_NOTHROW { return (*this)[0]; }
  const_reference front() const PLX_NOTHROW { return (*this)[0]; }
  reference back() PLX_NOTHROW { return (*this)[size_ - 1]; }
  const_reference back() const PLX_NOTHROW { return (*this)[size_ - 1]; }

  void push_back(const bool &value) {
    if (__builtin_expect(size_ == capacity(), 0)) {
      append(1, value);
      return;
    }
    unsigned int *const word = words_.first + size_ / 32;
    if (size_ % 32 == 0) words_.last = word + 1, *word = 0;
    *word |= static_cast<unsigned int>(value) << size_ % 32;
    ++size_;
  }
  void pop_back() PLX_NOTHROW { cut(size_ - 1); }

  iterator insert(iterator at, const bool &value = bool()) {
    const size_type index = index_of(at);
    const bool copy = value;
    open(index, 1);
    (*this)[index] = copy;
    return place(index);
  }
  void insert(iterator at, size_type n, const bool &value) {
    const size_type index = index_of(at);
    const bool copy = value;
    open(index, n);
    __zor::fill_bits(words_.first, index, n, copy);
  }
  template <class Iterator> void insert(iterator at, Iterator first, Iterator last) {
    insert_range(index_of(at), first, last, typename __zor::is_integer<Iterator>::type());
  }
  iterator erase(iterator at) { return erase(at, at + 1); }
  iterator erase(iterator first, iterator last) {
    const size_type from = index_of(first), to = index_of(last);
    if (from != to) {
      __zor::copy_bits(words_.first, from, words_.first, to, size_ - to);
      cut(size_ - (to - from));
    }
    return first;
  }
  void swap(vector &other) PLX_NOTHROW {
    words_.swap_blocks(other.words_);
    const size_type n = size_;
    size_ = other.size_;
    other.size_ = n;
  }
  static void swap(reference a, reference b) PLX_NOTHROW { __zor::swap(a, b); }
  void clear() PLX_NOTHROW { cut(0); }
  void flip() PLX_NOTHROW {
    for (unsigned int *word = words_.first; word != words_.last; ++word) *word = ~*word;
    clear_tail();
  }

private:
  // Words of a new block; a length beyond all is reported.
  size_type words_of(size_type n) const {
    if (n > 0x7FFFFFFFu) __zor::sequence_length_error();
    return __zor::words_for_bits(n);
  }
  iterator place(size_type n) const PLX_NOTHROW { return iterator(words_.first + n / 32, n % 32); }
  size_type index_of(const iterator &at) const PLX_NOTHROW {
    return static_cast<size_type>(at.word - words_.first) * 32 + at.bit;
  }
  void clear_tail() PLX_NOTHROW {
    if (size_ % 32 != 0) words_.last[-1] &= __zor::low_bits(size_ % 32);
  }
  void cut(size_type n) PLX_NOTHROW {
    size_ = n;
    words_.last = words_.first + __zor::words_for_bits(n);
    clear_tail();
  }
  void copy_words(const vector &other) PLX_NOTHROW {
    size_ = other.size_;
    words_.last = words_.first + __zor::words_for_bits(size_);
    if (size_ != 0) memcpy(words_.first, other.words_.first, __zor::words_for_bits(size_) * sizeof(unsigned int));
  }
  void grow(size_type n) {
    storage made(words_, words_of(n));
    const size_type used = static_cast<size_type>(words_.last - words_.first);
    if (used != 0) memcpy(made.first, words_.first, used * sizeof(unsigned int));
    made.last = made.first + used;
    words_.swap_blocks(made);
  }
  // More elements at the end, not set.
  void lengthen(size_type n) {
    if (n > max_size() - size_) __zor::sequence_length_error();
    const size_type wanted = size_ + n;
    if (wanted > capacity()) grow(size_ > n ? (size_ > max_size() / 2 ? max_size() : 2 * size_) : wanted);
    unsigned int *const last = words_.first + __zor::words_for_bits(wanted);
    for (; words_.last != last; ++words_.last) *words_.last = 0;
    size_ = wanted;
  }
  void append(size_type n, bool value) {
    const size_type from = size_;
    lengthen(n);
    if (value) __zor::fill_bits(words_.first, from, n, true);
  }
  // n elements at `at`, not set.
  void open(size_type at, size_type n) {
    const size_type tail = size_ - at;
    lengthen(n);
    if (n != 0) __zor::move_bits_up(words_.first, at + n, at, tail);
  }

  template <class Integer> void insert_range(size_type at, Integer n, Integer value, __zor::yes) {
    insert(place(at), static_cast<size_type>(n), static_cast<bool>(value));
  }
  // The elements are read first: reading them may fail.
  template <class Iterator> void insert_range(size_type at, Iterator first, Iterator last, __zor::no) {
    if (at == size_) {
      const size_type before = size_;
      trim_unless_kept added(*this, before);
      for (; first != last; ++first) push_back(static_cast<bool>(*first));
      added.keep();
      return;
    }
    vector read(get_allocator());
    for (; first != last; ++first) read.push_back(static_cast<bool>(*first));
    open(at, read.size_);
    if (read.size_ != 0) __zor::copy_bits(words_.first, at, read.words_.first, 0, read.size_);
  }
  class trim_unless_kept {
  public:
    trim_unless_kept(vector &v, size_type n) : v_(v), n_(n), kept_(false) {}
    ~trim_unless_kept() {
      if (!kept_) v_.cut(n_);
    }
    void keep() { kept_ = true; }

  private:
    vector &v_;
    size_type n_;
    bool kept_;
  };
  template <class Integer> void assign_range(Integer n, Integer value, __zor::yes) {
    assign(static_cast<size_type>(n), static_cast<bool>(value));
  }
  template <class Iterator> void assign_range(Iterator first, Iterator last, __zor::no) {
    vector read(first, last, get_allocator());
    swap(read);
  }

  template <class B> friend bool operator==(const vector<bool, B> &, const vector<bool, B> &);

  storage words_;  // up to `last` they hold elements
  size_type size_;
};

template <class A> inline bool operator==(const vector<bool, A> &left, const vector<bool, A> &right) {
  return left.size_ == right.size_ &&
         (left.size_ == 0 || memcmp(left.words_.first, right.words_.first,
                                    __zor::words_for_bits(left.size_) * sizeof(unsigned int)) == 0);
}

}  // namespace std

#endif
