// Runs a fuzzer's target on every file of its corpus, tests/fuzz/corpus/<name of this program>, as an ordinary test:
// inputs that once failed are kept there. The target aborts when one fails.
#include <dirent.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int, char **argv) {
  std::string name = argv[0];
  name.erase(0, name.find_last_of('/') + 1);
  name.erase(name.find('.') == std::string::npos ? name.size() : name.find('.'));
  const char *const source = getenv("PLX_SOURCE");
  const std::string folder = std::string(source ? source : ".") + "/tests/fuzz/corpus/" + name;
  DIR *const files = opendir(folder.c_str());
  if (!files) {
    fprintf(stderr, "there is no %s\n", folder.c_str());
    return 1;
  }
  int ran = 0;
  while (const dirent *entry = readdir(files)) {
    if (entry->d_name[0] == '.') continue;
    FILE *const file = fopen((folder + '/' + entry->d_name).c_str(), "rb");
    if (!file) continue;
    std::vector<uint8_t> input;
    for (int c; (c = getc(file)) != EOF;) input.push_back(static_cast<uint8_t>(c));
    fclose(file);
    fprintf(stderr, "%s\n", entry->d_name);
    LLVMFuzzerTestOneInput(input.empty() ? 0 : &input[0], input.size());
    ++ran;
  }
  closedir(files);
  if (ran == 0) fprintf(stderr, "no inputs in %s\n", folder.c_str());
  return ran == 0;
}
