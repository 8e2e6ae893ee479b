// Random operations on string streams of every mode, written and read and moved in any order. Each step is printed, so
// that two libraries can be compared. What is deliberately different in plx is not done: positions of an empty buffer,
// eofbit where a character was wanted, and 0xFF given back.
// prints: 113465 lines
#include <stdio.h>

#include <iomanip>
#include <sstream>
#include <string>

static unsigned int state = 11;
static unsigned int below(unsigned int limit) {
  state = state * 1664525u + 1013904223u;
  return (state >> 8) % limit;
}

// Words, numbers without a sign, white space; sometimes longer than any small room.
static std::string random_text() {
  static const char *const parts[] = {"7", "42 ", "abc", "x\n", " ", "10 20 ", "\n\n", "\xe9t\xe9 ", "word;", "0"};
  std::string text;
  for (unsigned int n = below(6); n > 0; --n) text += parts[below(10)];
  if (below(12) == 0) text.append(below(below(9) ? 80 : 5000), 'w').append(" ");
  return text;
}

static unsigned int sum_of(const std::string &text) {
  unsigned int sum = 0;
  for (std::string::size_type i = 0; i < text.size(); ++i) sum = sum * 31 + static_cast<unsigned char>(text[i]);
  return sum;
}

static void write_some(std::stringstream &s, const char *&what) {
  switch (below(7)) {
    case 0: what = "int", s << below(below(2) ? 1000 : 1000000000); break;
    case 1: what = "double", s << below(4000) / 8.0; break;
    case 2: what = "string", s << random_text(); break;
    case 3: what = "C string", s << random_text().c_str(); break;
    case 4: what = "width", s << std::setw(below(90)) << std::left << "ab"; break;
    case 5: what = "put", s.put(static_cast<char>('a' + below(26))); break;
    case 6: {
      const std::string text = random_text();
      what = "write", s.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
  }
}

static std::string read_some(std::stringstream &s, const char *&what) {
  char text[6001] = "";
  switch (below(9)) {
    case 0: {
      unsigned int number;
      what = ">> int";
      if (s >> number) sprintf(text, "%u", number);
      break;
    }
    case 1: {
      std::string word;
      what = ">> word";
      if (s >> word) return word;
      break;
    }
    case 2: what = "get", sprintf(text, "%d", s.get()); break;
    case 3: what = "peek", sprintf(text, "%d", s.peek()); break;
    case 4: {
      std::string line;
      what = "getline";
      if (std::getline(s, line)) return line;
      break;
    }
    case 5: what = "read", s.read(text, below(below(6) ? 40 : 6000)); break;
    case 6: {
      const int n = below(30);
      what = "ignore", s.ignore(n, below(2) ? 'b' : -1);
      break;
    }
    case 7: what = "unget", s.unget(); break;
    case 8: what = "putback", s.putback(static_cast<char>('a' + below(3))); break;
  }
  return text;
}

static void run(int number) {
  const std::ios_base::openmode in = std::ios_base::in, out = std::ios_base::out, app = std::ios_base::app;
  const std::ios_base::openmode modes[] = {in | out, in | out, in | out | app, in, out};
  const std::string first = random_text();
  std::stringstream s(first, modes[number % 5]);
  for (int step = 0; step < 60; ++step) {
    const char *what = "";
    std::string got;
    const bool empty = s.str().empty();
    const unsigned int kind = below(12);
    if (kind < 5 && number % 5 != 3) {
      write_some(s, what);
    } else if (kind < 9) {
      got = read_some(s, what);
    } else if (kind == 9) {
      if (empty) continue;
      const int way = below(3), off = static_cast<int>(below(60)) - (way == 0 ? 5 : way == 1 ? 30 : 55);
      const std::ios_base::seekdir from = way == 0   ? std::ios_base::beg
                                          : way == 1 ? std::ios_base::cur
                                                     : std::ios_base::end;
      if (below(2))
        what = "seekg", s.seekg(off, from);
      else
        what = "seekp", s.seekp(off, from);
    } else if (kind == 10) {
      if (empty) continue;
      what = "tell";
      char text[40];
      sprintf(text, "%ld %ld", static_cast<long>(s.tellg()), static_cast<long>(s.tellp()));
      got = text;
    } else if (below(4) == 0) {
      what = "str";
      s.str(random_text());
    } else {
      continue;
    }
    const std::string all = s.str();
    printf("%d.%d %s: %u %.20s %s%s; %u %u\n", number, step, what, sum_of(got), got.c_str(), s.fail() ? "fail" : "",
           s.bad() ? " bad" : "", static_cast<unsigned int>(all.size()), sum_of(all));
    s.clear();
  }
}

int main() {
  for (int i = 0; i < 2000; ++i) run(i);
  return 0;
}
