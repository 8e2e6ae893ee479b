// Cleanup of a function's objects by its region table: from a region along the chain of next regions to another.

#include "eh_state.h"

namespace {

using a_deallocation = void (*)(void *);
using a_sized_deallocation = void (*)(void *, size_t);
using an_array_deletion = void (*)(void *, unsigned int, unsigned int, a_destructor, int, int);

bool is_live(const a_region_record *record, void **addresses) {
  if (!(record->flags & PLX_REGION_CONDITIONAL)) return true;
  // The record that follows only carries the slot of the flag variable.
  return *static_cast<const int *>(addresses[record[1].object_index]) != 0;
}

void clean_up(const a_region_record *record, void **addresses, const an_array_record *arrays) {
  const an_array_record *array = record->flags & PLX_REGION_ARRAY ? &arrays[record->object_index] : nullptr;
  void *object = addresses[array ? array->object_index : record->object_index];
  if (record->flags & PLX_REGION_INDIRECT) object = *static_cast<void **>(object);

  if (record->flags & PLX_REGION_CLEAR) {
    *static_cast<void **>(object) = nullptr;
  } else if (record->flags & PLX_REGION_DEALLOCATE) {
    if (!object) return;
    if (array)
      reinterpret_cast<a_sized_deallocation>(record->routine)(object, array->size);
    else
      reinterpret_cast<a_deallocation>(record->routine)(object);
  } else if (array) {
    // The contract passes six arguments here; __vec_delete takes five and leaves the last alone.
    reinterpret_cast<an_array_deletion>(reinterpret_cast<a_routine>(__vec_delete))(
        object, array->count, array->size, reinterpret_cast<a_destructor>(record->routine), 0, 0);
  } else {
    reinterpret_cast<a_destructor>(record->routine)(object, record->flags & PLX_REGION_SUBOBJECT ? 0 : 2);
  }
}

}  // namespace

void __zor::clean_up_regions(an_eh_stack_entry *entry, unsigned short from, unsigned short to) {
  const auto &function = entry->body.function;
  for (unsigned short region = from; region != to;) {
    const a_region_record *record = &function.region_table[region];
    if (is_live(record, function.object_addresses)) clean_up(record, function.object_addresses, function.array_table);
    region = record->next_region;
  }
}
