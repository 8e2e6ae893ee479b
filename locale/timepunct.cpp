// timepunct<char>: the names of one locale; and the text of one conversion, which it shares with time_put.

#include <plx/facets/timepunct.h>

#include <string.h>

#include "../libC/eh_tools.h"
#include "c_locale.h"
#include "time_names.h"

using namespace std;

namespace __zor {

unsigned time_name_for(char conversion, const tm &t) {
  const unsigned day = static_cast<unsigned>(t.tm_wday), month = static_cast<unsigned>(t.tm_mon);
  switch (conversion) {
    case 'a': return day < 7 ? first_day + day : time_name_count;
    case 'A': return day < 7 ? first_day + 7 + day : time_name_count;
    case 'b':
    case 'h': return month < 12 ? first_month + month : time_name_count;
    case 'B': return month < 12 ? first_month + 12 + month : time_name_count;
    case 'p': return first_half + (t.tm_hour > 11);
    default: return time_name_count;
  }
}

namespace {

char *write_pair(char *text, unsigned value) {
  *text++ = static_cast<char>('0' + value / 10);
  *text++ = static_cast<char>('0' + value % 10);
  return text;
}

// The commonest numbers, for which strftime would look at the time zone first; null for what is left to it.
char *write_number(char *text, char conversion, const tm &t) {
  unsigned pair = 100;
  switch (conversion) {
    case 'd': pair = static_cast<unsigned>(t.tm_mday); break;
    case 'H': pair = static_cast<unsigned>(t.tm_hour); break;
    case 'M': pair = static_cast<unsigned>(t.tm_min); break;
    case 'S': pair = static_cast<unsigned>(t.tm_sec); break;
    case 'm': pair = static_cast<unsigned>(t.tm_mon) + 1; break;
    case 'y':
      if (t.tm_year >= 0) pair = static_cast<unsigned>(t.tm_year) % 100;
      break;
    case 'Y':
      if (t.tm_year < -900 || t.tm_year >= 8100) return nullptr;
      text = write_pair(text, static_cast<unsigned>(t.tm_year + 1900) / 100);
      pair = static_cast<unsigned>(t.tm_year + 1900) % 100;
      break;
  }
  return pair < 100 ? write_pair(text, pair) : nullptr;
}

}  // namespace

char *write_time(char *text, char conversion, const tm &t, const char *locale_name) {
  if (char *const end = write_number(text, conversion, t)) return end;
  const char format[] = {'%', conversion, '\0'};
  if (!conversion || !strchr("crxXPEO+", conversion)) return text + strftime(text, _time_text_room, format, &t);
  eh_local<c_locale_switch> c_library;
  if (locale_name && !c_library->to(locale_name, LC_TIME)) invalid_locale_name();
  return text + strftime(text, _time_text_room, format, &t);
}

namespace {

// What a constructor makes beside its members, so that what throws half-way leaves nothing behind.
struct a_set_of_names {
  string texts[time_name_count];
};

}  // namespace

}  // namespace __zor

using namespace __zor;

namespace std {

timepunct<char>::timepunct(const char *name) {
  eh_local<string> own_name(name ? name : setlocale(LC_TIME, nullptr));
  eh_local<a_set_of_names> names;
  eh_local<c_locale_switch> c_library;
  if (name && !c_library->to(name, LC_TIME)) invalid_locale_name();
  read_time_names([&](unsigned which, const char *text) { names->texts[which] = text; });
  // Sharing a string cannot fail.
  const string *from = names->texts;
  _name_ = *own_name;
  for (string &day : _days_) day = *from++;
  for (string &month : _months_) month = *from++;
  _am_ = *from++;
  _pm_ = *from;
}

timepunct<char>::~timepunct() {}

string timepunct<char>::get_week_day(const locale &, char c, int i) const {
  if (i < 0 || i > 6) return string(1, '?');
  return _days_[c == 'A' ? 7 + i : i];
}

string timepunct<char>::get_ampm_string(int i) const { return i == 0 ? _am_ : _pm_; }

int timepunct<char>::get_spec_conv_width(char c) const PLX_NOTHROW {
  if (c && strchr("dHIMmSUVWyCegkl", c)) return 2;
  if (c && strchr("GY", c)) return 4;
  return c == 'j' ? 3 : c == 'u' || c == 'w' ? 1 : 0;
}

string timepunct<char>::get_date_time_format() const { return _expanded_time_format('c'); }
string timepunct<char>::get_date_format() const { return _expanded_time_format('x'); }
string timepunct<char>::get_time_format() const { return _expanded_time_format('X'); }

char *timepunct<char>::_write(char *text, char c, const tm &t) const {
  const unsigned which = time_name_for(c, t);
  if (which == time_name_count) return write_time(text, c, t, _name_.c_str());
  const string &name = which < first_month   ? _days_[which]
                       : which < first_half  ? _months_[which - first_month]
                       : which == first_half ? _am_
                                             : _pm_;
  return stpcpy(text, name.c_str());
}

string timepunct<char>::print_format(const locale &, char c, const tm *t) const {
  char text[_time_text_room];
  return string(text, static_cast<size_t>(_write(text, c, *t) - text));
}

}  // namespace std
