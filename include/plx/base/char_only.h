// The refusal of character types other than char, as one readable compile-time error.
#ifndef PLX_CHAR_ONLY_H
#define PLX_CHAR_ONLY_H

namespace __zor {

// Defined for char alone; every template over a character type names `_type` of it.
template <class _Ct> struct plx_supports_only_char_as_character_type;
template <> struct plx_supports_only_char_as_character_type<char> { typedef char _type; };

// The same for a string's allocator.
template <class _A> struct plx_strings_use_only_the_standard_allocator;

}  // namespace __zor

#endif
