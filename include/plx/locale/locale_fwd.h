// The names of locale, of the facets and of the buffer iterators, for headers that only mention them.
//
// Default template arguments are given here, once for all; the headers that define the classes repeat none of them.
#ifndef PLX_LOCALE_FWD_H
#define PLX_LOCALE_FWD_H

#include <plx/base/string_fwd.h>

namespace std {

class locale;

template <class _Ct, class _T> class istreambuf_iterator;
template <class _Ct, class _T> class ostreambuf_iterator;

template <class _Ct> class ctype;
template <class _Ct> class ctype_byname;
template <class _In, class _Ex, class _State> class codecvt;
template <class _In, class _Ex, class _State> class codecvt_byname;
template <class _Ct> class collate;
template <class _Ct> class collate_byname;

template <class _Ct> class numpunct;
template <class _Ct> class numpunct_byname;
template <class _Ct, class _InIter = istreambuf_iterator<_Ct, char_traits<_Ct> > > class num_get;
template <class _Ct, class _OutIter = ostreambuf_iterator<_Ct, char_traits<_Ct> > > class num_put;

template <class _Ct, bool _Intl = false> class moneypunct;
template <class _Ct, bool _Intl = false> class moneypunct_byname;
template <class _Ct, class _InIter = istreambuf_iterator<_Ct, char_traits<_Ct> > > class money_get;
template <class _Ct, class _OutIter = ostreambuf_iterator<_Ct, char_traits<_Ct> > > class money_put;

template <class _Ct, class _InIter = istreambuf_iterator<_Ct, char_traits<_Ct> > > class time_get;
template <class _Ct, class _InIter = istreambuf_iterator<_Ct, char_traits<_Ct> > > class time_get_byname;
template <class _Ct, class _OutIter = ostreambuf_iterator<_Ct, char_traits<_Ct> > > class time_put;
template <class _Ct, class _OutIter = ostreambuf_iterator<_Ct, char_traits<_Ct> > > class time_put_byname;

template <class _Ct> class messages;
template <class _Ct> class messages_byname;

}  // namespace std

#endif
