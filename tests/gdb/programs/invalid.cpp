// Objects that are none: never constructed, overwritten, or cut off by what memory there is. Each prints something
// short, and nothing ends in an error of Python. The comments are the transcript that tests/gdb/transcript.py runs.
#include <complex>
#include <deque>
#include <fstream>
#include <iostream>
#include <list>
#include <locale>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string.h>
#include <strstream>
#include <valarray>
#include <vector>

using namespace std;

void stop() { __asm__ volatile(""); }

// The classes without their constructors.
template <class T> union raw {
  unsigned words[128];
  T *object() { return reinterpret_cast<T *>(words); }
};

template <class T> static T *filled(int byte) {
  static raw<T> storage;
  memset(&storage, byte, sizeof storage);
  return storage.object();
}

template <class T> static unsigned *words(T &object) { return reinterpret_cast<unsigned *>(&object); }

static void garbage(int byte) {
  string *text = filled<string>(byte);
  vector<int> *numbers = filled<vector<int> >(byte);
  vector<bool> *bits = filled<vector<bool> >(byte);
  deque<int> *blocks = filled<deque<int> >(byte);
  list<int> *links = filled<list<int> >(byte);
  map<int, string> *tree = filled<map<int, string> >(byte);
  map<int, string>::iterator *node = filled<map<int, string>::iterator>(byte);
  list<int>::iterator *link = filled<list<int>::iterator>(byte);
  valarray<int> *values = filled<valarray<int> >(byte);
  runtime_error *error = filled<runtime_error>(byte);
  locale *loc = filled<locale>(byte);
  ostream *out = filled<ostream>(byte);
  ifstream *in = filled<ifstream>(byte);
  stringbuf *buffer = filled<stringbuf>(byte);
  stop();
  (void)text, (void)numbers, (void)bits, (void)blocks, (void)links, (void)tree, (void)node, (void)link, (void)values;
  (void)error, (void)loc, (void)out, (void)in, (void)buffer;
}

int main() {
  garbage(0);
  //> output *text
  //= <invalid std::string: no memory at 0x0>
  //> output *numbers
  //= std::vector of 0, capacity 0
  //> output *bits
  //= std::vector of 0, capacity 0
  //> output *blocks
  //= <invalid std::deque: no memory at 0x0>
  //> output *links
  //= <invalid std::list: no memory at 0x0>
  //> output *tree
  //= <invalid std::map: no memory at 0x0>
  //> output *node
  //= <singular tree_iterator>
  //> output *link
  //= <singular list_iterator>
  //> output *values
  //= std::valarray of 0
  //> output *error
  //= std::runtime_error
  //> output *loc
  //= <invalid std::locale: no memory at 0x0>
  //> output *out
  //= <invalid std::ostream: Cannot access memory at address 0xN>
  //> output *in
  //= <invalid std::ifstream: Cannot access memory at address 0xN>
  //> output *buffer
  //= <invalid std::stringbuf: no memory at 0x0>
  garbage(0x41);
  //> continue
  //> output *text
  //= <invalid std::string: no memory at 0xN>
  //> output *numbers
  //= <invalid std::vector: its end does not fit its block at 0xN>
  //> output *bits
  //= <invalid std::vector: size 1094795585, capacity 0>
  //> output *blocks
  //= <invalid std::deque: no memory at 0xN>
  //> output *links
  //= <invalid std::list: no memory at 0xN>
  //> output *tree
  //= <invalid std::map: no memory at 0xN>
  //> output *node
  //= <invalid tree_iterator: Cannot access memory at address 0xN>
  //> output *link
  //= <invalid list_iterator: no memory at 0xN>
  //> output *values
  //= <invalid std::valarray: no memory at 0xN>
  //> output *error
  //= <invalid std::runtime_error: Cannot access memory at address 0xN>
  //> output *loc
  //= <invalid std::locale: no memory at 0xN>
  //> output *out
  //= <invalid std::ostream: Cannot access memory at address 0xN>
  //> output *in
  //= <invalid std::ifstream: Cannot access memory at address 0xN>
  //> output *buffer
  //= <invalid std::stringbuf: no memory at 0xN>

  // Right in most, wrong in one place.
  string plain("plain");
  words(*reinterpret_cast<string *>(words(plain)[0]))[3] = 0x7000000;  // the length
  vector<int> backwards(4), cut(4);
  swap(words(backwards)[0], words(backwards)[1]);
  words(cut)[1] -= 1;
  vector<bool> too_long(5);
  words(too_long)[3] = 100;
  list<int> circle(3, 1), unlinked(3, 2);
  words(circle)[2] = 0x7FFFFFFF;  // the size
  unsigned *second = *reinterpret_cast<unsigned **>(words(unlinked)[0]);
  second[1] = 0;  // the link back
  map<int, int> counted, turned;
  for (int i = 0; i < 9; ++i) counted[i] = turned[i] = i;
  words(counted)[2] = 1000;  // the count
  map<int, int>::iterator third = turned.begin();
  ++ ++third;
  (*reinterpret_cast<unsigned **>(&third))[1] = words(third)[0];  // its own right child
  deque<int> beyond(5);
  words(beyond)[3] = 19;  // the first element's place
  istringstream readable("abc");
  ostringstream unreadable;
  words(*unreadable.rdbuf())[3] = 0x10;  // eback of its buffer
  stop();
  //> continue
  //> output plain
  //= <invalid std::string: no characters behind 0xN>
  //> output backwards
  //= <invalid std::vector: its end 0xN does not fit its begin 0xN>
  //> output cut
  //= <invalid std::vector: its end 0xN does not fit its begin 0xN>
  //> output too_long
  //= <invalid std::vector: size 100, capacity 32>
  //> set print elements 5
  //> output circle
  //= std::list of 2147483647 = {1, 1, 1, <invalid rest: there are fewer nodes>}
  //> set print elements 200
  //> output unlinked
  //= std::list of 3 = {2, <invalid rest: a node does not link back>}
  //> set print elements 0
  //> output counted
  //= std::map of 1000 = {[0] = 0, [1] = 1, [2] = 2, [3] = 3, [4] = 4, [5] = 5, [6] = 6, [7] = 7, [8] = 8, [<invalid rest: there are fewer nodes>] = ...}
  //> output turned
  //= std::map of 9 = {[0] = 0, [1] = 1, [2] = 2, [<invalid rest: a node does not link back>] = ...}
  //> set print elements 200
  //> output third
  //= {first = 2, second = 2}
  //> output beyond
  //= <invalid std::deque: its begin and end do not fit together>
  //> output *(string *)8
  //= error: Cannot access memory at address 0x8
  //> output *(ostream *)16
  //= error: Cannot access memory at address 0x10
  //> output readable
  //= std::istringstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", gcount = 0, buffer = std::stringbuf = {text = "abc", mode = in, read position = 0}}
  //> output unreadable
  //= std::ostringstream, good = {flags = dec | skipws, width = 0, precision = 6, fill = 32 ' ', exceptions = none, tie = 0x0, locale = "C", buffer = <invalid std::stringbuf: an area from 0x0 to 0x0, at 0x10>}
  _Exit(0);
}
