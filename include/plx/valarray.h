// valarray<T> (1998, 26.3.2). Operations give plain valarrays: each makes its result in one pass over one block.
//
// Beyond 1998: assignment takes the size of the right side, and the const operator[] gives a reference.
#ifndef PLX_VALARRAY_H
#define PLX_VALARRAY_H

#include <plx/slice.h>
#include <plx/valarray_block.h>
#include <plx/valarray_operations.h>
#include <plx/valarray_sources.h>

namespace std {

class gslice;
template <class T> class valarray;
template <class T> class slice_array;
template <class T> class gslice_array;
template <class T> class mask_array;
template <class T> class indirect_array;

}  // namespace std

namespace __zor {

std::valarray<std::size_t> places_of(const std::gslice &places);
std::valarray<std::size_t> places_of(const std::valarray<bool> &mask);

struct valarray_access {
  template <class T> static const T *data(const std::valarray<T> &array) PLX_NOTHROW { return array.block_.data(); }
  template <class T> static const T *data_end(const std::valarray<T> &array) PLX_NOTHROW {
    return array.block_.data() + array.block_.size();
  }
  template <class R, class Source> static std::valarray<R> make(std::size_t n, const Source &source) {
    return std::valarray<R>(n, source, typename std::valarray<R>::from_source());
  }
};

}  // namespace __zor

