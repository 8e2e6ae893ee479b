// String streams: modes, texts and positions as programs meet them; streams as bases; what is written through a stream
// reaches a plain buffer in blocks and a derived one by its virtual operations, with the same result.
#include <sstream>

#include "../harness.h"

namespace {

const int in = std::ios_base::in, out = std::ios_base::out;

void modes() {
  std::ostringstream o("abc");
  o << 'X';
  CHECK(o.str() == "Xbc");
  std::ostringstream appending("abc", std::ios_base::app);
  appending << 'X' << 12;
  CHECK(appending.str() == "abcX12");
  CHECK_INT(appending.tellp(), 6);
  std::istringstream writable("abc", out);  // `in` is added, out stays
  CHECK_INT(writable.rdbuf()->sputc('X'), 'X');
  CHECK_INT(writable.get(), 'X');
  std::istringstream i("abc");
  CHECK_INT(i.rdbuf()->sputc('X'), -1);
  std::stringstream only_out(out);
  only_out << "abc";
  CHECK_INT(only_out.get(), -1);
  CHECK(only_out.str() == "abc");
  std::stringstream only_in("abc", in);
  only_in << 'X';
  CHECK(only_in.str() == "abc");
  CHECK(std::ostringstream().str() == "");
  CHECK_INT(std::ostringstream().tellp(), -1);  // there is no block yet
}

void reading_what_was_written() {
  std::stringstream s;
  s << "one " << 2 << ' ' << 2.5 << " end";
  CHECK_INT(s.rdbuf()->in_avail(), 13);
  std::string word;
  int i = 0;
  double d = 0;
  s >> word >> i >> d;
  CHECK(word == "one" && i == 2 && d == 2.5);
  s << "less";
  s >> word;
  CHECK(word == "endless" && s.eof());
  s.clear();
  s << "\nmore\n";
  std::getline(s, word);
  CHECK(word == "");
  std::getline(s, word);
  CHECK(word == "more");
  s.seekp(0);
  s << "THREE";
  s.seekg(0);
  s >> word;
  CHECK(word == "THREE");
  CHECK(s.str().substr(0, 7) == "THREE 2");
  s.str("new 7");
  s >> word >> i;
  CHECK(word == "new" && i == 7 && s.eof());

  std::istringstream again("12");
  again >> i;
  CHECK(again.eof());
  again.clear();
  again.str("34");
  again >> i;
  CHECK_INT(i, 34);
  CHECK(again.str() == "34");
  again.clear();
  CHECK_INT(again.seekg(0).get(), '3');
  CHECK_INT(again.unget().peek(), '3');
  CHECK_INT(again.putback('x').rdstate(), std::ios_base::badbit);
}

class derived : public std::stringbuf {
public:
  explicit derived(int mode) : std::stringbuf(mode) {}
};

// The same inserters into both kinds, from every position.
void same_through_streams() {
  for (int mode = out; mode <= (in | out); mode += in)
    for (int at = 0; at <= 70; at += 7) {
      std::stringbuf plain(mode);
      derived by_rule(mode);
      std::stringbuf *const both[] = {&plain, &by_rule};
      for (int i = 0; i < 2; ++i) {
        std::ostream s(both[i]);
        s.write("0123456789012345678901234567890123456789012345678901234567890123456789", 70);
        s.seekp(at);
        s << -12345;
        if (at % 2) both[i]->pubseekoff(3, std::ios_base::beg, in);
        s.width(9);
        s << 1.5;
        s.put('p').width(6);
        s << "c";
        s.width(40);
        s << std::string("string") << true << static_cast<const void *>(0) << 1e300 << std::hex << 255;
        s.fill('*');
        s.width(70);
        s << 1;
        CHECK_INT(s.tellp(), plain.pubseekoff(0, std::ios_base::cur, out));
        CHECK(s.good());
      }
      CHECK(plain.str() == by_rule.str());
      CHECK_INT(plain.in_avail(), by_rule.in_avail());
      CHECK_INT(plain.pubseekoff(0, std::ios_base::end, out), by_rule.pubseekoff(0, std::ios_base::end, out));
      CHECK_INT(plain.sgetc(), by_rule.sgetc());
    }
}

// A program's own stream on top of a string stream.
class log_line : public std::ostringstream {
public:
  explicit log_line(const char *name) : std::ostringstream(std::string(name), std::ios_base::app) { *this << ": "; }
};

void derived_stream() {
  log_line line("name");
  line << 1 << '\n';
  CHECK(line.str() == "name: 1\n");
  std::ostream &base = line;
  CHECK(dynamic_cast<std::ostringstream *>(&base) == &line);
  CHECK(dynamic_cast<log_line *>(static_cast<std::ios *>(&line)) == &line);
}

}  // namespace

int main() {
  modes();
  reading_what_was_written();
  same_through_streams();
  derived_stream();
  return TEST_RESULT();
}
