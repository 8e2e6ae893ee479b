// The comparisons that follow from == and < (1998, 20.2.1), for programs that ask for them by a using directive.
#ifndef PLX_REL_OPS_H
#define PLX_REL_OPS_H

namespace std {
namespace rel_ops {

template <class T> inline bool operator!=(const T &left, const T &right) { return !(left == right); }
template <class T> inline bool operator>(const T &left, const T &right) { return right < left; }
template <class T> inline bool operator<=(const T &left, const T &right) { return !(right < left); }
template <class T> inline bool operator>=(const T &left, const T &right) { return !(left < right); }

}  // namespace rel_ops
}  // namespace std

#endif
