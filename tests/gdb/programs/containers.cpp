// Strings, containers, iterators and small values, as gdb prints them. The comments are the transcript that
// tests/gdb/transcript.py runs.
#include <bitset>
#include <complex>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <queue>
#include <set>
#include <stack>
#include <stdexcept>
#include <string>
#include <valarray>
#include <vector>

using namespace std;

void stop() { __asm__ volatile(""); }

struct point {
  int x, y;
};
struct named : public vector<int> {
  string name;
};
struct aligned_key {
  char tag;
  long double weight;
  bool operator<(const aligned_key &other) const { return tag < other.tag; }
};
struct by_length {
  bool operator()(const string &left, const string &right) const { return left.size() < right.size(); }
};

static void strings() {
  string empty, plain("hello"), copy(plain), zeros("a\0b", 3), quotes("say \"x\"\n"), reserved("r");
  string shared("shared"), second(shared), third(second), lengthy(300, 'x');
  reserved.reserve(100);
  string::iterator at = plain.begin() + 1;
  string &other = copy;
  stop();
  //> output empty
  //= ""
  //> output plain
  //= "hello"
  //> output zeros
  //= "a\000b"
  //> output quotes
  //= "say \"x\"\n"
  //> output lengthy
  //= 'x' <repeats 200 times>...
  //> output other
  //= (std::string &) @0xN: "hello"
  //> output at
  //= 101 'e'
  //> plx details copy
  //= $1 = "hello" = {length = 5, capacity = 32, shared = no, count = 1}
  //> plx details plain
  //= $2 = "hello" = {length = 5, capacity = 32, shared = no, count = unshareable}
  //> plx details shared
  //= $3 = "shared" = {length = 6, capacity = 32, shared = yes, count = 3}
  //> plx details reserved
  //= $4 = "r" = {length = 1, capacity = 128, shared = no, count = 1}
  //> show plx details
  //= Details of plx's objects are off.
  //> set print elements 4
  //> output plain
  //= "hell"...
  //> set print elements 200
}

static void sequences() {
  vector<int> none, numbers(3, 7);
  numbers.reserve(8);
  vector<string> words(2, "word");
  vector<bool> flags(40);
  flags[1] = flags[33] = true;
  deque<int> queue_of_none, blocks;
  for (int i = 0; i < 45; ++i) blocks.push_back(i);
  blocks.push_front(-1);
  list<string> no_links, links;
  links.push_back("first");
  links.push_back("second");
  list<long double> wide(1, 2.5L);
  stack<int> pile;
  pile.push(4);
  priority_queue<int> first_first;
  first_first.push(2);
  valarray<double> values(1.5, 2);
  named derived;
  derived.push_back(1);
  derived.name = "base";
  vector<int>::iterator number = numbers.begin();
  vector<int>::reverse_iterator backwards = numbers.rbegin();
  deque<int>::reverse_iterator backwards_in_blocks(blocks.begin() + 31);  // the first place of a block
  list<string>::reverse_iterator backwards_over_links = links.rbegin();
  vector<bool>::reverse_iterator backwards_over_flags(flags.begin() + 34);
  std::reverse_iterator<const char *> backwards_over_text("ab" + 2);
  vector<bool>::iterator flag = flags.begin() + 33;
  deque<int>::iterator in_block = blocks.begin() + 20;
  list<string>::iterator link = links.begin(), nowhere;
  vector<point> points(1);
  stop();
  //> continue
  //> output none
  //= std::vector of 0, capacity 0
  //> output numbers
  //= std::vector of 3, capacity 8 = {7, 7, 7}
  //> output words
  //= std::vector of 2, capacity 2 = {"word", "word"}
  //> output points
  //= std::vector of 1, capacity 1 = {{x = 0, y = 0}}
  //> set print elements 3
  //> output flags
  //= std::vector of 40, capacity 64 = {false, true, false...}
  //> set print elements 200
  //> output queue_of_none
  //= std::deque of 0
  //> set print elements 23
  //> output blocks
  //= std::deque of 46 = {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21...}
  //> set print elements 200
  //> output no_links
  //= std::list of 0
  //> output links
  //= std::list of 2 = {"first", "second"}
  //> output wide
  //= std::list of 1 = {2.5}
  //> output pile
  //= std::stack over std::deque of 1 = {4}
  //> output first_first
  //= std::priority_queue over std::vector of 1, capacity 10 = {2}
  //> output values
  //= std::valarray of 2 = {1.5, 1.5}
  //> output derived
  //= {<std::vector<int, std::allocator<int> >> = std::vector of 1, capacity 10 = {1}, name = "base"}
  //> output number
  //= 7
  //> output backwards
  //= 7
  //> output backwards_in_blocks
  //= 29
  //> output backwards_over_links
  //= "second"
  //> output backwards_over_flags
  //= true
  //> output backwards_over_text
  //= 98 'b'
  //> output flag
  //= true
  //> output in_block
  //= 19
  //> output link
  //= "first"
  //> output nowhere
  //= <singular list_iterator>
}

