// What the benchmarks of streams share: a temporary file that goes with the process, and the data that they write and
// read. Files are real ones, in the page cache.
#ifndef BENCH_STREAMS_H
#define BENCH_STREAMS_H

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "bench.h"

// A pseudo-random sequence that is the same in every build.
struct bench_random {
  unsigned long state;
  explicit bench_random(unsigned long seed) : state(seed) {}
  unsigned long next() {
    state = state * 1664525ul + 1013904223ul;
    return state >> 8;
  }
};

inline const char *bench_folder() {
  const char *folder = getenv("TMPDIR");
  return folder ? folder : "/tmp";
}

// A file that holds `text`; its name is removed when the process ends.
class bench_file {
public:
  explicit bench_file(const std::string &text = std::string()) {
    snprintf(path_, sizeof path_, "%s/plx-bench-XXXXXX", bench_folder());
    const int file = mkstemp(path_);
    size_t done = 0;
    while (file >= 0 && done < text.size()) {
      const ssize_t part = write(file, text.data() + done, text.size() - done);
      if (part <= 0) break;
      done += part;
    }
    if (file < 0 || close(file) != 0 || done != text.size()) {
      perror(path_);
      exit(2);
    }
  }
  ~bench_file() { unlink(path_); }
  const char *path() const { return path_; }

private:
  char path_[256];
};

// Standard output goes to a temporary file while one of these lives.
class bench_stdout {
public:
  explicit bench_stdout(const char *path) : kept_(dup(1)) {
    const int file = open(path, O_WRONLY | O_TRUNC);
    if (kept_ < 0 || file < 0 || dup2(file, 1) < 0) exit(2);
    close(file);
  }
  ~bench_stdout() {
    std::cout.flush();
    fflush(stdout);
    dup2(kept_, 1);
    close(kept_);
  }
  static unsigned long position() {
    std::cout.flush();
    fflush(stdout);
    return lseek(1, 0, SEEK_CUR);
  }
  static void rewind() { lseek(1, 0, SEEK_SET); }

private:
  int kept_;
};

inline unsigned long bench_sum_of(const std::string &text) {
  unsigned long sum = 0;
  for (std::string::size_type i = 0; i < text.size(); ++i) sum = sum * 31 + static_cast<unsigned char>(text[i]);
  return sum;
}

inline unsigned long bench_sum_of_file(const char *path) {
  std::string text;
  char block[4096];
  FILE *const file = fopen(path, "r");
  for (size_t n; (n = file ? fread(block, 1, sizeof block, file) : 0) != 0;) text.append(block, n);
  if (file) fclose(file);
  return bench_sum_of(text);
}

// Each way to write runs `write(stream)` for every iteration, to a file, a string stream or cout, and sums the sizes,
// and once, at the end, what has been written.
template <void (*write)(std::ostream &)> unsigned long to_file(unsigned long iterations) {
  bench_file file;
  std::ofstream out(file.path());
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    out.seekp(0);
    write(out);
    sum += static_cast<unsigned long>(out.tellp());
  }
  out.flush();
  return out ? sum + bench_sum_of_file(file.path()) : 0;
}

template <void (*write)(std::ostream &)> unsigned long to_string(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::ostringstream out;
    write(out);
    sum += static_cast<unsigned long>(out.tellp());
    if (i + 1 == iterations) sum += bench_sum_of(out.str());
  }
  return sum;
}

template <void (*write)(std::ostream &)> unsigned long to_cout(unsigned long iterations) {
  bench_file file;
  bench_stdout redirected(file.path());
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    bench_stdout::rewind();
    write(std::cout);
    sum += bench_stdout::position();
  }
  return std::cout ? sum + bench_sum_of_file(file.path()) : 0;
}

// As cout, with the peer's buffering of its own switched on; there is nothing to switch in plx.
template <void (*write)(std::ostream &)> unsigned long to_unsynchronised_cout(unsigned long iterations) {
  std::ios::sync_with_stdio(false);
  return to_cout<write>(iterations);
}

// Each way to read runs `read(stream)`, which reads to the end, for every iteration.
template <const std::string &(*text)(), unsigned long (*read)(std::istream &)>
unsigned long from_file(unsigned long iterations) {
  bench_file file(text());
  std::ifstream in(file.path());
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    in.clear();
    in.seekg(0);
    sum += read(in);
  }
  return sum;
}

template <const std::string &(*text)(), unsigned long (*read)(std::istream &)>
unsigned long from_string(unsigned long iterations) {
  unsigned long sum = 0;
  std::istringstream in(text());
  for (unsigned long i = 0; i < iterations; ++i) {
    in.clear();
    in.seekg(0);
    sum += read(in);
  }
  return sum;
}

template <const std::string &(*text)(), unsigned long (*read)(std::istream &)>
unsigned long from_cin(unsigned long iterations) {
  bench_file file(text());
  if (!freopen(file.path(), "r", stdin)) exit(2);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::cin.clear();
    rewind(stdin);
    sum += read(std::cin);
  }
  return sum;
}

#endif
