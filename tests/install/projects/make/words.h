#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

struct source {
  virtual ~source() {}
  virtual std::istream &stream() = 0;
};

// The words of each line; throws no_text when there is none.
struct no_text : std::runtime_error {
  explicit no_text(const std::string &name) : std::runtime_error("no text in " + name) {}
};
std::vector<std::vector<std::string> > words_of(source &from, const std::string &name);
