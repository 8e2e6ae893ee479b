// std::exception: an owned message on the heap, or none.

#include <exception>

#include <stdio.h>

#include <new>
#include <string>

#include "../libC/eh_tools.h"
#include "../string/representation.h"

using namespace __zor;

namespace {

// The string object lies in a block as its characters do: the free lists have one at hand. It takes the block's first
// word, which nobody reads until the block is free again.
static_assert(sizeof(std::string) <= offsetof(b_str_ref, count), "the block still knows its size");

// The text is built first, where unwinding finds it; what follows leaks nothing when memory runs out.
template <class Source> std::string *heap_string(const Source &source) {
  eh_local<std::string> text(source);
  std::string *owned = new (make_representation(capacity_for(0))) std::string;
  owned->swap(text.get());
  return owned;
}

void free_heap_string(std::string *owned) {
  owned->~basic_string();
  free_representation(reinterpret_cast<b_str_ref *>(owned));
}

}  // namespace

namespace std {

exception::exception(const char *text) : _message_(heap_string(text)), _has_message_(true) {}

exception::exception(const string &text) : _message_(heap_string(text)), _has_message_(true) {}

exception::exception(const exception &other) : _message_(nullptr), _has_message_(other._has_message_) {
  if (_has_message_) _message_ = heap_string(other.what());
}

exception &exception::operator=(const exception &other) {
  if (this == &other) return *this;
  string *copied = other._has_message_ ? heap_string(other.what()) : nullptr;
  if (_has_message_) free_heap_string(_message_);
  _message_ = copied;
  _has_message_ = copied != nullptr;
  return *this;
}

exception::~exception() PLX_NOTHROW {
  if (_has_message_) free_heap_string(_message_);
}

const char *exception::what() const PLX_NOTHROW { return _has_message_ ? _message_->c_str() : ""; }

void exception::__issue_msg_to_stderr(const char *text) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  fprintf(stderr, text);
#pragma GCC diagnostic pop
}

}  // namespace std
