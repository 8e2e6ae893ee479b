// The scanners' view of a source of characters: look at the next one, pass it.
#pragma once

#include <plx/streambuf/character_source.h>

namespace __zor {

class character_cursor {
public:
  explicit character_cursor(_character_source &source) : source_(source), next_(source._next), end_(source._end) {}
  character_cursor(const character_cursor &) = delete;
  character_cursor &operator=(const character_cursor &) = delete;

  // Tells the source what was read; the last call.
  void done() { source_._next = next_; }

  bool at_end() { return next_ == end_ && !more(); }

  // Not at the end.
  char operator*() const { return *next_; }
  void pass() { ++next_; }

  // Passes c, if it comes next.
  bool pass(char c) {
    if (at_end() || *next_ != c) return false;
    ++next_;
    return true;
  }

private:
  // Before the call, the source knows what was read: it may throw.
  PLX_NOINLINE bool more() {
    source_._next = next_;
    const bool found = source_._more(&source_);
    next_ = source_._next;
    end_ = source_._end;
    return found;
  }

  _character_source &source_;
  const char *next_;
  const char *end_;
};

}  // namespace __zor
