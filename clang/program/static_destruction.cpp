// Static objects of C++ go to the same list as those of generated code, so that all die in one order.

#include <stdlib.h>

#include <plx/runtime.h>

namespace {

// Records are carved from blocks; the first serves most programs without the heap.
struct a_block {
  a_needed_destruction records[64];
};

a_needed_destruction *new_record() {
  static a_block first_block;
  static a_needed_destruction *next_record = first_block.records;
  static a_needed_destruction *end = first_block.records + 64;
  if (next_record == end) {
    a_block *block = static_cast<a_block *>(calloc(1, sizeof(a_block)));
    if (!block) return nullptr;
    next_record = block->records;
    end = block->records + 64;
  }
  return next_record++;
}

}  // namespace

// Returns 0, or -1 when there is no memory.
extern "C" __attribute__((__visibility__("hidden"))) int __zor_destroy_at_exit(void (*destructor)(void *),
                                                                               void *object) {
  a_needed_destruction *record = new_record();
  if (!record) return -1;
  record->object = object;
  record->destructor = reinterpret_cast<a_destructor>(destructor);
  __record_needed_destruction(record);
  return 0;
}

// Objects of each thread: there is one thread, so they die with the static ones.
extern "C" __attribute__((__visibility__("hidden"))) int __cxa_thread_atexit(void (*destructor)(void *), void *object,
                                                                             void *) {
  return __zor_destroy_at_exit(destructor, object);
}
