// Writing through a codecvt facet that converts. It may make no bytes at all, or many of one character, and null
// characters are text like any other: what it made is written by length.
//
// The state of a conversion goes from write to write, and ends with the sequence that the facet's unshift makes. Few
// buffers convert, and their fields are the same for all: the states are in a list beside them.

#include "filebuf_convert.h"

#include <limits.h>
#include <stdlib.h>

#include "../libC/eh_tools.h"
#include "stdio_file.h"

namespace __zor {

namespace {

enum { first_room = 512, bytes_of_a_character = 16 };

// Converted text: on the stack as long as it is short.
class a_text {
public:
  a_text() : begin_(first_), size_(0), room_(first_room) {}
  ~a_text() {
    if (begin_ != first_) free(begin_);
  }
  a_text(const a_text &) = delete;
  a_text &operator=(const a_text &) = delete;

  char *end() { return begin_ + size_; }
  char *end_of_room() { return begin_ + room_; }
  const char *begin() const { return begin_; }
  long size() const { return size_; }
  void ends_at(const char *end) { size_ = end - begin_; }

  // Room for more bytes behind the text; false when there is no memory.
  bool make_room(long more) {
    if (room_ - size_ >= more) return true;
    if (more > LONG_MAX - size_) return false;
    char *const larger = static_cast<char *>(malloc(size_ + more));
    if (!larger) return false;
    memcpy(larger, begin_, size_);
    if (begin_ != first_) free(begin_);
    begin_ = larger;
    room_ = size_ + more;
    return true;
  }

private:
  char *begin_;
  long size_, room_;
  char first_[first_room];
};

bool append(a_text &text, const char *from, long n) {
  if (!text.make_room(n)) return false;
  memcpy(text.end(), from, n);
  text.ends_at(text.end() + n);
  return true;
}

// The whole range, in one call of the facet unless its room was too small for it.
bool convert(a_text &text, const std::codecvt<char, char, int> &facet, int &state, const char *from, const char *end) {
  long room = (end - from) < LONG_MAX / bytes_of_a_character ? (end - from) * bytes_of_a_character : end - from;
  const int largest = facet.max_length();
  if (largest > bytes_of_a_character && room < LONG_MAX / largest) room *= largest;
  for (;;) {
    if (!text.make_room(room)) return false;
    const char *next = from;
    char *to = text.end();
    switch (facet.out(state, from, end, next, to, text.end_of_room(), to)) {
      case std::codecvt_base::ok: text.ends_at(to); return true;
      case std::codecvt_base::noconv: return append(text, from, end - from);
      case std::codecvt_base::partial: break;
      default: return false;
    }
    // Without progress the input is what is incomplete.
    if (next == from && to == text.end()) return false;
    text.ends_at(to);
    from = next;
    if (room < LONG_MAX / 2) room *= 2;
  }
}

bool write_text(FILE *file, a_text &text) { return file && write_file(file, text.begin(), text.size()) == text.size(); }

}  // namespace

struct a_conversion {
  const std::filebuf *of;
  int state;
  a_conversion *next;
};
a_conversion *conversions;

namespace {

a_conversion **find(const std::filebuf &buffer) {
  a_conversion **at = &conversions;
  while (*at && (*at)->of != &buffer) at = &(*at)->next;
  return at;
}

a_conversion *find_or_make(const std::filebuf &buffer) {
  a_conversion *&at = *find(buffer);
  if (!at && (at = static_cast<a_conversion *>(malloc(sizeof(a_conversion))))) *at = {&buffer, 0, nullptr};
  return at;
}

}  // namespace

bool write_converted(std::filebuf &buffer, const std::codecvt<char, char, int> &facet, const char *from, long n) {
  const a_conversion *const before = find_or_make(buffer);
  if (!before) return false;
  eh_local<a_text> text;
  int state = before->state;
  if (!convert(*text, facet, state, from, from + n) || !write_text(_buffer_access::file(buffer), *text)) return false;
  // The facet may have closed the file.
  if (a_conversion *const conversion = *find(buffer)) conversion->state = state;
  return true;
}

bool end_conversion(std::filebuf &buffer) {
  a_conversion *&at = *find(buffer), *const ended = at;
  if (!ended) return true;
  int state = ended->state;
  at = ended->next;
  free(ended);
  const auto &facet = std::use_facet<std::codecvt<char, char, int>>(_buffer_access::loc(buffer));
  for (;;) {
    char room[64], *to = room;
    const std::codecvt_base::result result = facet.unshift(state, room, room + sizeof room, to);
    if (result == std::codecvt_base::noconv) return true;
    const long n = to - room;
    if (result == std::codecvt_base::error || write_file(_buffer_access::file(buffer), room, n) != n) return false;
    if (result == std::codecvt_base::ok) return true;
    if (n == 0) return false;
  }
}

}  // namespace __zor
