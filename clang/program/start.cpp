// Start-up of a C++ program. A main compiled by clang makes no start-up call, so exit-time destruction is scheduled
// here, before the first static object. The driver asks the linker for this unit by its symbol.

#include <plx/runtime.h>

extern "C" __attribute__((__visibility__("hidden"))) char __zor_program_start;
char __zor_program_start;

namespace {

__attribute__((__constructor__(101))) void schedule_destruction() { __call_ctors(); }

}  // namespace
