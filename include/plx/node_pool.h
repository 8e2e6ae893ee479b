// Blocks for container nodes: free lists by size, filled from chunks of operator new that are kept for good. Taking and
// giving back a block are a few instructions of the program's own. When the program replaced operator new or operator
// delete the lists stay empty and every block goes through its versions.
#ifndef PLX_NODE_POOL_H
#define PLX_NODE_POOL_H

#include <plx/allocator.h>
#include <plx/type_properties.h>

namespace __zor {

enum { node_step = 8, largest_pooled_node = 512 };

struct free_node {
  free_node *next;
} __attribute__((__may_alias__));

// `free[k]` holds blocks of k steps. `pooled` is not set before the first block was taken, nor when nothing is pooled.
struct node_pool_state {
  free_node *free[largest_pooled_node / node_step + 1];
  unsigned int pooled;
};

extern PLX_API node_pool_state node_pool;

// The list of this size is empty, or the size is not pooled. Throws bad_alloc.
PLX_API __attribute__((__regparm__(1))) void *take_fresh_node(unsigned int bytes);

template <unsigned int bytes> inline void *take_node() {
  if (bytes > largest_pooled_node) return ::operator new(bytes);
  free_node *&head = node_pool.free[(bytes + node_step - 1) / node_step % (largest_pooled_node / node_step + 1)];
  free_node *node = head;
  if (__builtin_expect(node == 0, 0)) return take_fresh_node(bytes);
  head = node->next;
  return node;
}

template <unsigned int bytes> inline void give_node(void *block) PLX_NOTHROW {
  if (bytes > largest_pooled_node || __builtin_expect(!node_pool.pooled, 0)) {
    ::operator delete(block);
    return;
  }
  free_node *&head = node_pool.free[(bytes + node_step - 1) / node_step % (largest_pooled_node / node_step + 1)];
  free_node *node = static_cast<free_node *>(block);
  node->next = head;
  head = node;
}

// A chain of blocks that are linked by their first words, from first to last, at once. Only while node_pool.pooled.
template <unsigned int bytes> inline void give_nodes(void *first, void *last) PLX_NOTHROW {
  free_node *&head = node_pool.free[(bytes + node_step - 1) / node_step % (largest_pooled_node / node_step + 1)];
  static_cast<free_node *>(last)->next = head;
  head = static_cast<free_node *>(first);
}

// How a container with the allocator A gets room for `count` objects of type Node in one piece: from the pool with the
// standard allocator, from the allocator as rebound to Node with any other. A pool block is aligned for 8 bytes.
template <class Node, class A, unsigned int count = 1> struct node_source {
  typedef typename A::template rebind<Node>::other allocator;
  static const bool pooled = false;
  static Node *take(const A &a) {
    allocator rebound(a);
    return static_cast<Node *>(rebound.allocate(count));
  }
  static void give(const A &a, Node *node) PLX_NOTHROW {
    allocator rebound(a);
    rebound.deallocate(node, count);
  }
  static bool give_chain(const A &, Node *, Node *) PLX_NOTHROW { return false; }
};

template <class Node, unsigned int count> struct standard_node_source {
  static const unsigned int bytes = count * sizeof(Node);
  static const bool pooled = __alignof__(Node) <= node_step;
  template <class A> static Node *take(const A &) {
    return static_cast<Node *>(pooled ? take_node<bytes>() : ::operator new(bytes));
  }
  template <class A> static void give(const A &, Node *node) PLX_NOTHROW {
    if (pooled)
      give_node<bytes>(node);
    else
      ::operator delete(node);
  }
  // Nodes chained by their first words. False: each must be given by itself.
  template <class A> static bool give_chain(const A &, Node *first, Node *last) PLX_NOTHROW {
    if (!pooled || bytes > largest_pooled_node || !node_pool.pooled) return false;
    give_nodes<bytes>(first, last);
    return true;
  }
};

template <class Node, class T, unsigned int count> struct node_source<Node, std::allocator<T>, count>
    : public standard_node_source<Node, count> {};

}  // namespace __zor

#endif
