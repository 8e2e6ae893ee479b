// Rows of a file of data beside a test: fields between tabs, texts in quotes, with C's escapes \n, \\, \0 and \xHH. A
// line that begins with # is a comment.
//
//   for (rows row(__FILE__, "data/input"); row.next();) CHECK_TEXT(read(row[0]).c_str(), row[1].c_str());
#ifndef TESTS_ROWS_H
#define TESTS_ROWS_H

#include <stdio.h>
#include <stdlib.h>

#include <string>

#include "harness.h"

class rows {
public:
  rows(const char *source, const char *name) : count_(0) {
    std::string path = source;
    path.replace(path.find_last_of('/') + 1, std::string::npos, name);
    file_ = fopen(path.c_str(), "r");
    CHECK(file_ != 0);
  }
  ~rows() {
    CHECK(count_ != 0);
    if (file_) fclose(file_);
  }
  bool next() {
    char line[400];
    do {
      if (!file_ || !fgets(line, sizeof line, file_)) return false;
    } while (*line == '#');
    ++count_;
    for (int i = 0; i < 12; ++i) fields_[i] = "";
    std::string *field = fields_;
    for (const char *at = line; *at && *at != '\n'; ++at)
      if (*at == '\t')
        ++field;
      else if (*at == '\\')
        *field += escaped(at);
      else if (*at != '"')
        *field += *at;
    return true;
  }
  const std::string &operator[](int i) const { return fields_[i]; }
  int number(int i) const { return static_cast<int>(strtol(fields_[i].c_str(), 0, 0)); }

private:
  static char escaped(const char *&at) {
    if (*++at != 'x') return *at == 'n' ? '\n' : *at == 't' ? '\t' : *at == '0' ? '\0' : *at;
    const char digits[] = {at[1], at[2], 0};
    at += 2;
    return static_cast<char>(strtol(digits, 0, 16));
  }
  FILE *file_;
  int count_;
  std::string fields_[12];
};

#endif
