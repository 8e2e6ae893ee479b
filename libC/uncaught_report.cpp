// The last words about an uncaught exception. Written past stdio's buffers, in one call, without the heap: the program
// may be dying of exhausted memory.

#include "uncaught_report.h"

#include <stdio.h>
#include <unistd.h>

#include "foreign.h"
#include "throw_stack.h"

namespace __zor {
namespace {

void type_name(a_throw_stack_entry *thrown, char *text, size_t size) {
  const a_type_info_impl *native = state_of(thrown).native;
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
  if (state_of(thrown).native) foreign_describe(state_of(thrown).native, &type, &flags);
  return flags & PLX_TYPE_POINTER ? nullptr : message_of(thrown->object, type);
}

}  // namespace

void report_uncaught_exception() {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && !thrown->thrown) thrown = thrown->next;
  char line[1024];
  int length = 0;
  if (thrown) {
    char name[512];
    type_name(thrown, name, sizeof name);
    const char *text = thrown->destroyed ? nullptr : message(thrown);
    length = snprintf(line, sizeof line, "plx: uncaught exception of type %s%s%s\n", name, text ? ": " : "",
                      text ? text : "");
  } else if (terminate_called) {
    length = snprintf(line, sizeof line, "plx: throw without an exception being handled\n");
  }
  if (length >= static_cast<int>(sizeof line)) {
    length = sizeof line;
    line[sizeof line - 1] = '\n';
  }
  if (length > 0 && write(STDERR_FILENO, line, length) < 0) return;
}

}  // namespace __zor
