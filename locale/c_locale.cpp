// The part of a mixture of the C library's locales.

#include "c_locale.h"

#include <limits.h>

namespace __zor {

namespace {

const struct {
  int category;
  const char *word;
} words[] = {{LC_CTYPE, "LC_CTYPE="},     {LC_NUMERIC, "LC_NUMERIC="},   {LC_TIME, "LC_TIME="},
             {LC_COLLATE, "LC_COLLATE="}, {LC_MONETARY, "LC_MONETARY="}, {LC_MESSAGES, "LC_MESSAGES="}};

// Where the category's part begins, or null.
const char *find_part(const char *name, int category) {
  for (const auto &one : words)
    if (one.category == category)
      for (const size_t n = strlen(one.word); name; name = strchr(name, ';')) {
        if (*name == ';') ++name;
        if (strncmp(name, one.word, n) == 0) return name + n;
      }
  return nullptr;
}

}  // namespace

const char *set_c_locale(int category, const char *name) noexcept {
  if (category == LC_ALL || !strchr(name, ';')) return setlocale(category, name);
  const char *const part = find_part(name, category);
  const size_t size = part ? strcspn(part, ";") : 0;
  char only[NAME_MAX + 1];
  if (size == 0 || size >= sizeof only) return nullptr;  // a locale is a directory
  memcpy(only, part, size);
  only[size] = 0;
  return setlocale(category, only);
}

}  // namespace __zor
