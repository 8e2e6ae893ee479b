// A string of all that is left in a buffer, for ranges of istreambuf_iterator: a buffer's get area at once, where it
// has one, and otherwise by the calls that the iterator would make.

#include <plx/basic_string.h>
#include <plx/streambuf_iterators.h>

#include "windows.h"

namespace __zor {

void _append_rest(std::string &text, std::streambuf &from, int c) {
  for (; c != EOF; c = from.sgetc()) {
    get_window window;
    if (open_get_window(&from, window)) {
      text.append(window.at, window.end - window.at);
      window.take_up_to(window.end);
    } else {
      text.push_back(static_cast<char>(c));
      from.sbumpc();
    }
  }
}

}  // namespace __zor
