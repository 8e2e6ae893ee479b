// bitset<N> (1998, 23.3.5): N bits in 32-bit words. A thin shell over the word operations in bitset_words.h.
//
// Where it differs from the 1998 class on purpose: shifting a set of several words right by an amount that is not a
// multiple of 32; docs/deviations.md says how.
#ifndef PLX_BITSET_H
#define PLX_BITSET_H

#include <stddef.h>

#include <plx/basic_string.h>
#include <plx/bitset_words.h>

namespace std {

template <size_t N> class bitset;
template <size_t N> bitset<N> operator&(const bitset<N> &left, const bitset<N> &right) PLX_NOTHROW;
template <size_t N> bitset<N> operator|(const bitset<N> &left, const bitset<N> &right) PLX_NOTHROW;
template <size_t N> bitset<N> operator^(const bitset<N> &left, const bitset<N> &right) PLX_NOTHROW;

template <size_t N> class bitset {
  static const unsigned n = N == 0 ? 1 : (N + 31) / 32;
  static const unsigned long last_mask = N == 0 ? 0ul : N % 32 == 0 ? ~0ul : (1ul << (N % 32)) - 1;
  typedef __zor::bit_words<n> words;

public:
  // One bit of a set, for writing.
  class reference {
  public:
#if __cplusplus >= 201103L
    reference(const reference &) = default;
#endif
    reference &operator=(bool value) PLX_NOTHROW {
      if (value)
        *word_ |= bit_;
      else
        *word_ &= ~bit_;
      return *this;
    }
    reference &operator=(const reference &other) PLX_NOTHROW { return *this = static_cast<bool>(other); }
    bool operator~() const PLX_NOTHROW { return (*word_ & bit_) == 0; }
    operator bool() const PLX_NOTHROW { return (*word_ & bit_) != 0; }
    reference &flip() PLX_NOTHROW {
      *word_ ^= bit_;
      return *this;
    }

  private:
    friend class bitset;
    reference(unsigned long *w, size_t pos) PLX_NOTHROW : word_(w + (pos >> 5)), bit_(1ul << (pos & 31)) {}

    unsigned long *word_;
    unsigned long bit_;
  };

  bitset() PLX_NOTHROW { words::reset(words_); }

  // Bits above N, or above the integer, are dropped or zero.
#if __cplusplus >= 201103L
  bitset(unsigned long long value) noexcept {
    words::reset(words_);
    words_[0] = static_cast<unsigned long>(value);
    if (n > 1) words_[n > 1] = static_cast<unsigned long>(value >> 32);
    words_[n - 1] &= last_mask;
  }
#else
  bitset(unsigned long value) PLX_NOTHROW {
    words::reset(words_);
    words_[0] = value;
    words_[n - 1] &= last_mask;
  }
#endif

  // From characters '0' and '1', highest bit first. All that the range names must be such, also what has no place.
  template <class C, class T, class A>
  explicit bitset(const basic_string<C, T, A> &text, typename basic_string<C, T, A>::size_type pos = 0,
                  typename basic_string<C, T, A>::size_type count = basic_string<C, T, A>::npos) {
    if (pos > text.size()) __zor::throw_range();
    assign(text.data() + pos, count < text.size() - pos ? count : text.size() - pos);
  }
#if __cplusplus >= 201103L
  explicit bitset(const char *text, size_t count = static_cast<size_t>(-1)) {
    size_t length = 0;
    while (length < count && text[length] != '\0') ++length;
    assign(text, length);
  }
#endif

  bitset &operator&=(const bitset &other) PLX_NOTHROW {
    words::vector_and(words_, words_, other.words_);
    return *this;
  }
  bitset &operator|=(const bitset &other) PLX_NOTHROW {
    words::vector_or(words_, words_, other.words_);
    return *this;
  }
  bitset &operator^=(const bitset &other) PLX_NOTHROW {
    words::vector_xor(words_, words_, other.words_);
    return *this;
  }
  bitset &operator<<=(size_t shift) PLX_NOTHROW {
    shift_left(*this, shift);
    return *this;
  }
  bitset &operator>>=(size_t shift) PLX_NOTHROW {
    shift_right(*this, shift);
    return *this;
  }
  bitset operator<<(size_t shift) const PLX_NOTHROW {
    bitset result = bitset(unset());
    result.shift_left(*this, shift);
    return result;
  }
  bitset operator>>(size_t shift) const PLX_NOTHROW {
    bitset result = bitset(unset());
    result.shift_right(*this, shift);
    return result;
  }

  bitset &set() PLX_NOTHROW {
    words::set(words_, last_mask);
    return *this;
  }
  bitset &set(size_t pos, int value = true) {
    in_range(pos);
    if (value)
      words_[pos >> 5] |= 1ul << (pos & 31);
    else
      words_[pos >> 5] &= ~(1ul << (pos & 31));
    return *this;
  }
  bitset &reset() PLX_NOTHROW {
    words::reset(words_);
    return *this;
  }
  bitset &reset(size_t pos) {
    in_range(pos);
    words_[pos >> 5] &= ~(1ul << (pos & 31));
    return *this;
  }
  bitset operator~() const PLX_NOTHROW {
    bitset result = bitset(unset());
    words::vector_not(result.words_, words_, last_mask);
    return result;
  }
  bitset &flip() PLX_NOTHROW {
    words::vector_not(words_, words_, last_mask);
    return *this;
  }
  bitset &flip(size_t pos) {
    in_range(pos);
    words_[pos >> 5] ^= 1ul << (pos & 31);
    return *this;
  }

  // Not checked.
  reference operator[](size_t pos) PLX_NOTHROW { return reference(words_, pos); }
  bool operator[](size_t pos) const PLX_NOTHROW { return ((words_[pos >> 5] >> (pos & 31)) & 1) != 0; }

  unsigned long to_ulong() const {
    for (unsigned i = 1; i < n; ++i)
      if (words_[i] != 0) __zor::throw_bitset_overflow();
    return words_[0];
  }
#if __cplusplus >= 201103L
  unsigned long long to_ullong() const {
    for (unsigned i = 2; i < n; ++i)
      if (words_[i] != 0) __zor::throw_bitset_overflow();
    return n == 1 ? words_[0] : words_[0] | static_cast<unsigned long long>(words_[n > 1]) << 32;
  }
#endif

  // In later standards the arguments have defaults, which programs of any dialect expect.
  template <class C, class T, class A> basic_string<C, T, A> to_string() const {
    basic_string<C, T, A> text(N, C('0'));
    // The string has this one owner, and no reference into it leaves this function.
    C *at = const_cast<C *>(text.data()) + N;
    size_t i = 0;
    for (; i + 32 <= N; i += 32) __zor::word_to_text(words_[i >> 5], at -= 32);
    for (; i < N; ++i) *--at = static_cast<C>('0' + ((words_[i >> 5] >> (i & 31)) & 1));
    return text;
  }
  template <class C, class T> basic_string<C, T, allocator<C> > to_string() const {
    return to_string<C, T, allocator<C> >();
  }
  template <class C> basic_string<C, char_traits<C>, allocator<C> > to_string() const {
    return to_string<C, char_traits<C>, allocator<C> >();
  }
  string to_string() const { return to_string<char, char_traits<char>, allocator<char> >(); }

  size_t count() const PLX_NOTHROW { return words::count(words_); }
  size_t size() const PLX_NOTHROW { return N; }
  bool operator==(const bitset &other) const PLX_NOTHROW { return words::equal(words_, other.words_); }
  bool operator!=(const bitset &other) const PLX_NOTHROW { return !words::equal(words_, other.words_); }
  bool test(size_t pos) const {
    in_range(pos);
    return ((words_[pos >> 5] >> (pos & 31)) & 1) != 0;
  }
  bool any() const PLX_NOTHROW { return words::any(words_); }
  bool none() const PLX_NOTHROW { return !words::any(words_); }
#if __cplusplus >= 201103L
  bool all() const noexcept { return count() == N; }
#endif

private:
  // A result that is written whole at once.
  struct unset {};
  explicit bitset(unset) PLX_NOTHROW {}

  static void in_range(size_t pos) {
    if (pos >= N) __zor::throw_range();
  }
  void shift_left(const bitset &source, size_t shift) PLX_NOTHROW {
    if (shift < N)
      words::shift_left(words_, source.words_, shift, last_mask);
    else
      words::reset(words_);
  }
  void shift_right(const bitset &source, size_t shift) PLX_NOTHROW {
    if (shift < N)
      words::shift_right(words_, source.words_, shift);
    else
      words::reset(words_);
  }
  // Whole words from the end of what has a place, the rest one by one.
  void assign(const char *text, size_t length) {
    words::reset(words_);
    const size_t used = length < N ? length : N;
    unsigned long wrong = 0;
    size_t i = 0;
    for (; i + 32 <= used; i += 32) words_[i >> 5] = __zor::word_from_text(text + used - i - 32, wrong);
    for (; i < used; ++i) {
      const unsigned long bit = static_cast<unsigned char>(text[used - 1 - i]) ^ 0x30ul;
      wrong |= bit & ~1ul;
      words_[i >> 5] |= (bit & 1) << (i & 31);
    }
    for (; i < length; ++i) wrong |= (static_cast<unsigned char>(text[i]) ^ 0x30ul) & ~1ul;
    if (wrong != 0) __zor::throw_invalid_value_in_string();
  }

  unsigned long words_[n];

  friend bitset operator& <N>(const bitset &left, const bitset &right) PLX_NOTHROW;
  friend bitset operator| <N>(const bitset &left, const bitset &right) PLX_NOTHROW;
  friend bitset operator^ <N>(const bitset &left, const bitset &right) PLX_NOTHROW;
};

template <size_t N> const unsigned bitset<N>::n;
template <size_t N> const unsigned long bitset<N>::last_mask;

template <size_t N> inline bitset<N> operator&(const bitset<N> &left, const bitset<N> &right) PLX_NOTHROW {
  bitset<N> result = bitset<N>(typename bitset<N>::unset());
  bitset<N>::words::vector_and(result.words_, left.words_, right.words_);
  return result;
}
template <size_t N> inline bitset<N> operator|(const bitset<N> &left, const bitset<N> &right) PLX_NOTHROW {
  bitset<N> result = bitset<N>(typename bitset<N>::unset());
  bitset<N>::words::vector_or(result.words_, left.words_, right.words_);
  return result;
}
template <size_t N> inline bitset<N> operator^(const bitset<N> &left, const bitset<N> &right) PLX_NOTHROW {
  bitset<N> result = bitset<N>(typename bitset<N>::unset());
  bitset<N>::words::vector_xor(result.words_, left.words_, right.words_);
  return result;
}

}  // namespace std

#endif
