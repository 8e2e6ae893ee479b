// Streams in every state, their buffers, and locales, for transcripts/streams.txt.
#include <fstream>
#include <iomanip>
#include <iostream>
#include <locale>
#include <sstream>
#include <strstream>

#include <unistd.h>

using namespace std;

extern "C" void stop() { __asm__ volatile(""); }

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

  ifstream file("lines");
  string word;
  file >> word;
  locale classic, mixed(classic, new numpunct<char>);
  stop();
}
