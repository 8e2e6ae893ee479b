// string, whole, for programs compiled without inlining, and its two static members.

#define PLX_INSTANTIATES_FOR_ALL

#include <string>

template class std::basic_string<char, std::char_traits<char>, std::allocator<char>>;
