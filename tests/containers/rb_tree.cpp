// The untyped tree core, which serves compiled programs as it stands: random operations on nodes made by hand, also
// copies that end half-way, against a model; and the order of its virtual functions.
#include <algorithm>
#include <vector>

#include "containers/tree_rules.h"
#include "harness.h"
#include "random.h"

using namespace __zor;

struct out_of_nodes {};
struct int_node : rb_tree_node_base {
  int value;
};
static int value_of(const rb_tree_node_base *n) { return static_cast<const int_node *>(n)->value; }

static int live_nodes;
static int nodes_to_fail;  // counts down; 0: none

// Public doors to what the core expects of a typed tree.
class int_tree : public rb_tree_base {
public:
  int_tree() { __initialize(); }
  ~int_tree() { __destroy(); }

  virtual void destroy_node(_node *n) { --live_nodes, free(n); }
  virtual _node *create_node(const void *value) {
    if (nodes_to_fail != 0 && --nodes_to_fail == 0) throw out_of_nodes();
    int_node *made = static_cast<int_node *>(malloc(sizeof(int_node)));
    memset(made, 0x5A, sizeof *made);  // whatever the core does not set shows
    if (value) made->value = *static_cast<const int *>(value);
    ++live_nodes;
    return made;
  }
  // Part of the contract: destroy_node is the first of the virtual functions, create_node the second.
  void insert(int value) {
    typedef _node *(*maker)(int_tree *, const void *);
    _node *parent = header, *right_of = 0;
    for (_node *at = header->parent; at; at = right_of ? at->right : at->left)
      parent = at, right_of = value < value_of(at) ? 0 : at;
    _node *const made = reinterpret_cast<maker>((*reinterpret_cast<void ***>(this))[1])(this, &value);
    CHECK(__finish_insert(made, parent, right_of) == made);
  }
  _node *place(unsigned n) {
    _node *at = leftmost;
    while (n-- != 0) at = __next(at);
    return at;
  }
  bool holds(const std::vector<int> &values) const {
    const _node *at = header->parent ? leftmost : header;
    for (unsigned i = 0; i < values.size() && at != header; ++i, at = __next(at))
      if (value_of(at) != values[i]) return false;
    return at == header && node_count == values.size() && tree_rules(*this).hold();
  }
};

// Where the n-th node cannot be made, the rest hangs below the header, and nothing is lost.
static void copy(const int_tree &from, int n, const std::vector<int> &values) {
  int_tree to;
  const int before = live_nodes;
  nodes_to_fail = n;
  try {
    to.__copy(from, sizeof(rb_tree_node_base));
    CHECK(to.holds(values));
  } catch (const out_of_nodes &) { CHECK(live_nodes == before + n - 1 && n <= static_cast<int>(from.node_count)); }
  nodes_to_fail = 0;
  to.__clear();
  CHECK(live_nodes == before && to.holds(std::vector<int>()));
}

int main() {
  {
    int_tree tree;
    std::vector<int> model;
    for (int i = 0; i < 6000; ++i) {
      const unsigned size = tree.node_count, kind = random_below(size > 60 ? 8 : 20);
      const unsigned first = random_below(size + 1), last = first + random_below((size - first) / 3 + 1);
      rb_tree_node_base *const from = tree.place(first), *const to = tree.place(last);
      if (kind == 0 && random_below(9) == 0) {
        tree.__clear(), model.clear();
      } else if (kind < 3) {
        CHECK(tree.__count(from, to) == last - first && tree.__erase(from, to) == last - first);
        model.erase(model.begin() + first, model.begin() + last);
      } else if (kind < 8) {
        if (first != size) tree.__erase(from), model.erase(model.begin() + first);
      } else if (kind == 8) {
        copy(tree, static_cast<int>(first) + 1, model);
      } else {
        const int value = static_cast<int>(random_below(50));
        tree.insert(value), model.insert(std::upper_bound(model.begin(), model.end(), value), value);
      }
      CHECK(tree.holds(model));
    }
  }
  CHECK_INT(live_nodes, 0);
  return TEST_RESULT();
}
