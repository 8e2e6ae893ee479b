// getline for strings, and the members get and getline that fill an array.

#include <string.h>

#include "../libC/i386/processor.h"
#include "extract_string.h"
#include "getline_sse2.h"
#include "input_operation.h"

namespace __zor {

namespace {

const char *find_delimiter(const char *at, const char *end, char delim) {
  return static_cast<const char *>(memchr(at, delim, end - at));
}

// newline, as the stream's locale has it. Only a facet of the program may throw; then the stream is bad, which the
// operation that follows notices.
[[gnu::noinline]] char find_newline(std::istream &in) {
  char delim = '\n';
  if (eh_guard([&] { delim = in.widen('\n'); })) stream_access::state(in) |= ios_base::badbit;
  return delim;
}
inline char newline(std::istream &in) { return has_plain_ctype(stream_access::loc(in)) ? '\n' : find_newline(in); }

// Both members end the text and complain when nothing was taken.
inline void end_text(std::istream &in, char *next, iostate &error) {
  *next = 0;
  if (stream_access::count(in) == 0) error |= ios_base::failbit;
}

// Copies what comes before the delimiter, up to the room that is left, and counts it; returns whether it is there.
inline bool copy_up_to(const char *&at, const char *end, char delim, char *&next, std::streamsize &room,
                       std::streamsize &count) {
  const std::streamsize n = end - at < room ? end - at : room;
  const char *const found = find_delimiter(at, at + n, delim);
  const std::streamsize part = found ? found - at : n;
  memmove(next, at, part);  // a program may read into the place it reads from
  next += part;
  room -= part;
  count += part;
  at += part;
  return found != nullptr;
}

template <class... To> inline std::istream &fast_get_line(std::istream &in, To &...to) {
  return __builtin_expect(processor_has(processor_sse2), true) ? get_line_sse2(in, to...) : get_line(in, to...);
}

}  // namespace

std::istream &get_line(std::istream &in, std::string &text, char delim) {
  unguarded_input_operation(in, true, [&](iostate &error) {
    text.clear();
    const unsigned int most = text.max_size();
    bool any = false, full = false, failed = false;
    const bool stopped = read_blocks(stream_access::buffer(in), [&](const char *&at, const char *end) {
      const char *const found = find_delimiter(at, end, delim);
      unsigned int n = (found ? found : end) - at;
      if (n > most - text.size()) {
        n = most - text.size();
        full = true;
      }
      if (has_place(text, n))
        text.append(at, n);
      else if (n && eh_guard([&] { text.append(at, n); })) {
        failed = true;
        return false;
      }
      any = true;
      at += n;
      if (full || !found) return !full;
      ++at;
      return false;
    });
    if (!stopped) error |= ios_base::eofbit;
    if (failed) error |= ios_base::badbit;
    if (full || !(any || failed)) error |= ios_base::failbit;
  });
  return in;
}

std::istream &get_line(std::istream &in, char *to, std::streamsize n, char delim) {
  char *next = to;
  unguarded_input_operation(
      in, true,
      [&](iostate &error) {
        if (n < 1) return;
        std::streamsize room = n - 1;
        if (!read_blocks(stream_access::buffer(in), [&](const char *&at, const char *end) {
              const bool found = copy_up_to(at, end, delim, next, room, stream_access::count(in));
              if (!found && at == end) return true;
              // Without room the delimiter may still follow; what else follows does not fit.
              if (*at == delim) {
                ++at;
                ++stream_access::count(in);
              } else {
                error |= ios_base::failbit;
              }
              return false;
            }))
          error |= ios_base::eofbit;
      },
      [&](iostate &error) { end_text(in, next, error); });
  return in;
}

}  // namespace __zor

namespace std {

using namespace __zor;

template <> istream &getline(istream &in, string &text, char delim) { return fast_get_line(in, text, delim); }

template <> istream &getline(istream &in, string &text) {
  const char delim = newline(in);
  return fast_get_line(in, text, delim);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::get(C *to, streamsize n, C delim) {
  char *next = to;
  unguarded_input_operation(
      *this, true,
      [&](iostate &error) {
        streamsize room = n < 1 ? 0 : n - 1;
        if (room && !read_blocks(stream_access::buffer(*this), [&](const char *&at, const char *end) {
              return !copy_up_to(at, end, delim, next, room, _gcount_) && room;
            }))
          error |= ios_base::eofbit;
      },
      [&](iostate &error) { end_text(*this, next, error); });
  return *this;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::getline(C *to, streamsize n, C delim) {
  return fast_get_line(*this, to, n, delim);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::get(C *to, streamsize n) {
  return get(to, n, newline(*this));
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::getline(C *to, streamsize n) {
  const char delim = newline(*this);
  return fast_get_line(*this, to, n, delim);
}

template class basic_istream<char, char_traits<char>>;

}  // namespace std
