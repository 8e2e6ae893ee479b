// The fast path of getline for processors with SSE2: sixteen characters a step, searched and copied at once. Nothing is
// written into an array behind the delimiter; a string's block is its own, and takes whole steps.

#include "getline_sse2.h"

#include <emmintrin.h>

#include "../libC/i386/processor.h"
#include "extract_string.h"
#include "input_operation.h"

namespace __zor {

namespace {

PLX_SSE2 inline __m128i load(const char *at) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(at)); }
PLX_SSE2 inline void store(char *at, __m128i block) { _mm_storeu_si128(reinterpret_cast<__m128i *>(at), block); }

// Copies characters up to the first `delim` among n, and returns where that is; null when there is none, and then up to
// n characters may have been copied. The texts do not overlap. With `whole_steps`, up to 16 of the n characters more
// are copied.
template <bool whole_steps>
PLX_SSE2 PLX_ALWAYS_INLINE const char *copy_line(char *to, const char *from, unsigned int n, char delim) {
  const __m128i wanted = _mm_set1_epi8(delim);
  unsigned int i = 0;
  for (; n - i >= 16; i += 16) {
    const __m128i block = load(from + i);
    const unsigned int mask = static_cast<unsigned int>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
    if (whole_steps) store(to + i, block);
    if (mask != 0) {
      const unsigned int end = i + static_cast<unsigned int>(__builtin_ctz(mask));
      if (whole_steps) return from + end;
      if (end >= 16)
        store(to + end - 16, load(from + end - 16));
      else
        move_characters(to, from, end);
      return from + end;
    }
    if (!whole_steps) store(to + i, block);
  }
  for (; i != n; ++i) {
    if (from[i] == delim) return from + i;
    to[i] = from[i];
  }
  return nullptr;
}

// The room, as far as the window has characters for it; 0 when there is no fast path: the stream has something else to
// do, or the texts overlap.
PLX_ALWAYS_INLINE unsigned int open_line(std::istream &in, get_window &window, const char *to, unsigned int room) {
  if (!starts_fast(in) || !window.open(_stream_access::buffer(in)) || window.is_endless()) return 0;
  const unsigned int size = window.end - window.at, n = size < room ? size : room;
  return window.at < to + n && to < window.at + n ? 0 : n;
}

}  // namespace

PLX_SSE2 PLX_HIDDEN PLX_REGPARM std::istream &get_line_sse2(std::istream &in, std::string &text, char delim) {
  get_window window;
  b_str_ref *const rep = representation_of(text);
  if (!_string_is_private(rep)) return get_line(in, text, delim);
  const unsigned int most = open_line(in, window, rep->data, rep->capacity);
  const char *const stop = copy_line<true>(rep->data, window.at, most, delim);
  if (!stop) return get_line(in, text, delim);
  const unsigned int n = stop - window.at;
  rep->count = 1;
  rep->length = n;
  rep->data[n] = 0;
  window.take_up_to(stop + 1);
  start_count(in);
  return in;
}

PLX_SSE2 PLX_HIDDEN PLX_REGPARM std::istream &get_line_sse2(std::istream &in, char *to, std::streamsize n, char delim) {
  get_window window;
  const unsigned int most = n < 1 ? 0 : open_line(in, window, to, n);
  const char *const stop = copy_line<false>(to, window.at, most, delim);
  if (!stop) return get_line(in, to, n, delim);
  const unsigned int size = stop - window.at;
  to[size] = 0;
  window.take_up_to(stop + 1);
  _stream_access::count(in) = size + 1;
  return in;
}

}  // namespace __zor
