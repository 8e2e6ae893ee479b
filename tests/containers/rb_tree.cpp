// The untyped tree core, which serves compiled programs as it stands: random operations on nodes made by hand, also
// copies that end half-way, against the typed tree that containers have; and the order of its virtual functions.
#include <set>

#include "containers/rb_tree_validator.h"
#include "harness.h"
#include "random.h"

using namespace __zor;

namespace {

struct out_of_nodes {};
struct int_node : rb_tree_node_base {
  int value;
};
int value_of(const rb_tree_node_base *n) { return static_cast<const int_node *>(n)->value; }
bool in_order(const rb_tree_node_base *a, const rb_tree_node_base *b) { return value_of(a) <= value_of(b); }

int live_nodes;
int nodes_to_fail;  // counts down; 0: none

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
  _node *insert(int value) {
    _node *parent = header, *right_of = 0;
    for (_node *at = header->parent; at;) {
      parent = at;
      const bool left = value < value_of(at);
      right_of = left ? 0 : at;
      at = left ? at->left : at->right;
    }
    return __finish_insert(create_node(&value), parent, right_of);
  }
  _node *place(unsigned n) {
    _node *at = leftmost;
    while (n-- != 0) at = __next(at);
    return at;
  }
  int valid() const { return tree_validator<bool (*)(const _node *, const _node *)>(*this, in_order).run(); }
};

bool same_shape(const rb_tree_node_base *a, const rb_tree_node_base *b) {
  if (!a || !b) return a == b;
  return a != b && a->color == b->color && value_of(a) == value_of(b) && same_shape(a->left, b->left) &&
         same_shape(a->right, b->right);
}

// Where the n-th node cannot be made, the rest hangs below the header, and nothing is lost.
void copy(const int_tree &from, int n) {
  int_tree to;
  const int before = live_nodes;
  nodes_to_fail = n;
  try {
    to.__copy(from, sizeof(rb_tree_node_base));
    CHECK(to.valid() == 0 && same_shape(from.header->parent, to.header->parent));
  } catch (const out_of_nodes &) { CHECK(live_nodes == before + n - 1 && n <= static_cast<int>(from.node_count)); }
  nodes_to_fail = 0;
  to.__clear();
  CHECK(live_nodes == before && to.valid() == 0);
}

void random_run() {
  int_tree tree;
  std::multiset<int> model;
  for (int i = 0; i < 6000; ++i) {
    const unsigned size = tree.node_count, kind = random_below(size > 60 ? 8 : 20);
    const unsigned first = random_below(size + 1), last = first + random_below((size - first) / 3 + 1);
    rb_tree_node_base *const from = tree.place(first), *const to = tree.place(last);
    std::multiset<int>::iterator in_model = model.begin(), behind;
    std::advance(in_model, first);
    std::advance(behind = in_model, last - first);
    if (kind == 0 && random_below(9) == 0) {
      tree.__clear(), model.clear();
    } else if (kind < 3) {
      CHECK(tree.__count(from, to) == last - first && tree.__erase(from, to) == last - first);
      model.erase(in_model, behind);
    } else if (kind < 8) {
      if (first != size) tree.__erase(from), model.erase(in_model);
    } else if (kind == 8) {
      copy(tree, static_cast<int>(first) + 1);
    } else {
      const int value = static_cast<int>(random_below(50));
      CHECK(value_of(tree.insert(value)) == value), model.insert(value);
    }
    CHECK(tree.valid() == 0 && tree.node_count == model.size());
    const rb_tree_node_base *at = tree.leftmost;
    for (std::multiset<int>::iterator m = model.begin(); m != model.end(); ++m, at = int_tree::__next(at))
      CHECK_INT(value_of(at), *m);
  }
}

// Part of the contract: destroy_node, create_node.
void virtual_functions() {
  int_tree tree;
  void **const slots = *reinterpret_cast<void ***>(&tree);
  const int value = 77, before = live_nodes;
  rb_tree_node_base *made = reinterpret_cast<rb_tree_node_base *(*)(int_tree *, const void *)>(slots[1])(&tree, &value);
  CHECK(value_of(made) == 77 && live_nodes == before + 1);
  reinterpret_cast<void (*)(int_tree *, rb_tree_node_base *)>(slots[0])(&tree, made);
  CHECK_INT(live_nodes, before);
}

}  // namespace

int main() {
  virtual_functions();
  random_run();
  CHECK_INT(live_nodes, 0);
  return TEST_RESULT();
}
