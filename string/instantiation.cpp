// string, whole, for programs compiled without inlining, and its two static members.

#include <string>

template class std::basic_string<char, std::char_traits<char>, std::allocator<char>>;
