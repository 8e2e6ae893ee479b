// Unformatted input: single characters, blocks, and characters given back or dropped.

#include "input_operation.h"
#include "move_block.h"

namespace std {

using namespace __zor;

namespace {

// One character, straight from where it lies; EOF: the frame is needed, or there is none.
inline int take_fast(istream &in) {
  if (!starts_fast(in)) return EOF;
  get_window window;
  if (!window.open(stream_access::buffer(in))) return EOF;
  window.take_up_to(window.at + 1);
  stream_access::count(in) = 1;
  return static_cast<unsigned char>(*window.at);
}

[[gnu::noinline]] int take_slow(istream &in) {
  int c = EOF;
  unguarded_input_operation(
      in, true,
      [&](iostate &error) {
        c = stream_access::buffer(in)->sbumpc();
        if (c == EOF)
          error |= ios_base::eofbit;
        else
          stream_access::count(in) = 1;
      },
      [&](iostate &error) {
        if (c == EOF) error |= ios_base::failbit;
      });
  return c;
}

[[gnu::noinline]] int peek_slow(istream &in) {
  int c = EOF;
  unguarded_input_operation(in, true, [&](iostate &error) {
    c = stream_access::buffer(in)->sgetc();
    if (c == EOF) error |= ios_base::eofbit;
  });
  return c;
}

// Behind the delimiter, or null. One that is no character is never met.
inline const char *find_end_of_ignored(const char *at, const char *end, int delim) {
  if (delim != static_cast<unsigned char>(delim)) return nullptr;
  const void *const found = memchr(at, delim, end - at);
  return found ? static_cast<const char *>(found) + 1 : nullptr;
}

[[gnu::noinline]] void ignore_slow(istream &in, streamsize n, int delim) {
  if (n < 1) n = 0;
  unguarded_input_operation(in, true, [&](iostate &error) {
    streamsize left = n;
    if (n && !read_blocks(stream_access::buffer(in), [&](const char *&at, const char *end) {
          const streamsize part = end - at < left ? end - at : left;
          const char *const next = find_end_of_ignored(at, at + part, delim);
          const streamsize taken = next ? next - at : part;
          at += taken;
          count_more(stream_access::count(in), taken);
          if (n != INT_MAX) left -= taken;
          return !next && left;
        }))
      error |= ios_base::eofbit;
  });
}

}  // namespace

// The streams that get() and get(c) have not dealt with in the header.
template <class C, class T> typename basic_istream<C, T>::int_type basic_istream<C, T>::_get() {
  const int c = take_fast(*this);
  return __builtin_expect(c == EOF, false) ? take_slow(*this) : c;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::_get(C &to) {
  const int c = _get();
  if (c != EOF) to = static_cast<char>(c);
  return *this;
}

template <class C, class T> typename basic_istream<C, T>::int_type basic_istream<C, T>::peek() {
  get_window window;
  if (starts_fast(*this) && window.open(stream_access::buffer(*this))) {
    _gcount_ = 0;
    return static_cast<unsigned char>(*window.at);
  }
  return peek_slow(*this);
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::read(C *to, streamsize n) {
  get_window window;
  if (starts_fast(*this) && n > 0 && window.open(stream_access::buffer(*this)) && window.end - window.at >= n) {
    move_block(to, window.at, n);
    window.take_up_to(window.at + n);
    _gcount_ = n;
    return *this;
  }
  unguarded_input_operation(*this, true, [&](iostate &error) {
    if (n < 1) return;
    _gcount_ = stream_access::buffer(*this)->sgetn(to, n);
    if (_gcount_ != n) error |= ios_base::eofbit | ios_base::failbit;
  });
  return *this;
}

template <class C, class T> streamsize basic_istream<C, T>::readsome(C *to, streamsize n) {
  streamsize got = 0;
  input_operation(*this, true, [&](iostate &error) {
    streambuf *const buffer = stream_access::buffer(*this);
    const streamsize ready = buffer->in_avail();
    if (ready == -1)
      error |= ios_base::eofbit;
    else if (ready > 0 && n > 0)
      got = _gcount_ = buffer->sgetn(to, ready < n ? ready : n);
  });
  return got;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::ignore(streamsize n, int_type delim) {
  get_window window;
  if (n > 0 && starts_fast(*this) && window.open(stream_access::buffer(*this))) {
    const streamsize ready = window.end - window.at, part = ready < n ? ready : n;
    const char *const next = find_end_of_ignored(window.at, window.at + part, delim);
    if (next || part == n) {
      _gcount_ = next ? next - window.at : n;
      window.take_up_to(window.at + _gcount_);
      return *this;
    }
  }
  ignore_slow(*this, n, delim);
  return *this;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::putback(C c) {
  unguarded_input_operation(*this, true, [&](iostate &error) {
    if (stream_access::buffer(*this)->sputbackc(c) == EOF) error |= ios_base::badbit;
  });
  return *this;
}

template <class C, class T> basic_istream<C, T> &basic_istream<C, T>::unget() {
  unguarded_input_operation(*this, true, [&](iostate &error) {
    if (stream_access::buffer(*this)->sungetc() == EOF) error |= ios_base::badbit;
  });
  return *this;
}

template class basic_istream<char, char_traits<char>>;

}  // namespace std
