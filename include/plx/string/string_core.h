// The untyped core under basic_string: the shared representation and the operations on it, out of line in the library.
// The class template is a thin shell over these functions; programs do not call them.
//
//     string      string                 count      2, or `unshareable`
//     +-----+     +-----+                data  ------------+
//     | rep | --> | rep | --> b_str_ref: length     5      v
//     +-----+     +-----+                capacity  32     "hello\0....." room bytes, usually in the same block
//                                        room      36
//
// `_capacity` follows from the lengths asked for alone, in steps of 32; `_room` is what the block really holds, and
// grows geometrically, so that appending is linear in all.
#ifndef PLX_STRING_CORE_H
#define PLX_STRING_CORE_H

#include <plx/base/allocator.h>

namespace __zor {

struct PLX_API b_str_ref {
  std::allocator<char> allocator;
  unsigned int count;  // strings that share this representation, or 0xFFFFFFFF
  char *data;          // the characters, and a null character after them
  unsigned int length;
  unsigned int capacity;  // a multiple of 32; length <= capacity
  unsigned int _room;     // bytes at `data`; capacity < room
  unsigned int _block;    // bytes of the block that starts here, and a flag of the library's in bit 0
};

typedef char _b_str_ref_layout[sizeof(b_str_ref) == 28 ? 1 : -1];

const unsigned int _string_npos = 0xFFFFFFFFu;

// A reference into the characters may be in use: copies are deep until the next modifier.
inline bool _string_is_unshareable(const b_str_ref *_rep) PLX_NOTHROW { return _rep->count == 0xFFFFFFFFu; }

// One owner, or unshareable: counts 1 and 0xFFFFFFFF.
inline bool _string_is_private(const b_str_ref *_rep) PLX_NOTHROW { return _rep->count + 1u <= 2u; }

// Raises the capacity to what n characters need, if the block already has the room.
inline bool _string_widen(b_str_ref *_rep, unsigned int _n) PLX_NOTHROW {
  const unsigned int _capacity = (_n & ~31u) + 32u;
  if (_capacity >= _rep->_room) return false;
  _rep->capacity = _capacity;
  return true;
}

// New representations with one owner. A null `_text` gives null characters. The length npos is out of range.
PLX_API PLX_REGPARM b_str_ref *_string_make(const char *_text, unsigned int _n);
PLX_API PLX_REGPARM b_str_ref *_string_make_filled(unsigned int _n, char _c);
PLX_API PLX_REGPARM b_str_ref *_string_join(const char *_left, unsigned int _left_n, const char *_right,
                                            unsigned int _right_n);
PLX_API PLX_REGPARM b_str_ref *_string_part(b_str_ref *_rep, unsigned int _pos,
                                            unsigned int _n);  // shares where it can

// Points `_nullbuf` at the representation that empty strings share. It is static: an empty string cannot fail.
PLX_API PLX_REGPARM void _string_make_null(b_str_ref *&_nullbuf) PLX_NOTHROW;

// Frees a representation that lost its last owner.
PLX_API PLX_REGPARM void _string_free(b_str_ref *_rep) PLX_NOTHROW;

// Makes the representation private and unshareable, because a reference into its characters is about to be handed out.
PLX_API PLX_REGPARM void _string_expose(b_str_ref *&_rep);

// The same for one character: pos may be the length, anything beyond is out of range.
PLX_API PLX_REGPARM void _string_expose_at(b_str_ref *&_rep, unsigned int _pos);

// The modifiers. They change the string that owns `_rep` alone; the source may lie in the string itself.
PLX_API PLX_REGPARM void _string_assign(b_str_ref *&_rep, const char *_text, unsigned int _n);
PLX_API PLX_REGPARM void _string_assign_filled(b_str_ref *&_rep, unsigned int _n, char _c);
PLX_API PLX_REGPARM void _string_append(b_str_ref *&_rep, const char *_text, unsigned int _n);
PLX_API PLX_REGPARM void _string_append_filled(b_str_ref *&_rep, unsigned int _n, char _c);
PLX_API PLX_REGPARM void _string_append_one(b_str_ref *&_rep, char _c);
PLX_API PLX_REGPARM void _string_insert(b_str_ref *&_rep, unsigned int _pos, const char *_text, unsigned int _n);
PLX_API PLX_REGPARM void _string_insert_filled(b_str_ref *&_rep, unsigned int _pos, unsigned int _n, char _c);
PLX_API PLX_REGPARM void _string_erase(b_str_ref *&_rep, unsigned int _pos, unsigned int _n);
PLX_API PLX_REGPARM void _string_replace(b_str_ref *&_rep, unsigned int _pos, unsigned int _n1, const char *_text,
                                         unsigned int _n2);
PLX_API PLX_REGPARM void _string_replace_filled(b_str_ref *&_rep, unsigned int _pos, unsigned int _n1, unsigned int _n2,
                                                char _c);
PLX_API PLX_REGPARM void _string_resize(b_str_ref *&_rep, unsigned int _n, char _c);
PLX_API PLX_REGPARM void _string_reserve(b_str_ref *&_rep, unsigned int _n);  // for all that share it

// Errors: out_of_range with "Out of range exception occurred", length_error with "Length exception occurred".
PLX_API void _string_out_of_range() PLX_NORETURN PLX_COLD;
PLX_API void _string_length_error() PLX_NORETURN PLX_COLD;

}  // namespace __zor

#endif
