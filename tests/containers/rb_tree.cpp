// The untyped tree core on nodes made by hand, for what containers do not show: the order of its virtual functions, the
// shape of copies and copies that end half-way, depth; and the validator itself, by trees broken on purpose.
#include <stdlib.h>

#include "containers/rb_tree_validator.h"
#include "harness.h"

using namespace __zor;

namespace {

struct out_of_nodes {};

struct int_node : rb_tree_node_base {
  int value;
};

struct in_order {
  bool operator()(const rb_tree_node_base *a, const rb_tree_node_base *b) const {
    return static_cast<const int_node *>(a)->value <= static_cast<const int_node *>(b)->value;
  }
};

const unsigned int value_offset = sizeof(rb_tree_node_base);
int live_nodes;
int nodes_to_fail;  // counts down; 0: none

// Public doors to what the core expects of a typed tree.
class int_tree : public rb_tree_base {
public:
  int_tree() { __initialize(); }
  ~int_tree() { __destroy(); }

  virtual void destroy_node(_node *n) {
    --live_nodes;
    free(n);
  }
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
      const bool left = value < static_cast<int_node *>(at)->value;
      right_of = left ? 0 : at;
      at = left ? at->left : at->right;
    }
    return __finish_insert(create_node(&value), parent, right_of);
  }
  void insert_up_to(int last) {
    for (int i = 1; i <= last; ++i) insert(i);
  }
  int valid() const { return tree_validator<in_order>(*this, in_order()).run(); }
};

int value_of(const rb_tree_node_base *n) { return static_cast<const int_node *>(n)->value; }

void check_slots() {
  // The order of the virtual functions is part of the contract: destroy_node, create_node.
  int_tree tree;
  typedef rb_tree_node_base *(*create)(int_tree *, const void *);
  typedef void (*destroy)(int_tree *, rb_tree_node_base *);
  void **slots = *reinterpret_cast<void ***>(&tree);
  const int value = 77;
  rb_tree_node_base *made = reinterpret_cast<create>(slots[1])(&tree, &value);
  CHECK_INT(value_of(made), 77);
  const int before = live_nodes;
  reinterpret_cast<destroy>(slots[0])(&tree, made);
  CHECK_INT(live_nodes, before - 1);
}

bool same_shape(const rb_tree_node_base *a, const rb_tree_node_base *b) {
  if (!a || !b) return a == b;
  return a != b && a->color == b->color && value_of(a) == value_of(b) && same_shape(a->left, b->left) &&
         same_shape(a->right, b->right);
}

// Where the n-th node cannot be made, the rest hangs below the header with true links, and nothing is lost.
void check_interrupted_copy() {
  for (int size = 1; size < 30; ++size)
    for (int n = 1; n <= size; ++n) {
      int_tree from, to;
      for (int i = 0; i < size; ++i) from.insert(i * 11 % 30);
      const int before = live_nodes;
      bool failed = false;
      nodes_to_fail = n;
      try {
        to.__copy(from, value_offset);
      } catch (const out_of_nodes &) {
        failed = true;
      }
      nodes_to_fail = 0;
      CHECK(failed);
      CHECK_INT(live_nodes, before + n - 1);
      int linked = 0;
      const rb_tree_node_base *parent = to.header;
      for (const rb_tree_node_base *at = to.header->parent; at; parent = at, at = at->left) {
        CHECK(at->parent == parent);
        ++linked;
      }
      CHECK(linked <= n - 1);
      to.__clear();
      CHECK_INT(live_nodes, before);
      CHECK_INT(to.valid(), 0);
      to.node_count = 99;  // the count comes from the source
      to.__copy(from, value_offset);
      CHECK(to.node_count == unsigned(size) && to.valid() == 0 && same_shape(from.header->parent, to.header->parent));
    }
}

// The worst that links can do to recursion: a chain to the right, and one to the left, of more nodes than a stack has
// room for calls.
void check_long_chains() {
  for (int side = 0; side < 2; ++side) {
    int_tree tree;
    const int length = 300000;
    rb_tree_node_base *last = tree.header;
    for (int i = 0; i < length; ++i) {
      rb_tree_node_base *n = tree.create_node(&i);
      n->left = n->right = 0;
      n->parent = last;
      (last == tree.header ? last->parent : side ? last->right : last->left) = n;
      last = n;
    }
    tree.node_count = length;
    const int before = live_nodes;
    tree.__clear();
    CHECK_INT(live_nodes, before - length);
  }
}

// Each rule, broken by one wrong field.
void check_validator() {
  int_tree tree;
  tree.insert_up_to(10);
  rb_tree_node_base *root = tree.header->parent;
  rb_tree_node_base *leaf = tree.rightmost;
  CHECK_INT(tree.valid(), 0);

  rb_tree_node_base *wrong[] = {root, leaf, root, root, root, root}, *right;
  rb_tree_node_base **links[] = {&tree.header->right, &root->parent,   &tree.header->left,
                                 &tree.leftmost,      &tree.rightmost, &leaf->parent};
  for (int i = 0; i < 6; ++i) {
    right = *links[i];
    *links[i] = wrong[i];
    CHECK_INT(tree.valid(), rule_1_header_right_is_null + i);
    *links[i] = right;
  }
  unsigned char *const colours[] = {&root->color, &leaf->color, &tree.leftmost->color};
  for (int i = 0; i < 3; ++i) {
    const unsigned char kept = *colours[i];
    *colours[i] = i == 1 ? 2 : _rb_red;
    CHECK_INT(tree.valid(), i == 2 ? rule_8_black_height : rule_7_colours);
    *colours[i] = kept;
  }
  ++tree.node_count;
  CHECK_INT(tree.valid(), rule_9_count);
  --tree.node_count;
  static_cast<int_node *>(root)->value += 100;
  CHECK_INT(tree.valid(), rule_10_order);
  static_cast<int_node *>(root)->value -= 100;
  CHECK_INT(tree.valid(), 0);
}

}  // namespace

int main() {
  check_slots();
  check_interrupted_copy();
  check_long_chains();
  check_validator();
  CHECK_INT(live_nodes, 0);
  return TEST_RESULT();
}
