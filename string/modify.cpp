// The modifiers. Each checks first, then either works in place, when the string is the only owner and its block has
// room, or builds the result in a new representation and gives up the old one last: so a source inside the string
// itself stays readable, and an operation that throws has changed nothing. The capacity that results depends on the
// lengths alone, never on the room of the block.

#include "representation.h"

namespace __zor {

namespace {

// The sources of characters: a text, and one character many times. Plain values, which are passed in registers.
void write(char *to, const char *text, unsigned n) { move_characters(to, text, n); }
void write(char *to, char c, unsigned n) { fill_characters(to, n, c); }
bool lies_in(const b_str_ref *rep, const char *text) { return text >= rep->data && text <= rep->data + rep->length; }
bool lies_in(const b_str_ref *, char) { return false; }

// For a text inside the string whose tail from `gap` on was moved up by n: its part before the gap, then the rest.
void write_moved(char *gap, const char *text, unsigned n) {
  const unsigned distance = text < gap ? static_cast<unsigned>(gap - text) : 0;
  const unsigned before = distance < n ? distance : n;
  move_characters(gap, text, before);
  move_characters(gap + before, text + before + n, n - before);
}
void write_moved(char *, char, unsigned) {}  // one that lies in the string is a copy

// What stands behind a change is moved by functions that need the GOT pointer anyway.
void move_tail(char *to, const char *from, unsigned n) {
  if (n > short_move)
    memmove(to, from, n);
  else
    move_characters(to, from, n);
}

// Ends a change in a private representation's own room: references into it are none any more.
inline void changed_in_place(b_str_ref *rep, unsigned length, unsigned capacity) {
  set_length(rep, length);
  rep->capacity = capacity;
  rep->count = 1;
}

// Beyond it a capacity is no 32-bit number.
constexpr unsigned most_in_place = _string_npos - 32;

template <class Source> PLX_ALWAYS_INLINE bool append_in_place(b_str_ref *rep, Source source, unsigned n) {
  const unsigned length = rep->length;
  if (!_string_is_private(rep)) return false;
  if (n >= rep->capacity - length && (n > most_in_place - length || !_string_widen(rep, length + n))) return false;
  char *const at = rep->data + length;
  set_length(rep, length + n);
  rep->count = 1;
  write(at, source, n);
  return true;
}

// Appending to a string that shares its representation, as all empty ones do.
template <class Source> PLX_ALWAYS_INLINE void append_to_copy(b_str_ref *&rep, Source source, unsigned n) {
  b_str_ref *const old = rep;
  const unsigned length = old->length;
  b_str_ref *made = make_representation(capacity_for(length + n));
  copy_characters(made->data, old->data, length);
  write(made->data + length, source, n);
  set_length(made, length + n);
  --old->count;
  rep = made;
}

}  // namespace

// What is left of assigning and appending. Not in the unnamed namespace, where clang passes fewer arguments in
// registers.
template <class Source> PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void assign(b_str_ref *&rep, Source source, unsigned n) {
  if (_string_is_private(rep) && (n < rep->capacity || (n <= most_in_place && _string_widen(rep, n)))) {
    write(rep->data, source, n);
    set_length(rep, n);
    rep->count = 1;
    return;
  }
  if (n == _string_npos) fail_length();
  b_str_ref *made = make_representation(capacity_for(n));
  write(made->data, source, n);
  set_length(made, n);
  take_over(rep, made);
}

template <class Source>
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void append_by_new_block(b_str_ref *&rep, Source source, unsigned n) {
  const unsigned length = rep->length;
  if (n >= ~length) fail_length();
  if (!_string_is_private(rep)) return append_to_copy(rep, source, n);
  const unsigned capacity = capacity_for(length + n), room = grown_room(rep);
  b_str_ref *made = lies_in(rep, source) ? nullptr : extend_representation(rep, capacity, room);
  if (!made) {
    made = make_roomy_representation(capacity, room);
    copy_characters(made->data, rep->data, length);
    write(made->data + length, source, n);
    free_representation(rep);
  } else {
    write(made->data + length, source, n);
  }
  set_length(made, length + n);
  rep = made;
}

namespace {

template <class Source> PLX_ALWAYS_INLINE void append(b_str_ref *&rep, Source source, unsigned n) {
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
      if (lies_in(rep, source)) {
        move_characters(at + n, at, length - pos + 1);  // the source may include the terminator
        write_moved(at, source, n);
        move_characters(at + n, at + n + xlen, tail);
      } else {
        move_tail(at + n, at + xlen, tail);
        write(at, source, n);
      }
      changed_in_place(rep, new_length, capacity);
      return;
    }
    room = grown_room(rep);
  }
  b_str_ref *made = room ? make_roomy_representation(capacity, room) : make_representation(capacity);
  copy_characters(made->data, rep->data, pos);
  write(made->data + pos, source, n);
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
    move_tail(rep->data + pos, rep->data + pos + n, tail);
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
    write(rep->data + pos, source, n2);  // nothing moves, so the source may lie anywhere
    changed_in_place(rep, length, capacity);
  } else {
    exchange(rep, pos, xlen, source, n2);
  }
}

}  // namespace

void _string_assign(b_str_ref *&rep, const char *text, unsigned n) {
  if (n > short_move) return assign(rep, text, n);
  b_str_ref *const old = rep;
  if (_string_is_private(old)) {  // any capacity is larger
    move_characters(old->data, text, n);
    set_length(old, n);
    old->count = 1;
  } else {
    b_str_ref *made = make_text(text, n);
    --old->count;
    rep = made;
  }
}
void _string_assign_filled(b_str_ref *&rep, unsigned n, char c) { assign(rep, c, n); }

void _string_append(b_str_ref *&rep, const char *text, unsigned n) { append(rep, text, n); }
void _string_append_filled(b_str_ref *&rep, unsigned n, char c) { append(rep, c, n); }
void _string_append_one(b_str_ref *&rep, char c) {
  if (_string_is_private(rep))
    append(rep, c, 1);
  else
    append_to_copy(rep, c, 1);
}

void _string_insert(b_str_ref *&rep, unsigned pos, const char *text, unsigned n) {
  if (n != 0 && text) insert(rep, pos, text, n);
}
void _string_insert_filled(b_str_ref *&rep, unsigned pos, unsigned n, char c) {
  if (n != 0) insert(rep, pos, c, n);
}

void _string_replace(b_str_ref *&rep, unsigned pos, unsigned n1, const char *text, unsigned n2) {
  replace(rep, pos, n1, text, text ? n2 : 0);
}
void _string_replace_filled(b_str_ref *&rep, unsigned pos, unsigned n1, unsigned n2, char c) {
  replace(rep, pos, n1, c, n2);
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
