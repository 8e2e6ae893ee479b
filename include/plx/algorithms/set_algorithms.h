// Operations on ordered ranges as sets, in which elements may be repeated (1998, 25.3.5).
#ifndef PLX_SET_ALGORITHMS_H
#define PLX_SET_ALGORITHMS_H

#include <plx/base/algobase.h>
#include <plx/base/ordering.h>

namespace std {

template <class _A, class _Bt, class _Compare>
PLX_HIDDEN bool includes(_A _first, _A _last, _Bt _other, _Bt _other_last, _Compare _before) {
  while (bool(_first != _last) && bool(_other != _other_last)) {
    if (_before(*_other, *_first)) return false;
    if (!bool(_before(*_first, *_other))) ++_other;
    ++_first;
  }
  return _other == _other_last;
}
template <class _A, class _Bt> inline bool includes(_A _first, _A _last, _Bt _other, _Bt _other_last) {
  return std::includes(_first, _last, _other, _other_last, __zor::_by_less());
}

template <class _A, class _Bt, class _Out, class _Compare>
PLX_HIDDEN _Out set_union(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out, _Compare _before) {
  for (; bool(_first != _last) && bool(_other != _other_last); ++_out) {
    if (_before(*_first, *_other)) {
      *_out = *_first;
      ++_first;
    } else if (_before(*_other, *_first)) {
      *_out = *_other;
      ++_other;
    } else {
      *_out = *_first;
      ++_first;
      ++_other;
    }
  }
  return std::copy(_other, _other_last, std::copy(_first, _last, _out));
}
template <class _A, class _Bt, class _Out>
inline _Out set_union(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out) {
  return std::set_union(_first, _last, _other, _other_last, _out, __zor::_by_less());
}

template <class _A, class _Bt, class _Out, class _Compare>
PLX_HIDDEN _Out set_intersection(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out, _Compare _before) {
  while (bool(_first != _last) && bool(_other != _other_last)) {
    if (_before(*_first, *_other)) {
      ++_first;
    } else if (_before(*_other, *_first)) {
      ++_other;
    } else {
      *_out = *_first;
      ++_out;
      ++_first;
      ++_other;
    }
  }
  return _out;
}
template <class _A, class _Bt, class _Out>
inline _Out set_intersection(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out) {
  return std::set_intersection(_first, _last, _other, _other_last, _out, __zor::_by_less());
}

template <class _A, class _Bt, class _Out, class _Compare>
PLX_HIDDEN _Out set_difference(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out, _Compare _before) {
  while (bool(_first != _last) && bool(_other != _other_last)) {
    if (_before(*_first, *_other)) {
      *_out = *_first;
      ++_out;
      ++_first;
    } else if (_before(*_other, *_first)) {
      ++_other;
    } else {
      ++_first;
      ++_other;
    }
  }
  return std::copy(_first, _last, _out);
}
template <class _A, class _Bt, class _Out>
inline _Out set_difference(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out) {
  return std::set_difference(_first, _last, _other, _other_last, _out, __zor::_by_less());
}

template <class _A, class _Bt, class _Out, class _Compare>
PLX_HIDDEN _Out set_symmetric_difference(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out,
                                         _Compare _before) {
  while (bool(_first != _last) && bool(_other != _other_last)) {
    if (_before(*_first, *_other)) {
      *_out = *_first;
      ++_out;
      ++_first;
    } else if (_before(*_other, *_first)) {
      *_out = *_other;
      ++_out;
      ++_other;
    } else {
      ++_first;
      ++_other;
    }
  }
  return std::copy(_other, _other_last, std::copy(_first, _last, _out));
}
template <class _A, class _Bt, class _Out>
inline _Out set_symmetric_difference(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out) {
  return std::set_symmetric_difference(_first, _last, _other, _other_last, _out, __zor::_by_less());
}

}  // namespace std

#endif
