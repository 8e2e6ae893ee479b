// The last words about an uncaught exception. Written past stdio's buffers, in one call, without the heap: the program
// may be dying of exhausted memory.

#include "uncaught_report.h"

#include <stdio.h>
#include <unistd.h>

#include "above.h"
#include "foreign.h"
#include "frames.h"
#include "throw_stack.h"

namespace __zor {
namespace {

void type_name(a_throw_stack_entry *thrown, char *text, size_t size) {
  const a_type_info_impl *native = native_type(thrown);
  if (native) {
    foreign_readable_name(native, text, size);
    return;
  }
  const bool pointer = thrown->flags & PLX_TYPE_POINTER;
  snprintf(text, size, "%s%s%s%s", thrown->type->name, pointer && (thrown->flags & PLX_TYPE_CONST) ? " const" : "",
           pointer && (thrown->flags & PLX_TYPE_VOLATILE) ? " volatile" : "", pointer ? "*" : "");
}

const char *message(a_throw_stack_entry *thrown) {
  const a_type_info_impl *type = thrown->type;
  unsigned char flags = thrown->flags;
  if (native_type(thrown)) foreign_describe(native_type(thrown), &type, &flags);
  return flags & PLX_TYPE_POINTER ? nullptr : message_of(thrown->object, type);
}

void print(char *line, size_t size, int length) {
  if (length >= static_cast<int>(size)) {
    length = size;
    line[size - 1] = '\n';
  }
  if (write(STDERR_FILENO, line, length) < 0) return;
}

}  // namespace

void report_uncaught_exception() {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && !thrown->thrown) thrown = thrown->next;
  if (!thrown) return;
  char line[1024];
  char name[512];
  type_name(thrown, name, sizeof name);
  const char *text = thrown->destroyed ? nullptr : message(thrown);
  if (text && !*text) text = nullptr;
  print(line, sizeof line,
        snprintf(line, sizeof line, "plx: uncaught exception of type %s%s%s\n", name, text ? ": " : "",
                 text ? text : ""));
  if (!address_without_table) return;
  const char *function = function_at(address_without_table - 1);
  print(line, sizeof line,
        snprintf(line, sizeof line, "plx: the search for a handler ended at 0x%x%s%s%s: no unwind table there\n",
                 address_without_table, function ? " (" : "", function ? function : "", function ? ")" : ""));
}

void report_termination(const char *reason) {
  char line[256];
  print(line, sizeof line, snprintf(line, sizeof line, "plx: terminated: %s\n", reason));
}

}  // namespace __zor
