// bitset<_Nv> (1998, 23.3.5): _Nv bits in 32-bit words. A thin shell over the word operations in bitset_words.h.
//
// Where it differs from the 1998 class on purpose: shifting a set of several words right by an amount that is not a
// multiple of 32; docs/deviations.md says how.
#ifndef PLX_BITSET_H
#define PLX_BITSET_H

#include <stddef.h>

#include <plx/containers/bitset_words.h>
#include <plx/string/basic_string.h>

namespace std {

template <size_t _Nv> class bitset;
template <size_t _Nv> bitset<_Nv> operator&(const bitset<_Nv> &_left, const bitset<_Nv> &_right) PLX_NOTHROW;
template <size_t _Nv> bitset<_Nv> operator|(const bitset<_Nv> &_left, const bitset<_Nv> &_right) PLX_NOTHROW;
template <size_t _Nv> bitset<_Nv> operator^(const bitset<_Nv> &_left, const bitset<_Nv> &_right) PLX_NOTHROW;

template <size_t _Nv> class bitset {
  static const unsigned _n = _Nv == 0 ? 1 : (_Nv + 31) / 32;
  static const unsigned long _last_mask = _Nv == 0 ? 0ul : _Nv % 32 == 0 ? ~0ul : (1ul << (_Nv % 32)) - 1;
  typedef __zor::_bit_words<_n> _words;

public:
  // One bit of a set, for writing.
  class reference {
  public:
#if __cplusplus >= 201103L
    reference(const reference &) = default;
#endif
    reference &operator=(bool _value) PLX_NOTHROW {
      if (_value)
        *_word_ |= _bit_;
      else
        *_word_ &= ~_bit_;
      return *this;
    }
    reference &operator=(const reference &_other) PLX_NOTHROW { return *this = static_cast<bool>(_other); }
    bool operator~() const PLX_NOTHROW { return (*_word_ & _bit_) == 0; }
    operator bool() const PLX_NOTHROW { return (*_word_ & _bit_) != 0; }
    reference &flip() PLX_NOTHROW {
      *_word_ ^= _bit_;
      return *this;
    }

  private:
    friend class bitset;
    reference(unsigned long *_w, size_t _pos) PLX_NOTHROW : _word_(_w + (_pos >> 5)), _bit_(1ul << (_pos & 31)) {}

    unsigned long *_word_;
    unsigned long _bit_;
  };

  bitset() PLX_NOTHROW { _words::reset(_words_); }

  // Bits above _Nv, or above the integer, are dropped or zero.
#if __cplusplus >= 201103L
  bitset(unsigned long long _value) noexcept {
    _words::reset(_words_);
    _words_[0] = static_cast<unsigned long>(_value);
    if (_n > 1) _words_[_n > 1] = static_cast<unsigned long>(_value >> 32);
    _words_[_n - 1] &= _last_mask;
  }
#else
  bitset(unsigned long _value) PLX_NOTHROW {
    _words::reset(_words_);
    _words_[0] = _value;
    _words_[_n - 1] &= _last_mask;
  }
#endif

  // From characters '0' and '1', highest bit first. All that the range names must be such, also what has no place.
  template <class _Ct, class _T, class _A>
  explicit bitset(const basic_string<_Ct, _T, _A> &_text, typename basic_string<_Ct, _T, _A>::size_type _pos = 0,
                  typename basic_string<_Ct, _T, _A>::size_type _count = basic_string<_Ct, _T, _A>::npos) {
    if (_pos > _text.size()) __zor::throw_range();
    assign(_text.data() + _pos, _count < _text.size() - _pos ? _count : _text.size() - _pos);
  }
#if __cplusplus >= 201103L
  explicit bitset(const char *_text, size_t _count = static_cast<size_t>(-1)) {
    size_t _length = 0;
    while (_length < _count && _text[_length] != '\0') ++_length;
    assign(_text, _length);
  }
#endif

  bitset &operator&=(const bitset &_other) PLX_NOTHROW {
    _words::vector_and(_words_, _words_, _other._words_);
    return *this;
  }
  bitset &operator|=(const bitset &_other) PLX_NOTHROW {
    _words::vector_or(_words_, _words_, _other._words_);
    return *this;
  }
  bitset &operator^=(const bitset &_other) PLX_NOTHROW {
    _words::vector_xor(_words_, _words_, _other._words_);
    return *this;
  }
  bitset &operator<<=(size_t _shift) PLX_NOTHROW {
    shift_left(*this, _shift);
    return *this;
  }
  bitset &operator>>=(size_t _shift) PLX_NOTHROW {
    shift_right(*this, _shift);
    return *this;
  }
  bitset operator<<(size_t _shift) const PLX_NOTHROW {
    bitset _result = bitset(_unset());
    _result.shift_left(*this, _shift);
    return _result;
  }
  bitset operator>>(size_t _shift) const PLX_NOTHROW {
    bitset _result = bitset(_unset());
    _result.shift_right(*this, _shift);
    return _result;
  }

  bitset &set() PLX_NOTHROW {
    _words::set(_words_, _last_mask);
    return *this;
  }
  bitset &set(size_t _pos, int _value = true) {
    _in_range(_pos);
    if (_value)
      _words_[_pos >> 5] |= 1ul << (_pos & 31);
    else
      _words_[_pos >> 5] &= ~(1ul << (_pos & 31));
    return *this;
  }
  bitset &reset() PLX_NOTHROW {
    _words::reset(_words_);
    return *this;
  }
  bitset &reset(size_t _pos) {
    _in_range(_pos);
    _words_[_pos >> 5] &= ~(1ul << (_pos & 31));
    return *this;
  }
  bitset operator~() const PLX_NOTHROW {
    bitset _result = bitset(_unset());
    _words::vector_not(_result._words_, _words_, _last_mask);
    return _result;
  }
  bitset &flip() PLX_NOTHROW {
    _words::vector_not(_words_, _words_, _last_mask);
    return *this;
  }
  bitset &flip(size_t _pos) {
    _in_range(_pos);
    _words_[_pos >> 5] ^= 1ul << (_pos & 31);
    return *this;
  }

  // Not checked.
  reference operator[](size_t _pos) PLX_NOTHROW { return reference(_words_, _pos); }
  bool operator[](size_t _pos) const PLX_NOTHROW { return ((_words_[_pos >> 5] >> (_pos & 31)) & 1) != 0; }

  unsigned long to_ulong() const {
    for (unsigned _i = 1; _i < _n; ++_i)
      if (_words_[_i] != 0) __zor::throw_bitset_overflow();
    return _words_[0];
  }
#if __cplusplus >= 201103L
  unsigned long long to_ullong() const {
    for (unsigned _i = 2; _i < _n; ++_i)
      if (_words_[_i] != 0) __zor::throw_bitset_overflow();
    return _n == 1 ? _words_[0] : _words_[0] | static_cast<unsigned long long>(_words_[_n > 1]) << 32;
  }
#endif

  // In later standards the arguments have defaults, which programs of any dialect expect.
  template <class _Ct, class _T, class _A> basic_string<_Ct, _T, _A> to_string() const {
    basic_string<_Ct, _T, _A> _text(_Nv, _Ct('0'));
    // The string has this one owner, and no reference into it leaves this function.
    _Ct *_at = const_cast<_Ct *>(_text.data()) + _Nv;
    size_t _i = 0;
    for (; _i + 32 <= _Nv; _i += 32) __zor::_word_to_text(_words_[_i >> 5], _at -= 32);
    for (; _i < _Nv; ++_i) *--_at = static_cast<_Ct>('0' + ((_words_[_i >> 5] >> (_i & 31)) & 1));
    return _text;
  }
  template <class _Ct, class _T> basic_string<_Ct, _T, allocator<_Ct> > to_string() const {
    return to_string<_Ct, _T, allocator<_Ct> >();
  }
  template <class _Ct> basic_string<_Ct, char_traits<_Ct>, allocator<_Ct> > to_string() const {
    return to_string<_Ct, char_traits<_Ct>, allocator<_Ct> >();
  }
  string to_string() const { return to_string<char, char_traits<char>, allocator<char> >(); }

  size_t count() const PLX_NOTHROW { return _words::count(_words_); }
  size_t size() const PLX_NOTHROW { return _Nv; }
  bool operator==(const bitset &_other) const PLX_NOTHROW { return _words::equal(_words_, _other._words_); }
  bool operator!=(const bitset &_other) const PLX_NOTHROW { return !_words::equal(_words_, _other._words_); }
  bool test(size_t _pos) const {
    _in_range(_pos);
    return ((_words_[_pos >> 5] >> (_pos & 31)) & 1) != 0;
  }
  bool any() const PLX_NOTHROW { return _words::any(_words_); }
  bool none() const PLX_NOTHROW { return !_words::any(_words_); }
#if __cplusplus >= 201103L
  bool all() const noexcept { return count() == _Nv; }
#endif

private:
  // A result that is written whole at once.
  struct _unset {};
  explicit bitset(_unset) PLX_NOTHROW {}

  static void _in_range(size_t _pos) {
    if (_pos >= _Nv) __zor::throw_range();
  }
  void shift_left(const bitset &_source, size_t _shift) PLX_NOTHROW {
    if (__builtin_expect(_shift < _Nv, true))
      _words::shift_left(_words_, _source._words_, _shift, _last_mask);
    else
      _words::reset(_words_);
  }
  void shift_right(const bitset &_source, size_t _shift) PLX_NOTHROW {
    if (__builtin_expect(_shift < _Nv, true))
      _words::shift_right(_words_, _source._words_, _shift);
    else
      _words::reset(_words_);
  }
  // Whole words from the end of what has a place, the rest one by one.
  void assign(const char *_text, size_t _length) {
    _words::reset(_words_);
    const size_t _used = _length < _Nv ? _length : _Nv;
    unsigned long _wrong = 0;
    size_t _i = 0;
    for (; _i + 32 <= _used; _i += 32) _words_[_i >> 5] = __zor::_word_from_text(_text + _used - _i - 32, _wrong);
    for (; _i < _used; ++_i) {
      const unsigned long _bit = static_cast<unsigned char>(_text[_used - 1 - _i]) ^ 0x30ul;
      _wrong |= _bit & ~1ul;
      _words_[_i >> 5] |= (_bit & 1) << (_i & 31);
    }
    for (; _i < _length; ++_i) _wrong |= (static_cast<unsigned char>(_text[_i]) ^ 0x30ul) & ~1ul;
    if (_wrong != 0) __zor::throw_invalid_value_in_string();
  }

  unsigned long _words_[_n];

  friend bitset operator&<_Nv>(const bitset &_left, const bitset &_right) PLX_NOTHROW;
  friend bitset operator|<_Nv>(const bitset &_left, const bitset &_right) PLX_NOTHROW;
  friend bitset operator^<_Nv>(const bitset &_left, const bitset &_right) PLX_NOTHROW;
};

template <size_t _Nv> const unsigned bitset<_Nv>::_n;
template <size_t _Nv> const unsigned long bitset<_Nv>::_last_mask;

template <size_t _Nv> inline bitset<_Nv> operator&(const bitset<_Nv> &_left, const bitset<_Nv> &_right) PLX_NOTHROW {
  bitset<_Nv> _result = bitset<_Nv>(typename bitset<_Nv>::_unset());
  bitset<_Nv>::_words::vector_and(_result._words_, _left._words_, _right._words_);
  return _result;
}
template <size_t _Nv> inline bitset<_Nv> operator|(const bitset<_Nv> &_left, const bitset<_Nv> &_right) PLX_NOTHROW {
  bitset<_Nv> _result = bitset<_Nv>(typename bitset<_Nv>::_unset());
  bitset<_Nv>::_words::vector_or(_result._words_, _left._words_, _right._words_);
  return _result;
}
template <size_t _Nv> inline bitset<_Nv> operator^(const bitset<_Nv> &_left, const bitset<_Nv> &_right) PLX_NOTHROW {
  bitset<_Nv> _result = bitset<_Nv>(typename bitset<_Nv>::_unset());
  bitset<_Nv>::_words::vector_xor(_result._words_, _left._words_, _right._words_);
  return _result;
}

}  // namespace std

#endif
