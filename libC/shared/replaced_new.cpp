// In the shared object: both names are resolved as the program resolves them; the library's own lie between its first
// and its last byte.

#include "../replaced_new.h"

#include <new>

// Set by the linker.
extern "C" PLX_HIDDEN const char __ehdr_start[], _end[];

namespace __zor {
namespace {

bool is_ours(size_t function) {
  return function - reinterpret_cast<size_t>(__ehdr_start) < static_cast<size_t>(_end - __ehdr_start);
}

}  // namespace

bool finds_replaced_new() {
  void *(*allocate)(size_t) = operator new;
  void (*deallocate)(void *) PLX_NOTHROW = operator delete;
  return !is_ours(reinterpret_cast<size_t>(allocate)) || !is_ours(reinterpret_cast<size_t>(deallocate));
}

bool finds_replaced_array_new() {
  void *(*allocate)(size_t) = operator new[];
  void (*deallocate)(void *) PLX_NOTHROW = operator delete[];
  return !is_ours(reinterpret_cast<size_t>(allocate)) || !is_ours(reinterpret_cast<size_t>(deallocate));
}

}  // namespace __zor