static void trees() {
  map<string, int> ages, nobody, one, two;
  ages["one"] = one["key"] = two["b"] = 1;
  ages["two"] = two["a"] = 2;
  ages["three"] = 3;
  multimap<int, string> many;
  many.insert(make_pair(3, "x"));
  many.insert(make_pair(3, "y"));
  map<string, short, by_length> lengths;
  lengths["abc"] = 3;
  set<long long> numbers;
  for (int i = 0; i < 100; ++i) numbers.insert(i * 7 % 100);
  set<aligned_key> keys;
  const aligned_key key = {'k', 0.5L};
  keys.insert(key);
  multiset<string> words;
  words.insert("w");
  map<string, int>::iterator first = ages.begin(), end = ages.end(), nowhere;
  map<string, int>::const_iterator end_of_none = nobody.end(), end_of_one = one.end(), end_of_two = two.end();
  map<string, int>::iterator only = one.begin(), last_of_two = --two.end();
  set<long long>::iterator last = --numbers.end();
  set<long long>::reverse_iterator backwards = numbers.rbegin(), in_the_middle(numbers.find(64)),
                                   backwards_end = numbers.rend();
  stop();
  //> continue
  //> output ages
  //= std::map of 3 = {["one"] = 1, ["three"] = 3, ["two"] = 2}
  //> output nobody
  //= std::map of 0
  //> output many
  //= std::multimap of 2 = {[3] = "x", [3] = "y"}
  //> output lengths
  //= std::map of 1 = {["abc"] = 3}
  //> set print elements 12
  //> output numbers
  //= std::set of 100 = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11...}
  //> set print elements 200
  //> python print(gdb.parse_and_eval("numbers").format_string(max_elements=0)[-12:])
  //=  97, 98, 99}
  //> output keys
  //= std::set of 1 = {{tag = 107 'k', weight = 0.5}}
  //> output words
  //= std::multiset of 1 = {"w"}
  //> output first
  //= {first = "one", second = 1}
  //> output last
  //= 99
  //> output backwards
  //= 99
  //> output in_the_middle
  //= 63
  //> output backwards_end
  //= <end>
  //> output only
  //= {first = "key", second = 1}
  //> output last_of_two
  //= {first = "b", second = 1}
  //> output end
  //= <end>
  //> output end_of_none
  //= <end>
  //> output end_of_one
  //= <end>
  //> output end_of_two
  //= <end>
  //> output nowhere
  //= <singular tree_iterator>
}

static void values() {
  bitset<10> bits(5ul);
  bitset<70> wide;
  wide.set(69).set(32).set(0);
  complex<double> z(1.5, -2);
  complex<float> w(0.25f);
  auto_ptr<string> owner(new string("owned")), nothing;
  runtime_error failure("no such file");
  const exception &base = failure;
  bad_alloc silent;
  stop();
  //> continue
  //> output bits
  //= std::bitset<10> 0000000101
  //> output wide
  //= std::bitset<70> 1000000000000000000000000000000000000100000000000000000000000000000001
  //> set print elements 8
  //> output wide
  //= std::bitset<70> 10000000...
  //> set print elements 200
  //> output z
  //= (1.5,-2)
  //> output w
  //= (0.25,0)
  //> output nothing
  //= std::auto_ptr = {get() = 0x0}
  //> output *owner._object_
  //= "owned"
  //> output failure
  //= std::runtime_error = {message = "no such file"}
  //> output *&base
  //= std::exception = {message = "no such file"}
  //> output silent
  //= std::bad_alloc
}

int main() {
  strings();
  sequences();
  trees();
  values();
}
