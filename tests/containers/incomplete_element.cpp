// Classes that hold containers of themselves: trees are often written so, and the element is incomplete where the
// container becomes a member. Builds against the host's library too.
// test-variants: -std=gnu++98 | -std=gnu++17
#include <deque>
#include <list>
#include <map>
#include <string>
#include <vector>

#include "harness.h"

struct folder {
  explicit folder(int n = 0) : size(n) {}
  int size;
  std::vector<folder> in_vector;
  std::list<folder> in_list;
  std::deque<folder> in_deque;
  std::map<std::string, folder> in_map;
  std::vector<folder>::iterator chosen;
};

static int total(const folder &f) {
  int sum = f.size;
  for (unsigned i = 0; i < f.in_vector.size(); ++i) sum += total(f.in_vector[i]);
  for (std::list<folder>::const_iterator i = f.in_list.begin(); i != f.in_list.end(); ++i) sum += total(*i);
  for (unsigned i = 0; i < f.in_deque.size(); ++i) sum += total(f.in_deque[i]);
  for (std::map<std::string, folder>::const_iterator i = f.in_map.begin(); i != f.in_map.end(); ++i)
    sum += total(i->second);
  return sum;
}

int main() {
  folder root(1);
  for (int i = 0; i < 20; ++i) {
    root.in_vector.push_back(folder(10));
    root.in_vector.back().in_list.push_back(folder(100));
    root.in_vector.back().in_list.front().in_deque.push_back(folder(1000));
    root.in_vector.back().in_list.front().in_deque.front().in_map["a"].in_vector.push_back(folder(10000));
  }
  CHECK_INT(total(root), 1 + 20 * 11110);
  root.in_list.push_back(root);
  CHECK_INT(total(root), 2 * (1 + 20 * 11110));
  root.in_vector.erase(root.in_vector.begin() + 1, root.in_vector.end());
  CHECK_INT(total(root), 1 + 20 * 11110 + 1 + 11110);
  return TEST_RESULT();
}
