// Whole programs as people write them: the words of an 8 MB text counted in a map, a CSV file summed by columns, and
// the integers of standard input summed, with the sum written each time or not. An iteration is one run over the file,
// opened anew.
#include <map>
#include <vector>

#include "streams.h"

// Not unnamed: a template argument of 1998 needs external linkage.
namespace streams {

const std::string &prose() {
  static std::string text;
  if (text.empty()) {
    bench_random random(11);
    while (text.size() < 8u * 1024 * 1024) {
      // A few words are frequent, most are rare.
      unsigned long n = random.next() % 1000;
      n = n < 600 ? n % 40 : random.next() % 20000;
      char word[32];
      snprintf(word, sizeof word, "w%lx%s", n * 2654435761ul % 1000003ul, n & 1 ? "ing" : "");
      text += word;
      text += random.next() % 12 ? ' ' : '\n';
    }
  }
  return text;
}

unsigned long word_frequency(unsigned long iterations) {
  bench_file file(prose());
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::ifstream in(file.path());
    std::map<std::string, int> counts;
    std::string word;
    while (in >> word) ++counts[word];
    for (std::map<std::string, int>::const_iterator at = counts.begin(); at != counts.end(); ++at)
      sum = sum * 31 + at->second;
  }
  return sum;
}

const std::string &table() {
  static std::string text;
  if (text.empty()) {
    bench_random random(13);
    for (int row = 0; row < 20000; ++row) {
      char line[128];
      // One by one: the order in which arguments are computed differs between compilers.
      const double price = random.next() % 100000 / 100.0;
      const unsigned long pieces = random.next() % 10000;
      const double weight = random.next() % 1000000 / 10000.0;
      snprintf(line, sizeof line, "%d,%.2f,%lu,%.4f\n", row, price, pieces, weight);
      text += line;
    }
  }
  return text;
}

unsigned long csv(unsigned long iterations) {
  bench_file file(table());
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::ifstream in(file.path());
    std::vector<double> totals(4, 0.0);
    int id;
    while (in >> id) {
      totals[0] += id;
      for (int column = 1; column < 4; ++column) {
        char comma;
        double value;
        in >> comma >> value;
        totals[column] += value;
      }
    }
    for (int column = 0; column < 4; ++column) sum += static_cast<unsigned long>(totals[column]);
  }
  return sum;
}

// Line by line, each taken apart by a string stream: the way of the textbooks.
unsigned long csv_by_lines(unsigned long iterations) {
  bench_file file(table());
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::ifstream in(file.path());
    std::string line, field;
    double total = 0;
    while (std::getline(in, line)) {
      std::istringstream fields(line);
      while (std::getline(fields, field, ',')) {
        std::istringstream text(field);
        double value = 0;
        text >> value;
        total += value;
      }
    }
    sum += static_cast<unsigned long>(total);
  }
  return sum;
}

const std::string &integers() {
  static std::string text;
  if (text.empty()) {
    bench_random random(17);
    for (int i = 0; i < 200000; ++i) {
      char item[32];
      snprintf(item, sizeof item, "%d\n", static_cast<int>(random.next() % 2000000) - 1000000);
      text += item;
    }
  }
  return text;
}

unsigned long sum_of(std::istream &in) {
  unsigned long sum = 0;
  int n;
  while (in >> n) sum += n;
  return sum;
}

// Reading and writing in turns, into a file in place of standard output.
unsigned long running_sums(std::istream &in) {
  static bench_file file;
  const bench_stdout output(file.path());
  unsigned long sum = 0;
  int n;
  while (in >> n) {
    sum += n;
    std::cout << sum << '\n';
  }
  return sum;
}

unsigned long copy(std::istream &in) {
  static bench_file file;
  std::ofstream out(file.path());
  std::string line;
  while (std::getline(in, line)) out << line << '\n';
  return static_cast<unsigned long>(out.tellp());
}

const bench_case cases[] = {
    {"word frequency of 8 MB", 1.3, 1, word_frequency},
    {"sum of a CSV file", 3, 1, csv},
    {"sum of a CSV file by lines", 3, 1, csv_by_lines},
    {"sum of the integers of cin", 3, 1, from_cin<integers, sum_of>},
    {"cin and cout in turns", 6, 1, from_cin<integers, running_sums>},
    {"copy of a file by lines", 2, 1, from_file<prose, copy>},
};

}  // namespace streams

BENCH_MAIN(streams::cases)
