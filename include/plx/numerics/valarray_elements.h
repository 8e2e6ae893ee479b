// Some elements of a valarray, by reference: what slice_array, gslice_array, mask_array and indirect_array (1998,
// 26.3.5, 26.3.7 to 26.3.9) have in common. They live no longer than the array, and no longer than its size stays.
//
// An index has size() and operator[]: the place of the i-th of these elements.
#ifndef PLX_VALARRAY_ELEMENTS_H
#define PLX_VALARRAY_ELEMENTS_H

#include <plx/numerics/valarray.h>

namespace __zor {

template <class _T, class _Index> class _valarray_elements {
  typedef std::valarray<_T> _values;

public:
  typedef _T value_type;

  void operator=(const _T &_value) const { _change<_assign_operation>(_equal_elements<_T>(_value)); }

#define PLX_VALARRAY_ASSIGNMENT(symbol, operation) \
  void operator symbol(const _values &_right) const { _change_by<operation>(_right); }
  PLX_VALARRAY_ASSIGNMENT(=, _assign_operation)
  PLX_VALARRAY_ASSIGNMENT(*=, _multiply_operation)
  PLX_VALARRAY_ASSIGNMENT(/=, _divide_operation)
  PLX_VALARRAY_ASSIGNMENT(%=, _remainder_operation)
  PLX_VALARRAY_ASSIGNMENT(+=, _plus_operation)
  PLX_VALARRAY_ASSIGNMENT(-=, _minus_operation)
  PLX_VALARRAY_ASSIGNMENT(^=, _xor_operation)
  PLX_VALARRAY_ASSIGNMENT(&=, _and_operation)
  PLX_VALARRAY_ASSIGNMENT(|=, _or_operation)
  PLX_VALARRAY_ASSIGNMENT(<<=, _left_operation)
  PLX_VALARRAY_ASSIGNMENT(>>=, _right_operation)
#undef PLX_VALARRAY_ASSIGNMENT

protected:
  _valarray_elements(_T *_data, const _Index &_index) : _data_(_data), _index_(_index) {}
  _valarray_elements(const _valarray_elements &_other) : _data_(_other._data_), _index_(_other._index_) {}

  // Copies elements, perhaps within one array. Const as all assignments here, or overloading would prefer it to them.
  void operator=(const _valarray_elements &_other) const {
    const _chosen_elements<_T, _Index> _chosen(_other._data_, _other._index_);
    _change_by<_assign_operation>(
        _valarrays::_expression<_T, _chosen_elements<_T, _Index> >(_other._index_.size(), _chosen));
  }

private:
  friend class std::valarray<_T>;

  template <class _Operation, class _Source> void _change(const _Source &_source) const {
    _T *const _data = _data_;
    for (std::size_t _i = 0, _n = _index_.size(); _i < _n; ++_i) _Operation::_change(_data[_index_[_i]], _source(_i));
  }
  template <class _Operation> void _change_by(const _values &_right) const {
    const _T *const _from = _valarray_access::data(_right);
    if (_from != _data_) {
      _change<_Operation>(_given_elements<_T>(_from));
      return;
    }
    // The same array: read before writing.
    const _values _read(_right);
    _change<_Operation>(_given_elements<_T>(_valarray_access::data(_read)));
  }

  _T *_data_;
  _Index _index_;
};

}  // namespace __zor

#endif
