// Words and lines into strings, bits, and complex numbers: widths, blocks, capacities, states.
// test-variants: -O0 | -O2

#include <bitset>
#include <complex>
#include <sstream>

#include "input_buffers.h"

static void test_words() {
  for (int piece = 0; piece <= 40; piece = piece ? piece * 3 : 1) {
    const std::string all = "  abcdef gh";
    slow_buffer one(all);
    piece_buffer some(all, piece);
    std::istream in(piece ? static_cast<std::streambuf *>(&some) : &one);
    std::string word = "before";
    in.width(3);
    in >> word;
    CHECK_TEXT(word.c_str(), "abc");
    CHECK_INT(in.width(), 3);  // stays
    in.width(0);
    in >> word;
    CHECK_TEXT(word.c_str(), "def");
    CHECK_INT(in.rdstate(), good);
    in >> word;
    CHECK_TEXT(word.c_str(), "gh");
    CHECK_INT(in.rdstate(), eof);
    in >> word;
    CHECK_TEXT(word.c_str(), "gh");  // refused: left alone
    CHECK_INT(in.rdstate(), eof | fail);
  }
  slow blank("  ");
  std::string word = "before";
  blank.in >> word;
  CHECK_TEXT(word.c_str(), "");
  CHECK_INT(blank.in.rdstate(), eof | fail);
}

// Around the blocks of 512, and capacities as appending leaves them. A copy of the string before keeps its text.
static void test_long_words() {
  for (int n = 1; n < 1600; n += n < 505 || (n > 520 && n < 1020) || n > 1030 ? 83 : 1) {
    const std::string text(n, 'x');
    slow in(text + (n % 2 ? "" : " y"));
    std::string word = "before", kept = word;
    in.in >> word;
    CHECK(word == text);
    CHECK_INT(in.in.rdstate(), n % 2 ? eof : good);
    CHECK_INT(word.capacity(), (n & ~31) + 32);
    CHECK_TEXT(kept.c_str(), "before");
  }
  slow exact(std::string(512, 'x'));
  std::string word;
  exact.in >> word;
  CHECK_INT(word.size(), 512);
  CHECK_INT(exact.in.rdstate(), eof);
}

static void test_lines() {
  for (int piece = 0; piece <= 40; piece = piece ? piece * 3 : 1) {
    const std::string all = "first line\n\n;third;last";
    slow_buffer one(all);
    piece_buffer some(all, piece);
    std::istream in(piece ? static_cast<std::streambuf *>(&some) : &one);
    std::string line = "before", kept = line;
    std::getline(in, line);
    CHECK_TEXT(line.c_str(), "first line");
    CHECK_INT(in.gcount(), 0);
    std::getline(in, line);
    CHECK_TEXT(line.c_str(), "");
    CHECK_INT(in.rdstate(), good);
    std::getline(in, line, ';');
    CHECK_TEXT(line.c_str(), "");
    std::getline(in, line, ';');
    CHECK_TEXT(line.c_str(), "third");
    std::getline(in, line);
    CHECK_TEXT(line.c_str(), "last");
    CHECK_INT(in.rdstate(), eof);
    std::getline(in, line);
    CHECK_TEXT(line.c_str(), "last");
    CHECK_INT(in.rdstate(), eof | fail);
    in.clear();
    std::getline(in, line);
    CHECK_TEXT(line.c_str(), "");
    CHECK_INT(in.rdstate(), eof | fail);
    CHECK_TEXT(kept.c_str(), "before");
  }
  const std::string nulls("a\0b", 3);
  slow with_nulls(nulls + "\nc");
  std::string line;
  std::getline(with_nulls.in, line);
  CHECK(line == nulls);
}

// All lengths, from places of all alignments; nothing is written behind an array's terminator.
static void test_line_lengths() {
  std::string all;
  for (int n = 0; n < 100; ++n) all += std::string(n, static_cast<char>('a' + n % 26)) + '\n';
  piece_buffer pieces(all, 64);
  std::istringstream strings(all), arrays(all);
  std::istream some(&pieces);
  std::string one(200, 'z'), other;
  for (int n = 0; n < 100; ++n) {
    const std::string want(n, static_cast<char>('a' + n % 26));
    std::getline(strings, one);
    std::getline(some, other);
    CHECK(one == want && other == want);
    char array[128];
    memset(array, '#', sizeof array);
    arrays.getline(array, 110);
    CHECK(array == want);
    CHECK_INT(array[n + 1], '#');
  }
}

// A line that is read into the place it is read from.
static void test_line_in_place() {
  struct memory : std::streambuf {
    memory(char *first, char *last) { setg(first, first, last); }
  };
  char text[] = "......abc\ndefghijklmnopqrstuvwxyz\n";
  memory buffer(text + 6, text + sizeof text - 1);
  std::istream in(&buffer);
  in.getline(text, 30);
  CHECK_TEXT(text, "abc");
  std::string line;
  std::getline(in, line);
  CHECK_TEXT(line.c_str(), "defghijklmnopqrstuvwxyz");
}

static void test_bits_and_complex() {
  slow text("  10112 x");
  std::bitset<8> bits;
  text.in >> bits;
  CHECK_INT(bits.to_ulong(), 11);
  CHECK_INT(text.in.get(), '2');
  text.in >> bits;
  CHECK_INT(bits.to_ulong(), 11);
  CHECK_INT(text.in.rdstate(), fail);
  slow few("1011");
  std::bitset<2> two;
  few.in >> two;
  CHECK_INT(two.to_ulong(), 2);
  CHECK_INT(few.in.rdstate(), good);
  CHECK_TEXT(few.buffer.rest().c_str(), "11");

  slow numbers("3.5 (4) ( 5 , -6 ) (7;");
  std::complex<double> z;
  numbers.in >> z;
  CHECK(z == std::complex<double>(3.5, 0));
  numbers.in >> z;
  CHECK(z == std::complex<double>(4, 0));
  numbers.in >> z;
  CHECK(z == std::complex<double>(5, -6));
  CHECK_INT(numbers.in.rdstate(), good);
  numbers.in >> z;
  CHECK(z == std::complex<double>(5, -6));
  CHECK_INT(numbers.in.rdstate(), fail);
}

int main() {
  test_words();
  test_long_words();
  test_lines();
  test_line_lengths();
  test_line_in_place();
  test_bits_and_complex();
  return TEST_RESULT();
}
