// Prints each word of a text, how often it is there, and on which lines.
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

#include "words.h"

struct file_source : source {
  explicit file_source(const char *name) : in(name) {}
  std::istream &stream() { return in; }
  std::ifstream in;
};
struct text_source : source {
  explicit text_source(const std::string &text) : in(text) {}
  std::istream &stream() { return in; }
  std::istringstream in;
};

static void print_index(source &from, const std::string &name) {
  const std::vector<std::vector<std::string> > lines = words_of(from, name);
  std::map<std::string, std::set<unsigned> > index;
  std::map<std::string, int> count;
  for (unsigned i = 0; i < lines.size(); ++i)
    for (unsigned k = 0; k < lines[i].size(); ++k) {
      index[lines[i][k]].insert(i + 1);
      ++count[lines[i][k]];
    }
  for (std::map<std::string, std::set<unsigned> >::const_iterator w = index.begin(); w != index.end(); ++w) {
    std::cout << w->first << ' ' << count[w->first] << " on";
    for (std::set<unsigned>::const_iterator n = w->second.begin(); n != w->second.end(); ++n) std::cout << ' ' << *n;
    std::cout << '\n';
  }
}

int main(int argc, char **argv) {
  text_source empty("");
  source *const sources[] = {&empty};
  // Found by its class at run time.
  if (!dynamic_cast<text_source *>(sources[0]) || dynamic_cast<file_source *>(sources[0])) return 2;
  try {
    print_index(empty, "nothing");
    return 3;
  } catch (const std::runtime_error &error) {
    if (error.what() != std::string("no text in nothing")) return 4;
  }
  try {
    if (argc != 2) throw std::invalid_argument("which file?");
    file_source file(argv[1]);
    print_index(file, argv[1]);
  } catch (const std::exception &error) {
    std::cerr << "index: " << error.what() << '\n';
    return 1;
  }
}
