// The two ways of getline: for strings, and for arrays of n characters.
#pragma once

#include <plx/iostream/istream.h>
#include <plx/string/basic_string.h>

#define GET_LINE_CALL __attribute__((__visibility__("hidden"), __regparm__(3)))

namespace __zor {

GET_LINE_CALL std::istream &get_line(std::istream &in, std::string &text, char delim);
GET_LINE_CALL std::istream &get_line(std::istream &in, char *to, std::streamsize n, char delim);

// For processors with SSE2: a line that lies whole in the buffer's window, and has room at its destination, is taken at
// once.
GET_LINE_CALL std::istream &get_line_sse2(std::istream &in, std::string &text, char delim);
GET_LINE_CALL std::istream &get_line_sse2(std::istream &in, char *to, std::streamsize n, char delim);

}  // namespace __zor
