// Reading exception tables.

#include "exception_table.h"

namespace __zor {
namespace {

const unsigned most_actions = 100000;  // longer chains lead in a circle

unsigned size_of_type(unsigned encoding) {
  switch (encoding & pointer_format) {
    case pointer_udata2:
    case pointer_sdata2: return 2;
    case pointer_udata8:
    case pointer_sdata8: return 8;
    default: return 4;
  }
}

}  // namespace

an_exception_table::an_exception_table(const a_range &range, const byte *table, unsigned function)
    : range_(range), function_(function), landing_base_(function), types_(nullptr) {
  a_byte_reader reader(range, table);
  const unsigned base_encoding = reader.u8();
  if (base_encoding != pointer_omitted) landing_base_ = reader.pointer(base_encoding, function);
  type_encoding_ = reader.u8();
  if (type_encoding_ != pointer_omitted) {
    const unsigned offset = reader.uleb();
    types_ = at_distance(reader.at(), offset);
    if (!range.holds(reader.at(), offset)) reader.fail();
  }
  call_site_encoding_ = reader.u8();
  const unsigned length = reader.uleb();
  call_sites_ = reader.at();
  actions_ = at_distance(call_sites_, length);
  if (!range.holds(call_sites_, length)) reader.fail();
  damaged_ = reader.failed();
}

a_call_site an_exception_table::find_call_site(unsigned address) {
  a_byte_reader reader({range_.start, actions_}, call_sites_);
  while (!reader.at_end()) {
    const unsigned start = function_ + reader.pointer(call_site_encoding_);
    const unsigned length = reader.pointer(call_site_encoding_);
    const unsigned landing_pad = reader.pointer(call_site_encoding_);
    const unsigned action = reader.uleb();
    if (reader.failed() || address < start) break;
    if (address - start < length)
      return {true, landing_pad ? landing_base_ + landing_pad : 0,
              action ? at_distance(actions_, action - 1) : nullptr};
  }
  if (reader.failed()) damaged_ = true;
  return {false, 0, nullptr};
}

int an_exception_table::next_action(const byte *&at) const {
  a_byte_reader reader(range_, at);
  const int filter = reader.sleb();
  const byte *place = reader.at();
  const int displacement = reader.sleb();
  at = displacement ? at_distance(place, static_cast<unsigned>(displacement)) : nullptr;
  return filter;
}

bool an_exception_table::read_type(unsigned index, unsigned &type) const {
  const unsigned size = size_of_type(type_encoding_);
  if (!types_ || index > distance_between(range_.start, types_) / size) return false;
  a_byte_reader reader(range_, types_ - index * size);
  type = reader.pointer(type_encoding_, function_);
  return !reader.failed();
}

const void *an_exception_table::type(unsigned index) const {
  unsigned type = 0;
  read_type(index, type);
  return reinterpret_cast<const void *>(type);
}

bool an_exception_table::check_actions(const byte *action) const {
  for (unsigned steps = 0; action; ++steps) {
    if (steps == most_actions) return false;
    a_byte_reader reader(range_, action);
    const int filter = reader.sleb();
    const byte *place = reader.at();
    const int displacement = reader.sleb();
    if (reader.failed()) return false;
    unsigned type;
    if (filter > 0 && !read_type(static_cast<unsigned>(filter), type)) return false;
    if (filter < 0) {
      if (!types_) return false;
      a_byte_reader list(range_, allowed_types(filter));
      while (unsigned index = list.uleb())
        if (!read_type(index, type)) return false;
      if (list.failed()) return false;
    }
    action = displacement ? at_distance(place, static_cast<unsigned>(displacement)) : nullptr;
  }
  return true;
}

}  // namespace __zor
