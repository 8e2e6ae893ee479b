// The comparisons that follow from == and < (1998, 20.2.1), for programs that ask for them by a using directive.
#ifndef PLX_REL_OPS_H
#define PLX_REL_OPS_H

namespace std {
namespace rel_ops {

template <class _T> inline bool operator!=(const _T &_left, const _T &_right) { return !(_left == _right); }
template <class _T> inline bool operator>(const _T &_left, const _T &_right) { return _right < _left; }
template <class _T> inline bool operator<=(const _T &_left, const _T &_right) { return !(_right < _left); }
template <class _T> inline bool operator>=(const _T &_left, const _T &_right) { return !(_left < _right); }

}  // namespace rel_ops
}  // namespace std

#endif
