// The typed red-black tree under map, multimap, set and multiset: nodes with values, and every decision that needs a
// comparison of keys. All else is the core's.
//
// An operation that fails leaves the tree as it was, with all iterators valid; only a range insertion keeps what went in
// before. Nothing here allocates except insertion, copying, and making a tree, which has its header from the start.
#ifndef PLX_RB_TREE_H
#define PLX_RB_TREE_H

#include <plx/node_pool.h>
#include <plx/tree_iterator.h>
#include <plx/tree_order.h>

namespace __zor {

// How values are made: by the program's allocator, or directly, which is all that the standard one does.
template <class A, class Value> struct tree_values {
  static void construct(A &a, Value *place, const Value &value) { a.construct(place, value); }
  template <class Key> static void construct_default(A &a, Value *place, const Key &key) {
    a.construct(place, Value(key, typename Value::second_type()));
  }
  static void destroy(A &a, Value *value) { a.destroy(value); }
};

template <class T, class Value> struct tree_values<std::allocator<T>, Value> {
  static void construct(std::allocator<T> &, Value *place, const Value &value) {
    ::new (static_cast<void *>(place)) Value(value);
  }
  template <class Key> static void construct_default(std::allocator<T> &, Value *place, const Key &key) {
    ::new (static_cast<void *>(place)) Value(key, typename Value::second_type());
  }
  static void destroy(std::allocator<T> &, Value *value) { value->~Value(); }
};

template <class Key, class Value, class KeyOf, class Compare, class A> class rb_tree : private rb_tree_base {
  typedef typename tree_order<Key, Compare>::type order;
  typedef typename A::template rebind<Value>::other value_allocator;

public:
  typedef tree_node<Value, typename order::digest> typed_node;
  typedef tree_iterator<typed_node, Value> iterator;
  typedef tree_iterator<typed_node, const Value> const_iterator;

  rb_tree(const Compare &compare, const A &allocator) : functions_(allocator, compare) { make_header(); }

  rb_tree(const rb_tree &other) : rb_tree_base(), functions_(other.functions_) { make_copy(other); }

  ~rb_tree() { destroy(); }

  // All or nothing, unless the comparison's own assignment fails half-way.
  rb_tree &operator=(const rb_tree &other) {
    if (this != &other) {
      rb_tree copy(other, functions_);
      functions_.compare = other.functions_.compare;
      swap_nodes(copy);
    }
    return *this;
  }

  void swap(rb_tree &other) {
    const functions mine(functions_);
    functions_ = other.functions_;
    other.functions_ = mine;
    swap_nodes(other);
  }

  iterator begin() const PLX_NOTHROW { return iterator(leftmost); }
  iterator end() const PLX_NOTHROW { return iterator(header); }
  unsigned int size() const PLX_NOTHROW { return node_count; }
  Compare key_comp() const { return functions_.compare; }
  A get_allocator() const { return A(static_cast<const value_allocator &>(functions_)); }

  // Where a key is, or would go: below `parent`, on the right if `right_of` says the same node.
  struct place {
    node *parent;
    node *right_of;
  };

  // The node with this key, or null and the place for one.
  typed_node *locate(const order &key, place &to) const { return locate(key, to, typename order::exact()); }

  // The place after all equal keys.
  void locate_behind(const order &key, place &to) const {
    node *parent = header;
    bool left = true;
    node *x = header->parent;
    if (x && goes_last(key, typename order::exact())) {
      to.parent = to.right_of = rightmost;
      return;
    }
    while (x) {
      parent = x;
      left = is_before(key, x);
      x = rb_tree_child(x, !left);
    }
    to.parent = parent;
    to.right_of = left ? 0 : parent;
  }

  // Apart from the search, which then needs no cleanup.
  __attribute__((__noinline__)) typed_node *add_default(const Key &wanted, const order &key, const place &to) {
    typed_node *const n = nodes::take(functions_);
    unfinished_node guard(*this, n);
    values::construct_default(functions_, address_of(n->value), wanted);
    guard.n = 0;
    put(n, key, to);
    return n;
  }

  // Links a node that has its value.
  iterator put(typed_node *n, const order &key, const place &to) PLX_NOTHROW {
    key.keep(*n);
    rb_tree_link(this, n, to.parent, to.right_of);
    return iterator(n);
  }

  typed_node *make_node(const Value &value) {
    typed_node *const n = nodes::take(functions_);
    unfinished_node guard(*this, n);
    values::construct(functions_, address_of(n->value), value);
    guard.n = 0;
    return n;
  }

  iterator insert_unique(const Value &value, bool &inserted) {
    const order key(KeyOf::key(value), functions_.compare);
    place to;
    node *const found = locate(key, to);
    inserted = !found;
    return found ? iterator(found) : put(make_node(value), key, to);
  }

  // The value of a key, made with a default one if there is none. Where `second` is what belongs to a key.
  Value *value_of(const Key &wanted) {
    const order key(wanted, functions_.compare);
    place to;
    typed_node *const n = locate(key, to);
    return n ? &n->value : &add_default(wanted, key, to)->value;
  }

  iterator insert_equal(const Value &value) {
    const order key(KeyOf::key(value), functions_.compare);
    place to;
    locate_behind(key, to);
    return put(make_node(value), key, to);
  }

  // Beside the hint no key is compared but those of the hint and its neighbours.
  iterator insert_unique(iterator hint, const Value &value) {
    const order key(KeyOf::key(value), functions_.compare);
    place to;
    node *const found = locate_near(hint.base(), key, to);
    return found ? iterator(found) : put(make_node(value), key, to);
  }

  iterator insert_equal(iterator hint, const Value &value) {
    const order key(KeyOf::key(value), functions_.compare);
    place to;
    locate_equal_near(hint.base(), key, to);
    return put(make_node(value), key, to);
  }

  iterator erase(iterator at) {
    node *const n = at.base();
    const iterator after(rb_tree_next(n));
    rb_tree_unlink(this, n);
    destroy_typed(n);
    return after;
  }

  unsigned int erase(iterator first, iterator last) {
    if (first == begin() && last == end()) {
      const unsigned int all = node_count;
      clear();
      return all;
    }
    unsigned int erased = 0;
    for (; first != last; ++erased) first = erase(first);
    return erased;
  }

  void clear() {
    node *const root = header->parent;
    if (!root) return;
    make_empty();
    destroy_below(root);
  }

  iterator find(const Key &key) const { return find(order(key, functions_.compare), typename order::exact()); }

  iterator lower_bound(const Key &key) const { return iterator(lower(order(key, functions_.compare))); }

  iterator upper_bound(const Key &key) const {
    const order wanted(key, functions_.compare);
    node *bound = header;
    for (node *x = header->parent; x;) {
      const bool left = is_before(wanted, x);
      bound = left ? x : bound;
      x = rb_tree_child(x, !left);
    }
    return iterator(bound);
  }

  // Where keys are unique.
  iterator upper_of_unique(iterator lower, const Key &key) const {
    if (lower != end() && !is_before(order(key, functions_.compare), lower.base())) ++lower;
    return lower;
  }

  static unsigned int count(iterator first, iterator last) PLX_NOTHROW {
    unsigned int n = 0;
    for (; first != last; ++first) ++n;
    return n;
  }

private:
  typedef node_source<typed_node, value_allocator> nodes;
  typedef tree_values<value_allocator, Value> values;

  // An allocator without state takes no room. Programs' comparisons are sometimes not const.
  struct functions : public value_allocator {
    mutable Compare compare;
    functions(const value_allocator &allocator, const Compare &c) : value_allocator(allocator), compare(c) {}
  };
  functions functions_;

  // A node without a value yet, while its value is made.
  struct unfinished_node {
    rb_tree &tree;
    typed_node *n;
    unfinished_node(rb_tree &t, typed_node *made) PLX_NOTHROW : tree(t), n(made) {}
    ~unfinished_node() {
      if (n) nodes::give(tree.functions_, n);
    }
  };

  // A tree whose constructor has not ended.
  struct unfinished {
    rb_tree *tree;
    explicit unfinished(rb_tree &t) PLX_NOTHROW : tree(&t) {}
    ~unfinished() {
      if (tree) tree->destroy();
    }
    void finish() PLX_NOTHROW { tree = 0; }
  };

  // The nodes of one tree by the allocator of another.
  rb_tree(const rb_tree &other, const value_allocator &allocator)
      : rb_tree_base(), functions_(allocator, other.functions_.compare) {
    make_copy(other);
  }

  void make_copy(const rb_tree &other) {
    make_header();
    unfinished guard(*this);
    copy_nodes(other);
    guard.finish();
  }

  static typed_node *typed(rb_tree_node_base *n) PLX_NOTHROW { return static_cast<typed_node *>(n); }
  static const Key &key_of(rb_tree_node_base *n) PLX_NOTHROW { return KeyOf::key(typed(n)->value); }
  static bool is_before(const order &key, node *n) { return key.before(*typed(n), key_of(n)); }
  static bool is_after(const order &key, node *n) { return key.after(*typed(n), key_of(n)); }

  void make_header() {
    header = nodes::take(functions_);
    header->color = rb_red;
    make_empty();
  }

  void make_empty() PLX_NOTHROW {
    node_count = 0;
    header->left = header->right = header->parent = 0;
    leftmost = rightmost = header;
  }

  void swap_nodes(rb_tree &other) PLX_NOTHROW {
    const rb_tree_base_data mine = *this;
    static_cast<rb_tree_base_data &>(*this) = other;
    static_cast<rb_tree_base_data &>(other) = mine;
  }

  // Keys often come in ascending order, and a look at the last one costs next to nothing where no function is called.
  bool goes_last(const order &key, yes) const { return !is_before(key, rightmost); }
  static bool goes_last(const order &, no) PLX_NOTHROW { return false; }

  // What compares keys itself may end as soon as they are equal.
  typed_node *locate(const order &key, place &to, yes) const {
    node *parent = header;
    bool left = true;
    node *x = header->parent;
    if (x && is_after(key, rightmost)) {
      to.parent = to.right_of = rightmost;
      return 0;
    }
    while (x) {
      parent = x;
      left = key.precedes(*typed(x), key_of(x));
      if (key.ties(*typed(x), key_of(x))) {
        const int compared = key.compare(key_of(x));
        if (compared == 0) return typed(x);
        left = compared < 0;
      }
      x = rb_tree_child(x, !left);
    }
    to.parent = parent;
    to.right_of = left ? 0 : parent;
    return 0;
  }

  // The last node where the way went right is the one before the place, and the only one that may be equal.
  typed_node *locate(const order &key, place &to, no) const {
    node *parent = header;
    node *previous = 0;
    for (node *x = header->parent; x;) {
      parent = x;
      const bool left = is_before(key, x);
      previous = left ? previous : x;
      x = rb_tree_child(x, !left);
    }
    if (previous && !is_after(key, previous)) return typed(previous);
    to.parent = parent;
    to.right_of = previous;
    return 0;
  }

  iterator find(const order &key, yes) const {
    for (node *x = header->parent; x;) {
      bool left = key.precedes(*typed(x), key_of(x));
      if (key.ties(*typed(x), key_of(x))) {
        const int compared = key.compare(key_of(x));
        if (compared == 0) return iterator(x);
        left = compared < 0;
      }
      x = rb_tree_child(x, !left);
    }
    return end();
  }

  iterator find(const order &key, no) const {
    node *const bound = lower(key);
    return bound != header && is_before(key, bound) ? end() : iterator(bound);
  }

  node *lower(const order &key) const {
    node *bound = header;
    for (node *x = header->parent; x;) {
      const bool right = is_after(key, x);
      bound = right ? bound : x;
      x = rb_tree_child(x, right);
    }
    return bound;
  }

  // Between two neighbours one has no child on the other's side.
  static void place_between(node *before, node *after, place &to) PLX_NOTHROW {
    to.parent = before->right ? after : before;
    to.right_of = before->right ? 0 : before;
  }

  typed_node *locate_near(node *hint, const order &key, place &to) const {
    if (hint == header) {
      if (node_count == 0 || !is_after(key, rightmost)) return locate(key, to);
      to.parent = to.right_of = rightmost;
      return 0;
    }
    if (is_before(key, hint)) {
      if (hint == leftmost) {
        to.parent = hint;
        to.right_of = 0;
        return 0;
      }
      node *const before = rb_tree_prev(hint);
      if (!is_after(key, before)) return locate(key, to);
      place_between(before, hint, to);
      return 0;
    }
    if (!is_after(key, hint)) return typed(hint);
    if (hint == rightmost) {
      to.parent = to.right_of = hint;
      return 0;
    }
    node *const after = rb_tree_next(hint);
    if (!is_before(key, after)) return locate(key, to);
    place_between(hint, after, to);
    return 0;
  }

  // Before the hint if the order allows it, else as near to it as the order allows.
  void locate_equal_near(node *hint, const order &key, place &to) const {
    if (hint == header) {
      if (node_count == 0 || is_before(key, rightmost)) return locate_behind(key, to);
      to.parent = to.right_of = rightmost;
      return;
    }
    if (!is_after(key, hint)) {
      if (hint == leftmost) {
        to.parent = hint;
        to.right_of = 0;
        return;
      }
      node *const before = rb_tree_prev(hint);
      if (is_before(key, before)) return locate_behind(key, to);
      return place_between(before, hint, to);
    }
    if (hint == rightmost) {
      to.parent = to.right_of = hint;
      return;
    }
    node *const after = rb_tree_next(hint);
    if (!is_after(key, after)) return place_between(hint, after, to);
    locate_in_front(key, to);
  }

  // The place before all equal keys.
  void locate_in_front(const order &key, place &to) const {
    node *parent = header;
    bool right = false;
    for (node *x = header->parent; x;) {
      parent = x;
      right = is_after(key, x);
      x = rb_tree_child(x, right);
    }
    to.parent = parent;
    to.right_of = right ? parent : 0;
  }

  // With links only to finished nodes at any time, since copying a value may throw.
  node *copy_node(const node *from, node *parent) {
    typed_node *const source = typed(const_cast<node *>(from));
    typed_node *const n = make_node(source->value);
    static_cast<typename order::digest &>(*n) = *source;
    n->left = n->right = 0;
    n->parent = parent;
    n->color = from->color;
    return n;
  }

  // Walks both trees side by side: down to the left, and to the next right subtree on the way up. That subtree is asked
  // for on the way down.
  void copy_nodes(const rb_tree &other) {
    const node *from = other.header->parent;
    if (!from) return;
    node *to = copy_node(from, header);
    header->parent = to;
    for (;;) {
      while (from->left) {
        rb_tree_prefetch(from->right, from);
        from = from->left;
        to->left = copy_node(from, to);
        to = to->left;
      }
      while (!from->right || to->right) {
        from = from->parent;
        to = to->parent;
        if (to == header) return finish_copy(other);
      }
      from = from->right;
      to->right = copy_node(from, to);
      to = to->right;
    }
  }

  void finish_copy(const rb_tree &other) PLX_NOTHROW {
    node_count = other.node_count;
    node *end = header->parent;
    while (end->left) end = end->left;
    leftmost = end;
    end = header->parent;
    while (end->right) end = end->right;
    rightmost = header->left = end;
  }

  void destroy_typed(node *n) {
    values::destroy(functions_, address_of(typed(n)->value));
    nodes::give(functions_, typed(n));
  }

  // Recursion goes into the right subtrees of nodes that have both: no deeper than the tree is high. The left ones are
  // asked for meanwhile.
  void destroy_below(node *n) {
    while (n) {
      node *const left = n->left;
      node *const right = n->right;
      rb_tree_prefetch(left, n);
      destroy_typed(n);
      if (left && right) destroy_below(right);
      n = left ? left : right;
    }
  }

  void destroy() {
    destroy_below(header->parent);
    nodes::give(functions_, typed(header));
  }

  // The core's own ways to nodes, for its operations on whole trees.
  virtual void destroy_node(node *n) {
    if (n == header)
      nodes::give(functions_, typed(n));
    else
      destroy_typed(n);
  }
  virtual node *create_node(const void *value) {
    return value ? make_node(*static_cast<const Value *>(value)) : nodes::take(functions_);
  }
};

}  // namespace __zor

#endif
