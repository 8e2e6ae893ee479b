// Static objects of C++ go to the same list as those of generated code, so that all die in one order: at exit, or when
// the shared object is unloaded that they belong to (unwind/start.cpp).

#include <stdlib.h>

#include <plx/base/config.h>
#include <plx/runtime.h>

namespace {

// Records are carved from blocks, each twice as long as the one before; the first serves most programs without the
// heap. A record that has run is free again, which its link says.
struct a_block {
  a_block *older;
  unsigned count;
  a_needed_destruction records[1];
};

const unsigned first_count = 64;

struct a_first_block {
  a_block block;
  a_needed_destruction others[first_count - 1];
};

a_first_block first_block = {{nullptr, first_count, {}}, {}};
a_block *newest_block = &first_block.block;
a_needed_destruction *next_record = first_block.block.records;

a_needed_destruction *new_record() {
  if (next_record == newest_block->records + newest_block->count) {
    // Objects that were unloaded leave room behind, in this order or none.
    for (a_block *block = newest_block; block; block = block->older)
      for (unsigned i = 0; i < block->count; ++i)
        if (!block->records[i].next) return &block->records[i];
    const unsigned count = 2 * newest_block->count;
    auto *block = static_cast<a_block *>(calloc(1, sizeof(a_block) + (count - 1) * sizeof(a_needed_destruction)));
    if (!block) return nullptr;
    block->older = newest_block;
    block->count = count;
    newest_block = block;
    next_record = block->records;
  }
  return next_record++;
}

}  // namespace

extern "C" {

// Returns 0, or -1 when there is no memory.
PLX_API int __zor_destroy_at_exit(void (*destructor)(void *), void *object) {
  a_needed_destruction *record = new_record();
  if (!record) return -1;
  record->object = object;
  record->destructor = reinterpret_cast<a_destructor>(reinterpret_cast<a_routine>(destructor));
  __record_needed_destruction(record);
  return 0;
}

// Objects of each thread: there is one thread, so they die with the static ones.
PLX_API int __cxa_thread_atexit(void (*destructor)(void *), void *object, void *) {
  return __zor_destroy_at_exit(destructor, object);
}

}  // extern "C"
