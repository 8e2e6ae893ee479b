// valarray<_T> (1998, 26.3.2). Its operators and functions give expressions, which become arrays in one pass.
//
// Beyond 1998: assignment takes the size of the right side, and the const operator[] gives a reference.
#ifndef PLX_VALARRAY_H
#define PLX_VALARRAY_H

#include <initializer_list>

#include <plx/numerics/slice.h>
#include <plx/numerics/valarray_block.h>
#include <plx/numerics/valarray_expression.h>

namespace std {

template <class _T> class slice_array;
template <class _T> class gslice_array;
template <class _T> class mask_array;
template <class _T> class indirect_array;

}  // namespace std

namespace __zor {

std::valarray<std::size_t> _places_of(const std::gslice &_places);
std::valarray<std::size_t> _places_of(const std::valarray<bool> &_mask);

}  // namespace __zor

namespace std {

template <class _T> class valarray : public __zor::_valarrays::_operand<_T, valarray<_T> > {
  typedef __zor::_given_elements<_T> _given;

public:
  typedef _T value_type;

  valarray() PLX_NOTHROW {}
  explicit valarray(size_t _n) { _block_._build(_n, __zor::_default_elements<_T>()); }
  valarray(const _T &_value, size_t _n) { _block_._build(_n, __zor::_equal_elements<_T>(_value)); }
  valarray(const _T *_values, size_t _n) { _block_._build(_n, _given(_values)); }
  valarray(const valarray &_other) : __zor::_valarrays::_operand<_T, valarray>() {
    _block_._build(_other.size(), _given(_other._block_.data()));
  }
  valarray(const slice_array<_T> &_elements) { _choose(_elements._data_, _elements._index_); }
  valarray(const gslice_array<_T> &_elements) { _choose(_elements._data_, _elements._index_); }
  valarray(const mask_array<_T> &_elements) { _choose(_elements._data_, _elements._index_); }
  valarray(const indirect_array<_T> &_elements) { _choose(_elements._data_, _elements._index_); }
  template <class _Source> valarray(const __zor::_valarrays::_expression<_T, _Source> &_e) {
    _block_._build(_e.size(), _e._source());
  }
#if __cplusplus >= 201103L
  valarray(initializer_list<_T> _values) { _block_._build(_values.size(), _given(_values.begin())); }
  valarray &operator=(initializer_list<_T> _values) {
    if (size() == _values.size())
      _compute<__zor::_assign_operation>(_given(_values.begin()));
    else
      valarray(_values)._block_.swap(_block_);
    return *this;
  }
  valarray(valarray &&_other) noexcept { _block_.swap(_other._block_); }
  valarray &operator=(valarray &&_other) noexcept {
    _block_.swap(_other._block_);
    return *this;
  }
#endif

  valarray &operator=(const valarray &_other) {
    if (size() == _other.size())
      _compute<__zor::_assign_operation>(_given(_other._block_.data()));
    else
      valarray(_other)._block_.swap(_block_);
    return *this;
  }
  // The expression may be of this array: each element is computed before it is assigned, from its own place.
  template <class _Source> valarray &operator=(const __zor::_valarrays::_expression<_T, _Source> &_e) {
    return size() == _e.size() ? _compute<__zor::_assign_operation>(_e._source()) : _take(_e);
  }
  valarray &operator=(const _T &_value) {
    return _compute<__zor::_assign_operation>(__zor::_equal_elements<_T>(_value));
  }
  // The elements may be this array's own, so they are taken out first.
  valarray &operator=(const slice_array<_T> &_elements) { return _take(_elements); }
  valarray &operator=(const gslice_array<_T> &_elements) { return _take(_elements); }
  valarray &operator=(const mask_array<_T> &_elements) { return _take(_elements); }
  valarray &operator=(const indirect_array<_T> &_elements) { return _take(_elements); }

  const _T &operator[](size_t _i) const PLX_NOTHROW { return _block_.data()[_i]; }
  _T &operator[](size_t _i) PLX_NOTHROW { return _block_.data()[_i]; }

  // Parts: copies of a const array's elements, references to those of any other.

  valarray operator[](slice _places) const { return _chosen(__zor::_slice_index(_places)); }
  slice_array<_T> operator[](slice _places) { return slice_array<_T>(_block_.data(), __zor::_slice_index(_places)); }
  valarray operator[](const gslice &_places) const { return _chosen(__zor::_places_of(_places)); }
  gslice_array<_T> operator[](const gslice &_places) {
    return gslice_array<_T>(_block_.data(), __zor::_places_of(_places));
  }
  valarray operator[](const valarray<bool> &_mask) const { return _chosen(__zor::_places_of(_mask)); }
  mask_array<_T> operator[](const valarray<bool> &_mask) {
    return mask_array<_T>(_block_.data(), __zor::_places_of(_mask));
  }
  valarray operator[](const valarray<size_t> &_places) const { return _chosen(_places); }
  indirect_array<_T> operator[](const valarray<size_t> &_places) { return indirect_array<_T>(_block_.data(), _places); }

#define PLX_VALARRAY_COMPUTED_ASSIGNMENT(symbol, operation)                                                   \
  valarray &operator symbol(const _T &_value) {                                                               \
    return _compute<__zor::operation>(__zor::_equal_elements<_T>(_value));                                    \
  }                                                                                                           \
  valarray &operator symbol(const valarray &_other) {                                                         \
    return _compute<__zor::operation>(_given(_other._block_.data()));                                         \
  }                                                                                                           \
  template <class _Source> valarray &operator symbol(const __zor::_valarrays::_expression<_T, _Source> &_e) { \
    return _compute<__zor::operation>(_e._source());                                                          \
  }
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(*=, _multiply_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(/=, _divide_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(%=, _remainder_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(+=, _plus_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(-=, _minus_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(^=, _xor_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(&=, _and_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(|=, _or_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(<<=, _left_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(>>=, _right_operation)
#undef PLX_VALARRAY_COMPUTED_ASSIGNMENT

  size_t size() const PLX_NOTHROW { return _block_.size(); }

  // Element i of the result is element i + n; of the whole array turned around, or _T() where there is none.
  valarray shift(int _n) const {
    return _made(__zor::_shifted_elements<_T>(_block_.data(), size(), static_cast<size_t>(_n)));
  }
  valarray cshift(int _n) const {
    const size_t _around = size() == 0 ? 0 : (_n < 0 ? 0 - static_cast<size_t>(_n) : static_cast<size_t>(_n)) % size();
    return _made(
        __zor::_rotated_elements<_T>(_block_.data(), size(), _n < 0 && _around != 0 ? size() - _around : _around));
  }

  valarray apply(_T _function_(_T)) const {
    return _made(__zor::_applied_elements<_T, _T (*)(_T)>(_block_.data(), _function_));
  }
  valarray apply(_T _function_(const _T &)) const {
    return _made(__zor::_applied_elements<_T, _T (*)(const _T &)>(_block_.data(), _function_));
  }

  // All elements are new ones.
  void resize(size_t _n, _T _value = _T()) { valarray(_value, _n)._block_.swap(_block_); }

#if __cplusplus >= 201103L
  void swap(valarray &_other) noexcept { _block_.swap(_other._block_); }
#endif

private:
  friend struct __zor::_valarray_access;

  struct _from_source {};
  template <class _Source> valarray(size_t _n, const _Source &_source, _from_source) { _block_._build(_n, _source); }

  template <class _Source> valarray _made(const _Source &_source) const {
    return valarray(size(), _source, _from_source());
  }
  template <class _Index> void _choose(const _T *_data, const _Index &_index) {
    _block_._build(_index.size(), __zor::_chosen_elements<_T, _Index>(_data, _index));
  }
  template <class _Index> valarray _chosen(const _Index &_index) const {
    return valarray(_index.size(), __zor::_chosen_elements<_T, _Index>(_block_.data(), _index), _from_source());
  }
  template <class _Operation, class _Source> valarray &_compute(const _Source &_source) {
    const _Source _from(_source);
    _T *const _data = _block_.data();
    for (size_t _i = 0, _n = size(); _i < _n; ++_i) _Operation::_change(_data[_i], _from(_i));
    return *this;
  }
  // Not inline: then assignments that fit need no frame for the array that is made here.
  template <class _Elements> PLX_NOINLINE valarray &_take(const _Elements &_elements) {
    valarray _taken(_elements);
    _block_.swap(_taken._block_);
    return *this;
  }

  __zor::_valarray_block<_T> _block_;
};

}  // namespace std

namespace __zor {

inline std::valarray<std::size_t> _places_of(const std::valarray<bool> &_mask) {
  std::size_t _n = 0;
  for (std::size_t _i = 0; _i < _mask.size(); ++_i) _n += _mask[_i];
  std::valarray<std::size_t> _places(_n);
  _n = 0;
  for (std::size_t _i = 0; _i < _mask.size(); ++_i)
    if (_mask[_i]) _places[_n++] = _i;
  return _places;
}

}  // namespace __zor

#if __cplusplus >= 201103L

// Range-for and the algorithms.

namespace std {

template <class _T> inline _T *begin(valarray<_T> &_array) noexcept {
  return const_cast<_T *>(__zor::_valarray_access::data(_array));
}
template <class _T> inline _T *end(valarray<_T> &_array) noexcept { return std::begin(_array) + _array.size(); }
template <class _T> inline const _T *begin(const valarray<_T> &_array) noexcept {
  return __zor::_valarray_access::data(_array);
}
template <class _T> inline const _T *end(const valarray<_T> &_array) noexcept {
  return std::begin(_array) + _array.size();
}
template <class _T> inline void swap(valarray<_T> &_a, valarray<_T> &_b) noexcept { _a.swap(_b); }

}  // namespace std

#endif
#endif
