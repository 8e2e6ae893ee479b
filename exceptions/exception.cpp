// std::exception: an owned message on the heap, or none.

#include <exception>

#include <stdio.h>

#include <new>
#include <string>

#include "../libC/eh_tools.h"

using __zor::eh_local;

namespace {

// The text is built first, where unwinding finds it; what follows leaks nothing when memory runs out.
template <class Source> std::string *heap_string(const Source &source) {
  eh_local<std::string> text(source);
  // A call, not a new-expression: a compiler may assume that the allocation of a new-expression reads no memory of the
  // program's, and would move the stores of the eh stack entry behind it.
  std::string *owned = new (operator new(sizeof(std::string))) std::string;
  owned->swap(text.get());
  return owned;
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
  if (_has_message_) delete _message_;
  _message_ = copied;
  _has_message_ = copied != nullptr;
  return *this;
}

exception::~exception() PLX_NOTHROW {
  if (_has_message_) delete _message_;
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
