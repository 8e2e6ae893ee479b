// The untyped tree core on nodes made by hand: every operation that the typed trees and the library's other users call,
// checked by the validator after each step; and the validator itself, by trees broken on purpose.
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
  _node *nth(int n) {
    _node *at = leftmost;
    while (n-- > 0) at = __next(at);
    return at;
  }
  int valid() const { return validate_tree(*this, in_order()); }
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

void check_ascending() {
  int_tree tree;
  CHECK_INT(tree.valid(), 0);
  for (int i = 1; i <= 7; ++i) {
    rb_tree_node_base *n = tree.insert(i);
    CHECK_INT(value_of(n), i);
    CHECK_INT(tree.valid(), 0);
    CHECK_INT(value_of(tree.leftmost), 1);
    CHECK_INT(value_of(tree.rightmost), i);
    CHECK(tree.header->left == n);
    CHECK_INT(tree.header->parent->color, rb_black);
  }
  CHECK_INT(tree.node_count, 7);
  CHECK_INT(tree.__count(tree.leftmost, tree.header), 7);
  CHECK_INT(tree.__count(tree.header, tree.header), 0);
  CHECK_INT(tree.__count(tree.nth(2), tree.nth(5)), 3);
}

void check_one_node() {
  int_tree tree;
  rb_tree_node_base *only = tree.insert(5);
  CHECK(rb_tree_base::__prev(tree.header) == only);
  CHECK(rb_tree_base::__next(only) == tree.header);
  CHECK(tree.leftmost == only && tree.rightmost == only && tree.header->parent == only);
  tree.__erase(only);
  CHECK(!tree.header->parent && !tree.header->left && !tree.header->right);
  CHECK(tree.leftmost == tree.header && tree.rightmost == tree.header);
  CHECK_INT(tree.node_count, 0);
}

// Every node of trees of every small size: ends, inner nodes with two children, the root.
void check_erase_each() {
  for (int size = 1; size <= 24; ++size)
    for (int n = 0; n < size; ++n) {
      int_tree tree;
      tree.insert_up_to(size);
      rb_tree_node_base *others[24];
      for (int i = 0; i < size; ++i) others[i] = tree.nth(i);
      tree.__erase(others[n]);
      CHECK_INT(tree.valid(), 0);
      CHECK_INT(tree.node_count, size - 1);
      // All other nodes are where they were in the order, with their values.
      int seen = 0;
      for (rb_tree_node_base *at = tree.leftmost; at != tree.header; at = rb_tree_base::__next(at), ++seen) {
        const int i = seen < n ? seen : seen + 1;
        CHECK(at == others[i] && value_of(at) == i + 1);
      }
    }
}

void check_erase_ranges() {
  for (int size = 0; size <= 12; ++size)
    for (int first = 0; first <= size; ++first)
      for (int last = first; last <= size; ++last) {
        int_tree tree;
        tree.insert_up_to(size);
        CHECK_INT(tree.__erase(tree.nth(first), tree.nth(last)), last - first);
        CHECK_INT(tree.valid(), 0);
        CHECK_INT(tree.node_count, size - (last - first));
      }
}

void check_clear() {
  int_tree tree;
  tree.__clear();
  CHECK_INT(tree.valid(), 0);
  tree.insert_up_to(100);
  rb_tree_node_base *header = tree.header;
  const int before = live_nodes;
  tree.__clear();
  CHECK_INT(live_nodes, before - 100);
  CHECK(tree.header == header);
  CHECK_INT(tree.valid(), 0);
  tree.insert(1);
  CHECK_INT(tree.valid(), 0);
}

bool same_shape(const rb_tree_node_base *a, const rb_tree_node_base *b) {
  if (!a || !b) return a == b;
  return a != b && a->color == b->color && value_of(a) == value_of(b) && same_shape(a->left, b->left) &&
         same_shape(a->right, b->right);
}

void check_copy() {
  for (int size = 0; size < 40; ++size) {
    int_tree from, to;
    for (int i = 0; i < size; ++i) from.insert(i * 7 % 40);
    to.node_count = 99;  // the count comes from the source, of an empty tree too
    to.__copy(from, value_offset);
    CHECK_INT(to.node_count, size);
    CHECK_INT(to.valid(), 0);
    CHECK_INT(from.valid(), 0);
    CHECK(same_shape(from.header->parent, to.header->parent));
  }
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

void check_random() {
  unsigned int random = 12345;
  for (int run = 0; run < 20; ++run) {
    int_tree tree;
    int present[64] = {0};
    for (int step = 0; step < 1500; ++step) {
      random = random * 1103515245u + 12345u;
      const int value = random >> 16 & 63;
      const bool grow = (random >> 24 & 15) < static_cast<unsigned int>(step / 100 % 2 ? 11 : 5);
      if (grow) {
        tree.insert(value);
        ++present[value];
      } else if (present[value]) {
        rb_tree_node_base *at = tree.leftmost;
        while (value_of(at) != value) at = rb_tree_base::__next(at);
        tree.__erase(at);
        --present[value];
      }
      const int broken = tree.valid();
      if (broken) return CHECK_INT(broken, 0);
    }
    const rb_tree_node_base *at = tree.leftmost;
    for (int value = 0; value < 64; ++value)
      for (int i = 0; i < present[value]; ++i, at = rb_tree_base::__next(at)) CHECK_INT(value_of(at), value);
    CHECK(at == tree.header);
  }
}

// Each rule, broken by one wrong field.
void check_validator() {
  int_tree tree;
  tree.insert_up_to(10);
  rb_tree_node_base *root = tree.header->parent;
  rb_tree_node_base *leaf = tree.rightmost;
  CHECK_INT(tree.valid(), 0);

#define CHECK_BREAKS(type, field, wrong, rule) \
  {                                            \
    type const right = field;                  \
    field = wrong;                             \
    CHECK_INT(tree.valid(), rule);             \
    field = right;                             \
  }
  CHECK_BREAKS(rb_tree_base::_node *, tree.header->right, root, rule_1_header_right_is_null)
  CHECK_BREAKS(rb_tree_base::_node *, root->parent, leaf, rule_2_root_hangs_below_header)
  CHECK_BREAKS(rb_tree_base::_node *, tree.header->left, root, rule_3_header_left_is_last)
  CHECK_BREAKS(rb_tree_base::_node *, tree.leftmost, root, rule_4_leftmost_is_first)
  CHECK_BREAKS(rb_tree_base::_node *, tree.rightmost, root, rule_5_rightmost_is_last)
  CHECK_BREAKS(rb_tree_base::_node *, leaf->parent, root, rule_6_children_know_parent)
  CHECK_BREAKS(unsigned char, root->color, rb_red, rule_7_colours)
  CHECK_BREAKS(unsigned char, leaf->color, 2, rule_7_colours)
  CHECK_BREAKS(unsigned char, tree.leftmost->color, rb_red, rule_8_black_height)
  CHECK_BREAKS(unsigned int, tree.node_count, 11, rule_9_count)
  CHECK_BREAKS(int, static_cast<int_node *>(root)->value, 100, rule_10_order)
  CHECK_INT(tree.valid(), 0);
}

}  // namespace

int main() {
  check_slots();
  check_ascending();
  check_one_node();
  check_erase_each();
  check_erase_ranges();
  check_clear();
  check_copy();
  check_interrupted_copy();
  check_long_chains();
  check_random();
  check_validator();
  CHECK_INT(live_nodes, 0);
  return TEST_RESULT();
}
