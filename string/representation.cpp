// The life of a representation: making it from text, sharing the empty one, giving it up, and making it private before
// a reference into its characters is handed out.

#include "representation.h"

namespace __zor {

namespace {

char null_buffer[33];

// More than any block can hold: operator new then reports the failure its own way.
constexpr unsigned largest_capacity = 0x7FFFFF00;

unsigned block_bytes(unsigned capacity, unsigned room) {
  return in_steps((capacity < room && room < largest_capacity ? room : capacity + 1) + sizeof(b_str_ref));
}

[[noreturn]] PLX_COLD void out_of_memory() {
  for (;;) operator delete(operator new(no_limit));
}

PLX_NOINLINE b_str_ref *make_filled(unsigned n, char c) {
  b_str_ref *rep = make_representation(capacity_for(n));
  fill_characters(rep->data, n, c);
  set_length(rep, n);
  return rep;
}

PLX_NOINLINE b_str_ref *make_other(const char *text, unsigned n) {
  if (n == _string_npos) fail_out_of_range();
  return text ? make_text(text, n) : make_filled(n, 0);
}

}  // namespace

// Nobody writes into it, so reserving only raises the capacity that it reports.
b_str_ref null_representation = {{}, 0, null_buffer, 0, 32, sizeof null_buffer, 0};

b_str_ref *make_roomy_representation(unsigned capacity, unsigned room) {
  if (capacity - 1u >= largest_capacity) out_of_memory();
  b_str_ref *rep = take_block(block_bytes(capacity, room));
  rep->count = 1;
  rep->capacity = capacity;
  return rep;
}

b_str_ref *extend_representation(b_str_ref *rep, unsigned capacity, unsigned room) {
  if (capacity - 1u >= largest_capacity) return nullptr;
  b_str_ref *extended = extend_block(rep, block_bytes(capacity, room));
  if (!extended) return nullptr;
  extended->count = 1;
  extended->capacity = capacity;
  return extended;
}

void free_special_representation(b_str_ref *rep) PLX_NOTHROW {
  if (rep->data != own_buffer(rep)) give_block(rep->data, rep->_room);
  give_block(rep, rep->_block & ~block_is_special);
}

b_str_ref *_string_make(const char *text, unsigned n) {
  if (__builtin_expect(!text || n > short_copy, false)) return make_other(text, n);
  return make_text(text, n);
}

b_str_ref *_string_make_filled(unsigned n, char c) {
  if (n == _string_npos) fail_out_of_range();
  return make_filled(n, c);
}

b_str_ref *_string_join(const char *left, unsigned left_n, const char *right, unsigned right_n) {
  if (right_n >= ~left_n) fail_length();
  const unsigned n = left_n + right_n;
  b_str_ref *rep = make_representation(capacity_for(n));
  char *data = own_buffer(rep);
  rep->length = n;
  data[n] = 0;
  copy_characters(data, left, left_n);
  copy_characters(data + left_n, right, right_n);
  return rep;
}

b_str_ref *_string_part(b_str_ref *rep, unsigned pos, unsigned n) {
  const unsigned length = rep->length;
  if (__builtin_expect(pos > length, false)) fail_out_of_range();
  if (n >= length - pos) {
    if (pos == 0 && !_string_is_unshareable(rep)) {
      ++rep->count;
      return rep;
    }
    n = length - pos;
  }
  const char *text = rep->data + pos;
  return n > short_copy ? make_other(text, n) : make_text(text, n);
}

void _string_make_null(b_str_ref *&nullbuf) PLX_NOTHROW {
  ++null_representation.count;
  nullbuf = &null_representation;
}

void _string_free(b_str_ref *rep) PLX_NOTHROW { free_representation(rep); }

void _string_expose(b_str_ref *&rep) {
  if (!_string_is_private(rep)) {
    b_str_ref *made = make_text(rep->data, rep->length);
    --rep->count;
    rep = made;
  }
  rep->count = _string_npos;
}

void _string_expose_at(b_str_ref *&rep, unsigned pos) {
  if (pos > rep->length) fail_out_of_range();
  _string_expose(rep);
}

// Changes the block for all that share it: the characters stay the same.
void _string_reserve(b_str_ref *&rep, unsigned n) {
  if (n == _string_npos) fail_length();
  if (rep->capacity >= n) return;
  const unsigned capacity = capacity_for(n);
  if (capacity - 1u >= largest_capacity) out_of_memory();
  if (rep == &null_representation || capacity < rep->_room) {
    rep->capacity = capacity;
  } else if (_string_is_private(rep)) {
    b_str_ref *made = make_representation(capacity);
    memcpy(made->data, rep->data, rep->length + 1);
    made->length = rep->length;
    made->count = rep->count;
    free_representation(rep);
    rep = made;
  } else {
    // The others hold the address of this representation, so only its buffer moves.
    const unsigned bytes = in_steps(capacity + 1);
    char *buffer = reinterpret_cast<char *>(take_block(bytes));
    memcpy(buffer, rep->data, rep->length + 1);
    if (rep->data != own_buffer(rep)) give_block(rep->data, rep->_room);
    rep->_block |= block_is_special;
    rep->data = buffer;
    rep->_room = bytes;
    rep->capacity = capacity;
  }
}

}  // namespace __zor
