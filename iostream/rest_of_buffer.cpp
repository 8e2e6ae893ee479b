// All that is left in a buffer, for ranges of istreambuf_iterator: into a string, or into another buffer. Characters
// that lie ready go at once, and others by the calls that the iterators would make.

#include <plx/streambuf/streambuf_iterators.h>
#include <plx/string/basic_string.h>

#include "windows.h"

namespace __zor {

void _append_rest(std::string &text, std::streambuf &from, int c) {
  for (; c != EOF; c = from.sgetc()) {
    get_window window;
    if (window.open(&from) && !window.is_endless()) {
      text.append(window.at, window.end - window.at);
      window.take();
    } else {
      text.push_back(static_cast<char>(c));
      from.sbumpc();
    }
  }
}

// What is to go nowhere is passed by.
static bool pass_ready(std::streambuf &from) {
  get_window window;
  if (!window.open(&from) || window.is_endless()) return false;
  window.take();
  return true;
}

bool _copy_rest(std::streambuf *to, std::streambuf &from, int c) {
  for (; c != EOF; c = from.sgetc()) {
    if (to ? move_ready(&from, to, EOF) != 0 : pass_ready(from)) continue;
    if (to && to->sputc(static_cast<char>(c)) == EOF) to = nullptr;
    from.sbumpc();
  }
  return to;
}

}  // namespace __zor
