// timepunct (plx's own): the names of days, months and halves of the day of one of the C library's locales, read once,
// and the formats of date and time, which are the same for all. time_put writes by it and time_get reads by it, always
// with the names of the environment's locale.
#ifndef PLX_TIMEPUNCT_H
#define PLX_TIMEPUNCT_H

#include <time.h>

#include <plx/base/char_only.h>
#include <plx/locale/locale_core.h>

namespace std {

using ::tm;

template <class _Ct> class timepunct {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
};

template <> class PLX_API timepunct<char> {
public:
  // The names of a locale of the C library, which is switched for the time of the call; "" is the environment's, null
  // the one that is set. Throws runtime_error with "Invalid locale name\n" for an unknown name, and bad_alloc.
  explicit timepunct(const char *_name);
  virtual ~timepunct();

  // The name of a day, 0 for Sunday, for the conversion 'A', or its abbreviation for any other. "?" for what is no day.
  string get_week_day(const locale &_loc, char _c, int _i) const;
  string get_ampm_string(int _i) const;  // 0 for the morning, else the afternoon

  // The names themselves, the abbreviations first: 14 for days, 24 for months.
  const string *get_week_day_list() const PLX_NOTHROW { return _days_; }
  const string *get_month_name_list() const PLX_NOTHROW { return _months_; }

  // How many characters a number has at most for a conversion of strftime; 0 for what is no number.
  int get_spec_conv_width(char _c) const PLX_NOTHROW;

  string get_date_time_format() const;  // "%a %b %d %H:%M:%S %Y"
  string get_date_format() const;       // "%m/%d/%y"
  string get_time_format() const;       // "%H:%M:%S"

  // The text of one conversion: strftime's under this locale, which is switched to where it matters. Throws as the
  // constructor does.
  string print_format(const locale &_loc, char _c, const tm *_t) const;

  // For the library: the same, in a buffer of 512 bytes; returns its end.
  char *_write(char *_text, char _c, const tm &_t) const;

private:
  timepunct(const timepunct &);
  timepunct &operator=(const timepunct &);

  string _name_;
  string _days_[14];
  string _months_[24];
  string _am_;
  string _pm_;
};

}  // namespace std

#endif
