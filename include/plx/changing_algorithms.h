// Algorithms that change or copy each element on its own (1998, 25.2.3, 25.2.4, 25.2.6 to 25.2.8): transform, replace,
// generate, remove, unique.
#ifndef PLX_CHANGING_ALGORITHMS_H
#define PLX_CHANGING_ALGORITHMS_H

#include <plx/algobase.h>
#include <plx/functions.h>
#include <plx/ordering.h>
#include <plx/search_algorithms.h>

namespace __zor {
namespace functions {

// Arithmetic elements: each is stored, and what follows depends on the comparison only by a sum, not by a branch.
template <class Iterator> struct is_scalar_array { static const bool value = false; };
template <class T> struct is_scalar_array<T *> { static const bool value = is_arithmetic<T>::value; };

template <bool scalar> struct uniquing {
  template <class Forward, class Equal> static Forward run(Forward first, Forward last, Equal &same) {
    Forward kept = first;
    if (first == last) return first;
    while (++first != last)
      if (same(*kept, *first)) break;
      else kept = first;
    if (first == last) return last;
    while (++first != last) {
      if (same(*kept, *first)) continue;
      ++kept;
      *kept = __zor::move_from(first);
    }
    return ++kept;
  }
};
template <> struct uniquing<true> {
  template <class T> static T *run(T *first, T *last, by_equal) {
    if (first == last) return first;
    T kept = *first;
    T *out = ++first;
    for (; first != last; ++first) {
      const T value = *first;
      *out = value;
      out += !(kept == value);
      kept = value;
    }
    return out;
  }
};

template <bool scalar> struct removal {
  template <class Forward, class T> static Forward run(Forward first, Forward last, const T &value) {
    Forward out = first;
    for (++first; first != last; ++first) {
      if (*first == value) continue;
      *out = __zor::move_from(first);
      ++out;
    }
    return out;
  }
};
template <> struct removal<true> {
  template <class T, class V> static T *run(T *first, T *last, const V value) {
    T *out = first;
    for (++first; first != last; ++first) {
      const T element = *first;
      *out = element;
      out += !(element == value);
    }
    return out;
  }
};

template <class Predicate, class In, class Out> Out unique_copy(In first, In last, Out out, Predicate &same,
                                                                std::input_iterator_tag) {
  // What an input iterator gave may not be looked at again, nor can what was written be read.
  typename std::iterator_traits<In>::value_type kept = *first;
  *out = kept;
  while (++out, ++first != last) {
    while (same(kept, *first))
      if (++first == last) return out;
    kept = *first;
    *out = kept;
  }
  return out;
}
template <class Predicate, class In, class Out> Out unique_copy(In first, In last, Out out, Predicate &same,
                                                                std::forward_iterator_tag) {
  In kept = first;
  *out = *kept;
  while (++out, ++first != last) {
    while (same(*kept, *first))
      if (++first == last) return out;
    kept = first;
    *out = *kept;
  }
  return out;
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class In, class Out, class Operation>
inline Out transform(In first, In last, Out out, Operation operation) {
  for (; first != last; ++first, (void)++out) *out = operation(*first);
  return out;
}
template <class A, class B, class Out, class Operation>
inline Out transform(A first, A last, B other, Out out, Operation operation) {
  for (; first != last; ++first, (void)++other, (void)++out) *out = operation(*first, *other);
  return out;
}

template <class Forward, class T>
inline void replace(Forward first, Forward last, const T &old_value, const T &new_value) {
  for (; first != last; ++first)
    if (*first == old_value) *first = new_value;
}
template <class Forward, class Predicate, class T>
inline void replace_if(Forward first, Forward last, Predicate predicate, const T &new_value) {
  for (; first != last; ++first)
    if (predicate(*first)) *first = new_value;
}
template <class In, class Out, class T>
inline Out replace_copy(In first, In last, Out out, const T &old_value, const T &new_value) {
  for (; first != last; ++first, (void)++out) {
    if (*first == old_value) *out = new_value;
    else *out = *first;
  }
  return out;
}
template <class In, class Out, class Predicate, class T>
inline Out replace_copy_if(In first, In last, Out out, Predicate predicate, const T &new_value) {
  for (; first != last; ++first, (void)++out) {
    if (predicate(*first)) *out = new_value;
    else *out = *first;
  }
  return out;
}

template <class Forward, class Generator> inline void generate(Forward first, Forward last, Generator next) {
  for (; first != last; ++first) *first = next();
}
// The place after the last element made is returned in every dialect, though only later ones ask for it.
template <class Out, class Size, class Generator> inline Out generate_n(Out first, Size n, Generator next) {
  for (; n > 0; --n, (void)++first) *first = next();
  return first;
}

template <class Forward, class T> inline Forward remove(Forward first, Forward last, const T &value) {
  typedef typename __zor::unwrapped<Forward>::type plain;
  first = std::find(first, last, value);
  if (first == last) return first;
  return __zor::rewrap(first, __zor::removal<__zor::is_scalar_array<plain>::value && __zor::is_arithmetic<T>::value>::run(
                                  __zor::unwrap(first), __zor::unwrap(last), value));
}
template <class Forward, class Predicate> inline Forward remove_if(Forward first, Forward last, Predicate predicate) {
  while (first != last && !predicate(*first)) ++first;
  if (first == last) return first;
  Forward out = first;
  for (++first; first != last; ++first) {
    if (predicate(*first)) continue;
    *out = __zor::move_from(first);
    ++out;
  }
  return out;
}
template <class In, class Out, class T> inline Out remove_copy(In first, In last, Out out, const T &value) {
  for (; first != last; ++first) {
    if (*first == value) continue;
    *out = *first;
    ++out;
  }
  return out;
}
template <class In, class Out, class Predicate>
inline Out remove_copy_if(In first, In last, Out out, Predicate predicate) {
  for (; first != last; ++first) {
    if (predicate(*first)) continue;
    *out = *first;
    ++out;
  }
  return out;
}

template <class Forward> inline Forward unique(Forward first, Forward last) {
  typedef typename __zor::unwrapped<Forward>::type plain;
  __zor::by_equal same;
  return __zor::rewrap(first, __zor::uniquing<__zor::is_scalar_array<plain>::value>::run(__zor::unwrap(first),
                                                                                         __zor::unwrap(last), same));
}
template <class Forward, class Equal> inline Forward unique(Forward first, Forward last, Equal same) {
  return __zor::uniquing<false>::run(first, last, same);
}

template <class In, class Out, class Equal> inline Out unique_copy(In first, In last, Out out, Equal same) {
  if (first == last) return out;
  return __zor::unique_copy(first, last, out, same, typename iterator_traits<In>::iterator_category());
}
template <class In, class Out> inline Out unique_copy(In first, In last, Out out) {
  return std::unique_copy(first, last, out, __zor::by_equal());
}

}  // namespace std

#endif
