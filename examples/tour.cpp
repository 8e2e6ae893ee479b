// A tour of the library: measures text files, prints a table of them with grouped numbers, keeps the table in a file
// and reads it back.
//
//   tour REPORT FILE...      REPORT is written; files that cannot be read are named and left out
//
// Streams, strings, containers, files, a locale of the program's own, and exceptions, in one page. Exit status: 0, or 1
// when a file was left out, or 2 when the report could not be written or read back.
#include <algorithm>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <locale>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct measures {
  std::string name;
  long lines, words, bytes;
  double mean;  // length of a word
  measures() : lines(0), words(0), bytes(0), mean(0) {}
};

bool longer(const measures &left, const measures &right) { return left.bytes > right.bytes; }

// A user's operators look like the library's.
std::ostream &operator<<(std::ostream &out, const measures &m) {
  return out << std::setw(11) << m.lines << std::setw(11) << m.words << std::setw(13) << m.bytes << std::setw(8)
             << std::fixed << std::setprecision(2) << m.mean << "  " << m.name;
}

std::istream &operator>>(std::istream &in, measures &m) {
  return std::getline(in >> m.lines >> m.words >> m.bytes >> m.mean >> std::ws, m.name);
}

class unreadable : public std::runtime_error {
public:
  explicit unreadable(const std::string &name) : std::runtime_error(name + " cannot be read") {}
};

measures measure(const char *name, std::map<std::string, int> &counts) {
  measures m;
  m.name = name;
  std::ifstream in(name);
  if (!in || in.peek() == std::ifstream::traits_type::eof()) throw unreadable(name);
  std::string line;
  long letters = 0;
  while (std::getline(in, line)) {
    ++m.lines;
    m.bytes += static_cast<long>(line.size()) + !in.eof();
    std::istringstream words(line);
    for (std::istream_iterator<std::string> word(words), end; word != end; ++word) {
      ++m.words;
      letters += static_cast<long>(word->size());
      ++counts[*word];
    }
  }
  m.mean = m.words ? static_cast<double>(letters) / static_cast<double>(m.words) : 0;
  return m;
}

// Thousands apart: 1'234'567.
class grouped : public std::numpunct<char> {
protected:
  virtual char do_thousands_sep() const { return '\''; }
  virtual std::string do_grouping() const { return "\3"; }
};

std::vector<measures> read_back(const char *report, const std::locale &loc) {
  std::ifstream in;
  in.imbue(loc);
  in.open(report);
  std::vector<measures> all;
  std::copy(std::istream_iterator<measures>(in), std::istream_iterator<measures>(), std::back_inserter(all));
  return all;
}

std::string most_frequent(const std::map<std::string, int> &counts) {
  std::ostringstream text;
  std::string word = "nothing";
  int most = 0;
  for (std::map<std::string, int>::const_iterator at = counts.begin(); at != counts.end(); ++at)
    if (at->second > most) word = at->first, most = at->second;
  text << '"' << word << "\", " << most << " times";
  return text.str();
}

}  // namespace

int main(int argc, char **argv) {
  if (argc < 3) {
    std::cerr << "usage: " << argv[0] << " REPORT FILE...\n";
    return 3;
  }
  const std::locale loc(std::locale::classic(), new grouped);
  std::cout.imbue(loc);
  int status = 0;
  try {
    std::vector<measures> all;
    std::map<std::string, int> counts;
    for (int i = 2; i < argc; ++i) {
      try {
        all.push_back(measure(argv[i], counts));
      } catch (const unreadable &problem) {
        std::cerr << problem.what() << std::endl;
        status = 1;
      }
    }
    std::sort(all.begin(), all.end(), longer);
    std::cout << "      lines      words        bytes    mean  file\n";
    std::copy(all.begin(), all.end(), std::ostream_iterator<measures>(std::cout, "\n"));

    // From here on, whatever goes wrong with the report is an exception.
    std::ofstream out;
    out.exceptions(std::ios::failbit | std::ios::badbit);
    out.imbue(loc);
    out.open(argv[1]);
    std::copy(all.begin(), all.end(), std::ostream_iterator<measures>(out, "\n"));
    out.close();

    const std::vector<measures> again = read_back(argv[1], loc);
    bool same = again.size() == all.size();
    for (std::vector<measures>::size_type i = 0; same && i < all.size(); ++i)
      same = again[i].name == all[i].name && again[i].bytes == all[i].bytes && again[i].words == all[i].words;
    if (!same) throw std::logic_error("the report reads differently");
    std::cout << all.size() << " files; the most frequent word is " << most_frequent(counts) << '\n';
    return status;
  } catch (const std::ios_base::failure &problem) {
    std::cerr << argv[1] << " cannot be written: " << problem.what() << '\n';
  } catch (const std::exception &problem) {
    std::cerr << problem.what() << '\n';
  }
  return 2;
}
