// Types whose copies are bytes, and types whose objects may change their place as bytes: the object lives on at the new
// place, and the old one is raw memory. Containers grow, and sorts work, without a copy of such elements.
#ifndef PLX_RELOCATABLE_H
#define PLX_RELOCATABLE_H

#include <plx/string_fwd.h>
#include <plx/type_properties.h>

namespace std {
template <class T, class A> class vector;
template <class T, class A> class deque;
template <class T1, class T2> struct pair;
}  // namespace std

namespace __zor {

// Copies are bytes, and nobody sees them being made.
template <class T> struct is_plain {
  static const bool value = is_made_as_bytes<T, const T &>::value && is_trivially_destroyed<T>::value;
};
template <class T> struct is_plain<const T> { static const bool value = is_plain<T>::value; };

// Copying to another place and destroying the original is a move of bytes: objects that nothing points back to.
template <class T> struct is_relocatable { static const bool value = is_plain<T>::value; };
template <class C, class T, class A> struct is_relocatable<std::basic_string<C, T, A> > {
  static const bool value = true;
};
template <class T, class U> struct is_relocatable<std::vector<T, std::allocator<U> > > {
  static const bool value = true;
};
template <class T, class U> struct is_relocatable<std::deque<T, std::allocator<U> > > {
  static const bool value = true;
};
template <class T1, class T2> struct is_relocatable<std::pair<T1, T2> > {
  static const bool value = is_relocatable<T1>::value && is_relocatable<T2>::value;
};

}  // namespace __zor

#endif
