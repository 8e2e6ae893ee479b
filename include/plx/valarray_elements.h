// Some elements of a valarray, by reference: what slice_array, gslice_array, mask_array and indirect_array (1998,
// 26.3.5, 26.3.7 to 26.3.9) have in common. They live no longer than the array, and no longer than its size stays.
//
// An index has size() and operator[]: the place of the i-th of these elements.
#ifndef PLX_VALARRAY_ELEMENTS_H
#define PLX_VALARRAY_ELEMENTS_H

#include <plx/valarray.h>

namespace __zor {

template <class T, class Index> class valarray_elements {
  typedef std::valarray<T> values;

public:
  typedef T value_type;

  void operator=(const T &value) const { change<assign_operation>(equal_elements<T>(value)); }

#define PLX_VALARRAY_ASSIGNMENT(symbol, operation) \
  void operator symbol(const values &right) const { change_by<operation>(right); }
  PLX_VALARRAY_ASSIGNMENT(=, assign_operation)
  PLX_VALARRAY_ASSIGNMENT(*=, multiply_operation)
  PLX_VALARRAY_ASSIGNMENT(/=, divide_operation)
  PLX_VALARRAY_ASSIGNMENT(%=, remainder_operation)
  PLX_VALARRAY_ASSIGNMENT(+=, plus_operation)
  PLX_VALARRAY_ASSIGNMENT(-=, minus_operation)
  PLX_VALARRAY_ASSIGNMENT(^=, xor_operation)
  PLX_VALARRAY_ASSIGNMENT(&=, and_operation)
  PLX_VALARRAY_ASSIGNMENT(|=, or_operation)
  PLX_VALARRAY_ASSIGNMENT(<<=, left_operation)
  PLX_VALARRAY_ASSIGNMENT(>>=, right_operation)
#undef PLX_VALARRAY_ASSIGNMENT

protected:
  valarray_elements(T *data, const Index &index) : data_(data), index_(index) {}
  valarray_elements(const valarray_elements &other) : data_(other.data_), index_(other.index_) {}

  // Copies elements, perhaps within one array. Const as all assignments here, or overloading would prefer it to them.
  void operator=(const valarray_elements &other) const {
    const chosen_elements<T, Index> chosen(other.data_, other.index_);
    change_by<assign_operation>(valarrays::expression<T, chosen_elements<T, Index> >(other.index_.size(), chosen));
  }

private:
  friend class std::valarray<T>;

  template <class Operation, class Source> void change(const Source &source) const {
    T *const data = data_;
    for (std::size_t i = 0, n = index_.size(); i < n; ++i) Operation::change(data[index_[i]], source(i));
  }
  template <class Operation> void change_by(const values &right) const {
    const T *const from = valarray_access::data(right);
    if (from == data_)  // the same array: read before writing
      change_by<Operation>(values(right));
    else
      change<Operation>(given_elements<T>(from));
  }

  T *data_;
  Index index_;
};

}  // namespace __zor

#endif
