// Runs a fuzzer's target as an ordinary test: on every file of its corpus, tests/fuzz/corpus/<name of this program>,
// where inputs that once failed are kept, and on random rows of its words behind random first bytes. The target aborts
// when one fails.
#include <dirent.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include "../../random.h"
#include "../fuzz_check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

static void run(const std::string &input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.data()), input.size());
}

int main(int, char **argv) {
  std::string name = argv[0];
  name.erase(0, name.find_last_of('/') + 1);
  name.erase(name.find('.') == std::string::npos ? name.size() : name.find('.'));
  const char *const source = getenv("PLX_SOURCE");
  const std::string folder = std::string(source ? source : ".") + "/tests/fuzz/corpus/" + name;
  DIR *const files = opendir(folder.c_str());
  int ran = 0;
  while (const dirent *entry = files ? readdir(files) : 0) {
    FILE *const file = entry->d_name[0] == '.' ? 0 : fopen((folder + '/' + entry->d_name).c_str(), "rb");
    if (!file) continue;
    std::string input;
    for (int c; (c = getc(file)) != EOF;) input += static_cast<char>(c);
    fclose(file);
    fprintf(stderr, "%s\n", entry->d_name);
    run(input);
    ++ran;
  }
  if (files) closedir(files);
  if (ran == 0) fprintf(stderr, "no inputs in %s\n", folder.c_str());
  unsigned words = 0;
  while (fuzz_words[words]) ++words;
  for (int i = 0; i < 100000; ++i) {
    std::string input;
    for (int k = 0; k < 3; ++k) input += static_cast<char>(random_below(256));
    for (int n = random_below(9); n >= 0; --n) input += fuzz_words[random_below(words)];
    if (random_below(4) == 0)
      input[3 + random_below(static_cast<unsigned>(input.size()) - 3)] = static_cast<char>(random_below(128));
    run(input);
  }
  return ran == 0;
}
