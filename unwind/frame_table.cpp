// Finding and reading the entries of unwind tables. The layout is that of the Linux Standard Base: DWARF's .debug_frame
// with encoded pointers and an augmentation text.

#include "frame_table.h"

namespace __zor {
namespace {

struct a_common_part {
  unsigned code_alignment;
  int data_alignment;
  unsigned return_column;
  unsigned personality;
  byte code_encoding, table_encoding;
  bool has_augmentation, is_signal_frame;
  const byte *instructions, *end;
};

// The length of an entry and the reader behind it; 0 ends the table, and so does what does not fit into the object.
unsigned entry_length(a_byte_reader &reader) {
  const unsigned length = reader.u32();
  // A 64-bit length is nothing that a 32-bit object has.
  if (length == 0xFFFFFFFF) reader.fail();
  return reader.failed() ? 0 : length;
}

bool read_common_part(const an_object &object, const byte *at, a_common_part &common) {
  a_byte_reader header(object.range, at);
  const unsigned length = entry_length(header);
  if (length == 0 || !object.range.holds(header.at(), length)) return false;
  const a_range entry = {object.range.start, header.at() + length};
  a_byte_reader reader(entry, header.at());
  if (reader.u32() != 0) return false;
  const unsigned version = reader.u8();
  if (version != 1 && version != 3) return false;
  const char *augmentation = reader.text();
  common = {};
  common.code_alignment = reader.uleb();
  common.data_alignment = reader.sleb();
  common.return_column = version == 1 ? reader.u8() : reader.uleb();
  common.table_encoding = pointer_omitted;
  common.instructions = reader.at();
  common.end = entry.end;
  if (*augmentation == 'z') {
    const unsigned size = reader.uleb();
    common.has_augmentation = true;
    common.instructions = at_distance(reader.at(), size);
    if (!entry.holds(reader.at(), size)) return false;
    while (*++augmentation) {
      // Indirect pointers lead anywhere in the object.
      a_byte_reader field(object.range, reader.at());
      switch (*augmentation) {
        case 'R': common.code_encoding = field.u8(); break;
        case 'L': common.table_encoding = field.u8(); break;
        case 'P': {
          const unsigned encoding = field.u8();
          common.personality = field.pointer(encoding);
          break;
        }
        case 'S': common.is_signal_frame = true; break;
        case 'B': break;
        default: return false;
      }
      if (field.failed()) return false;
      reader.skip(field.at() - reader.at());
    }
  } else if (*augmentation) {
    return false;
  }
  return !reader.failed() && common.instructions <= common.end;
}

// Reads the entry at `at`; returns whether it is one, whatever address it is for.
bool read_entry(const an_object &object, const byte *at, a_frame_entry &entry) {
  a_byte_reader header(object.range, at);
  const unsigned length = entry_length(header);
  if (length == 0 || !object.range.holds(header.at(), length)) return false;
  const byte *end = header.at() + length;
  a_byte_reader reader({object.range.start, end}, header.at());
  const byte *place = reader.at();
  const unsigned distance = reader.u32();
  a_common_part common;
  if (distance == 0 || distance > static_cast<unsigned>(place - object.range.start) ||
      !read_common_part(object, place - distance, common))
    return false;
  entry.start = reader.pointer(common.code_encoding);
  entry.end = entry.start + reader.pointer(common.code_encoding & pointer_format);
  entry.exception_table = 0;
  if (common.has_augmentation) {
    const unsigned size = reader.uleb();
    const byte *instructions = at_distance(reader.at(), size);
    a_byte_reader field(object.range, reader.at());
    entry.exception_table = field.pointer(common.table_encoding, entry.start);
    if (field.failed()) return false;
    reader.skip(size);
    if (reader.at() != instructions) return false;
  }
  entry.code_alignment = common.code_alignment;
  entry.data_alignment = common.data_alignment;
  entry.return_column = common.return_column;
  entry.personality = common.personality;
  entry.is_signal_frame = common.is_signal_frame;
  entry.common_instructions = {common.instructions, common.end};
  entry.instructions = {reader.at(), end};
  return !reader.failed();
}

// All entries in turn, for an index without a table.
a_lookup find_by_scan(const an_object &object, const byte *table, unsigned address, a_frame_entry &entry) {
  for (;;) {
    a_byte_reader reader(object.range, table);
    const unsigned length = entry_length(reader);
    if (reader.failed() || !object.range.holds(reader.at(), length)) return a_lookup::damaged;
    if (length == 0) return a_lookup::absent;
    const byte *next = reader.at() + length;
    if (reader.u32() != 0) {
      if (!read_entry(object, table, entry)) return a_lookup::damaged;
      if (address - entry.start < entry.end - entry.start) return a_lookup::found;
    }
    table = next;
  }
}

}  // namespace

a_lookup find_frame_entry(const an_object &object, unsigned address, a_frame_entry &entry) {
  if (!object.index) return a_lookup::absent;
  const unsigned base = reinterpret_cast<unsigned>(object.index);
  a_byte_reader reader(object.range, object.index);
  if (reader.u8() != 1) return a_lookup::damaged;
  const unsigned table_encoding = reader.u8(), count_encoding = reader.u8(), index_encoding = reader.u8();
  const unsigned table = reader.pointer(table_encoding, base);
  const unsigned count = reader.pointer(count_encoding, base);
  if (reader.failed()) return a_lookup::damaged;
  if (count_encoding == pointer_omitted || index_encoding != (pointer_to_data | pointer_sdata4))
    return find_by_scan(object, reinterpret_cast<const byte *>(table), address, entry);

  struct __attribute__((__packed__)) an_index_entry {  // a damaged one lies anywhere
    unsigned function, entry;  // relative to the index
  };
  const auto *first = reinterpret_cast<const an_index_entry *>(reader.at());
  if (count > 0x8000000 || !object.range.holds(first, count * sizeof *first)) return a_lookup::damaged;
  // The last function that does not begin behind the address.
  unsigned low = 0, high = count;
  while (low < high) {
    const unsigned middle = (low + high) / 2;
    if (static_cast<int>(first[middle].function + base - address) <= 0)
      low = middle + 1;
    else
      high = middle;
  }
  if (low == 0) return a_lookup::absent;
  if (!read_entry(object, reinterpret_cast<const byte *>(first[low - 1].entry + base), entry)) return a_lookup::damaged;
  return address - entry.start < entry.end - entry.start ? a_lookup::found : a_lookup::absent;
}

}  // namespace __zor
