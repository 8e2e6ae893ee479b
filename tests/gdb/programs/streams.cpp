// Streams in every state, their buffers, and locales, as gdb prints them. The comments are the transcript that
// tests/gdb/transcript.py runs.
#include <fstream>
#include <iomanip>
#include <iostream>
#include <locale>
#include <sstream>
#include <strstream>

#include <unistd.h>

using namespace std;

void stop() { __asm__ volatile(""); }

// A program's own buffer and stream.
class upper : public streambuf {
public:
  upper() : count(7), room() { setp(room, room + sizeof room); }
  int count;
  char room[8];
};
class shouting : public ostream {
public:
  shouting() : ostream(&letters) {}
  upper letters;
};

static void noticed(ios_base::event, ios_base &, int) {}

int main() {
  // Whatever the caller left open: the transcript knows descriptors by number.
  for (int i = 3; i < 20; ++i) close(i);
  ostringstream out;
  out << hex << showbase << setfill('*') << setprecision(3) << 255 << setw(4);
  istringstream in("12 word");
  int number = 0;
  in >> number;
  stringstream both("0123456789");
  both.seekg(3);
  both << "ab";
  both.get();
  istringstream failed("x");
  failed >> number;
  istringstream ended("1");
  ended >> number;
  ostream none(0);
  out.exceptions(ios::badbit | ios::failbit);
  out.tie(&cout);
  ostringstream empty, noted("start", ios::out | ios::ate);
  noted.iword(1) = 42;
  noted.register_callback(noticed, 0);
  stop();
  //> output out
  //= std::ostringstream, good = {flags = hex | showbase | skipws, width = 4, precision = 3, fill = 42 '*', exceptions = bad | fail, tie = 0xN <std::cout>, locale = "C", buffer = std::stringbuf = {text = "0xff", mode = out, write position = 4}}
  //> output in
  //= std::istringstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 0, buffer = std::stringbuf = {text = "12 word", mode = in, read position = 2}}
  //> output both
  //= std::stringstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 1, buffer = std::stringbuf = {text = "ab23456789", mode = in | out, read position = 4, write position = 2}}
  //> output failed
  //= std::istringstream, fail = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 0, buffer = std::stringbuf = {text = "x", mode = in, read position = 0}}
  //> output ended
  //= std::istringstream, eof = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 0, buffer = std::stringbuf = {text = "1", mode = in, read position = 1}}
  //> output none
  //= std::ostream, bad = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = none}
  //> output empty
  //= std::ostringstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = std::stringbuf = {text = "", mode = out, write position = 0}}
  //> set plx details on
  //> output noted
  //= std::ostringstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", callbacks = 1, iword = __zor::lw_vector of 2 = {0, 42}, pword = __zor::lw_vector of 0, buffer = std::stringbuf = {text = "start", mode = ate | out, write position = 0, room = 64, get area = none, put area = 0 of 5 written, written = "", locale = "C"}}
  //> output both
  //= std::stringstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 1, callbacks = 0, iword = __zor::lw_vector of 0, pword = __zor::lw_vector of 0, buffer = std::stringbuf = {text = "ab23456789", mode = in | out, read position = 4, write position = 2, room = 64, get area = 4 of 10 read, unread = "456789", put area = 2 of 10 written, written = "ab", locale = "C"}}
  //> set plx details off
  //> output *both.rdbuf()
  //= std::stringbuf = {text = "ab23456789", mode = in | out, read position = 4, write position = 2}
  //> set print elements 4
  //> output *in._buffer_._gptr_@4
  //= " wor"
  //> output in._buffer_
  //= std::stringbuf = {text = "12 w"..., mode = in, read position = 2}
  //> set print elements 200

  {
    ofstream file("lines");
    file << "first\nsecond\n" << flush << "third";
    ifstream missing("no such file");
    shouting loud;
    loud << "abc";
    ostream &as_base = loud;
    streambuf *buffer = &loud.letters;
    char array[16] = "";
    ostrstream to_array(array, sizeof array);
    to_array << 42;
    stop();
    (void)as_base, (void)buffer;
  }
  //> continue
  //> output file
  //= std::ofstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = std::filebuf = {file = 0xN, descriptor = 3, unread = "", unwritten = "third"}}
  //> output missing
  //= std::ifstream, fail = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 0, buffer = std::filebuf = {file = 0x0}}
  //> output loud
  //= {<std::basic_ostream<char, std::char_traits<char> >> = std::ostream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = {<std::basic_streambuf<char, std::char_traits<char> >> = std::streambuf = {get area = none, put area = 3 of 8 written, written = "abc", locale = "C"}, count = 7, room = "abc\000\000\000\000"}}, letters = {<std::basic_streambuf<char, std::char_traits<char> >> = std::streambuf = {get area = none, put area = 3 of 8 written, written = "abc", locale = "C"}, count = 7, room = "abc\000\000\000\000"}}
  //> output as_base
  //= (std::ostream &) @0xN: std::ostream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = {<std::basic_streambuf<char, std::char_traits<char> >> = std::streambuf = {get area = none, put area = 3 of 8 written, written = "abc", locale = "C"}, count = 7, room = "abc\000\000\000\000"}}
  //> output buffer->_pptr_ - buffer->_pbase_
  //= 3
  //> output to_array
  //= std::ostrstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = std::strstreambuf = {state = none, get area = 0 of 0 read, unread = "", put area = 2 of 16 written, written = "42", locale = "C"}}

  ifstream file("lines");
  string word;
  file >> word;
  locale classic, mixed(classic, new numpunct<char>);
  stop();
  //> continue
  //> output file
  //= std::ifstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 0, buffer = std::filebuf = {file = 0xN, descriptor = 3, unread = "\nsecond\nthird", unwritten = ""}}
  //> output mixed
  //= std::locale = {name = "*", handles = 1, [1] = std::numpunct<char>, [2] = std::num_get<char>, [3] = std::num_put<char>, [4] = std::ctype<char>, [5] = std::codecvt<char, char, int>, [6] = std::collate<char>, [7] = std::time_put<char>, [8] = std::time_get<char>, [9] = std::moneypunct_byname<char, true>, [10] = std::moneypunct_byname<char, false>, [11] = std::money_put<char>, [12] = std::money_get<char>}
  //> plx streams
  //= cin = std::istream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0xN <std::cout>, locale = "C", gcount = 0, buffer = std::filebuf = {file = 0xN <_IO_2_1_stdin_>, descriptor = 0, unread = "", unwritten = ""}}
  //= cout = std::ostream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = std::filebuf = {file = 0xN <_IO_2_1_stdout_>, descriptor = 1, unread = "", unwritten = ""}}
  //= cerr = std::ostream, good = {flags = dec | skipws | unitbuf, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0xN <std::cout>, locale = "C", buffer = std::filebuf = {file = 0xN <_IO_2_1_stderr_>, descriptor = 2, unread = "", unwritten = ""}}
  //= clog = std::ostream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0xN <std::cout>, locale = "C", buffer = std::filebuf = {file = 0xN <_IO_2_1_stderr_>, descriptor = 2, unread = "", unwritten = ""}}
}
