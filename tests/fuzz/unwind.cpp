// Damaged unwind and exception tables: the input is an object in memory that begins with its index (.eh_frame_hdr),
// with .eh_frame and exception tables behind it. Whatever it says, reading ends, and touches nothing but the object and
// the stack of the frame.
// test-variants: -O1 -std=gnu++17
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

// A program has no way to these; so here they are once more, under another name.
#define __zor fuzzed
#include "../../unwind/exception_table.cpp"
#include "../../unwind/expression.cpp"
#include "../../unwind/frame_rules.cpp"
#include "../../unwind/frame_table.cpp"
#undef __zor

using namespace fuzzed;

extern const char *const fuzz_words[];
const char *const fuzz_words[] = {
    "\x01\x1b\x03;", "zPLR",         "zR",           "S",        "\x7c\x08\x01",         "\xff\xff\xff\xff",
    "\x9b",          "\x0c\x04\x04", "\x40",         "\x80\x01", "\x0f\x03\x75\x70\x06", "\x2e\x10",
    "\x0a",          "\x0b",         "\x01\x01\x01", 0};

static void read_exception_table(const a_frame_entry &entry, const an_object &object, unsigned address) {
  an_exception_table table(object.range, reinterpret_cast<const byte *>(entry.exception_table), entry.start);
  if (table.is_damaged()) return;
  const a_call_site site = table.find_call_site(address);
  if (table.is_damaged() || !table.check_actions(site.action)) return;
  // As a throw does with what passed: it checks no more.
  for (const byte *at = site.action; at;) {
    const int filter = table.next_action(at);
    if (filter > 0) table.type(static_cast<unsigned>(filter));
    if (filter >= 0) continue;
    a_byte_reader list(table.range(), table.allowed_types(filter));
    while (unsigned index = list.uleb()) table.type(index);
  }
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  // A block of its own, so that a step too far is seen.
  byte *const bytes = static_cast<byte *>(malloc(size ? size : 1));
  if (size) memcpy(bytes, data, size);
  const an_object object = {{bytes, bytes + size}, bytes, 0};
  for (unsigned at = 12; at + 8 <= size && at < 12 + 16 * 8; at += 8) {
    unsigned function;
    memcpy(&function, bytes + at, sizeof function);
    const unsigned address = reinterpret_cast<unsigned>(bytes) + function;
    a_frame_entry entry;
    if (find_frame_entry(object, address, entry) != a_lookup::found) continue;
    for (unsigned distance = 0; distance < 40 && distance < entry.end - entry.start; distance += 1 + distance / 3) {
      a_frame_rules rules;
      if (entry.exception_table) read_exception_table(entry, object, entry.start + distance);
      if (!find_rules(object, entry, entry.start + distance, rules)) continue;
      // The last words of the stack, which no function of ours has.
      const unsigned stack = reinterpret_cast<unsigned>(__libc_stack_end) - 64;
      a_machine_frame frame = {{1, ~0u, stack + 8, stack + 60, stack, stack + 16, 0x80000000u, stack + 4}, address};
      unsigned cfa;
      if (find_cfa(rules, frame, cfa)) step_by_rules(rules, cfa, frame);
    }
  }
  free(bytes);
  return 0;
}
