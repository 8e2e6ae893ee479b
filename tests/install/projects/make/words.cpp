#include "words.h"

#include <cctype>
#include <iostream>

std::vector<std::vector<std::string> > words_of(source &from, const std::string &name) {
  std::vector<std::vector<std::string> > lines;
  for (std::string line; std::getline(from.stream(), line);) {
    std::vector<std::string> words(1);
    for (std::string::const_iterator c = line.begin(); c != line.end(); ++c) {
      if (std::isalnum(static_cast<unsigned char>(*c)) || *c == '_')
        words.back() += *c;
      else if (!words.back().empty())
        words.push_back(std::string());
    }
    if (words.back().empty()) words.pop_back();
    lines.push_back(words);
  }
  if (lines.empty()) throw no_text(name);
  return lines;
}
