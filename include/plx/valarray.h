// valarray<T> (1998, 26.3.2). Its operators and functions give expressions, which become arrays in one pass.
//
// Beyond 1998: assignment takes the size of the right side, and the const operator[] gives a reference.
#ifndef PLX_VALARRAY_H
#define PLX_VALARRAY_H

#include <plx/slice.h>
#include <plx/valarray_block.h>
#include <plx/valarray_expression.h>

namespace std {

template <class T> class slice_array;
template <class T> class gslice_array;
template <class T> class mask_array;
template <class T> class indirect_array;

}  // namespace std

namespace __zor {

std::valarray<std::size_t> places_of(const std::gslice &places);
std::valarray<std::size_t> places_of(const std::valarray<bool> &mask);

}  // namespace __zor

namespace std {

template <class T> class valarray : public __zor::valarrays::operand<T, valarray<T> > {
  typedef __zor::given_elements<T> given;

public:
  typedef T value_type;

  valarray() PLX_NOTHROW {}
  explicit valarray(size_t n) { block_.build(n, __zor::default_elements<T>()); }
  valarray(const T &value, size_t n) { block_.build(n, __zor::equal_elements<T>(value)); }
  valarray(const T *values, size_t n) { block_.build(n, given(values)); }
  valarray(const valarray &other) : __zor::valarrays::operand<T, valarray>() {
    block_.build(other.size(), given(other.block_.data()));
  }
  valarray(const slice_array<T> &elements) { choose(elements.data_, elements.index_); }
  valarray(const gslice_array<T> &elements) { choose(elements.data_, elements.index_); }
  valarray(const mask_array<T> &elements) { choose(elements.data_, elements.index_); }
  valarray(const indirect_array<T> &elements) { choose(elements.data_, elements.index_); }
  template <class Source> valarray(const __zor::valarrays::expression<T, Source> &e) {
    block_.build(e.size(), e.source());
  }
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
  // The expression may be of this array: each element is computed before it is assigned, from its own place.
  template <class Source> valarray &operator=(const __zor::valarrays::expression<T, Source> &e) {
    return size() == e.size() ? compute<__zor::assign_operation>(e.source()) : take(e);
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

#define PLX_VALARRAY_COMPUTED_ASSIGNMENT(symbol, operation)                                                            \
  valarray &operator symbol(const T &value) { return compute<__zor::operation>(__zor::equal_elements<T>(value)); }     \
  valarray &operator symbol(const valarray &other) { return compute<__zor::operation>(given(other.block_.data())); }   \
  template <class Source> valarray &operator symbol(const __zor::valarrays::expression<T, Source> &e) {                \
    return compute<__zor::operation>(e.source());                                                                      \
  }
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
  friend struct __zor::valarray_access;

  struct from_source {};
  template <class Source> valarray(size_t n, const Source &source, from_source) { block_.build(n, source); }

  template <class Source> valarray made(const Source &source) const { return valarray(size(), source, from_source()); }
  template <class Index> void choose(const T *data, const Index &index) {
    block_.build(index.size(), __zor::chosen_elements<T, Index>(data, index));
  }
  template <class Index> valarray chosen(const Index &index) const {
    return valarray(index.size(), __zor::chosen_elements<T, Index>(block_.data(), index), from_source());
  }
  template <class Operation, class Source> valarray &compute(const Source &source) {
    const Source from(source);
    T *const data = block_.data();
    for (size_t i = 0, n = size(); i < n; ++i) Operation::change(data[i], from(i));
    return *this;
  }
  // Not inline: then assignments that fit need no frame for the array that is made here.
  template <class Elements> __attribute__((__noinline__)) valarray &take(const Elements &elements) {
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
template <class T> inline T *end(valarray<T> &array) noexcept { return begin(array) + array.size(); }
template <class T> inline const T *begin(const valarray<T> &array) noexcept {
  return __zor::valarray_access::data(array);
}
template <class T> inline const T *end(const valarray<T> &array) noexcept { return begin(array) + array.size(); }
template <class T> inline void swap(valarray<T> &a, valarray<T> &b) noexcept { a.swap(b); }

}  // namespace std

#endif
#endif
