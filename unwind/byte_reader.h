// Reads the numbers of unwind and exception tables, and never beyond the bytes of the object that holds the table: a
// damaged one makes the reader fail, and what it returns from then on is 0.
#pragma once

namespace __zor {

using byte = unsigned char;

// Between addresses that need not belong to one object: compilers take differences of pointers for signed.
inline unsigned distance_between(const void *from, const void *to) {
  return reinterpret_cast<unsigned>(to) - reinterpret_cast<unsigned>(from);
}

// Bytes that may be read.
struct a_range {
  const byte *start, *end;

  bool holds(const void *address, unsigned bytes) const {
    const byte *at = static_cast<const byte *>(address);
    return at >= start && at <= end && distance_between(at, end) >= bytes;
  }
};

const a_range everywhere = {nullptr, reinterpret_cast<const byte *>(0xFFFFFFFF)};

// Tables name places by distances, and a damaged one any distance: this is the address, wherever it is.
inline const byte *at_distance(const byte *from, unsigned distance) {
  return reinterpret_cast<const byte *>(reinterpret_cast<unsigned>(from) + distance);
}

// Encodings of pointers (DW_EH_PE_...): the low four bits a format, the next three what it is relative to.
enum a_pointer_encoding : byte {
  pointer_absolute = 0x00,
  pointer_uleb = 0x01,
  pointer_udata2 = 0x02,
  pointer_udata4 = 0x03,
  pointer_udata8 = 0x04,
  pointer_sleb = 0x09,
  pointer_sdata2 = 0x0A,
  pointer_sdata4 = 0x0B,
  pointer_sdata8 = 0x0C,
  pointer_format = 0x0F,
  pointer_to_itself = 0x10,
  pointer_to_data = 0x30,
  pointer_to_function = 0x40,
  pointer_relation = 0x70,
  pointer_indirect = 0x80,
  pointer_omitted = 0xFF
};

class a_byte_reader {
public:
  a_byte_reader(const a_range &range, const byte *at) : range_(range), at_(at), failed_(at < range.start) {}

  bool failed() const { return failed_; }
  bool at_end() const { return failed_ || at_ >= range_.end; }
  const byte *at() const { return at_; }
  void fail() { failed_ = true; }
  void skip(unsigned bytes) { take(bytes); }

  unsigned u8() { return number<byte>(); }
  unsigned u16() { return number<unsigned short>(); }
  unsigned u32() { return number<unsigned>(); }
  unsigned s8() { return static_cast<unsigned>(number<signed char>()); }
  unsigned s16() { return static_cast<unsigned>(number<short>()); }

  // Seven bits a byte, the lowest first; the last byte has its top bit clear.
  unsigned uleb() {
    unsigned value;
    groups(value);
    return value;
  }
  int sleb() {
    unsigned value;
    const unsigned bits = groups(value);
    if (!failed_ && bits < 32 && (at_[-1] & 0x40)) value |= ~0u << bits;
    return static_cast<int>(value);
  }

  const char *text() {
    const byte *start = at_;
    while (u8()) continue;
    return failed_ ? "" : reinterpret_cast<const char *>(start);
  }

  // A pointer in one of the encodings. `base` serves those relative to data or to a function. 0 is 0 in each.
  unsigned pointer(unsigned encoding, unsigned base = 0) {
    if (encoding == pointer_omitted) return 0;
    const byte *place = at_;
    unsigned value = 0;
    switch (encoding & pointer_format) {
      case pointer_absolute:
      case pointer_udata4:
      case pointer_sdata4: value = u32(); break;
      case pointer_uleb: value = uleb(); break;
      case pointer_sleb: value = static_cast<unsigned>(sleb()); break;
      case pointer_udata2: value = u16(); break;
      case pointer_sdata2: value = s16(); break;
      case pointer_udata8:
      case pointer_sdata8:
        value = u32();
        u32();
        break;
      default: fail();
    }
    if (failed_ || value == 0) return 0;
    switch (encoding & pointer_relation) {
      case 0: break;
      case pointer_to_itself: value += reinterpret_cast<unsigned>(place); break;
      case pointer_to_data:
      case pointer_to_function: value += base; break;
      default: fail();
    }
    if (encoding & pointer_indirect) {
      const void *slot = reinterpret_cast<const void *>(value);
      if (!range_.holds(slot, sizeof value)) fail();
      if (failed_) return 0;
      __builtin_memcpy(&value, slot, sizeof value);
    }
    return value;
  }

private:
  bool take(unsigned bytes) {
    if (failed_ || !range_.holds(at_, bytes)) {
      failed_ = true;
      return false;
    }
    at_ += bytes;
    return true;
  }

  template <class Number> Number number() {
    if (!take(sizeof(Number))) return 0;
    Number value;
    __builtin_memcpy(&value, at_ - sizeof value, sizeof value);
    return value;
  }

  unsigned groups(unsigned &value) {
    unsigned shift = 0, next;
    value = 0;
    do {
      next = u8();
      if (shift < 32) value |= (next & 0x7F) << shift;
      shift += 7;
    } while (next & 0x80);
    return shift;
  }

  a_range range_;
  const byte *at_;
  bool failed_;
};

}  // namespace __zor
