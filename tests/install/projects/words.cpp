#include "words.h"

#include <iostream>

void each_word(std::istream &in, visitor &by) {
  std::string word;
  if (!(in >> word)) throw no_text(1);
  do by.visit(word);
  while (in >> word);
}
