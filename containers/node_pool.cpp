// The slow side of the node pool: finds out once whether the program brought its own operator new, and fills an empty
// free list with a batch of blocks that lie side by side.

#include <plx/containers/node_pool.h>

#include <stdint.h>

#include "../libC/replaced_new.h"
#include "../libC/sanitizer.h"

namespace __zor {

node_pool_state node_pool;

namespace {

constexpr unsigned first_chunk = 2048;
constexpr unsigned largest_chunk = 65536;
constexpr unsigned batch_bytes = 1024;

bool asked;
char *fresh;  // the part of the last chunk that was never handed out
unsigned fresh_bytes;
unsigned next_chunk = first_chunk;

void put(void *block, unsigned bytes) {
  free_node *node = static_cast<free_node *>(block);
  free_node *&head = node_pool.free[bytes / node_step];
  node->next = head;
  head = node;
}

// What is left of the old chunk goes into the list of its size, or is cut until it fits one.
void give_rest() {
  constexpr unsigned most = largest_pooled_node;
  while (fresh_bytes >= node_step) {
    const unsigned bytes = fresh_bytes < most ? fresh_bytes : most;
    put(fresh, bytes);
    fresh += bytes;
    fresh_bytes -= bytes;
  }
}

void get_chunk() {
  char *chunk = static_cast<char *>(operator new(next_chunk));
  give_rest();
  fresh = chunk;
  fresh_bytes = next_chunk;
  if (next_chunk < largest_chunk) next_chunk *= 2;
}

}  // namespace

void *take_fresh_node(unsigned bytes) {
  if (!asked) {
    // Under the address sanitizer each node is a block of its own, so that it is watched.
    node_pool._pooled = !PLX_ADDRESS_SANITIZER && !operator_new_is_replaced();
    asked = true;
  }
  if (!node_pool._pooled || bytes > largest_pooled_node) return operator new(bytes);

  bytes = (bytes + node_step - 1) & ~(node_step - 1u);
  if (fresh_bytes < bytes) get_chunk();
  // The lowest is handed out, the others are linked so that they are taken upward.
  unsigned count = batch_bytes / bytes;
  if (count > fresh_bytes / bytes) count = fresh_bytes / bytes;
  char *first = fresh;
  for (unsigned i = count; i-- > 1;) put(first + i * bytes, bytes);
  if (count == 0) count = 1;
  fresh += count * bytes;
  fresh_bytes -= count * bytes;
  return first;
}

}  // namespace __zor
