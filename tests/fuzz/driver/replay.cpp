// Runs a fuzzer's target as an ordinary test: on every file of its corpus, tests/fuzz/corpus/<name of this program>,
// where inputs that once failed are kept, and on random rows of its words behind random first bytes. The target aborts
// when one fails.
#include <errno.h>
#include <glob.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <fstream>
#include <iterator>

#include "../../random.h"

extern const char *const fuzz_words[];  // of which good inputs are made, null at the end
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

static void run(const std::string &input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.data()), input.size());
}

int main() {
  const char *const source = getenv("PLX_SOURCE");
  const std::string corpus = (source ? source : ".") + std::string("/tests/fuzz/corpus/");
  glob_t files;
  if (glob((corpus + program_invocation_short_name + "/*").c_str(), 0, 0, &files) != 0) return 1;
  for (size_t i = 0; i < files.gl_pathc; ++i) {
    fprintf(stderr, "%s\n", files.gl_pathv[i]);
    std::ifstream file(files.gl_pathv[i]);
    run(std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
  }
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
  globfree(&files);
  return 0;
}
