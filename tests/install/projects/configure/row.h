#include <iosfwd>
#include <stdexcept>
#include <string>

struct row {
  std::string name;
  int number;
};
inline bool operator<(const row &a, const row &b) { return a.name < b.name; }

struct bad_row : std::runtime_error {
  explicit bad_row(const std::string &what) : std::runtime_error(what) {}
};

// `name,number`; throws bad_row, or ios_base::failure where the stream is set so.
std::istream &operator>>(std::istream &in, row &r);
std::ostream &operator<<(std::ostream &out, const row &r);
