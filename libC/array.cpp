// Arrays of class objects for generated code: allocation with a cookie, construction, destruction, and the cleanup of
// both through a kind-4 entry when an element throws.
//
//   block -> | total bytes | ~count | element 0 | element 1 | ...
//                                     ^ the array's address

#include <stdlib.h>

#include "eh_state.h"

// operator new[] by its symbol. Under its own name compilers take it for granted that it never returns null, which the
// program's version may do all the same.
extern "C" void *allocate_array(size_t bytes) __asm__("_Znaj");

namespace {

using an_allocation = void *(*)(size_t);
using a_deallocation = void (*)(void *);
using a_sized_deallocation = void (*)(void *, size_t);
using a_whole_array_routine = void (*)(void *, unsigned int);

char *element(void *array, unsigned int index, unsigned int size) { return static_cast<char *>(array) + index * size; }

an_array_cookie *cookie_of(void *array) { return static_cast<an_array_cookie *>(array) - 1; }

void write_cookie(void *array, unsigned int count, unsigned int size) { *cookie_of(array) = {count * size, ~count}; }

// The count in the cookie; aborts when there is none.
unsigned int read_count(void *array, unsigned int size) {
  const an_array_cookie *cookie = cookie_of(array);
  const unsigned int count = ~cookie->inverted_count;
  if (size == 0 || cookie->total != count * size) _array_pointer_not_from_vec_new();
  return cookie->total / size;
}

void add_vec_new_or_delete_eh_stack_entry(an_eh_stack_entry *entry, an_array_alloc_eh_info *info, int is_construction) {
  *info = {};
  info->is_construction = is_construction;
  entry->kind = PLX_EH_ARRAY;
  entry->body.array.info = info;
  entry->next = __curr_eh_stack_entry;
  __curr_eh_stack_entry = entry;
}

void unlink(an_eh_stack_entry *entry) { __curr_eh_stack_entry = entry->next; }

void free_array(void *array, unsigned int bytes, a_routine deallocation, int sized) {
  void *block = cookie_of(array);
  if (!deallocation)
    operator delete[](block);
  else if (sized)
    reinterpret_cast<a_sized_deallocation>(deallocation)(block, bytes + sizeof(an_array_cookie));
  else
    reinterpret_cast<a_deallocation>(deallocation)(block);
}

// A size that no allocation function can serve, for a product that does not fit.
size_t block_size(unsigned int count, unsigned int size) {
  unsigned int total;
  if (__builtin_mul_overflow(count, size, &total) ||
      __builtin_add_overflow(total, static_cast<unsigned int>(sizeof(an_array_cookie)), &total))
    return static_cast<size_t>(-1);
  return total;
}

struct a_construction {
  void *array;
  unsigned int count;
  unsigned int size;
  a_constructor constructor;
  a_copy_constructor copy_constructor;
  const void *source;
  a_destructor destructor;
  a_routine allocation;
  a_routine deallocation;
  int sized;
  bool cookie_in_place;
};

void *array_new_general(const a_construction &how) {
  void *array = how.array;
  const bool allocated = !array;
  if (allocated) {
    const size_t bytes = block_size(how.count, how.size);
    void *block = how.allocation ? reinterpret_cast<an_allocation>(how.allocation)(bytes) : allocate_array(bytes);
    if (!block) return nullptr;
    array = static_cast<an_array_cookie *>(block) + 1;
  }
  if (allocated || how.cookie_in_place) write_cookie(array, how.count, how.size);

  an_eh_stack_entry entry;
  an_array_alloc_eh_info info;
  const bool needs_cleanup = allocated || how.destructor;
  if (needs_cleanup) {
    add_vec_new_or_delete_eh_stack_entry(&entry, &info, 1);
    info.array = array;
    info.count = how.count;
    info.size = how.size;
    info.free_memory = allocated;
    info.destructor = how.destructor;
    info.deallocation = how.deallocation;
    info.sized_deallocation = how.sized;
  }
  if ((how.constructor || how.copy_constructor) && static_cast<int>(how.count) >= 1) {
    for (unsigned int i = 0; i < how.count; ++i) {
      if (how.copy_constructor)
        how.copy_constructor(element(array, i, how.size), element(const_cast<void *>(how.source), i, how.size));
      else
        how.constructor(element(array, i, how.size), 0, 0, 0, 0, 0, 0, 0, 0);
      // `info` is read by unwinding only, which the compiler cannot see past the indirect call; it has its address.
      if (how.destructor) ++info.progress;
    }
  }
  if (needs_cleanup) unlink(&entry);
  return array;
}

void array_delete_general(void *array, unsigned int count, unsigned int size, a_destructor destructor, int free_memory,
                          a_routine deallocation, int sized) {
  if (!array) return;
  an_eh_stack_entry entry;
  an_array_alloc_eh_info info;
  add_vec_new_or_delete_eh_stack_entry(&entry, &info, 0);
  info.array = array;
  info.count = count;
  info.size = size;
  info.free_memory = free_memory;
  info.destructor = destructor;
  info.deallocation = deallocation;
  info.sized_deallocation = sized;
  unsigned int total = 0;
  if (count == PLX_COUNT_FROM_COOKIE) {
    info.count = count = read_count(array, size);
    total = cookie_of(array)->total;
  }
  if (destructor) {
    for (unsigned int i = count; i-- > 0;) {
      ++info.progress;
      destructor(element(array, i, size), 2);
    }
  }
  unlink(&entry);
  if (free_memory) free_array(array, total, deallocation, sized);
}

// One call for a whole array; memory that is this call's to free is freed when it throws.
void call_for_whole_array(void *array, unsigned int count, unsigned int size, a_routine routine, bool free_memory) {
  an_eh_stack_entry entry;
  an_array_alloc_eh_info info;
  add_vec_new_or_delete_eh_stack_entry(&entry, &info, 1);
  info.array = array;
  info.count = count;
  info.size = size;
  info.free_memory = free_memory;
  reinterpret_cast<a_whole_array_routine>(routine)(array, count);
  unlink(&entry);
}

}  // namespace

