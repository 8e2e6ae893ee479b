// The slow side of the node pool: fills an empty free list with a batch of blocks that lie side by side.

#include <plx/containers/node_pool.h>

#include "../libC/pool.h"

namespace __zor {

_node_pool_state _node_pool;

namespace {

constexpr unsigned batch_bytes = 1024;

chunk_source chunks = {2048, nullptr, 0};

void put(void *block, unsigned bytes) {
  _free_node *node = static_cast<_free_node *>(block);
  _free_node *&head = _node_pool.free[bytes / _node_step];
  node->_next = head;
  head = node;
}

// What is left of the old chunk goes into the list of its size, or is cut until it fits one.
void give_rest() {
  constexpr unsigned most = _largest_pooled_node;
  while (chunks.fresh_bytes >= _node_step) {
    const unsigned bytes = chunks.fresh_bytes < most ? chunks.fresh_bytes : most;
    put(chunks.carve(bytes), bytes);
  }
}

}  // namespace

void *_take_fresh_node(unsigned bytes) {
  if (!blocks_are_pooled() || bytes > _largest_pooled_node) return operator new(bytes);
  _node_pool._pooled = true;

  bytes = (bytes + _node_step - 1) & ~(_node_step - 1u);
  if (chunks.fresh_bytes < bytes) {
    char *chunk = chunks.new_chunk(bytes);
    give_rest();
    chunks.begin(chunk);
  }
  // The lowest is handed out, the others are linked so that they are taken upward.
  unsigned count = batch_bytes / bytes;
  if (count > chunks.fresh_bytes / bytes) count = chunks.fresh_bytes / bytes;
  if (count == 0) count = 1;
  char *first = static_cast<char *>(chunks.carve(count * bytes));
  for (unsigned i = count; i-- > 1;) put(first + i * bytes, bytes);
  return first;
}

}  // namespace __zor
