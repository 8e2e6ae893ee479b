// Counts the words of text files and prints the most frequent ones: letters only, upper and lower case alike, words of
// one count in alphabetical order.
//
//   word_frequency [-COUNT] FILE...        COUNT words are printed, 20 without it
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

typedef std::map<std::string, int> word_counts;
typedef std::multimap<int, std::string, std::greater<int> > words_by_count;

namespace {

// A file that is closed whatever happens.
class input_file {
public:
  explicit input_file(const char *name) : file_(std::fopen(name, "r")), name_(name) {
    if (!file_) throw std::runtime_error(name_ + ": " + std::strerror(errno));
  }
  ~input_file() { std::fclose(file_); }

  // The next character, or EOF at the end.
  int next() {
    const int c = std::getc(file_);
    if (c == EOF && std::ferror(file_)) throw std::runtime_error(name_ + ": " + std::strerror(errno));
    return c;
  }

private:
  input_file(const input_file &);
  input_file &operator=(const input_file &);

  std::FILE *file_;
  std::string name_;
};

// Returns how many words there were.
int count_words(const char *name, word_counts &counts) {
  input_file file(name);
  std::string word;
  int words = 0;
  for (int c = file.next();; c = file.next()) {
    if (c != EOF && std::isalpha(c)) {
      word += static_cast<char>(std::tolower(c));
    } else if (!word.empty()) {
      ++counts[word];
      ++words;
      word.erase();
    }
    if (c == EOF) return words;
  }
}

void print_most_frequent(const word_counts &counts, int wanted) {
  // Equal keys stay in the order in which they come: that of the words.
  words_by_count by_count;
  for (word_counts::const_iterator at = counts.begin(); at != counts.end(); ++at)
    by_count.insert(words_by_count::value_type(at->second, at->first));

  words_by_count::const_iterator at = by_count.begin();
  for (; at != by_count.end() && wanted > 0; ++at, --wanted) std::printf("%7d %s\n", at->first, at->second.c_str());
}

}  // namespace

int main(int argc, char **argv) {
  int wanted = 20;
  int first = 1;
  if (argc > 1 && argv[1][0] == '-') {
    wanted = std::atoi(argv[1] + 1);
    first = 2;
  }
  if (first >= argc || wanted <= 0) {
    std::fprintf(stderr, "usage: %s [-COUNT] FILE...\n", argv[0]);
    return 2;
  }

  word_counts counts;
  int words = 0;
  try {
    for (int i = first; i < argc; ++i) words += count_words(argv[i], counts);
  } catch (const std::runtime_error &problem) {
    std::fprintf(stderr, "%s\n", problem.what());
    return 1;
  }
  print_most_frequent(counts, wanted);
  std::printf("%d words, %d different ones\n", words, static_cast<int>(counts.size()));
}
