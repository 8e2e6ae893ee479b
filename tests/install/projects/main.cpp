// Prints how often each word of the argument is there.
#include <iomanip>
#include <iostream>
#include <sstream>

#include "words.h"

struct counter : visitor {
  void visit(const std::string &word) { ++count[word]; }
  std::map<std::string, int> count;
};

int main(int argc, char **argv) {
  counter counted;
  visitor &by = counted;
  try {
    std::istringstream in(argc > 1 ? argv[1] : "");
    each_word(in, by);
    const std::map<std::string, int> &count = dynamic_cast<counter &>(by).count;
    for (std::map<std::string, int>::const_iterator w = count.begin(); w != count.end(); ++w)
      std::cout << w->first << ' ' << std::fixed << std::setprecision(1) << w->second / 1.0 << ';';
    std::cout << std::endl;
  } catch (const std::exception &error) {
    std::cout << "words: " << error.what() << ", at " << dynamic_cast<const no_text &>(error).line << std::endl;
    return 1;
  }
}
