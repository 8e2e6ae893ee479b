// The ordered containers with 100,000 keys in random order, and in ascending order where programs often have it so:
// insertion, search, walks, erasure, copies; and counting words. Times are for one element.
#include <map>
#include <set>
#include <string>

#include "bench.h"

namespace {

const int count = 100000;

unsigned int next_random(unsigned int &state) {
  state ^= state << 13;
  state ^= state >> 17;
  state ^= state << 5;
  return state;
}

// Distinct keys in random order, the same in every build.
struct key_list {
  int keys[count];
  key_list() {
    unsigned int state = 2463534242u;
    for (int i = 0; i < count; ++i) {
      const int other = static_cast<int>(next_random(state) % (i + 1));
      keys[i] = keys[other];
      keys[other] = 3 * i;
    }
  }
};

const int *random_keys() {
  static const key_list list;
  return list.keys;
}

typedef std::map<int, int> int_map;

void fill(int_map &to) {
  const int *keys = random_keys();
  for (int i = 0; i < count; ++i) to.insert(int_map::value_type(keys[i], i));
}

const int_map &filled() {
  static int_map all;
  if (all.empty()) fill(all);
  return all;
}

unsigned long map_insert(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    int_map made;
    fill(made);
    sum += made.size() + made.begin()->second;
  }
  return sum;
}

unsigned long map_insert_ascending(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    int_map made;
    for (int k = 0; k < count; ++k) made.insert(int_map::value_type(k, k));
    sum += made.size();
  }
  return sum;
}

unsigned long map_insert_at_end(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    int_map made;
    for (int k = 0; k < count; ++k) made.insert(made.end(), int_map::value_type(k, k));
    sum += made.size();
  }
  return sum;
}

unsigned long map_index(unsigned long iterations) {
  int_map &all = const_cast<int_map &>(filled());
  const int *keys = random_keys();
  for (unsigned long i = 0; i < iterations; ++i)
    for (int k = 0; k < count; ++k) all[keys[k]] = k;
  return all.begin()->second;
}

unsigned long map_find(unsigned long iterations) {
  const int_map &all = filled();
  const int *keys = random_keys();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i)
    for (int k = 0; k < count; ++k) sum += all.find(keys[count - 1 - k])->second;
  return sum;
}

unsigned long map_find_absent(unsigned long iterations) {
  const int_map &all = filled();
  const int *keys = random_keys();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i)
    for (int k = 0; k < count; ++k) sum += all.find(keys[k] + 1) == all.end();
  return sum;
}

unsigned long map_find_ascending(unsigned long iterations) {
  const int_map &all = filled();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i)
    for (int k = 0; k < count; ++k) sum += all.find(3 * k)->second;
  return sum;
}

unsigned long map_lower_bound(unsigned long iterations) {
  const int_map &all = filled();
  const int *keys = random_keys();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i)
    for (int k = 0; k < count; ++k) sum += all.lower_bound(keys[k] - 1)->second;
  return sum;
}

unsigned long map_iterate(unsigned long iterations) {
  const int_map &all = filled();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i)
    for (int_map::const_iterator at = all.begin(); at != all.end(); ++at) sum += at->first ^ at->second;
  return sum;
}

unsigned long map_insert_and_erase(unsigned long iterations) {
  const int *keys = random_keys();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    int_map made;
    fill(made);
    for (int k = 0; k < count; ++k) sum += made.erase(keys[(k * 7) % count]);
  }
  return sum;
}

// Erasure where the tree stays as large as it is.
unsigned long map_replace(unsigned long iterations) {
  static int_map all(filled());
  const int *keys = random_keys();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    const int added = i & 1 ? 0 : 1;
    for (int k = 0; k < count; ++k) {
      sum += all.erase(keys[k] + 1 - added);
      all.insert(int_map::value_type(keys[k] + added, k));
    }
  }
  // The next call begins where this one did.
  if (iterations & 1) {
    all.clear();
    fill(all);
  }
  return sum;
}

unsigned long set_copy(unsigned long iterations) {
  static std::set<int> all;
  if (all.empty()) all.insert(random_keys(), random_keys() + count);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::set<int> copy(all);
    BENCH_TOUCH(&copy);
    sum += *copy.begin() + copy.size();
  }
  return sum;
}

// Words of 1 to 12 letters, the short ones often.
struct word_list {
  std::string words[20000];
  word_list() {
    unsigned int state = 2463534242u;
    for (int i = 0; i < 20000; ++i) {
      const unsigned int rank = next_random(state) % (1 + next_random(state) % (1 + next_random(state) % 6000));
      unsigned int letters = rank * 2654435761u;
      const unsigned int length = 1 + rank % 4 + (rank > 50 ? letters % 9 : 0);
      char text[16];
      for (unsigned int k = 0; k < length; ++k) {
        text[k] = static_cast<char>('a' + letters % 26);
        letters = letters / 26 + rank * 31 + k;
      }
      words[i].assign(text, length);
    }
  }
};

const word_list &words() {
  static const word_list list;
  return list;
}

unsigned long word_count(unsigned long iterations) {
  const word_list &list = words();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::map<std::string, int> counts;
    for (int k = 0; k < 20000; ++k) ++counts[list.words[k]];
    sum += counts.size() + counts.begin()->second;
  }
  return sum;
}

// Keys with a long common beginning, as paths have.
unsigned long path_count(unsigned long iterations) {
  static std::string paths[20000];
  const word_list &list = words();
  if (paths[0].empty())
    for (int k = 0; k < 20000; ++k) paths[k] = "/usr/share/doc/" + list.words[k];
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::map<std::string, int> counts;
    for (int k = 0; k < 20000; ++k) ++counts[paths[k]];
    sum += counts.size() + counts.begin()->second;
  }
  return sum;
}

unsigned long small_sets(unsigned long iterations) {
  const int *keys = random_keys();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::set<int> few;
    for (int k = 0; k < 10; ++k) few.insert(keys[k]);
    sum += *few.begin() + few.count(keys[3]);
  }
  return sum;
}

unsigned long multiset_insert(unsigned long iterations) {
  const int *keys = random_keys();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::multiset<int> made;
    for (int k = 0; k < count; ++k) made.insert(keys[k] % 1000);
    sum += made.count(3) + made.size();
  }
  return sum;
}

const bench_case cases[] = {
    {"map<int, int>: insert and destroy 100,000", 1.3, count, map_insert},
    {"map<int, int>: insert in ascending order", 1.3, count, map_insert_ascending},
    {"map<int, int>: insert with end() as hint", 1.3, count, map_insert_at_end},
    {"map<int, int>: operator[]", 1.3, count, map_index},
    {"map<int, int>: find", 1.3, count, map_find},
    {"map<int, int>: find what is not there", 1.3, count, map_find_absent},
    {"map<int, int>: find in ascending order", 1.3, count, map_find_ascending},
    {"map<int, int>: lower_bound", 1.3, count, map_lower_bound},
    {"map<int, int>: iterate", 1.3, count, map_iterate},
    {"map<int, int>: insert all, erase all by key", 1.3, count, map_insert_and_erase},
    {"map<int, int>: erase one, insert one", 1.3, count, map_replace},
    {"set<int>: copy and destroy 100,000", 1.3, count, set_copy},
    {"set<int>: make, fill with 10, destroy", 1.3, 10, small_sets},
    {"multiset<int>: insert with many equal keys", 1.2, count, multiset_insert},
    {"map<string, int>: count words", 1.3, 20000, word_count},
    {"map<string, int>: count paths", 1.3, 20000, path_count},
};

}  // namespace

BENCH_MAIN(cases)
