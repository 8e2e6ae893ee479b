#include "row.h"

#include <iomanip>
#include <istream>
#include <ostream>
#include <sstream>

std::istream &operator>>(std::istream &in, row &r) {
  std::string line;
  if (!std::getline(in, line)) return in;
  const std::string::size_type comma = line.find(',');
  if (comma == std::string::npos) throw bad_row("comma: missing");
  r.name = line.substr(0, comma);
  std::istringstream number(line.substr(comma + 1));
  if (!(number >> r.number)) throw bad_row("number: missing");
  return in;
}

std::ostream &operator<<(std::ostream &out, const row &r) {
  return out << std::left << std::setw(12) << r.name << std::right << std::setw(5) << r.number;
}