unsigned int __array_new_prefix_size = sizeof(an_array_cookie);

void __cleanup_vec_new_or_delete(an_eh_stack_entry *entry) {
  const an_array_alloc_eh_info *info = entry->body.array.info;
  const unsigned int left = info->is_construction ? info->progress : info->count - info->progress;
  if (info->destructor)
    for (unsigned int i = left; i-- > 0;) info->destructor(element(info->array, i, info->size), 2);
  if (info->free_memory) free_array(info->array, info->size * left, info->deallocation, info->sized_deallocation);
}

void *__vec_new(void *array, unsigned int count, unsigned int size, a_constructor constructor) {
  return array_new_general({array, count, size, constructor, nullptr, nullptr, nullptr, nullptr, nullptr, 0, false});
}

void *__vec_new_eh(void *array, unsigned int count, unsigned int size, a_constructor constructor,
                   a_destructor destructor) {
  return array_new_general({array, count, size, constructor, nullptr, nullptr, destructor, nullptr, nullptr, 0, false});
}

void *__vec_cctor(void *array, unsigned int count, unsigned int size, a_copy_constructor constructor,
                  const void *source) {
  return array_new_general({array, count, size, nullptr, constructor, source, nullptr, nullptr, nullptr, 0, false});
}

void *__vec_cctor_eh(void *array, unsigned int count, unsigned int size, a_copy_constructor constructor,
                     const void *source, a_destructor destructor) {
  return array_new_general({array, count, size, nullptr, constructor, source, destructor, nullptr, nullptr, 0, false});
}

void *__array_new(unsigned int count, unsigned int size, a_constructor constructor, a_destructor destructor,
                  a_routine allocation, a_routine deallocation, int sized) {
  return array_new_general(
      {nullptr, count, size, constructor, nullptr, nullptr, destructor, allocation, deallocation, sized, false});
}

void *__placement_array_new(void *array, unsigned int count, unsigned int size, a_constructor constructor,
                            a_destructor destructor) {
  return array_new_general({array, count, size, constructor, nullptr, nullptr, destructor, nullptr, nullptr, 0, true});
}

void __vec_delete(void *array, unsigned int count, unsigned int size, a_destructor destructor, int free_memory) {
  array_delete_general(array, count, size, destructor, free_memory, nullptr, 0);
}

void __array_delete(void *array, unsigned int count, unsigned int size, a_destructor destructor, a_routine deallocation,
                    int sized) {
  array_delete_general(array, count, size, destructor, 1, deallocation, sized);
}

void *__zor_fast_vec_new(void *array, unsigned int count, unsigned int size, a_routine initialiser) {
  void *result = __vec_new(array, count, size, nullptr);
  if (result && initialiser) call_for_whole_array(result, count, size, initialiser, !array);
  return result;
}

void __zor_fast_vec_delete(void *array, unsigned int count, unsigned int size, a_routine finaliser, int free_memory) {
  if (!array) return;
  const unsigned int elements = count == PLX_COUNT_FROM_COOKIE ? read_count(array, size) : count;
  if (finaliser) call_for_whole_array(array, elements, size, finaliser, free_memory);
  __vec_delete(array, count, size, nullptr, free_memory);
}

void _array_pointer_not_from_vec_new() { abort(); }
