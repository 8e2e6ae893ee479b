// time_get (1998, 22.2.5.1): reads the dates and times that time_put writes for %X (hours:minutes:seconds), %x
// (month/day/year), and the names of days and months.
//
// Numbers may have fewer digits than time_put writes. A year has up to four digits; one or two mean 1969 to 2068. Names
// are those of the environment's locale, as for time_put, whole or abbreviated; ASCII letters match in either case, and
// the longest name counts: of "Mond" only an error is left. The library reads; the templates only bring the characters.
#ifndef PLX_TIME_GET_H
#define PLX_TIME_GET_H

#include <plx/base/char_only.h>
#include <plx/facets/timepunct.h>
#include <plx/streambuf/character_source.h>
#include <plx/streambuf/ios_base.h>

namespace __zor {

// All store what they read and return true, or change nothing and return false.
PLX_API bool _scan_time(_character_source &_from, std::tm *_t);
PLX_API bool _scan_date(_character_source &_from, std::tm *_t);
PLX_API bool _scan_year(_character_source &_from, std::tm *_t);
// With null for names the environment's.
PLX_API bool _scan_week_day(_character_source &_from, std::tm *_t, const std::timepunct<char> *_names);
PLX_API bool _scan_month_name(_character_source &_from, std::tm *_t, const std::timepunct<char> *_names);

}  // namespace __zor

namespace std {

class PLX_API time_base {
public:
  enum dateorder { no_order, dmy, mdy, ymd, ydm };
};

template <class _Ct, class _InIter> class PLX_API time_get : public locale::facet, public time_base {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;

public:
  typedef _Ct char_type;
  typedef _InIter iter_type;
  static locale::id id;

  explicit time_get(size_t _refs = 0) PLX_NOTHROW : facet(_refs) {}

  // The order of %x: mdy.
  dateorder date_order() const { return do_date_order(); }

  // Each reads from [in, end) and stores the members of `_t` that it is about. Returns the position after the last
  // character that was read. Sets failbit in `_err`, and stores nothing, when the text is not as it should be, and
  // eofbit when the input ended. Those of names throw runtime_error with "Invalid locale name\n" when the C library
  // does not know the environment's locale; all what iterators throw.
  iter_type get_time(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, tm *_t) const {
    return do_get_time(_in, _end, _str, _err, _t);
  }
  iter_type get_date(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, tm *_t) const {
    return do_get_date(_in, _end, _str, _err, _t);
  }
  iter_type get_weekday(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, tm *_t) const {
    return do_get_weekday(_in, _end, _str, _err, _t);
  }
  iter_type get_monthname(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, tm *_t) const {
    return do_get_monthname(_in, _end, _str, _err, _t);
  }
  iter_type get_year(iter_type _in, iter_type _end, ios_base &_str, ios_base::iostate &_err, tm *_t) const {
    return do_get_year(_in, _end, _str, _err, _t);
  }

protected:
  virtual ~time_get() {}
  virtual dateorder do_date_order() const { return mdy; }
  virtual iter_type do_get_time(iter_type _in, iter_type _end, ios_base &, ios_base::iostate &_err, tm *_t) const {
    _a_source _from(_in, _end);
    return _note(_from, __zor::_scan_time(_from, _t), _in, _end, _err);
  }
  virtual iter_type do_get_date(iter_type _in, iter_type _end, ios_base &, ios_base::iostate &_err, tm *_t) const {
    _a_source _from(_in, _end);
    return _note(_from, __zor::_scan_date(_from, _t), _in, _end, _err);
  }
  virtual iter_type do_get_weekday(iter_type _in, iter_type _end, ios_base &, ios_base::iostate &_err, tm *_t) const {
    return _get_week_day(_in, _end, _err, _t, 0);
  }
  virtual iter_type do_get_monthname(iter_type _in, iter_type _end, ios_base &, ios_base::iostate &_err, tm *_t) const {
    return _get_month_name(_in, _end, _err, _t, 0);
  }
  virtual iter_type do_get_year(iter_type _in, iter_type _end, ios_base &, ios_base::iostate &_err, tm *_t) const {
    _a_source _from(_in, _end);
    return _note(_from, __zor::_scan_year(_from, _t), _in, _end, _err);
  }

  // plx's own, for time_get_byname: null for the environment's names.
  static iter_type _get_week_day(iter_type &_in, iter_type &_end, ios_base::iostate &_err, tm *_t,
                                 const timepunct<_Ct> *_names) {
    _a_source _from(_in, _end);
    return _note(_from, __zor::_scan_week_day(_from, _t, _names), _in, _end, _err);
  }
  static iter_type _get_month_name(iter_type &_in, iter_type &_end, ios_base::iostate &_err, tm *_t,
                                   const timepunct<_Ct> *_names) {
    _a_source _from(_in, _end);
    return _note(_from, __zor::_scan_month_name(_from, _t, _names), _in, _end, _err);
  }

private:
  typedef typename __zor::_source_of<_InIter>::_type _a_source;

  static iter_type _note(_a_source &_from, bool _done, iter_type &_in, iter_type &_end, ios_base::iostate &_err) {
    _from._finish();
    if (!_done) _err |= ios_base::failbit;
    if (_in == _end) _err |= ios_base::eofbit;
    return _in;
  }
};

template <class _Ct, class _InIter> locale::id time_get<_Ct, _InIter>::id;

// 22.2.5.2: the same, with the names of a locale of the C library. Fails as timepunct does.
template <class _Ct, class _InIter> class PLX_API time_get_byname : public time_get<_Ct, _InIter> {
public:
  typedef _Ct char_type;
  typedef _InIter iter_type;

  explicit time_get_byname(const char *_name, size_t _refs = 0) : time_get<_Ct, _InIter>(_refs), _names_(_name) {}

protected:
  virtual ~time_get_byname() {}
  virtual iter_type do_get_weekday(iter_type _in, iter_type _end, ios_base &, ios_base::iostate &_err, tm *_t) const {
    return this->_get_week_day(_in, _end, _err, _t, &_names_);
  }
  virtual iter_type do_get_monthname(iter_type _in, iter_type _end, ios_base &, ios_base::iostate &_err, tm *_t) const {
    return this->_get_month_name(_in, _end, _err, _t, &_names_);
  }

private:
  timepunct<_Ct> _names_;
};

__extension__ extern template class PLX_API time_get<char, istreambuf_iterator<char, char_traits<char> > >;
__extension__ extern template class PLX_API time_get_byname<char, istreambuf_iterator<char, char_traits<char> > >;

}  // namespace std

#endif
