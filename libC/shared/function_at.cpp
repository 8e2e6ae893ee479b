// The dynamic linker knows what a program or shared object exports.

#include <dlfcn.h>

#include "../uncaught_report.h"

const char *__zor::function_at(unsigned address) {
  Dl_info info;
  return dladdr(reinterpret_cast<void *>(address), &info) ? info.dli_sname : nullptr;
}
