// The names of days, months and halves of the day, as strftime knows them.
#pragma once

#include <plx/facets/time_put.h>

namespace __zor {

// Forty texts: abbreviated names of days from Sunday on, full ones, abbreviated names of months, full ones, the halves.
enum a_time_name : unsigned { first_day = 0, first_month = 14, first_half = 38, time_name_count = 40 };

using a_time_name_list = const char *const *;

// Those of the environment's locale, good until the next call. Throws runtime_error with "Invalid locale name\n" when
// the C library does not know that locale, and bad_alloc.
a_time_name_list environment_time_names();

// Calls take(index, text) for each name of the locale that the C library is switched to. Each text is shorter than
// _time_text_room.
template <class Take> void read_time_names(Take take) {
  // 1 September 1996, 10:30:30. The day of the year is never asked for.
  tm t = {};
  t.tm_sec = t.tm_min = 30;
  t.tm_hour = 10;
  t.tm_mday = 1;
  t.tm_mon = 8;
  t.tm_year = 96;
  t.tm_yday = t.tm_isdst = -1;
  const auto read = [&](unsigned which, const char *format) {
    char text[_time_text_room];
    if (strftime(text, sizeof text, format, &t) == 0) text[0] = 0;
    take(which, static_cast<const char *>(text));
  };
  for (t.tm_wday = 0; t.tm_wday < 7; ++t.tm_wday) {
    read(first_day + static_cast<unsigned>(t.tm_wday), "%a");
    read(first_day + 7 + static_cast<unsigned>(t.tm_wday), "%A");
  }
  t.tm_wday = 0;
  for (t.tm_mon = 0; t.tm_mon < 12; ++t.tm_mon) {
    read(first_month + static_cast<unsigned>(t.tm_mon), "%b");
    read(first_month + 12 + static_cast<unsigned>(t.tm_mon), "%B");
  }
  t.tm_mon = 8;
  read(first_half, "%p");
  t.tm_hour = 22;
  read(first_half + 1, "%p");
}

// Which name the conversion asks for; time_name_count when it asks for none, or what it asks for has no name.
unsigned time_name_for(char conversion, const tm &t);

// Any other conversion, in a buffer of _time_text_room bytes; returns its end. `locale_name`, null for the one that is
// set, is switched to where it matters.
char *write_time(char *text, char conversion, const tm &t, const char *locale_name);

}  // namespace __zor
