// Strings, containers, iterators, small values, streams and locales, for transcripts/values.txt; what is broken there
// on purpose is whole here.
#include <bitset>
#include <complex>
#include <deque>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <list>
#include <locale>
#include <map>
#include <memory>
#include <queue>
#include <set>
#include <sstream>
#include <stack>
#include <stdexcept>
#include <string>
#include <strstream>
#include <valarray>
#include <vector>

#include <unistd.h>

using namespace std;

extern "C" void stop() { __asm__ volatile(""); }

static void values_and_containers() {
  string empty, plain("hello"), copy(plain), zeros("a\0b", 3), quotes("say \"x\"\n"), reserved("r");
  string shared("shared"), second(shared), third(second), lengthy(300, 'x');
  reserved.reserve(100);
  string::iterator at = plain.begin() + 1;
  string &other = copy;
  bitset<10> bits(5ul);
  bitset<70> wide;
  wide.set(69).set(32).set(0);
  complex<double> z(1.5, -2);
  auto_ptr<string> owner(new string("owned")), nothing;
  runtime_error failure("no such file");
  const exception &base = failure;
  bad_alloc silent;

  vector<int> none, numbers(3, 7);
  numbers.reserve(8);
  vector<bool> flags(40);
  flags[1] = flags[33] = true;
  deque<int> queue_of_none, blocks;
  for (int i = -1; i < 45; ++i) blocks.push_back(i);
  list<string> no_links, links(1, "first");
  links.push_back("second");
  stack<int> pile(deque<int>(1, 4));
  priority_queue<int> first_first(less<int>(), vector<int>(1, 2));
  valarray<double> values(1.5, 2);
  vector<int>::iterator number = numbers.begin();
  vector<int>::reverse_iterator backwards = numbers.rbegin();
  deque<int>::reverse_iterator backwards_in_blocks(blocks.begin() + 30);  // the first place of a block
  vector<bool>::iterator flag = flags.begin() + 33;
  deque<int>::iterator in_block = blocks.begin() + 20;
  list<string>::iterator link = links.begin();

  map<string, int> ages, nobody, one, two;
  ages["one"] = one["key"] = two["b"] = 1, ages["two"] = two["a"] = 2, ages["three"] = 3;
  multimap<int, string> many;
  many.insert(make_pair(3, "x")), many.insert(make_pair(3, "y"));
  set<long long> hundred;
  for (int i = 0; i < 100; ++i) hundred.insert(i * 7 % 100);
  map<string, int>::iterator first = ages.begin(), end = ages.end();
  map<string, int>::const_iterator end_of_none = nobody.end(), end_of_one = one.end(), end_of_two = two.end();
  map<string, int>::iterator only = one.begin(), last_of_two = --two.end();
  set<long long>::iterator last = --hundred.end();
  set<long long>::reverse_iterator downward = hundred.rbegin(), in_the_middle(hundred.find(64)),
                                   backwards_end = hundred.rend();
  stop();
}

// A program's own buffer.
struct upper : streambuf {
  upper() : count(7), room() { setp(room, room + sizeof room); }
  int count;
  char room[8];
};

static void noticed(ios_base::event, ios_base &, int) {}

static void streams() {
  // Whatever the caller left open: the transcript knows descriptors by number.
  for (int i = 3; i < 20; ++i) close(i);
  ostringstream out;
  out << hex << showbase << setfill('*') << setprecision(3) << 255 << setw(4);
  istringstream in("12 word");
  int number = 0;
  in >> number;
  stringstream both("0123456789");
  both.seekg(3), both << "ab", both.get();
  istringstream failed("x"), ended("1");
  failed >> number, ended >> number;
  ostream none(0);
  out.exceptions(ios::badbit | ios::failbit), out.tie(&cout);
  ostringstream empty, noted("start", ios::out | ios::ate);
  noted.iword(1) = 42;
  noted.register_callback(noticed, 0);
  stop();

  {
    ofstream file("lines");
    file << "first\nsecond\n" << flush << "third";
    ifstream missing("no such file");
    upper letters;
    ostream loud(&letters);
    loud << "abc";
    char array[16] = "";
    ostrstream to_array(array, sizeof array);
    to_array << 42;
    stop();
  }

  ifstream file("lines");
  string word;
  file >> word;
  locale classic, mixed(classic, new numpunct<char>);
  stop();
}

int main() {
  values_and_containers();
  streams();
}
