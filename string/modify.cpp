// The modifiers. Each checks first, then either works in place, when the string is the only owner and its block has
// room, or builds the result in a new representation and gives up the old one last: so a source inside the string
// itself stays readable, and an operation that throws has changed nothing. The capacity that results depends on the
// lengths alone, never on the room of the block.

#include "representation.h"

namespace __zor {

namespace {

// The sources of characters: text, and one character many times.
struct text_source {
  const char *text;

  void write(char *to, unsigned n) const { move_characters(to, text, n); }
  bool lies_in(const b_str_ref *rep) const { return text >= rep->data && text <= rep->data + rep->length; }
};

struct fill_source {
  char c;

  void write(char *to, unsigned n) const { fill_characters(to, n, c); }
  bool lies_in(const b_str_ref *) const { return false; }
};

// For a text inside the string whose tail from `gap` on was moved up by n: its part before the gap, then the rest.
void write_split(char *gap, const char *text, unsigned n) {
  const unsigned distance = text < gap ? static_cast<unsigned>(gap - text) : 0;
  const unsigned before = distance < n ? distance : n;
  move_characters(gap, text, before);
  move_characters(gap + before, text + before + n, n - before);
}
void write_moved(char *gap, text_source source, unsigned n, bool inside) {
  if (inside)
    write_split(gap, source.text, n);
  else
    source.write(gap, n);
}
void write_moved(char *gap, fill_source source, unsigned n, bool) { source.write(gap, n); }

// Ends a change in a private representation's own room: references into it are none any more.
inline void changed_in_place(b_str_ref *rep, unsigned length, unsigned capacity) {
  set_length(rep, length);
  rep->capacity = capacity;
  rep->count = 1;
}

// Ways in place: in the block that is there; false when that has no room, or is shared. `widen` tells whether a private
// representation holds n characters, and gives it the capacity for them; no length comes near the largest number.
constexpr unsigned most_in_place = _string_npos - 32;
PLX_ALWAYS_INLINE bool widen(b_str_ref *rep, unsigned n) {
  return _string_is_private(rep) && (n < rep->capacity || _string_widen(rep, n));
}

template <class Source> PLX_ALWAYS_INLINE bool assign_in_place(b_str_ref *rep, Source source, unsigned n) {
  if (n > most_in_place || !widen(rep, n)) return false;
  source.write(rep->data, n);
  set_length(rep, n);
  rep->count = 1;
  return true;
}

template <class Source> PLX_ALWAYS_INLINE bool append_in_place(b_str_ref *rep, Source source, unsigned n) {
  const unsigned length = rep->length;
  if (n > most_in_place - length || !widen(rep, length + n)) return false;
  char *const at = rep->data + length;
  set_length(rep, length + n);
  rep->count = 1;
  source.write(at, n);
  return true;
}

template <class Source> PLX_NOINLINE void assign_by_new_block(b_str_ref *&rep, Source source, unsigned n) {
  if (n == _string_npos) fail_length();
  b_str_ref *made = make_representation(capacity_for(n));
  source.write(made->data, n);
  set_length(made, n);
  take_over(rep, made);
}

template <class Source> PLX_NOINLINE void append_by_new_block(b_str_ref *&rep, Source source, unsigned n) {
  const unsigned length = rep->length;
  if (n >= ~length) fail_length();
  const unsigned new_length = length + n;
  unsigned room = 0;
  if (_string_is_private(rep)) {
    room = grown_room(rep);
    b_str_ref *extended = source.lies_in(rep) ? nullptr : extend_representation(rep, capacity_for(new_length), room);
    if (extended) {
      rep = extended;
      source.write(rep->data + length, n);
      set_length(rep, new_length);
      return;
    }
  }
  b_str_ref *made =
      room ? make_roomy_representation(capacity_for(new_length), room) : make_representation(capacity_for(new_length));
  copy_characters(made->data, rep->data, length);
  source.write(made->data + length, n);
  set_length(made, new_length);
  take_over(rep, made);
}

// What only new blocks need is out of line, so that the ways in place save few registers.
template <class Source> void assign(b_str_ref *&rep, Source source, unsigned n) {
  if (!assign_in_place(rep, source, n)) assign_by_new_block(rep, source, n);
}
template <class Source> void append(b_str_ref *&rep, Source source, unsigned n) {
  if (!append_in_place(rep, source, n)) append_by_new_block(rep, source, n);
}

// Puts n characters in the place of xlen at pos. The capacity is that of both together: the new characters are there
// before the old ones go.
template <class Source> void exchange(b_str_ref *&rep, unsigned pos, unsigned xlen, Source source, unsigned n) {
  const unsigned length = rep->length;
  const unsigned new_length = length - xlen + n;
  const unsigned capacity = capacity_for(length + n);
  const unsigned tail = length - pos - xlen;
  unsigned room = 0;
  if (_string_is_private(rep)) {
    if (has_room(rep, length + n, capacity)) {
      char *at = rep->data + pos;
      if (source.lies_in(rep)) {
        move_characters(at + n, at, length - pos + 1);  // the source may include the terminator
        write_moved(at, source, n, true);
        move_characters(at + n, at + n + xlen, tail);
      } else {
        move_characters(at + n, at + xlen, tail);
        source.write(at, n);
      }
      changed_in_place(rep, new_length, capacity);
      return;
    }
    room = grown_room(rep);
  }
  b_str_ref *made = room ? make_roomy_representation(capacity, room) : make_representation(capacity);
  copy_characters(made->data, rep->data, pos);
  source.write(made->data + pos, n);
  copy_characters(made->data + pos + n, rep->data + pos + xlen, tail);
  set_length(made, new_length);
  take_over(rep, made);
}

template <class Source> void insert(b_str_ref *&rep, unsigned pos, Source source, unsigned n) {
  if (pos > rep->length) fail_out_of_range();
  if (n >= ~rep->length) fail_length();
  exchange(rep, pos, 0, source, n);
}

PLX_ALWAYS_INLINE void erase(b_str_ref *&rep, unsigned pos, unsigned n) {
  const unsigned length = rep->length;
  if (pos > length) fail_out_of_range();
  if (n > length - pos) n = length - pos;
  if (n == 0) return;
  const unsigned tail = length - pos - n;
  if (_string_is_private(rep)) {
    move_characters(rep->data + pos, rep->data + pos + n, tail);
    set_length(rep, length - n);
    rep->count = 1;
  } else {
    b_str_ref *made = make_representation(rep->capacity);
    copy_characters(made->data, rep->data, pos);
    copy_characters(made->data + pos, rep->data + pos + n, tail);
    set_length(made, length - n);
    take_over(rep, made);
  }
}

// Replacing is inserting, then erasing; where nothing is to be inserted only the erasing is left.
template <class Source> void replace(b_str_ref *&rep, unsigned pos, unsigned n1, Source source, unsigned n2) {
  const unsigned length = rep->length;
  if (pos > length) fail_out_of_range();
  const unsigned xlen = n1 < length - pos ? n1 : length - pos;
  if (~n2 <= length - xlen || n2 >= ~length) fail_length();
  const unsigned capacity = capacity_for(length + n2);
  if (n2 == 0) {
    erase(rep, pos, xlen);
  } else if (xlen == n2 && _string_is_private(rep) && has_room(rep, length + n2, capacity)) {
    source.write(rep->data + pos, n2);  // nothing moves, so the source may lie anywhere
    changed_in_place(rep, length, capacity);
  } else {
    exchange(rep, pos, xlen, source, n2);
  }
}

}  // namespace

void _string_assign(b_str_ref *&rep, const char *text, unsigned n) { assign(rep, text_source{text}, n); }
void _string_assign_filled(b_str_ref *&rep, unsigned n, char c) { assign(rep, fill_source{c}, n); }

void _string_append(b_str_ref *&rep, const char *text, unsigned n) { append(rep, text_source{text}, n); }
void _string_append_filled(b_str_ref *&rep, unsigned n, char c) { append(rep, fill_source{c}, n); }
void _string_append_one(b_str_ref *&rep, char c) { append(rep, fill_source{c}, 1); }

void _string_insert(b_str_ref *&rep, unsigned pos, const char *text, unsigned n) {
  if (n != 0 && text) insert(rep, pos, text_source{text}, n);
}
void _string_insert_filled(b_str_ref *&rep, unsigned pos, unsigned n, char c) {
  if (n != 0) insert(rep, pos, fill_source{c}, n);
}

void _string_replace(b_str_ref *&rep, unsigned pos, unsigned n1, const char *text, unsigned n2) {
  replace(rep, pos, n1, text_source{text}, text ? n2 : 0);
}
void _string_replace_filled(b_str_ref *&rep, unsigned pos, unsigned n1, unsigned n2, char c) {
  replace(rep, pos, n1, fill_source{c}, n2);
}

void _string_erase(b_str_ref *&rep, unsigned pos, unsigned n) { erase(rep, pos, n); }

void _string_resize(b_str_ref *&rep, unsigned n, char c) {
  const unsigned length = rep->length;
  if (n == length) return;
  if (n == _string_npos) fail_length();
  const unsigned kept = n < length ? n : length;
  unsigned room = 0;
  if (_string_is_private(rep)) {
    const unsigned capacity = rep->capacity < n ? capacity_for(n) : rep->capacity;
    if (has_room(rep, n, capacity)) {
      fill_characters(rep->data + kept, n - kept, c);
      changed_in_place(rep, n, capacity);
      return;
    }
    room = grown_room(rep);
  }
  b_str_ref *made = room ? make_roomy_representation(capacity_for(n), room) : make_representation(capacity_for(n));
  copy_characters(made->data, rep->data, kept);
  fill_characters(made->data + kept, n - kept, c);
  set_length(made, n);
  take_over(rep, made);
}

}  // namespace __zor
