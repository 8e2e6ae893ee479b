// Objects that are none: never constructed, overwritten, or cut off by what memory there is. Each prints something
// short, and nothing ends in an error of Python: transcripts/invalid.txt.
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

extern "C" void stop() { __asm__ volatile(""); }

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
  garbage(0x41);

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
  _Exit(0);
}
