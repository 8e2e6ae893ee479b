// All that is left in a buffer, for ranges of istreambuf_iterator: into a string, or into another buffer. Characters
// that lie ready go at once, and others by the calls that the iterators would make.

#include <string.h>

#include <plx/streambuf/streambuf_iterators.h>
#include <plx/string/basic_string.h>

#include "windows.h"

namespace __zor {

void _append_rest(std::string &text, std::streambuf &from, int c) {
  for (; c != EOF; c = from.sgetc()) {
    get_window window;
    if (open_get_window(&from, window) && !is_endless(window)) {
      text.append(window.at, window.end - window.at);
      window.take_up_to(window.end);
    } else {
      text.push_back(static_cast<char>(c));
      from.sbumpc();
    }
  }
}

namespace {

// A piece that both sides can move without a call.
bool move_piece(std::streambuf *to, std::streambuf &from) {
  get_window source;
  put_window room;
  if (to == &from || !open_get_window(&from, source) || is_endless(source)) return false;
  if (!to) {
    source.take_up_to(source.end);
    return true;
  }
  if (!open_put_window(to, 1, room)) return false;
  const int ready = source.end - source.at, place = room.end - room.at, n = ready < place ? ready : place;
  memmove(room.at, source.at, n);
  source.take_up_to(source.at + n);
  room.filled_up_to(room.at + n);
  return true;
}

}  // namespace

bool _copy_rest(std::streambuf *to, std::streambuf &from, int c) {
  for (; c != EOF; c = from.sgetc()) {
    if (move_piece(to, from)) continue;
    if (to && to->sputc(static_cast<char>(c)) == EOF) to = nullptr;
    from.sbumpc();
  }
  return to;
}

}  // namespace __zor
