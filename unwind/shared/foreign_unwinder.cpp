// In the shared object: the unwinder is asked by name, in the object that called.

#include "../foreign_unwinder.h"

#include <dlfcn.h>
#include <link.h>

#include "../frame_table.h"

namespace __zor {
namespace {

a_foreign_unwinder unwinder;
void *unwinder_map;  // of the object that it is in

template <class Function> bool look_up(void *object, const char *name, Function &function) {
  function = reinterpret_cast<Function>(dlsym(object, name));
  return function;
}

bool look_up_all(void *object) {
  return look_up(object, "_Unwind_GetIP", unwinder.get_ip) && look_up(object, "_Unwind_GetCFA", unwinder.get_cfa) &&
         look_up(object, "_Unwind_SetIP", unwinder.set_ip) && look_up(object, "_Unwind_SetGR", unwinder.set_gr) &&
         look_up(object, "_Unwind_Resume", unwinder.resume);
}

}  // namespace

const a_foreign_unwinder *find_foreign_unwinder(const void *caller) {
  an_object object;
  if (!find_object(reinterpret_cast<unsigned>(caller), object)) return nullptr;
  if (object.map == unwinder_map) return &unwinder;
  // The object's entry in the dynamic linker's list is no handle until somebody opened the object. It stays open.
  void *handle = dlopen(static_cast<const link_map *>(object.map)->l_name, RTLD_LAZY | RTLD_NOLOAD);
  if (!handle || !look_up_all(handle)) return nullptr;
  unwinder_map = object.map;
  return &unwinder;
}

void (*foreign_resume())(void *) {
  if (!unwinder.resume)
    if (void *object = dlopen("libgcc_s.so.1", RTLD_LAZY | RTLD_NOLOAD)) look_up_all(object);
  return unwinder.resume;
}

}  // namespace __zor
