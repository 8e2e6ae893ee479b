// The names of the environment's locale, kept from one use to the next: a program that writes a thousand dates reads
// them once, unless it changes its environment.

#include "time_names.h"

#include <stdlib.h>
#include <string.h>

#include "../libC/eh_tools.h"
#include "c_locale.h"

using namespace std;

namespace __zor {

namespace {

const char *const classic[time_name_count] = {
    "Sun",       "Mon",      "Tue",    "Wed",      "Thu",       "Fri",     "Sat",      "Sunday",   "Monday", "Tuesday",
    "Wednesday", "Thursday", "Friday", "Saturday", "Jan",       "Feb",     "Mar",      "Apr",      "May",    "Jun",
    "Jul",       "Aug",      "Sep",    "Oct",      "Nov",       "Dec",     "January",  "February", "March",  "April",
    "May",       "June",     "July",   "August",   "September", "October", "November", "December", "AM",     "PM"};

// One block: the environment's words, then the names, each with a null character behind it. It is no part of what
// programs count that replace operator new.
struct a_cache {
  char *block;
  size_t key_size;
  const char *names[time_name_count];
} cache;

// What setlocale goes by, in its order.
const char *word(const char *variable) {
  const char *const value = getenv(variable);
  return value ? value : "";
}
const char *effective_name() {
  static const char *const variables[] = {"LC_ALL", "LC_TIME", "LANG"};
  for (const char *variable : variables)
    if (*word(variable)) return word(variable);
  return "C";
}

bool is_cached(const char *name, const char *path) {
  return cache.block && strcmp(cache.block, name) == 0 && strcmp(cache.block + strlen(name) + 1, path) == 0;
}

void fill_cache(const char *name, const char *path) {
  char texts[time_name_count][_time_text_room];
  {
    eh_local<c_locale_switch> c_library;
    if (!c_library->to("", LC_TIME)) invalid_locale_name();
    read_time_names([&](unsigned which, const char *text) { strcpy(texts[which], text); });
  }
  size_t size = strlen(name) + strlen(path) + 2;
  for (const char *text : texts) size += strlen(text) + 1;
  char *const block = static_cast<char *>(malloc(size));
  if (!block) operator new(static_cast<size_t>(-1));  // more than there is: throws bad_alloc
  char *to = stpcpy(block, name) + 1;
  to = stpcpy(to, path) + 1;
  for (unsigned i = 0; i < time_name_count; ++i) {
    cache.names[i] = to;
    to = stpcpy(to, texts[i]) + 1;
  }
  free(cache.block);
  cache.block = block;
}

}  // namespace

a_time_name_list environment_time_names() {
  const char *const name = effective_name();
  if (strcmp(name, "C") == 0 || strcmp(name, "POSIX") == 0) return classic;
  const char *const path = word("LOCPATH");
  if (!is_cached(name, path)) fill_cache(name, path);
  return cache.names;
}

}  // namespace __zor
