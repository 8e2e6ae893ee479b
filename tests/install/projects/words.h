// A library: the words of a text. Its exceptions and classes are those of the programs that use it.
#include <iosfwd>
#include <map>
#include <stdexcept>
#include <string>

struct no_text : std::runtime_error {
  explicit no_text(int l) : std::runtime_error("no text"), line(l) {}
  int line;
};
struct visitor {
  virtual ~visitor() {}
  virtual void visit(const std::string &word) = 0;
};
void each_word(std::istream &in, visitor &by);
