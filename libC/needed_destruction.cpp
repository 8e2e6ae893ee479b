// Static objects to be destroyed at exit, newest first, interleaved with functions registered through the library's
// own atexit.

#include <stdlib.h>

#include "above.h"
#include "eh_tools.h"

using namespace __zor;

namespace __zor {

a_needed_destruction *needed_destruction_head = &oldest_needed_destruction;

}  // namespace __zor

namespace {

// Unlinks first: the record may be registered again, or be gone, once it has run.
void run(a_needed_destruction **link) {
  a_needed_destruction *record = *link;
  *link = record->next;
  record->next = nullptr;
  void *object = record->object;
  a_destructor destructor = record->destructor;
  if (!object) {
    if (destructor) reinterpret_cast<a_routine>(destructor)();
  } else if (!destructor) {
    free(record);
    reinterpret_cast<a_routine>(object)();
  } else {
    destructor(object, 2);
  }
}

bool lies_in(const void *address, const void *start, unsigned int size) {
  return static_cast<size_t>(static_cast<const char *>(address) - static_cast<const char *>(start)) < size;
}

// What a destructor throws cannot be reported to anyone.
template <class Body> void run_or_terminate(Body body) {
  eh_try(&eh_catch_all, body, [](void *) { __call_terminate(); });
}

}  // namespace

void __record_needed_destruction(a_needed_destruction *record) {
  if (record->next) __already_marked_for_destruction();
  record->next = needed_destruction_head;
  needed_destruction_head = record;
}

int __zor_std_atexit(void (*function)()) {
  auto *record = static_cast<a_needed_destruction *>(malloc(sizeof(a_needed_destruction)));
  if (!record) return -1;
  *record = {nullptr, reinterpret_cast<void *>(function), nullptr};
  __record_needed_destruction(record);
  return 0;
}

void __process_needed_destructions() {
  run_or_terminate([] {
    while (needed_destruction_head != PLX_END_OF_DESTRUCTIONS) run(&needed_destruction_head);
  });
}

void __std__needed_destruction_list() { __process_needed_destructions(); }

void __process_shared_object_destruction(const void *start1, unsigned int size1, const void *start2,
                                         unsigned int size2) {
  run_or_terminate([=] {
    a_needed_destruction **link = &needed_destruction_head;
    while (*link != PLX_END_OF_DESTRUCTIONS) {
      const a_needed_destruction *record = *link;
      const void *destructor = reinterpret_cast<const void *>(record->destructor);
      if (lies_in(record, start2, size2) || lies_in(record->object, start2, size2) ||
          lies_in(destructor, start2, size2) || lies_in(destructor, start1, size1) ||
          lies_in(record->object, start1, size1)) {
        run(link);
        // The list may have changed.
        link = &needed_destruction_head;
      } else {
        link = &(*link)->next;
      }
    }
  });
}

void __already_marked_for_destruction() { abort(); }
