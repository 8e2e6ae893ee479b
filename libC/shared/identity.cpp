// The dynamic linker knows what a program or shared object exports.

#include "../identity.h"

#include <dlfcn.h>
#include <string.h>

bool __zor::are_exported_alike(const char *left, const char *right) {
  Dl_info one, other;
  return dladdr(left, &one) && dladdr(right, &other) && one.dli_saddr == left && other.dli_saddr == right &&
         strcmp(one.dli_sname, other.dli_sname) == 0;
}
