// Types whose copies are bytes, and types whose objects may change their place as bytes: the object lives on at the new
// place, and the old one is raw memory. Containers grow, and sorts work, without a copy of such elements.
#ifndef PLX_RELOCATABLE_H
#define PLX_RELOCATABLE_H

#include <plx/base/string_fwd.h>
#include <plx/base/type_properties.h>

namespace std {
template <class _T, class _A> class vector;
template <class _T, class _A> class deque;
template <class _T1, class _T2> struct pair;
template <class _Key, class _T, class _Compare, class _A> class map;
template <class _Key, class _T, class _Compare, class _A> class multimap;
template <class _Key, class _Compare, class _A> class set;
template <class _Key, class _Compare, class _A> class multiset;
}  // namespace std

namespace __zor {

// Copies are bytes, and nobody sees them being made.
template <class _T> struct _is_plain {
  static const bool value = _is_made_as_bytes<_T, const _T &>::value && _is_trivially_destroyed<_T>::value;
};
template <class _T> struct _is_plain<const _T> { static const bool value = _is_plain<_T>::value; };

// Copying to another place and destroying the original is a move of bytes: objects that nothing points back to.
template <class _T> struct _is_relocatable { static const bool value = _is_plain<_T>::value; };
template <class _Ct, class _T, class _A> struct _is_relocatable<std::basic_string<_Ct, _T, _A> > {
  static const bool value = true;
};
template <class _T, class _Ut> struct _is_relocatable<std::vector<_T, std::allocator<_Ut> > > {
  static const bool value = true;
};
template <class _T, class _Ut> struct _is_relocatable<std::deque<_T, std::allocator<_Ut> > > {
  static const bool value = true;
};
template <class _Key, class _T, class _Compare, class _V>
struct _is_relocatable<std::map<_Key, _T, _Compare, std::allocator<_V> > > : public _is_plain<_Compare> {};
template <class _Key, class _T, class _Compare, class _V>
struct _is_relocatable<std::multimap<_Key, _T, _Compare, std::allocator<_V> > > : public _is_plain<_Compare> {};
template <class _Key, class _Compare, class _V> struct _is_relocatable<std::set<_Key, _Compare, std::allocator<_V> > >
    : public _is_plain<_Compare> {};
template <class _Key, class _Compare, class _V>
struct _is_relocatable<std::multiset<_Key, _Compare, std::allocator<_V> > > : public _is_plain<_Compare> {};
template <class _T1, class _T2> struct _is_relocatable<std::pair<_T1, _T2> > {
  static const bool value = _is_relocatable<_T1>::value && _is_relocatable<_T2>::value;
};

}  // namespace __zor

#endif