namespace std {

template <class T> class valarray {
  typedef __zor::given_elements<T> given;

public:
  typedef T value_type;

  valarray() PLX_NOTHROW {}
  explicit valarray(size_t n) { block_.build(n, __zor::default_elements<T>()); }
  valarray(const T &value, size_t n) { block_.build(n, __zor::equal_elements<T>(value)); }
  valarray(const T *values, size_t n) { block_.build(n, given(values)); }
  valarray(const valarray &other) { block_.build(other.size(), given(other.block_.data())); }
  valarray(const slice_array<T> &elements) { choose(elements.data_, elements.index_); }
  valarray(const gslice_array<T> &elements) { choose(elements.data_, elements.index_); }
  valarray(const mask_array<T> &elements) { choose(elements.data_, elements.index_); }
  valarray(const indirect_array<T> &elements) { choose(elements.data_, elements.index_); }
#if __cplusplus >= 201103L
  valarray(valarray &&other) noexcept { block_.swap(other.block_); }
  valarray &operator=(valarray &&other) noexcept {
    block_.swap(other.block_);
    return *this;
  }
#endif

  valarray &operator=(const valarray &other) {
    if (size() == other.size())
      compute<__zor::assign_operation>(given(other.block_.data()));
    else
      valarray(other).block_.swap(block_);
    return *this;
  }
  valarray &operator=(const T &value) { return compute<__zor::assign_operation>(__zor::equal_elements<T>(value)); }
  // The elements may be this array's own, so they are taken out first.
  valarray &operator=(const slice_array<T> &elements) { return take(elements); }
  valarray &operator=(const gslice_array<T> &elements) { return take(elements); }
  valarray &operator=(const mask_array<T> &elements) { return take(elements); }
  valarray &operator=(const indirect_array<T> &elements) { return take(elements); }

  const T &operator[](size_t i) const PLX_NOTHROW { return block_.data()[i]; }
  T &operator[](size_t i) PLX_NOTHROW { return block_.data()[i]; }

  // Parts: copies of a const array's elements, references to those of any other.

  valarray operator[](slice places) const { return chosen(__zor::slice_index(places)); }
  slice_array<T> operator[](slice places) { return slice_array<T>(block_.data(), __zor::slice_index(places)); }
  valarray operator[](const gslice &places) const { return chosen(__zor::places_of(places)); }
  gslice_array<T> operator[](const gslice &places) { return gslice_array<T>(block_.data(), __zor::places_of(places)); }
  valarray operator[](const valarray<bool> &mask) const { return chosen(__zor::places_of(mask)); }
  mask_array<T> operator[](const valarray<bool> &mask) {
    return mask_array<T>(block_.data(), __zor::places_of(mask));
  }
  valarray operator[](const valarray<size_t> &places) const { return chosen(places); }
  indirect_array<T> operator[](const valarray<size_t> &places) { return indirect_array<T>(block_.data(), places); }

  valarray operator+() const { return computed<T, __zor::plus_operation>(); }
  valarray operator-() const { return computed<T, __zor::minus_operation>(); }
  valarray operator~() const { return computed<T, __zor::complement_operation>(); }
  valarray<bool> operator!() const { return computed<bool, __zor::not_operation>(); }

#define PLX_VALARRAY_COMPUTED_ASSIGNMENT(symbol, operation)                                              \
  valarray &operator symbol(const T &value) {                                                            \
    return compute<__zor::operation>(__zor::equal_elements<T>(value));                                   \
  }                                                                                                      \
  valarray &operator symbol(const valarray &other) { return compute<__zor::operation>(given(other.block_.data())); }
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(*=, multiply_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(/=, divide_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(%=, remainder_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(+=, plus_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(-=, minus_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(^=, xor_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(&=, and_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(|=, or_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(<<=, left_operation)
  PLX_VALARRAY_COMPUTED_ASSIGNMENT(>>=, right_operation)
#undef PLX_VALARRAY_COMPUTED_ASSIGNMENT

  size_t size() const PLX_NOTHROW { return block_.size(); }

  // Of arrays with an element at least.

  T sum() const {
    T result(block_.data()[0]);
    for (size_t i = 1; i < size(); ++i) result += block_.data()[i];
    return result;
  }
  T(min)() const {
    const T *least = block_.data();
    for (size_t i = 1; i < size(); ++i)
      if (block_.data()[i] < *least) least = block_.data() + i;
    return *least;
  }
  T(max)() const {
    const T *most = block_.data();
    for (size_t i = 1; i < size(); ++i)
      if (*most < block_.data()[i]) most = block_.data() + i;
    return *most;
  }

  // Element i of the result is element i + n; of the whole array turned around, or T() where there is none.
  valarray shift(int n) const {
    return made(__zor::shifted_elements<T>(block_.data(), size(), static_cast<size_t>(n)));
  }
  valarray cshift(int n) const {
    const size_t around = size() == 0 ? 0 : (n < 0 ? 0 - static_cast<size_t>(n) : static_cast<size_t>(n)) % size();
    return made(__zor::rotated_elements<T>(block_.data(), size(), n < 0 && around != 0 ? size() - around : around));
  }

  valarray apply(T function(T)) const {
    return made(__zor::applied_elements<T, T (*)(T)>(block_.data(), function));
  }
  valarray apply(T function(const T &)) const {
    return made(__zor::applied_elements<T, T (*)(const T &)>(block_.data(), function));
  }

  // All elements are new ones.
  void resize(size_t n, T value = T()) { valarray(value, n).block_.swap(block_); }

#if __cplusplus >= 201103L
  void swap(valarray &other) noexcept { block_.swap(other.block_); }
#endif

private:
  template <class U> friend class valarray;
  friend struct __zor::valarray_access;

  struct from_source {};
  template <class Source> valarray(size_t n, const Source &source, from_source) { block_.build(n, source); }

  template <class Source> valarray made(const Source &source) const { return valarray(size(), source, from_source()); }
  template <class R, class Operation> valarray<R> computed() const {
    const __zor::unary_elements<R, Operation, given> results((given(block_.data())));
    return valarray<R>(size(), results, typename valarray<R>::from_source());
  }
  template <class Index> void choose(const T *data, const Index &index) {
    block_.build(index.size(), __zor::chosen_elements<T, Index>(data, index));
  }
  template <class Index> valarray chosen(const Index &index) const {
    return valarray(index.size(), __zor::chosen_elements<T, Index>(block_.data(), index), from_source());
  }
  template <class Operation, class Source> valarray &compute(const Source &source) {
    T *const data = block_.data();
    for (size_t i = 0, n = size(); i < n; ++i) Operation::change(data[i], source(i));
    return *this;
  }
  template <class Elements> valarray &take(const Elements &elements) {
    valarray taken(elements);
    block_.swap(taken.block_);
    return *this;
  }

  __zor::valarray_block<T> block_;
};

}  // namespace std

namespace __zor {

inline std::valarray<std::size_t> places_of(const std::valarray<bool> &mask) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < mask.size(); ++i) n += mask[i];
  std::valarray<std::size_t> places(n);
  n = 0;
  for (std::size_t i = 0; i < mask.size(); ++i)
    if (mask[i]) places[n++] = i;
  return places;
}

}  // namespace __zor

#if __cplusplus >= 201103L

// Range-for and the algorithms.

namespace std {

template <class T> inline T *begin(valarray<T> &array) noexcept {
  return const_cast<T *>(__zor::valarray_access::data(array));
}
template <class T> inline T *end(valarray<T> &array) noexcept {
  return const_cast<T *>(__zor::valarray_access::data_end(array));
}
template <class T> inline const T *begin(const valarray<T> &array) noexcept {
  return __zor::valarray_access::data(array);
}
template <class T> inline const T *end(const valarray<T> &array) noexcept {
  return __zor::valarray_access::data_end(array);
}
template <class T> inline void swap(valarray<T> &a, valarray<T> &b) noexcept { a.swap(b); }

}  // namespace std

#endif
#endif
