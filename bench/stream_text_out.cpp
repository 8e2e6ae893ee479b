// Text written through streams: characters, C strings, strings, blocks of 4 KB and lines that endl flushes.
#include "streams.h"

// Not unnamed: a template argument of 1998 needs external linkage.
namespace streams {

const int count = 1000;

void characters(std::ostream &out) {
  for (int i = 0; i < count; ++i) out << static_cast<char>('a' + (i & 15));
}

void put_characters(std::ostream &out) {
  for (int i = 0; i < count; ++i) out.put(static_cast<char>('a' + (i & 15)));
}

void c_strings(std::ostream &out) {
  static const char *const words[] = {"a", "word", "and another", "one that is a little longer"};
  for (int i = 0; i < count; ++i) out << words[i & 3];
}

void strings(std::ostream &out) {
  static const std::string words[] = {"a", "word", "and another", "one that is a little longer"};
  for (int i = 0; i < count; ++i) out << words[i & 3];
}

void blocks(std::ostream &out) {
  static const std::string block(4096, 'x');
  for (int i = 0; i < 16; ++i) out.write(block.data(), block.size());
}

void lines(std::ostream &out) {
  for (int i = 0; i < 16; ++i) out << "a line of text" << std::endl;
}

#define TO_ALL(what, write, target, n)                                                                       \
  {what " to a file", target, n, to_file<write>}, {what " to a string stream", target, n, to_string<write>}, \
      {what " to cout", target, n, to_cout<write>}, {                                                        \
    what " to cout, not synchronised", target, n, to_unsynchronised_cout<write>                              \
  }

const bench_case cases[] = {
    TO_ALL("char", characters, 2, count),
    {"put to a file", 2, count, to_file<put_characters>},
    TO_ALL("C string", c_strings, 2, count),
    {"string to a file", 2, count, to_file<strings>},
    {"string to a string stream", 3, count, to_string<strings>},
    TO_ALL("block of 4 KB", blocks, 1, 16),
    {"line with endl to a file", 1, 16, to_file<lines>},
    {"line with endl to a string stream", 1, 16, to_string<lines>},
    {"line with endl to cout", 1, 16, to_cout<lines>},
};

}  // namespace streams

BENCH_MAIN(streams::cases)
