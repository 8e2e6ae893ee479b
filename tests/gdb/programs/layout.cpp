// The records whose offsets gdb's commands know: each as the compiler lays it out, for tests/gdb/layout.py to compare.
#include <libC/frames.h>
#include <unwind/plan.h>

an_eh_stack_entry entry;
an_exception_type_specification clause;
a_region_record region;
an_array_record array;
an_array_alloc_eh_info info;
a_throw_stack_entry thrown;
a_needed_destruction destruction;
a_type_info_impl type;
a_base_class_spec base;
__zor::a_throw_state state;
__zor::an_exception_header header;
__zor::a_landing landing;
__zor::a_detour detour;
__zor::an_unexpected_guard guard;
__zor::a_plan plan;
__zor::private_eh_kind kind;
FILE *file = stdin;

extern "C" void stop() { __asm__ volatile(""); }

int main() { stop(); }
