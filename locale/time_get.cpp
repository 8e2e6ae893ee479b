// The scanners of time_get. Input cannot be put back: what was read and then does not fit is an error.

#include <plx/facets/time_get.h>

#include <string.h>

#include "character_cursor.h"
#include "time_names.h"
#include "standard_facets.h"

using namespace std;

namespace __zor {

namespace {

// Tells the source what was read, at the end.
struct time_cursor : character_cursor {
  explicit time_cursor(_character_source &from) : character_cursor(from) {}
  ~time_cursor() { done(); }
};

char in_lower_case(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// A number of up to `width` digits, of which `digits` tells how many there were.
bool get_integral_data(character_cursor &in, int width, int &value, int *digits = nullptr) {
  int count = 0;
  value = 0;
  for (; count < width && !in.at_end() && *in >= '0' && *in <= '9'; ++count, in.pass())
    value = value * 10 + (*in - '0');
  if (digits) *digits = count;
  return count != 0;
}

bool get_number(character_cursor &in, int least, int most, int &value) {
  return get_integral_data(in, 2, value) && value >= least && value <= most;
}

// As tm_year. Two digits are years of the century around 2000, as POSIX has it.
bool get_year(character_cursor &in, int &value) {
  int digits;
  if (!get_integral_data(in, 4, value, &digits)) return false;
  value -= digits > 2 ? 1900 : value < 69 ? -100 : 0;
  return true;
}

// What the conversions of %x and %X store; other characters stand for themselves.
bool do_time_scanf(character_cursor &in, const char *format, tm &t) {
  for (; *format; ++format) {
    if (*format != '%') {
      if (!in.pass(*format)) return false;
      continue;
    }
    bool found = false;
    switch (*++format) {
      case 'H': found = get_number(in, 0, 23, t.tm_hour); break;
      case 'M': found = get_number(in, 0, 59, t.tm_min); break;
      // Two leap seconds, as in C's own struct tm.
      case 'S': found = get_number(in, 0, 61, t.tm_sec); break;
      case 'd': found = get_number(in, 1, 31, t.tm_mday); break;
      case 'm':
        found = get_number(in, 1, 12, t.tm_mon);
        --t.tm_mon;
        break;
      case 'y': found = get_year(in, t.tm_year); break;
    }
    if (!found) return false;
  }
  return true;
}

bool scan_format(_character_source &from, char conversion, tm *t) {
  tm read = *t;
  time_cursor in(from);
  if (!do_time_scanf(in, _expanded_time_format(conversion), read)) return false;
  *t = read;
  return true;
}

// The index of the longest of `count` names, at most 32, that comes next; -1 when none does. All names that go on with
// the next character stay in the game, and only when there is none is the character left alone.
int which_matches(character_cursor &in, const char *const *names, unsigned count) {
  unsigned alive = 0;
  for (unsigned i = 0; i < count; ++i)
    if (*names[i]) alive |= 1u << i;
  for (unsigned read = 0;; ++read) {
    unsigned next = 0;
    if (alive && !in.at_end())
      for (unsigned i = 0; i < count; ++i)
        if (alive >> i & 1 && in_lower_case(names[i][read]) == in_lower_case(*in) && names[i][read]) next |= 1u << i;
    if (!next) {
      for (unsigned i = 0; i < count; ++i)
        if (alive >> i & 1 && !names[i][read]) return static_cast<int>(i);
      return -1;
    }
    alive = next;
    in.pass();
  }
}

// `count` names and `count` abbreviations.
bool scan_name(_character_source &from, const string *own, unsigned first, unsigned count, int &value) {
  const char *names[24];
  if (own)
    for (unsigned i = 0; i < 2 * count; ++i) names[i] = own[i].c_str();
  else
    memcpy(names, environment_time_names() + first, 2 * count * sizeof *names);
  time_cursor in(from);
  const int found = which_matches(in, names, 2 * count);
  if (found >= 0) value = found % static_cast<int>(count);
  return found >= 0;
}

}  // namespace

bool _scan_time(_character_source &from, tm *t) { return scan_format(from, 'X', t); }
bool _scan_date(_character_source &from, tm *t) { return scan_format(from, 'x', t); }

bool _scan_year(_character_source &from, tm *t) {
  time_cursor in(from);
  int year;
  const bool found = get_year(in, year);
  if (found) t->tm_year = year;
  return found;
}

bool _scan_week_day(_character_source &from, tm *t, const timepunct<char> *names) {
  return scan_name(from, names ? names->get_week_day_list() : nullptr, first_day, 7, t->tm_wday);
}
bool _scan_month_name(_character_source &from, tm *t, const timepunct<char> *names) {
  return scan_name(from, names ? names->get_month_name_list() : nullptr, first_month, 12, t->tm_mon);
}

}  // namespace __zor

namespace std {

template class time_get<char, istreambuf_iterator<char>>;
template class time_get_byname<char, istreambuf_iterator<char>>;

}  // namespace std

const __zor::standard_facet __zor::time_get_facet = {made_alike<std::time_get<char>>, &std::time_get<char>::id};
